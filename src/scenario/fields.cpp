#include "scenario/fields.h"

#include <array>
#include <string>

namespace noldarz {

namespace {

constexpr int runRowDelay = 200;  // ms
constexpr int focusDelay = 700;   // ms

/// The editor of a caption: hidden until it is used.
Field& editor(View& view) {
  Field& field = view.text("conctxt1");
  field.setToolTip("Edit Concentration Text");
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
    : conctemp(view.carried("conctemp")),
      releaselbl(view.label("releaselbl")),
      resultnotelbl(view.label("resultnotelbl")),
      dspScnorlst_1(withToolTip(view.add(FieldKind::list, "dspScnorlst_1"), "Double click to select scenario ")),
      clsfrm1(view.add(FieldKind::button, "clsfrm1", "&Exit")),
      file(view.add(FieldKind::menu, "file", "File")),
      lnwdth(view.add(FieldKind::menu, "lnwdth", "Contour line width")),
      no2(view.add(FieldKind::menu, "no2", "2")),
      no4(view.add(FieldKind::menu, "no4", "4")),
      popdnsty(view.add(FieldKind::menu, "popdnsty", "&Population density...")),
      exit(view.add(FieldKind::menu, "exit", "&Exit")),
      helpVinf(view.add(FieldKind::button, "helpVinf", "More information...")),
      headings(tableHeads(view)),
      conctxt1(editor(view)),
      tmr_1(timer(view, "tmr_1", runRowDelay)),
      Tmr_2(timer(view, "Tmr_2", focusDelay)),
      statuslbl(view.label("statuslbl")) {
  no2.setValue(1);
}

}  // namespace noldarz
