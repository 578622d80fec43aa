// The variables that the toxic effects own, beside the limits that each press clears (engine/state.h).
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <variant>

#include "platform/text.h"
#include "platform/variables.h"

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

/// The limits as the plots read them, and the run row holds them.
struct StoredLimitState {
  double ftlLimitStored = 0;  ///< fatality distance limit (m)
  double injLimitStored = 0;  ///< injury distance limit (m)
};

/// The search along the plume axis, and the walk out of the cloud at one distance.
struct LimitSearchState {
  double maxDistPrbt = 0;    ///< end of the search (m)
  double prbtStep = 0;       ///< distance between two walks (m)
  double rowFrom = 0;        ///< begin of the band of a row (m)
  double concPrbt = 0;       ///< centre-line concentration at distAt, four decimals during the walk (ppm)
  double concRow = 0;        ///< the same as a row shows it (ppm)
  double crossPath = 0;      ///< length of the walk (m)
  double exposureMin = 0;    ///< time of the walk (min)
  double doseStep = 0;       ///< dose of the last step of the walk (mg)
  double doseSum = 0;        ///< dose of the walk (mg)
  double doseRow = 0;        ///< the same, four decimals (mg)
  double probitFtl = 0;      ///< fatality probit of the last step of the walk
  double probitInj = 0;      ///< injury probit of the last step of the walk
  double pctFtl = 0;         ///< fatality (%)
  double pctInj = 0;         ///< injury (%)
  double halfWidthArea = 0;  ///< half width of the outermost level for the area of a band (m)
  TableCell areaHa;          ///< area of the band of a row (Ha), or "<0.001"
  double profileScaleX = 0;  ///< of the profile chart (m per mm)
  double profileScaleY = 0;  ///< of the profile chart (% per mm)
};

/// Rows of the report table.
inline constexpr int tableRows = 20;
/// Cells of a row: distance (m), fatality (%), injury (%), area (Ha), concentration (ppm), dose (mg).
inline constexpr int rowCells = 6;
inline constexpr std::size_t tableCells = std::size_t{tableRows} * rowCells;
/// Cells after the rows, which are never filled.
inline constexpr std::size_t spareCells = 7;

struct ReportTableState {
  /// Report table of the limit search, row by row.
  std::array<TableCell, tableCells + spareCells> prbtTable{};
};

/// What a cell shows.
inline std::string cellText(const TableCell& cell) {
  const auto* text = std::get_if<std::string>(&cell);
  return text ? *text : plainText(std::get<double>(cell));
}

NOLDARZ_VARIABLES(ProbitState, prbtAFtl, prbtBFtl, prbtAInj, prbtBInj);

NOLDARZ_VARIABLES(RawLimitState, ftlLimitRaw, injLimitRaw);

NOLDARZ_VARIABLES(StoredLimitState, ftlLimitStored, injLimitStored);

NOLDARZ_VARIABLES(LimitSearchState, maxDistPrbt, prbtStep, rowFrom, concPrbt, concRow, crossPath, exposureMin, doseStep,
                  doseSum, doseRow, probitFtl, probitInj, pctFtl, pctInj, halfWidthArea, areaHa, profileScaleX,
                  profileScaleY);

struct ToxicState : Joined<ProbitState, RawLimitState, StoredLimitState, LimitSearchState>, ReportTableState {};

}  // namespace noldarz
