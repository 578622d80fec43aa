// The variables that the toxic effects own, beside the limits that each press clears (engine/state.h).
#pragma once

#include <array>
#include <string>
#include <variant>

#include "platform/text.h"

namespace noldarz {

/// A cell of the report table: a number, or a text such as "<0.001". A cell that was never written holds integer 0.
using TableCell = std::variant<int, double, std::string>;

struct ToxicState {
  /// Report table of the limit search, six cells a row, 20 rows: distance (m), fatality (%), injury (%), area (Ha),
  /// concentration (ppm), dose.
  std::array<TableCell, 127> prbtTable{};
};

inline std::string cellText(const TableCell& cell) {
  if (const auto* text = std::get_if<std::string>(&cell)) return *text;
  if (const auto* number = std::get_if<double>(&cell)) return plainText(*number);
  return std::to_string(std::get<int>(cell));
}

}  // namespace noldarz
