// Properties of a field by their names, for fronts that drive fields by name: what a script shows, sets and dumps.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/field.h"

namespace noldarz {

using PropertyValue = std::variant<std::string, double, bool, std::vector<std::string>>;

std::optional<Property> findProperty(std::string_view name);
std::string_view propertyName(Property property);

/// The property that stands for the field: the value of a check or option field or slider, the caption of a label,
/// button or menu entry, the text of any other.
Property mainProperty(const Field& field);

PropertyValue getProperty(const Field& field, Property property);

/// Sets the property from a text, without an event of a user. Returns false, and leaves the field as it was, for a
/// text that the property can't take: a number or truth value ("true", "false", "1", "0") or colour that is none.
bool setProperty(Field& field, Property property, std::string_view text);

/// The properties of the field that aren't at the default of its kind, in the order of Property.
std::vector<Property> changedProperties(const Field& field);

}  // namespace noldarz
