// The variables that the toxic effects own, beside the limits that each press clears (engine/state.h).
#pragma once

#include <array>
#include <string>
#include <variant>

#include "platform/text.h"

namespace noldarz {

/// A cell of the report table: a number, 0 when it was never written, or a text such as "<0.001".
using TableCell = std::variant<double, std::string>;

/// Probit constants before any correction for humidity.
struct ProbitState {
  double prbtAFtl = 0;  ///< constant A of fatality
  double prbtBFtl = 0;  ///< exponent B of fatality
  double prbtAInj = 0;  ///< constant A of injury
  double prbtBInj = 0;  ///< exponent B of injury
};

/// Limits as the limit search found them; cleared with the results of the view.
struct RawLimitState {
  double ftlLimitRaw = 0;  ///< distance past the last fatality, 0 when there was none (m)
  double injLimitRaw = 0;  ///< distance past the last injury, 0 when there was none (m)
};

struct ToxicState {
  /// Report table of the limit search, six cells a row, 20 rows: distance (m), fatality (%), injury (%), area (Ha),
  /// concentration (ppm), dose. The last cells, behind the 20 rows, are never filled.
  std::array<TableCell, 127> prbtTable{};
};

inline std::string cellText(const TableCell& cell) {
  const auto* text = std::get_if<std::string>(&cell);
  return text ? *text : plainText(std::get<double>(cell));
}

template <class Each>
void visit(const ProbitState& state, Each&& each) {
  const auto& [prbtAFtl, prbtBFtl, prbtAInj, prbtBInj] = state;
  each("prbtAFtl", prbtAFtl), each("prbtBFtl", prbtBFtl), each("prbtAInj", prbtAInj), each("prbtBInj", prbtBInj);
}

template <class Each>
void visit(const RawLimitState& state, Each&& each) {
  const auto& [ftlLimitRaw, injLimitRaw] = state;
  each("ftlLimitRaw", ftlLimitRaw), each("injLimitRaw", injLimitRaw);
}

}  // namespace noldarz
