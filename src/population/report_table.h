// The cells of the report view that the population view works on: the table of fatality and injury by distance, with
// the numbers of people beside it. The report joins them into its view; nothing here knows how they are shown.
#pragma once

#include "platform/view.h"
#include "toxic/absolute_numbers.h"
#include "toxic/state.h"

namespace noldarz {

struct ReportTableFields {
  explicit ReportTableFields(View& view);

  FieldArray<tableCells> Prbttxt1;  // cells of the table, row by row
  FieldArray<tableRows> Absftltxt;  // people who die in the band of the row
  FieldArray<tableRows> AbsInjtxt;  // people who are hurt
  Field& pageoptn;                  // 1: the page with the table is shown

  /// The report opens: nobody is counted yet.
  void reset() const;
  /// The rows are those of the table as it stands.
  void showTable(const ReportTableState& table) const;
  /// absRow for every row.
  void fillNumbers(const RingDensities& densities) const;
  /// Of all rows, in three decimals.
  static std::string sum(const FieldArray<tableRows>& numbers);
};

}  // namespace noldarz
