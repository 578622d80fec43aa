#include "plot/fields.h"

#include <cmath>

namespace noldarz {

namespace {

constexpr double radian = 0.0175;      // degrees to radians of the dials
constexpr double barbAngle = 5;        // degrees beside the wind arm
constexpr double windLabelLift = 180;  // twips above the tip

LineField line(View& view, const char* name) { return {view.add(FieldKind::shape, name)}; }

}  // namespace

void LineField::setEnds(double x1, double y1, double x2, double y2) const {
  field.setLeft(x1);
  field.setTop(y1);
  field.setWidth(x2 - x1);
  field.setHeight(y2 - y1);
}

DialFields::DialFields(View& view, const Size& sizes)
    : size(sizes),
      wndarm(line(view, "wndarm")),
      wndarm_1(line(view, "wndarm_1")),
      wndarm_2(line(view, "wndarm_2")),
      NorthArm(line(view, "NorthArm")),
      axs1(line(view, "axs1")),
      axs2(line(view, "axs2")),
      axs3(line(view, "axs3")),
      wndlbl(view.label("wndlbl", "WIND")),
      nlbl(view.label("nlbl", "N")),
      elbl(view.label("elbl", "E")),
      slbl(view.label("slbl", "S")),
      wlbl(view.label("wlbl", "W")) {
  showWind(0);
  showNorth(0);
}

void DialFields::showWind(double degrees) const {
  const auto x = [&](double length, double angle) { return size.centreX + length * std::cos(angle * radian); };
  const auto y = [&](double length, double angle) { return size.centreY + length * std::sin(angle * radian); };
  const double arm = degrees - 90;  // the axes begin at the right
  wndarm.setEnds(x(size.wind, arm), y(size.wind, arm), size.centreX, size.centreY);
  for (const auto& [barb, angle] : {std::pair{wndarm_1, arm - barbAngle}, std::pair{wndarm_2, arm + barbAngle}})
    barb.setEnds(wndarm.x1(), wndarm.y1(), x(size.barb, angle), y(size.barb, angle));
  wndlbl.setLeft(wndarm.x1());
  wndlbl.setTop(wndarm.y1() - windLabelLift);
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
                size.centreX + size.cross * std::cos(angle * radian),
                size.centreY + size.cross * std::sin(angle * radian));
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
}

PlotFields::PlotFields(View& view)
    : Drw1(view.add(FieldKind::canvas, "Drw1")),
      lblman(view.label("lblman")),
      scnortxt(view.label("scnortxt")),
      PrjNameTxt(view.label("PrjNameTxt")),
      sclsdspl(view.label("sclsdspl")),
      dt(view.label("dt")),
      Xline(line(view, "Xline")),
      GroundLvl(view.add(FieldKind::shape, "GroundLvl")),
      mousetxt(view.label("mousetxt")),
      scleset(view.add(FieldKind::picture, "scleset")),
      frstptnlbl(view.array<3>(FieldKind::label, "frstptnlbl")),
      eqlvalu(view.text("eqlvalu", "0")),
      clssetbox(view.add(FieldKind::button, "clssetbox", "Select Source")),
      North_wndDialPic(view.add(FieldKind::picture, "North_wndDialPic")),
      dial(view, {.wind = 550, .barb = 500, .cross = 400, .centreX = 900, .centreY = 900}),
      lndFRme(view.add(FieldKind::picture, "lndFRme")),
      linelbl2(view.array<levelCount>(FieldKind::label, "linelbl2")),
      LblDsply(view.array<levelCount>(FieldKind::label, "LblDsply")),
      canvas(Drw1) {
  for (Field* hidden : {&Xline.field, &GroundLvl, &mousetxt, &scleset}) hidden->setVisible(false);
}

PlotMenu::PlotMenu(View& view)
    :
// One entry a line: its name and its caption.
#define ENTRY(NAME, CAPTION) NAME(view.add(FieldKind::menu, #NAME, CAPTION))
      ENTRY(file, "File"),
      ENTRY(print, "&Print"),
      ENTRY(cpyclp, "&Save as Picture file"),
      ENTRY(sve, "Save"),
      ENTRY(hideDsply, "Hide/Show WIND and Conc. display"),
      ENTRY(lnwdth, "Contour line width"),
      ENTRY(no2, "2"),
      ENTRY(no4, "4"),
      ENTRY(exit, "&Exit"),
      ENTRY(insrtdwg, "Insert drawing/Set Scale"),
      ENTRY(Expscrn, std::string{expandCaption}),
      ENTRY(selctdwg, "Select drawing"),
      ENTRY(frmfle, "From file"),
      ENTRY(scrnCap, "Screen capture"),
      ENTRY(scrncap2, "Screen capture of this view"),
      ENTRY(ClrScrn, "Clear Screen"),
      ENTRY(frPipeln, "For Pipeline"),
      ENTRY(pltFrPipe, "Plot along pipeline"),
      ENTRY(setscle, "Set Scale (wind in given direction)"),
      ENTRY(usrdef, "User defined -Isopleth"),
      ENTRY(Ftvert, "Fit to Page - Isopleth (Vertical)"),
      ENTRY(fthiznt, "Fit to Page - Isopleth (Horizontal)"),
      ENTRY(isoelvat, "Fit to Page - Isoelevate (Horizontal)"),
      ENTRY(setscleB, "Set Scale (With wind in 8 Orientations)"),
      ENTRY(usrdefB, "User defined"),
      ENTRY(FtvertB, "Fit to Page "),
      ENTRY(zoom1, "Zoom"),
      ENTRY(zoomin1, "Zoom In"),
      ENTRY(zoomout1, "Zoom Out"),
      ENTRY(zoomall, "Zoom All"),
      ENTRY(Drwzns, "Draw/Redraw Conc Zones/location for concentration (ppm)"),
      ENTRY(slcsrc, "Select Source"),
      ENTRY(gvndictn, "wind in given direction"),
      ENTRY(in8orntn, "wind in 8 Orientations"),
      ENTRY(sltloctn, "Select Location"),
      ENTRY(grph, "Graphs"),
      ENTRY(ihrprofl, "Concentration Profile"),
      ENTRY(ftlinjryprofl, "Fatality and Injury Profile"),
      ENTRY(zoom2, "Zoom"),
      ENTRY(ftltyZoom, "Select distance"),
      ENTRY(restzoom, "Reset") {
#undef ENTRY
}

}  // namespace noldarz
