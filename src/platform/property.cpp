#include "platform/property.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace noldarz {

namespace {

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

template <auto Set>
bool setText(Field& field, std::string_view text) {
  (field.*Set)(text);
  return true;
}

template <auto Set>
bool setTruth(Field& field, std::string_view text) {
  const auto truth = parseTruth(text);
  if (truth) (field.*Set)(*truth);
  return truth.has_value();
}

template <auto Set>
bool setColour(Field& field, std::string_view text) {
  const auto colour = parseColour(text);
  if (colour) (field.*Set)(*colour);
  return colour.has_value();
}

template <auto Set>
bool setNumber(Field& field, std::string_view text) {
  const ParsedNumber parsed = parseNumber(text);
  if (parsed.outcome == ParsedNumber::Outcome::number) (field.*Set)(parsed.value);
  return parsed.outcome == ParsedNumber::Outcome::number;
}

template <auto Set>
bool setWhole(Field& field, std::string_view text) {
  const ParsedNumber parsed = parseNumber(text);
  const bool whole = parsed.outcome == ParsedNumber::Outcome::number && std::trunc(parsed.value) == parsed.value &&
                     std::fabs(parsed.value) <= 1e9;
  if (whole) (field.*Set)(static_cast<int>(parsed.value));
  return whole;
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

bool setEntries(Field& field, std::string_view text) {
  field.setEntries(lines(text));
  return true;
}

bool setDetails(Field& field, std::string_view text) {
  std::vector<EntryDetail> details;
  for (auto& line : lines(text)) details.push_back({std::move(line), ""});
  field.setDetails(details);
  return true;
}

bool setChecked(Field& field, std::string_view text) {
  const auto truth = parseTruth(text);
  if (truth) field.setValue(*truth ? 1 : 0);
  return truth.has_value();
}

bool isMenu(const Field& field) { return field.kind() == FieldKind::menu; }

using Texts = std::vector<std::string>;

/// A property: how it is read and set, and the value that a field of its kind has at first. A text that counts as
/// another property of the kind is at its default always.
struct Row {
  std::string_view name;
  PropertyValue (*get)(const Field&);
  bool (*set)(Field&, std::string_view);
  PropertyValue (*initial)(const Field&);
};

using F = const Field&;
using V = PropertyValue;

// In the order of Property.
constexpr std::array<Row, 20> table{{
    {"text",
     [](F f) -> V { return f.text(); },
     setText<&Field::setText>,
     [](F f) -> V { return showsCaption(f.kind()) ? f.text() : ""; }},
    {"caption",
     [](F f) -> V { return f.text(); },
     setText<&Field::setText>,
     [](F f) -> V { return showsCaption(f.kind()) ? "" : f.text(); }},
    {"value",
     [](F f) -> V { return double(f.value()); },
     setWhole<&Field::setValue>,
     [](F f) -> V { return isMenu(f) ? double(f.value()) : 0.0; }},
    {"enabled", [](F f) -> V { return f.enabled(); }, setTruth<&Field::setEnabled>, [](F) -> V { return true; }},
    {"locked", [](F f) -> V { return f.locked(); }, setTruth<&Field::setLocked>, [](F) -> V { return false; }},
    {"visible", [](F f) -> V { return f.visible(); }, setTruth<&Field::setVisible>, [](F) -> V { return true; }},
    {"checked",
     [](F f) -> V { return f.value() != 0; },
     setChecked,
     [](F f) -> V { return !isMenu(f) && f.value() != 0; }},
    {"toolTip", [](F f) -> V { return f.toolTip(); }, setText<&Field::setToolTip>, [](F) -> V { return ""; }},
    {"fault", [](F f) -> V { return f.fault(); }, setText<&Field::setFault>, [](F) -> V { return ""; }},
    {"tag", [](F f) -> V { return f.tag(); }, setText<&Field::setTag>, [](F) -> V { return ""; }},
    {"backColour",
     [](F f) -> V { return colourText(f.backColour()); },
     setColour<&Field::setBackColour>,
     [](F f) -> V { return colourText(defaultBackColour(f.kind())); }},
    {"foreColour",
     [](F f) -> V { return colourText(f.foreColour()); },
     setColour<&Field::setForeColour>,
     [](F f) -> V { return colourText(defaultForeColour(f.kind())); }},
    {"fillColour",
     [](F f) -> V { return colourText(f.fillColour()); },
     setColour<&Field::setFillColour>,
     [](F) -> V { return colourText(Colour{}); }},
    {"entries", [](F f) -> V { return f.entries(); }, setEntries, [](F) -> V { return Texts{}; }},
    {"details", [](F f) -> V { return detailTexts(f); }, setDetails, [](F) -> V { return Texts{}; }},
    {"current",
     [](F f) -> V { return double(f.current()); },
     setWhole<&Field::setCurrent>,
     [](F) -> V { return -1.0; }},
    {"left", [](F f) -> V { return f.left(); }, setNumber<&Field::setLeft>, [](F) -> V { return 0.0; }},
    {"top", [](F f) -> V { return f.top(); }, setNumber<&Field::setTop>, [](F) -> V { return 0.0; }},
    {"width", [](F f) -> V { return f.width(); }, setNumber<&Field::setWidth>, [](F) -> V { return 0.0; }},
    {"height", [](F f) -> V { return f.height(); }, setNumber<&Field::setHeight>, [](F) -> V { return 0.0; }},
}};

const Row& rowOf(Property property) { return table.at(static_cast<std::size_t>(property)); }

}  // namespace

std::optional<Property> findProperty(std::string_view name) {
  const auto found = std::find_if(table.begin(), table.end(), [&](const Row& row) { return row.name == name; });
  if (found == table.end()) return {};
  return static_cast<Property>(found - table.begin());
}

std::string_view propertyName(Property property) { return rowOf(property).name; }

Property mainProperty(const Field& field) {
  switch (field.kind()) {
    case FieldKind::check:
    case FieldKind::option:
    case FieldKind::slider: return Property::value;
    default: return showsCaption(field.kind()) ? Property::caption : Property::text;
  }
}

PropertyValue getProperty(const Field& field, Property property) { return rowOf(property).get(field); }

bool setProperty(Field& field, Property property, std::string_view text) { return rowOf(property).set(field, text); }

std::vector<Property> changedProperties(const Field& field) {
  std::vector<Property> changed;
  for (std::size_t i = 0; i < table.size(); ++i)
    if (table[i].get(field) != table[i].initial(field)) changed.push_back(static_cast<Property>(i));
  return changed;
}

}  // namespace noldarz
