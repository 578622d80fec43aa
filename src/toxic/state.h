// The variables that the toxic effects own, beside the limits that each press clears (engine/state.h).
#pragma once

#include <array>
#include <string>
#include <variant>

#include "platform/text.h"

namespace noldarz {

/// A cell of the report table: a number, 0 when it was never written, or a text such as "<0.001".
using TableCell = std::variant<double, std::string>;

struct ToxicState {
  /// Report table of the limit search, six cells a row, 20 rows: distance (m), fatality (%), injury (%), area (Ha),
  /// concentration (ppm), dose. The last cells, behind the 20 rows, are never filled.
  std::array<TableCell, 127> prbtTable{};
};

inline std::string cellText(const TableCell& cell) {
  const auto* text = std::get_if<std::string>(&cell);
  return text ? *text : plainText(std::get<double>(cell));
}

}  // namespace noldarz
