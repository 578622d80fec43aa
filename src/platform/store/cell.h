// A cell of a table as a value: nothing, a whole number, a number, a text.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "platform/text.h"

namespace noldarz {

using Cell = std::variant<std::monostate, std::int64_t, double, std::string>;

/// The cell as the text that a field shows; nothing is empty.
inline std::string textOf(const Cell& cell) {
  if (const auto* text = std::get_if<std::string>(&cell)) return *text;
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) return std::to_string(*whole);
  if (const auto* number = std::get_if<double>(&cell)) return plainText(*number);
  return {};
}

/// The number in the cell, from a text by strict conversion. Fails with typeMismatch for a text or nothing that is
/// none.
inline double numberOf(const Cell& cell) {
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) return static_cast<double>(*whole);
  if (const auto* number = std::get_if<double>(&cell)) return *number;
  return strictNumber(textOf(cell));
}

inline bool holdsNothing(const Cell& cell) { return std::holds_alternative<std::monostate>(cell); }

}  // namespace noldarz
