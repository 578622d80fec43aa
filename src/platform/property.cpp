#include "platform/property.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace noldarz {

namespace {

// In the order of Property.
constexpr std::array<std::string_view, 20> names{
    "text",       "caption",    "value",      "enabled", "locked",  "visible", "checked", "toolTip", "fault", "tag",
    "backColour", "foreColour", "fillColour", "entries", "details", "current", "left",    "top",     "width", "height"};

std::optional<bool> parseTruth(std::string_view text) {
  if (text == "true" || text == "1") return true;
  if (text == "false" || text == "0") return false;
  return {};
}

std::vector<std::string> lines(std::string_view text) {
  std::vector<std::string> result;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    result.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return result;
}

bool setNumber(Field& field, Property property, std::string_view text) {
  const ParsedNumber parsed = parseNumber(text);
  if (parsed.outcome != ParsedNumber::Outcome::number) return false;
  switch (property) {
    case Property::left: field.setLeft(parsed.value); return true;
    case Property::top: field.setTop(parsed.value); return true;
    case Property::width: field.setWidth(parsed.value); return true;
    case Property::height: field.setHeight(parsed.value); return true;
    default: break;
  }
  if (std::trunc(parsed.value) != parsed.value || std::fabs(parsed.value) > 1e9) return false;
  const int whole = static_cast<int>(parsed.value);
  property == Property::current ? field.setCurrent(whole) : field.setValue(whole);
  return true;
}

bool setTruth(Field& field, Property property, std::string_view text) {
  const auto truth = parseTruth(text);
  if (!truth) return false;
  if (property == Property::enabled) field.setEnabled(*truth);
  if (property == Property::locked) field.setLocked(*truth);
  if (property == Property::visible) field.setVisible(*truth);
  if (property == Property::checked) field.setValue(*truth ? 1 : 0);
  return true;
}

bool setColour(Field& field, Property property, std::string_view text) {
  const auto colour = parseColour(text);
  if (!colour) return false;
  if (property == Property::backColour) field.setBackColour(*colour);
  if (property == Property::foreColour) field.setForeColour(*colour);
  if (property == Property::fillColour) field.setFillColour(*colour);
  return true;
}

bool showsCaption(FieldKind kind) {
  switch (kind) {
    case FieldKind::label:
    case FieldKind::button:
    case FieldKind::menu:
    case FieldKind::check:
    case FieldKind::option: return true;
    default: return false;
  }
}

std::vector<std::string> detailTexts(const Field& field) {
  std::vector<std::string> texts;
  for (const auto& detail : field.details()) texts.push_back(detail.text);
  return texts;
}

void setDetails(Field& field, const std::vector<std::string>& texts) {
  std::vector<EntryDetail> details;
  details.reserve(texts.size());
  for (const auto& text : texts) details.push_back({text, ""});
  field.setDetails(details);
}

bool isAtDefault(const Field& field, Property property) {
  switch (property) {
    case Property::text: return showsCaption(field.kind()) || field.text().empty();
    case Property::caption: return !showsCaption(field.kind()) || field.text().empty();
    case Property::value: return field.kind() == FieldKind::menu || field.value() == 0;
    case Property::checked: return field.kind() != FieldKind::menu || field.value() == 0;
    case Property::enabled: return field.enabled();
    case Property::locked: return !field.locked();
    case Property::visible: return field.visible();
    case Property::toolTip: return field.toolTip().empty();
    case Property::fault: return field.fault().empty();
    case Property::tag: return field.tag().empty();
    case Property::backColour: return field.backColour() == defaultBackColour(field.kind());
    case Property::foreColour: return field.foreColour() == defaultForeColour(field.kind());
    case Property::fillColour: return field.fillColour() == Colour{};
    case Property::entries: return field.entries().empty();
    case Property::details: return field.details().empty();
    case Property::current: return field.current() < 0;
    default: return std::get<double>(getProperty(field, property)) == 0;
  }
}

}  // namespace

std::span<const std::string_view> propertyNames() { return names; }

std::optional<Property> findProperty(std::string_view name) {
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) return {};
  return static_cast<Property>(found - names.begin());
}

std::string_view propertyName(Property property) { return names.at(static_cast<size_t>(property)); }

Property mainProperty(const Field& field) {
  switch (field.kind()) {
    case FieldKind::check:
    case FieldKind::option:
    case FieldKind::slider: return Property::value;
    default: return showsCaption(field.kind()) ? Property::caption : Property::text;
  }
}

PropertyValue getProperty(const Field& field, Property property) {
  switch (property) {
    case Property::text:
    case Property::caption: return field.text();
    case Property::value: return static_cast<double>(field.value());
    case Property::enabled: return field.enabled();
    case Property::locked: return field.locked();
    case Property::visible: return field.visible();
    case Property::checked: return field.value() != 0;
    case Property::toolTip: return field.toolTip();
    case Property::fault: return field.fault();
    case Property::tag: return field.tag();
    case Property::backColour: return colourText(field.backColour());
    case Property::foreColour: return colourText(field.foreColour());
    case Property::fillColour: return colourText(field.fillColour());
    case Property::entries: return field.entries();
    case Property::details: return detailTexts(field);
    case Property::current: return static_cast<double>(field.current());
    case Property::left: return field.left();
    case Property::top: return field.top();
    case Property::width: return field.width();
    case Property::height: return field.height();
  }
  return std::string{};
}

bool setProperty(Field& field, Property property, std::string_view text) {
  switch (property) {
    case Property::text:
    case Property::caption: field.setText(text); return true;
    case Property::toolTip: field.setToolTip(text); return true;
    case Property::fault: field.setFault(text); return true;
    case Property::tag: field.setTag(text); return true;
    case Property::entries: field.setEntries(lines(text)); return true;
    case Property::details: setDetails(field, lines(text)); return true;
    case Property::enabled:
    case Property::locked:
    case Property::visible:
    case Property::checked: return setTruth(field, property, text);
    case Property::backColour:
    case Property::foreColour:
    case Property::fillColour: return setColour(field, property, text);
    default: return setNumber(field, property, text);
  }
}

std::vector<Property> changedProperties(const Field& field) {
  std::vector<Property> changed;
  for (size_t i = 0; i < names.size(); ++i)
    if (const auto property = static_cast<Property>(i); !isAtDefault(field, property)) changed.push_back(property);
  return changed;
}

}  // namespace noldarz
