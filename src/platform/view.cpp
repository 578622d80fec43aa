#include "platform/view.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace noldarz {

View::View(Views& views, std::string name, std::string title)
    : views_(views), name_(std::move(name)), title_(std::move(title)) {
  views.all_.push_back(this);
}

Field& View::add(FieldKind kind, std::string name, std::string text) {
  return fields_.emplace_back(*this, kind, std::move(name), std::move(text));
}

Field& View::carried(std::string name, std::string initial) {
  Field& field = add(FieldKind::carried, std::move(name), std::move(initial));
  field.setVisible(false);
  return field;
}

Field* View::find(std::string_view name) {
  const auto found = std::find_if(fields_.begin(), fields_.end(), [&](const Field& f) { return f.name() == name; });
  return found == fields_.end() ? nullptr : &*found;
}

void View::on(Field& field, Event event, Rule rule) {
  if (&field.view() != this) throw std::logic_error("the field " + field.fullName() + " is not of view " + name_);
  subscriptions_.push_back({&field, event, std::move(rule)});
}

void View::fire(Field& field, Event event) {
  const Views::Act act{views_};
  if (event == Event::lostFocus) field.setFault({});       // its rule tells what still is
  for (std::size_t i = 0; i < subscriptions_.size(); ++i)  // by index: a rule may subscribe another
    if (subscriptions_[i].field == &field && subscriptions_[i].event == event) subscriptions_[i].rule();
}

template <class RuleOfData, class Data>
void View::tell(const RulesOfData<RuleOfData>& rules, const Field& field, const Data& data) const {
  const Views::Act act{views_};
  for (std::size_t i = 0; i < rules.size(); ++i)
    if (rules[i].first == &field) rules[i].second(data);
}

void View::pointer(Field& field, const PointerEvent& pointer) { tell(pointerRules_, field, pointer); }

void View::key(Field& field, const KeyEvent& key) { tell(keyRules_, field, key); }

bool View::takesKeys(const Field& field) const {
  return std::any_of(keyRules_.begin(), keyRules_.end(), [&](const auto& rule) { return rule.first == &field; });
}

void View::run(const std::vector<Rule>& rules) const {
  const Views::Act act{views_};
  for (const auto& rule : rules) rule();
}

void View::load() {
  if (loaded_) return;
  loaded_ = true;
  views_.raise(*this);
  run(loadRules_);
}

void View::show(bool modal) {
  const bool loads = !loaded_;
  loaded_ = visible_ = true;
  modal_ = modal;
  views_.raise(*this);
  if (loads) run(loadRules_);
  views_.settleFront();
}

void View::hide() {
  visible_ = modal_ = false;
  views_.settleFront();
}

void View::activate() {
  if (!acceptsInput()) return;
  views_.raise(*this);
  views_.settleFront();
}

void View::close() {
  if (!loaded_ || closing_) return;
  closing_ = true;
  try {
    run(closingRules_);
  } catch (...) {
    closing_ = false;
    throw;
  }
  closing_ = loaded_ = visible_ = modal_ = paintDue_ = false;
  views_.remove(*this);
  views_.settleFront();
  run(closeRules_);
}

void View::paint() {
  paintDue_ = false;
  run(paintRules_);
}

bool View::acceptsInput() const {
  if (!visible_) return false;
  const auto& stack = views_.stack_;
  const auto above = std::find(stack.begin(), stack.end(), this);
  return std::none_of(above, stack.end(), [&](const View* other) { return other != this && other->modal(); });
}

View* Views::find(std::string_view name) const {
  const auto found = std::find_if(all_.begin(), all_.end(), [&](const View* v) { return v->name() == name; });
  return found == all_.end() ? nullptr : *found;
}

View* Views::front() const {
  const auto found =
      std::find_if(stack_.rbegin(), stack_.rend(), [](const View* v) { return v->visible() && !v->passive_; });
  return found == stack_.rend() ? nullptr : *found;
}

void Views::raise(View& view) {
  remove(view);
  stack_.push_back(&view);
}

void Views::remove(const View& view) { std::erase(stack_, &view); }

void Views::settleFront() {
  View* now = front();
  if (std::exchange(frontBefore_, now) == now || !now) return;
  now->paintDue_ = true;
  now->run(now->frontRules_);
}

}  // namespace noldarz
