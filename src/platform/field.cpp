#include "platform/field.h"

#include <algorithm>
#include <utility>

#include "platform/failure.h"
#include "platform/view.h"

namespace noldarz {

Field::Field(View& view, FieldKind kind, std::string name, std::string text)
    : view_(view),
      kind_(kind),
      name_(std::move(name)),
      text_(std::move(text)),
      backColour_(defaultBackColour(kind)),
      foreColour_(defaultForeColour(kind)) {}

template <class T, class U>
void Field::change(T& property, const U& value, Property which) {
  if (property == value) return;
  property = value;
  view_.notify(*this, which);
}

void Field::setText(std::string_view text) {
  if (kind_ == FieldKind::list) {
    const auto found = std::find(entries_.begin(), entries_.end(), text);
    if (found == entries_.end() && !text.empty()) fail(FailureNumber::listRefuses);
    listIndex_ = found == entries_.end() ? -1 : static_cast<int>(found - entries_.begin());
  }
  showText(text);
}

void Field::showText(std::string_view text) {
  plainNumber_.reset();
  if (text_ == text) return;
  text_ = text;
  parsed_.reset();
  setFault({});
  view_.textChanged();
  view_.notify(*this, Property::text);
}

void Field::showPlainNumber(double value) {
  setText(plainText(value));
  plainNumber_ = value;
}

int Field::wordIndex(std::span<const std::string_view> vocabulary) const {
  const auto found = std::find(vocabulary.begin(), vocabulary.end(), text_);
  return found == vocabulary.end() ? -1 : static_cast<int>(found - vocabulary.begin());
}

void Field::setValue(int value) { change(value_, value, Property::value); }
void Field::setEnabled(bool enabled) { change(enabled_, enabled, Property::enabled); }
void Field::setLocked(bool locked) { change(locked_, locked, Property::locked); }
void Field::setVisible(bool visible) { change(visible_, visible, Property::visible); }
void Field::setToolTip(std::string_view toolTip) { change(toolTip_, toolTip, Property::toolTip); }
void Field::setFault(std::string_view fault) { change(fault_, fault, Property::fault); }
void Field::setTag(std::string_view tag) { change(tag_, tag, Property::tag); }
void Field::setBackColour(Colour colour) { change(backColour_, colour, Property::backColour); }
void Field::setForeColour(Colour colour) { change(foreColour_, colour, Property::foreColour); }
void Field::setFillColour(Colour colour) { change(fillColour_, colour, Property::fillColour); }
void Field::setEntries(const std::vector<std::string>& entries) {
  setDetails({});
  setCurrent(-1);
  change(entries_, entries, Property::entries);
  if (kind_ != FieldKind::list) return;
  listIndex_ = -1;
  showText("");
}
void Field::setDetails(const std::vector<EntryDetail>& details) { change(details_, details, Property::details); }
void Field::setCurrent(int position) { change(current_, position, Property::current); }
void Field::select(int position) {
  if (position < 0 || position >= static_cast<int>(entries_.size())) return;
  listIndex_ = position;
  showText(entries_[static_cast<std::size_t>(position)]);
}
void Field::setLeft(double left) { change(left_, left, Property::left); }
void Field::setTop(double top) { change(top_, top, Property::top); }
void Field::setWidth(double width) { change(width_, width, Property::width); }
void Field::setHeight(double height) { change(height_, height, Property::height); }

void Field::setPlace(double left, double top, double width, double height) {
  setLeft(left);
  setTop(top);
  setWidth(width);
  setHeight(height);
}

void Field::moveOver(const Field& field) {
  setTop(field.top());
  setLeft(field.left());
  change(over_, &field, Property::left);
}

void Field::pictureChanged() { view_.notify(*this, Property::picture); }

std::string Field::fullName() const { return view_.name() + "." + name_; }

bool Field::takesFocus() const {
  switch (kind_) {
    case FieldKind::label:
    case FieldKind::menu:
    case FieldKind::shape:
    case FieldKind::timer: return false;
    case FieldKind::picture: return view_.takesKeys(*this);  // a dial
    default: return true;
  }
}

bool Field::usable() const { return enabled_ && visible_ && (parent_ ? parent_->usable() : view_.acceptsInput()); }

void Field::fire(Event event) { view_.fire(*this, event); }

namespace {

bool isInput(FieldKind kind) {
  return kind == FieldKind::text || kind == FieldKind::carried || kind == FieldKind::list || kind == FieldKind::combo;
}

}  // namespace

Colour defaultBackColour(FieldKind kind) {
  return isInput(kind) ? SystemColour::windowBackground : SystemColour::buttonFace;
}

Colour defaultForeColour(FieldKind kind) { return isInput(kind) ? SystemColour::windowText : SystemColour::buttonText; }

}  // namespace noldarz
