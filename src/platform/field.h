// A field is one named control without a toolkit: what it shows, what it holds, whether it can be used. The logic
// reads and writes fields; a front (window, script, test) shows them and fires their events. Owned by a View.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/colour.h"
#include "platform/text.h"

namespace noldarz {

class Canvas;
class View;

/// `carried`: a text that the code reads and writes and no user sees.
enum class FieldKind : std::uint8_t {
  text,
  carried,
  label,
  button,
  check,
  option,
  list,
  combo,
  slider,
  menu,
  picture,
  canvas,
  shape,
  timer
};

/// `commit`: the user is about to leave the field for another, and what he has typed counts; `cancel`: he gives it up.
enum class Event : std::uint8_t { click, dblClick, gotFocus, lostFocus, change, commit, cancel, timer };

/// `picture`: what is drawn on the field; told to observers, no text stands for it.
enum class Property : std::uint8_t {
  text,
  caption,
  value,
  enabled,
  locked,
  visible,
  checked,
  toolTip,
  fault,
  tag,
  backColour,
  foreColour,
  fillColour,
  entries,
  details,
  current,
  left,
  top,
  width,
  height,
  picture
};

/// What a list tells about an entry beside its text.
struct EntryDetail {
  std::string text;     ///< shown with the entry, in a line of its own
  std::string toolTip;  ///< shown on request
  bool operator==(const EntryDetail&) const = default;
};

class Field {
 public:
  Field(View& view, FieldKind kind, std::string name, std::string text);
  Field(const Field&) = delete;
  Field& operator=(const Field&) = delete;

  View& view() const { return view_; }
  FieldKind kind() const { return kind_; }
  const std::string& name() const { return name_; }

  /// What the field shows: the text of an input, the caption of a label, button, check field or menu entry.
  const std::string& text() const { return text_; }
  const std::string& caption() const { return text_; }
  /// A list takes the text of an entry, which it selects, or none (""); it fails with listRefuses for any other.
  void setText(std::string_view text);
  void setCaption(std::string_view caption) { setText(caption); }
  /// Shows the value as plain number text. Costs a comparison when the field shows that value already.
  void setPlainNumber(double value) {
    if (plainNumber_ != value) showPlainNumber(value);
  }

  /// The number in the field, by strict conversion of its text. The parsed value is kept until the text changes.
  /// Fails with typeMismatch for a text that is no number, with overflow beyond the range of a double.
  double number() const { return parsed().number(); }
  bool isNumeric() const { return parsed().outcome == ParsedNumber::Outcome::number; }
  /// What the text reads as.
  const ParsedNumber& parsed() const {
    if (!parsed_) parsed_ = parseNumber(text_);
    return *parsed_;
  }

  /// Index of the text in a vocabulary, compared exactly; -1 for any other text.
  int wordIndex(std::span<const std::string_view> vocabulary) const;

  /// 1 or 0 of a check or option field, 1 for a checked menu entry, position of a slider, interval of a timer (ms),
  /// width of a line (pixels of 1/96 inch).
  int value() const { return value_; }
  void setValue(int value);
  /// The ends of a slider, both included.
  void setRange(int least, int most) { range_ = {least, most}; }
  bool isInRange(int value) const { return value >= range_.first && value <= range_.second; }
  const std::pair<int, int>& range() const { return range_; }

  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled);
  void enable() { setEnabled(true); }
  void disable() { setEnabled(false); }
  /// The user reads the text and can't change it.
  bool locked() const { return locked_; }
  void setLocked(bool locked);
  bool visible() const { return visible_; }
  void setVisible(bool visible);

  const std::string& toolTip() const { return toolTip_; }
  void setToolTip(std::string_view toolTip);
  /// What is wrong with the text, for the user; empty: nothing is known to be. Goes with the text, and when the field
  /// is left.
  const std::string& fault() const { return fault_; }
  void setFault(std::string_view fault);
  const std::string& tag() const { return tag_; }
  void setTag(std::string_view tag);

  Colour backColour() const { return backColour_; }
  void setBackColour(Colour colour);
  Colour foreColour() const { return foreColour_; }
  void setForeColour(Colour colour);
  Colour fillColour() const { return fillColour_; }
  void setFillColour(Colour colour);

  /// Entries of a list or combo field, in the order shown. New entries leave a list with none selected.
  const std::vector<std::string>& entries() const { return entries_; }
  void setEntries(const std::vector<std::string>& entries);
  /// Details of the entries, in their order; new entries have none.
  const std::vector<EntryDetail>& details() const { return details_; }
  void setDetails(const std::vector<EntryDetail>& details);
  /// Position of the entry that is in force, whichever is selected; -1: none is.
  int current() const { return current_; }
  void setCurrent(int position);
  /// Position of the selected entry of a list, whose text is the text of the field; -1 when none is selected.
  int listIndex() const { return listIndex_; }
  /// Selects an entry by its position; does nothing for a position that the list doesn't have.
  void select(int position);

  /// Place and size in the unit of the view that shows the field.
  double left() const { return left_; }
  double top() const { return top_; }
  double width() const { return width_; }
  double height() const { return height_; }
  void setLeft(double left);
  void setTop(double top);
  void setWidth(double width);
  void setHeight(double height);
  void setPlace(double left, double top, double width, double height);
  /// Lays the field over another one of its view, as an editor over what it edits.
  void moveOver(const Field& field);
  /// The field that it was laid over; null: it lies where the view has it.
  const Field* over() const { return over_; }

  /// The box, picture, canvas or menu of its view that the field lies in, and is hidden and disabled with; its place is
  /// told from there, on a canvas in millimetres. Null: it lies on the view itself.
  Field* parent() const { return parent_; }
  Field& in(Field& parent) {
    parent_ = &parent;
    return *this;
  }

  /// The canvas that the field shows; null for a field of another kind.
  Canvas* canvas() const { return canvas_; }
  void setCanvas(Canvas& canvas) { canvas_ = &canvas; }
  /// The canvas tells that it is to be painted anew.
  void pictureChanged();

  /// "view.field"
  std::string fullName() const;
  /// Whether the focus can come to a field of this kind.
  bool takesFocus() const;
  /// Whether a user can act on the field now: it, what it lies in and its view are visible and enabled, no modal view
  /// lies above.
  bool usable() const;
  void fire(Event event);

 private:
  void showText(std::string_view text);
  void showPlainNumber(double value);
  template <class T, class U>
  void change(T& property, const U& value, Property which);

  View& view_;
  FieldKind kind_;
  std::string name_;
  std::string text_;
  mutable std::optional<ParsedNumber> parsed_;
  std::optional<double> plainNumber_;  // set while the text is the plain number text of this value
  int value_ = 0;
  bool enabled_ = true;
  bool locked_ = false;
  bool visible_ = true;
  std::string toolTip_;
  std::string fault_;
  std::string tag_;
  Colour backColour_;
  Colour foreColour_;
  Colour fillColour_;
  std::vector<std::string> entries_;
  std::vector<EntryDetail> details_;
  int current_ = -1;
  int listIndex_ = -1;
  double left_ = 0;
  double top_ = 0;
  double width_ = 0;
  double height_ = 0;
  const Field* over_ = nullptr;
  Field* parent_ = nullptr;
  Canvas* canvas_ = nullptr;
  std::pair<int, int> range_{std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
};

/// Back and fore colour that fields of the kind have in the user's theme.
Colour defaultBackColour(FieldKind kind);
Colour defaultForeColour(FieldKind kind);

/// The elements of an array of fields, `constn(0)` to `constn(5)`.
template <std::size_t N>
class FieldArray {
 public:
  explicit FieldArray(std::array<Field*, N> fields) : fields_(fields) {}
  Field& operator[](int index) const { return *fields_.at(static_cast<std::size_t>(index)); }
  static constexpr int size() { return static_cast<int>(N); }

 private:
  std::array<Field*, N> fields_;
};

}  // namespace noldarz
