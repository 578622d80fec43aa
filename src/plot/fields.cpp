#include "plot/fields.h"

#include <cmath>

#include "platform/text.h"
#include "plot/paper.h"

namespace noldarz {

namespace {

/// Elements of an array within a box.
template <std::size_t N>
FieldArray<N> arrayIn(Field& box, const char* name) {
  const auto fields = box.view().array<N>(FieldKind::label, name);
  for (int i = 0; i < fields.size(); ++i) fields[i].in(box);
  return fields;
}

}  // namespace

DialFields::DialFields(Field& picture, const Size& sizes, double crossLength)
    : WindArm(picture, sizes),
      cross(crossLength),
      NorthArm(armIn(picture, "NorthArm", northArmColour)),
      axs1(armIn(picture, "axs1", SystemColour::windowText)),
      axs2(armIn(picture, "axs2", SystemColour::windowText)),
      axs3(armIn(picture, "axs3", SystemColour::windowText)),
      nlbl(picture.view().label("nlbl", "N").in(picture)),
      elbl(picture.view().label("elbl", "E").in(picture)),
      slbl(picture.view().label("slbl", "S").in(picture)),
      wlbl(picture.view().label("wlbl", "W").in(picture)) {
  showNorth(0);
}

void DialFields::showNorth(double degrees) const {
  const struct {
    const LineField& arm;
    Field& letter;
    double angle;
  } arms[]{
      {NorthArm, nlbl, degrees - 90}, {axs1, elbl, degrees}, {axs2, slbl, degrees + 90}, {axs3, wlbl, degrees + 180}};
  for (const auto& [arm, letter, angle] : arms) {
    arm.setEnds(size.centreX,
                size.centreY,
                size.centreX + cross * std::cos(angle * dialRadian),
                size.centreY + cross * std::sin(angle * dialRadian));
    letter.setLeft(arm.x2());
    letter.setTop(arm.y2());
  }
}

ZoneFields::ZoneFields(View& view)
    : zonsplot(view.array<levelCount>(FieldKind::check, "zonsplot")),
      PlotFtlyInjryLmt(view.add(FieldKind::check, "PlotFtlyInjryLmt", "Plot Fatality and Injury llimit.")),
      wndsld1(view.add(FieldKind::slider, "wndsld1")),
      NorthSld(view.add(FieldKind::slider, "NorthSld")) {
  wndsld1.setToolTip("Select Wind direction (deg)");
  NorthSld.setToolTip("Select North direction (deg)");
  for (Field* dial : {&wndsld1, &NorthSld}) dial->setRange(0, wholeTurn);
}

PlotFields::PlotFields(View& view)
    : Drw1(view.add(FieldKind::canvas, "Drw1")),
      lblman(view.label("lblman")),
      scnortxt(view.label("scnortxt")),
      PrjNameTxt(view.label("PrjNameTxt")),
      sclsdspl(view.label("sclsdspl")),
      dt(view.label("dt")),
      statuslbl(view.label("statuslbl")),
      Xline(lineIn(Drw1, "Xline")),
      GroundLvl(view.add(FieldKind::shape, "GroundLvl").in(Drw1)),
      mousetxt(view.label("mousetxt").in(Drw1)),
      scleset(view.add(FieldKind::picture, "scleset").in(Drw1)),
      frstptnlbl(arrayIn<3>(scleset, "frstptnlbl")),
      eqlvalu(view.text("eqlvalu", "0").in(scleset)),
      clssetbox(view.add(FieldKind::button, "clssetbox", "Select Source").in(scleset)),
      North_wndDialPic(view.add(FieldKind::picture, "North_wndDialPic")),
      dial(North_wndDialPic, {.wind = 550, .barb = 500, .centreX = 900, .centreY = 900}, 400),
      lndFRme(view.add(FieldKind::picture, "lndFRme")),
      linelbl2(arrayIn<levelCount>(lndFRme, "linelbl2")),
      LblDsply(arrayIn<levelCount>(lndFRme, "LblDsply")),
      canvas(Drw1) {
  Drw1.setBackColour(SystemColour::windowBackground);
  Drw1.setForeColour(SystemColour::windowText);
  Xline.field.setValue(1);
  GroundLvl.setFillColour(groundColour);
  eqlvalu.setToolTip("Distance of the two points on the ground (m)");
  clssetbox.setToolTip("Take the scale; the source is pointed out next");
  North_wndDialPic.setToolTip("Double click, or Enter, to turn wind and north");
  scleset.setPlace(2, 5, 48, 28);
}

void PlotFields::setTitle(std::string_view title) const {
  lblman.setCaption(title);
  Drw1.view().setTitle(title);
}

void PlotFields::showScale(double plotScale) const {
  constexpr double millimetresPerCentimetre = 10;
  sclsdspl.setCaption("Scale:- 1 : " + Format(plotScale * millimetresPerCentimetre, "0.00") + " m");
}

PlotMenu::PlotMenu(View& view)
    :
// One entry a line: its name, the menu that it stands in, its caption.
#define TOP(NAME, CAPTION) NAME(view.add(FieldKind::menu, #NAME, CAPTION))
#define ENTRY(NAME, MENU, CAPTION) NAME(view.add(FieldKind::menu, #NAME, CAPTION).in(MENU))
      TOP(file, "File"),
      ENTRY(print, file, "&Print"),
      ENTRY(cpyclp, file, "&Save as Picture file"),
      ENTRY(sve, file, "Save"),
      ENTRY(hideDsply, file, "Hide/Show WIND and Conc. display"),
      ENTRY(lnwdth, file, "Contour line width"),
      ENTRY(no2, lnwdth, "2"),
      ENTRY(no4, lnwdth, "4"),
      ENTRY(exit, file, "&Exit"),
      TOP(insrtdwg, "Insert drawing/Set Scale"),
      ENTRY(Expscrn, insrtdwg, std::string{expandCaption}),
      ENTRY(selctdwg, insrtdwg, "Select drawing"),
      ENTRY(frmfle, selctdwg, "From file"),
      ENTRY(scrnCap, selctdwg, "Screen capture"),
      ENTRY(scrncap2, selctdwg, "Screen capture of this view"),
      ENTRY(ClrScrn, insrtdwg, "Clear Screen"),
      ENTRY(frPipeln, insrtdwg, "For Pipeline"),
      ENTRY(pltFrPipe, frPipeln, "Plot along pipeline"),
      ENTRY(setscle, insrtdwg, "Set Scale (wind in given direction)"),
      ENTRY(usrdef, setscle, "User defined -Isopleth"),
      ENTRY(Ftvert, setscle, "Fit to Page - Isopleth (Vertical)"),
      ENTRY(fthiznt, setscle, "Fit to Page - Isopleth (Horizontal)"),
      ENTRY(isoelvat, setscle, "Fit to Page - Isoelevate (Horizontal)"),
      ENTRY(setscleB, insrtdwg, "Set Scale (With wind in 8 Orientations)"),
      ENTRY(usrdefB, setscleB, "User defined"),
      ENTRY(FtvertB, setscleB, "Fit to Page "),
      ENTRY(zoom1, insrtdwg, "Zoom"),
      ENTRY(zoomin1, zoom1, "Zoom In"),
      ENTRY(zoomout1, zoom1, "Zoom Out"),
      ENTRY(zoomall, zoom1, "Zoom All"),
      TOP(Drwzns, "Draw/Redraw Conc Zones/location for concentration (ppm)"),
      ENTRY(slcsrc, Drwzns, "Select Source"),
      ENTRY(gvndictn, slcsrc, "wind in given direction"),
      ENTRY(in8orntn, slcsrc, "wind in 8 Orientations"),
      ENTRY(sltloctn, Drwzns, "Select Location"),
      TOP(grph, "Graphs"),
      ENTRY(ihrprofl, grph, "Concentration Profile"),
      ENTRY(ftlinjryprofl, grph, "Fatality and Injury Profile"),
      ENTRY(zoom2, grph, "Zoom"),
      ENTRY(ftltyZoom, zoom2, "Select distance"),
      ENTRY(restzoom, zoom2, "Reset") {
#undef ENTRY
#undef TOP
  for (Field* later : {&print, &cpyclp, &scrnCap, &scrncap2}) {
    later->disable();
    later->setToolTip("Not part of this version");
  }
}

void PlotMenu::reset() const {
  for (Field* field : {&Ftvert, &fthiznt, &FtvertB, &selctdwg, &ftlinjryprofl}) field->setTag(tag::none);
  for (Field* field : {&insrtdwg, &Drwzns, &grph, &zoom1, &slcsrc}) field->disable();
  usrdef.enable();
  Expscrn.setCaption(expandCaption);
  hideDsply.setValue(1);
}

}  // namespace noldarz
