#include "population/report_table.h"

#include "platform/text.h"

namespace noldarz {

namespace {

template <std::size_t N>
FieldArray<N> cells(View& view, const std::string& name) {
  std::array<Field*, N> fields{};
  for (std::size_t i = 0; i < N; ++i) fields[i] = &view.carried(name + "(" + std::to_string(i) + ")", "0");
  return FieldArray<N>{fields};
}

}  // namespace

ReportTableFields::ReportTableFields(View& view)
    : Prbttxt1(cells<tableCells>(view, "Prbttxt1")),
      Absftltxt(cells<tableRows>(view, "Absftltxt")),
      AbsInjtxt(cells<tableRows>(view, "AbsInjtxt")),
      pageoptn(view.add(FieldKind::check, "pageoptn", "Page 1 of 2")) {
  pageoptn.setVisible(false);  // until the pages are shown
}

void ReportTableFields::reset() const {
  for (int row = 0; row < tableRows; ++row) {
    Absftltxt[row].setText("0");
    AbsInjtxt[row].setText("0");
  }
}

void ReportTableFields::showTable(const ReportTableState& table) const {
  for (int i = 0; i < Prbttxt1.size(); ++i)
    Prbttxt1[i].setText(cellText(table.prbtTable.at(static_cast<std::size_t>(i))));
}

void ReportTableFields::fillNumbers(const RingDensities& densities) const {
  for (int row = 0; row < tableRows; ++row) {
    RowTexts texts;
    for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = Prbttxt1[row * rowCells + static_cast<int>(i)].text();
    std::string dead = Absftltxt[row].text();
    std::string hurt = AbsInjtxt[row].text();
    absRow(texts, densities, dead, hurt);
    Absftltxt[row].setText(dead);
    AbsInjtxt[row].setText(hurt);
  }
}

std::string ReportTableFields::sum(const FieldArray<tableRows>& numbers) {
  double people = 0;
  for (int row = 0; row < numbers.size(); ++row)
    if (numbers[row].isNumeric()) people += numbers[row].number();
  return Format(people, "0.000");
}

}  // namespace noldarz
