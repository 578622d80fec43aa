// A view owns its fields and knows them by name; rules subscribe to events of its fields, fronts observe changes of
// properties. Views is the set of all views of the program with their stacking order. Neither knows a toolkit.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/field.h"
#include "platform/pointer_event.h"

namespace noldarz {

class Views;

class View {
 public:
  using Rule = std::function<void()>;
  using PointerRule = std::function<void(const PointerEvent&)>;
  using KeyRule = std::function<void(const KeyEvent&)>;
  using Observer = std::function<void(Field&, Property)>;

  View(Views& views, std::string name, std::string title);
  View(const View&) = delete;
  View& operator=(const View&) = delete;

  const std::string& name() const { return name_; }
  const std::string& title() const { return title_; }
  void setTitle(std::string_view title) { title_ = title; }

  Field& add(FieldKind kind, std::string name, std::string text = {});
  Field& text(std::string name, std::string initial = {}) {
    return add(FieldKind::text, std::move(name), std::move(initial));
  }
  /// A text that is not shown.
  Field& carried(std::string name, std::string initial = {});
  Field& label(std::string name, std::string caption = {}) {
    return add(FieldKind::label, std::move(name), std::move(caption));
  }

  /// `name(0)` to `name(N - 1)`.
  template <std::size_t N>
  FieldArray<N> array(FieldKind kind, const std::string& name, const std::string& text = {}) {
    std::array<Field*, N> fields{};
    for (std::size_t i = 0; i < N; ++i) fields[i] = &add(kind, name + "(" + std::to_string(i) + ")", text);
    return FieldArray<N>{fields};
  }

  std::deque<Field>& fields() { return fields_; }
  /// The field of that name; null when the view has none.
  Field* find(std::string_view name);

  /// Subscribes a rule to an event of a field of this view; rules of one event run in the order of subscription. A rule
  /// may subscribe others; one for the event that is running runs at once, as the last.
  void on(Field& field, Event event, Rule rule);
  /// Runs the rules of the event. Desktop widgets, scripts and tests all come in here.
  void fire(Field& field, Event event);
  /// The pointer and the keys on a canvas, a dial or the ground of the view (the field of that name). The rules of a
  /// field run in the order of subscription.
  void onPointer(Field& field, PointerRule rule) { pointerRules_.push_back({&field, std::move(rule)}); }
  void onKey(Field& field, KeyRule rule) { keyRules_.push_back({&field, std::move(rule)}); }
  void pointer(Field& field, const PointerEvent& pointer);
  void key(Field& field, const KeyEvent& key);
  /// Whether a rule waits for keys on the field.
  bool takesKeys(const Field& field) const;
  /// Each change of a property is told to the observers, for a front that shows the view: text and caption are one and
  /// told as Property::text, value and checked as Property::value.
  void observe(Observer observer) { observers_.push_back(std::move(observer)); }

  /// Counts up with every change of a text, so that what was read from several fields is known to be still good.
  std::uint64_t textRevision() const { return textRevision_; }

  void onLoad(Rule rule) { loadRules_.push_back(std::move(rule)); }
  /// When the view first shows and each time it comes back to the front.
  void onFront(Rule rule) { frontRules_.push_back(std::move(rule)); }
  /// When the view has come to the screen: shown, restored, uncovered.
  void onPaint(Rule rule) { paintRules_.push_back(std::move(rule)); }
  /// When the view is about to close, and when it has closed.
  void onClosing(Rule rule) { closingRules_.push_back(std::move(rule)); }
  void onClose(Rule rule) { closeRules_.push_back(std::move(rule)); }

  /// Begins the life of the view without showing it; does nothing when it is loaded.
  void load();
  /// Loads the view if it is not loaded, makes it visible and brings it to the front.
  void show(bool modal = false);
  void hide();
  /// The user acts on the view: it comes to the front. Does nothing when he can't.
  void activate();
  /// The view only tells of what runs: it takes no place in front of others.
  void setPassive() { passive_ = true; }
  /// Ends the life of the view; does nothing when it is not loaded or closes already.
  void close();
  /// A front paints a view once the event that brought it to the front has ended.
  bool isPaintDue() const { return paintDue_; }
  void paint();
  bool loaded() const { return loaded_; }
  bool visible() const { return visible_; }
  bool modal() const { return modal_; }
  /// Whether it is about to close.
  bool closing() const { return closing_; }
  /// Whether the user can act on the view: it is visible and no modal view lies above it.
  bool acceptsInput() const;

 private:
  friend class Field;
  friend class Views;
  void notify(Field& field, Property property) {
    for (const auto& observer : observers_) observer(field, property);
  }
  void textChanged() { ++textRevision_; }
  void run(const std::vector<Rule>& rules) const;

  struct Subscription {
    Field* field;
    Event event;
    Rule rule;
  };
  template <class RuleOfData>
  using RulesOfData = std::deque<std::pair<Field*, RuleOfData>>;  // a deque: a rule may subscribe another
  template <class RuleOfData, class Data>
  void tell(const RulesOfData<RuleOfData>& rules, const Field& field, const Data& data) const;

  Views& views_;
  std::string name_;
  std::string title_;
  std::deque<Field> fields_;  // a deque: references to fields stay valid
  std::deque<Subscription> subscriptions_;
  RulesOfData<PointerRule> pointerRules_;
  RulesOfData<KeyRule> keyRules_;
  std::vector<Observer> observers_;
  std::vector<Rule> loadRules_;
  std::vector<Rule> frontRules_;
  std::vector<Rule> paintRules_;
  std::vector<Rule> closingRules_;
  std::vector<Rule> closeRules_;
  std::uint64_t textRevision_ = 1;
  bool loaded_ = false;
  bool visible_ = false;
  bool modal_ = false;
  bool closing_ = false;
  bool paintDue_ = false;
  bool passive_ = false;
};

/// Made before its views, and outlives them.
class Views {
 public:
  /// All views, in the order in which they were made.
  const std::vector<View*>& all() const { return all_; }
  /// The view of that name; null when there is none.
  View* find(std::string_view name) const;
  /// Loaded views, the one in front last.
  const std::vector<View*>& open() const { return stack_; }
  /// The visible view in front, passive ones apart; null when there is none.
  View* front() const;

  /// Each time an act begins: an event of the user or of a timer, with all that its rules set off.
  void onAct(std::function<void()> rule) { actBegins_ = std::move(rule); }

 private:
  friend class View;
  /// While one lives, an act.
  class Act {
   public:
    explicit Act(Views& views) : views_(views) {
      if (views_.acts_++ == 0 && views_.actBegins_) views_.actBegins_();
    }
    Act(const Act&) = delete;
    Act& operator=(const Act&) = delete;
    ~Act() { --views_.acts_; }

   private:
    Views& views_;
  };

  void raise(View& view);
  void remove(const View& view);
  /// Tells the view that has come to the front.
  void settleFront();

  std::vector<View*> all_;
  std::vector<View*> stack_;
  View* frontBefore_ = nullptr;
  std::function<void()> actBegins_;
  int acts_ = 0;
};

}  // namespace noldarz
