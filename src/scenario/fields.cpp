#include "scenario/fields.h"

#include <array>
#include <string>

namespace noldarz {

namespace {

constexpr int runRowDelay = 200;  // ms
constexpr int focusDelay = 700;   // ms

Field& hidden(View& view, std::string name) {
  Field& field = view.text(std::move(name));
  field.setVisible(false);
  return field;
}

Field& timer(View& view, std::string name, int interval) {
  Field& field = view.add(FieldKind::timer, std::move(name));
  field.setValue(interval);
  field.disable();
  return field;
}

Field& withToolTip(Field& field, std::string_view toolTip) {
  field.setToolTip(toolTip);
  return field;
}

// Clockwise from the wind that blows from the north to the south.
constexpr std::array<std::string_view, 8> orientations{
    " N -> S", "NE -> SW", " E ->W", "SE -> NW", "S -> N", "SW -> NE", "W -> E", "NW -> SE"};

FieldArray<8> orientationLabels(View& view) {
  auto labels = view.array<8>(FieldKind::label, "wndlbl1");
  for (int i = 0; i < labels.size(); ++i) labels[i].setCaption(orientations.at(static_cast<std::size_t>(i)));
  return labels;
}

FieldArray<8> tableHeads(View& view) {
  return FieldArray<8>{{&view.label("Label1", "Concentration (ppm)"),
                        &view.label("Bgnlbl", "Begin point (m)"),
                        &view.label("endptlbl", "End point (m)"),
                        &view.label("isoplngtlbl", "Length (m)"),
                        &view.label("isopwdthlbl", "Max. width (m)"),
                        &view.label("isoplbl", "Distance of max. width (m)"),
                        &view.label("isopanglbl", "Angle (deg)"),
                        &view.label("isoparaelbl", "Area (Ha)")}};
}

}  // namespace

ScenarioFields::ScenarioFields(View& view)
    : Orglbltxt(view.label("Orglbltxt")),
      refnolbl(view.label("refnolbl")),
      chmnmelbl(view.label("chmnmelbl")),
      scnrotxt(hidden(view, "scnrotxt")),
      naturchem(hidden(view, "naturchem")),
      reftmptxt(hidden(view, "reftmptxt")),
      conctemp(hidden(view, "conctemp")),
      releaselbl(view.label("releaselbl")),
      resultnotelbl(view.label("resultnotelbl")),
      scnrotxtlbl(withToolTip(view.text("scnrotxtlbl"),
                              "You must always edit scenario text as appropriate first before proceeding further")),
      dspScnorlst_1(withToolTip(view.add(FieldKind::list, "dspScnorlst_1"), "Double click to select scenario ")),
      redosimul(view.add(FieldKind::button, "redosimul", "Redo")),
      clsfrm1(view.add(FieldKind::button, "clsfrm1", "&Exit")),
      file(view.add(FieldKind::menu, "file", "File")),
      lnwdth(view.add(FieldKind::menu, "lnwdth", "Contour line width")),
      no2(view.add(FieldKind::menu, "no2", "2")),
      no4(view.add(FieldKind::menu, "no4", "4")),
      exit(view.add(FieldKind::menu, "exit", "&Exit")),
      helpVinf(view.add(FieldKind::button, "helpVinf", "More information...")),
      wndlbl1(orientationLabels(view)),
      headings(tableHeads(view)),
      conctxt1(withToolTip(hidden(view, "conctxt1"), "Edit Concentration Text")),
      tmr_1(timer(view, "tmr_1", runRowDelay)),
      Tmr_2(timer(view, "Tmr_2", focusDelay)),
      statuslbl(view.label("statuslbl")) {
  no2.setValue(1);
}

}  // namespace noldarz
