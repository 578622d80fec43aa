#include "plot/profile_charts.h"

#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr Colour ink = SystemColour::windowText;
constexpr Colour grid{224, 224, 224};
constexpr double step = 10;           // mm, of the grid
constexpr double gridFoot = 140;      // mm
constexpr double kilometre = 1000;    // m
constexpr double farProfile = 10000;  // m, beyond which the percent chart takes long
constexpr std::string_view concentrationTitle{" NOLDA-RZ : Concentration Profile"};
constexpr const char* noProfile = "Unable to plot Profile.";

}  // namespace

void drawChartFrame(Canvas& canvas, const ChartFrame& frame, int lineWidth) {
  const bool inMetres = frame.maxDist < kilometre;
  const std::string title =
      std::string{"             Distance from source "} + (inMetres ? "(m)" : frame.km) + "-------->";
  canvas.Line(chart::right, chart::foot, 0, chart::foot, ink);
  canvas.Print("0 ");
  canvas.Print(frame.unit);
  canvas.Line(chart::left, 0, chart::left, gridFoot, ink);
  canvas.Print("0 ");
  canvas.Print(title);
  double distance = frame.maxDist;
  for (int g = static_cast<int>(chart::right); g >= 20; g -= static_cast<int>(step)) {
    canvas.Line(g, 0, g, gridFoot, grid);
    canvas.Print(inMetres ? Format(distance, "0.00") : Format(distance / kilometre, "0.000"));
    distance -= frame.maxDist / (chart::length / step);
  }
  double value = frame.top;
  for (int g = 0; g <= 120; g += static_cast<int>(step)) {
    canvas.Line(chart::right, g, 0, g, grid);
    canvas.Print(Format(value, "0.00"));
    value -= frame.top / (chart::foot / step);
  }
  canvas.setDrawWidth(lineWidth);
}

ProfileCharts::ProfileCharts(const Sees& sees) : sees_(sees), fields_(sees.view.fields), menu_(sees.view.menu) {
  View& view = sees_.view.view;
  view.on(menu_.ihrprofl, Event::click, [this] { ihrprofl_Click(); });
  view.on(menu_.ftlinjryprofl, Event::click, [this] { ftlinjryprofl_Click(); });
  view.on(menu_.ftltyZoom, Event::click, [this] { ftltyZoom_Click(); });
  view.on(menu_.restzoom, Event::click, [this] { restzoom_Click(); });
}

void ProfileCharts::openProfile() {
  sees_.view.view.show();
  fields_.lndFRme.setVisible(false);
  fields_.showDial(false);
  fields_.setTitle(concentrationTitle);
  menu_.insrtdwg.disable();
  menu_.Drwzns.disable();
  menu_.grph.enable();
  menu_.ftlinjryprofl.setTag(tag::concentrationChart);
  if (!drawConcProfile()) return;
  for (int i = 0; i < levelCount; ++i) {
    fields_.linelbl2[i].setBackColour(SystemColour::windowText);
    fields_.LblDsply[i].setCaption("");
  }
}

void ProfileCharts::ihrprofl_Click() {
  sees_.desktop.setPointer(Pointer::hourglass);
  fields_.setTitle(concentrationTitle);
  menu_.ftlinjryprofl.setTag(tag::concentrationChart);
  drawConcProfile();
}

bool ProfileCharts::drawConcProfile() {
  double end = 0;
  bool drawn = true;
  Canvas& canvas = fields_.canvas;
  fields_.statuslbl.setCaption("");
  Trap{[&](const RuntimeFailure&) {
    sees_.desktop.setPointer(Pointer::standard);
    sees_.desktop.messageBox(information("Unable to plot Concentration Profile."));
    sees_.view.view.close();
    drawn = false;
  }}.step([&] {
    canvas.setDrawWidth(1);
    canvas.Cls();
    sees_.search.maxDistPrbt = reachOf(sees_.toxic.maxdstprtxt);
    const double most = sees_.result.constn1.number();
    sees_.chart.distPerUnit = sees_.search.maxDistPrbt / chart::length;
    sees_.chart.concPerUnit = checked((most + most * 0.1) / chart::foot);
    fields_.sclsdspl.setCaption("Concentration profile (ISOELEVET)");
    drawChartFrame(canvas, {sees_.search.maxDistPrbt, most + chart::labelMargin, "(ppm)", "(km)"}, sees_.lineWidth);
    sees_.search.crossPath = 0.00001;
    end = strictNumber(Format(sees_.search.maxDistPrbt, "0.0"));
    sees_.model.distAt = 1;
    if (end >= 1) evaluate();  // from here on a failing step is passed over
  });
  if (!drawn) return false;
  double penX = chart::left;
  double penY = chart::foot;
  const Trap passing = Trap::ignoring();
  for (sees_.model.distAt = 1; sees_.model.distAt <= end; ++sees_.model.distAt)
    passing.steps([&] { evaluate(); },
                  [&] {
                    const double x = checked(sees_.model.distAt / sees_.chart.distPerUnit + chart::left);
                    const double y = checked(chart::foot - sees_.search.concPrbt / sees_.chart.concPerUnit);
                    canvas.Line(penX, penY, x, y, concentrationCurve);
                    penX = x;
                    penY = y;
                  });
  sees_.desktop.setPointer(Pointer::standard);
  return true;
}

void ProfileCharts::evaluate() {
  sees_.plume.calcSigmaYAt();
  sees_.plume.calcSigmaZBaseAt();
  sees_.plume.calcSigmaZAt();
  sees_.limits.prbtConcAt();
}

void ProfileCharts::drawFrame() {
  Canvas& canvas = fields_.canvas;
  canvas.setDrawWidth(1);
  fields_.sclsdspl.setCaption("Fatality and Injury profile");
  drawChartFrame(canvas, {sees_.search.maxDistPrbt, chart::topPercent, "(%)", "(Km)"}, sees_.lineWidth);
  canvas.Line(150, 10, 155, 10, {192, 0, 0});
  canvas.Print(" Percent Fatality");
  canvas.Line(150, 20, 155, 20, {0, 192, 0});
  canvas.Print(" Percent Injury");
}

void ProfileCharts::ftlinjryprofl_Click() {
  const Field& outermost = sees_.level.endpt[levelCount - 1];
  if (!outermost.isNumeric()) {
    sees_.desktop.messageBox(information(noProfile));
    return;
  }
  const bool far = outermost.number() > farProfile;
  if (far) {
    const MessageBox box = question(
        "Plotting of Injury-Fatality Profile may take longer to display.\nNOTE : Limit simulation to 10000 m ");
    if (sees_.desktop.messageBox(box) != Reply::yes) return;
  }
  fields_.canvas.Cls();
  fields_.canvas.setPicture(nullptr);
  fields_.setTitle(far ? " NOLDA-RZ : Injury Fatality Profile" : " NOLDA-RZ : Injury and Fatality Profile");
  menu_.ftlinjryprofl.setTag(tag::percentChart);
  sees_.desktop.setPointer(Pointer::hourglass);
  drawPercentProfile();
  fields_.Drw1.enable();
}

bool ProfileCharts::drawPercentProfile() {
  bool drawn = true;
  fields_.statuslbl.setCaption("");
  Trap{[&](const RuntimeFailure&) {
    sees_.desktop.messageBox(information(noProfile));
    drawn = false;
  }}.step([&] { sees_.limits.drawProfile(*this); });
  if (!drawn || !fields_.canvas.drawing().texts.empty()) return drawn;
  fields_.statuslbl.setCaption("Level 4, out of whose cloud people walk, has no length: there is no profile.");
  return false;
}

void ProfileCharts::ftltyZoom_Click() {
  fields_.Drw1.setTag(click::distance);
  fields_.Xline.setEnds(75, 0, 75, 160);
  fields_.Xline.field.setVisible(true);
  fields_.mousetxt.setCaption(pickText);
  fields_.mousetxt.setVisible(true);
  fields_.statuslbl.setCaption("Click the distance at which the chart is to end; Escape leaves it as it is.");
}

void ProfileCharts::pickDistance(double x) {
  const double distance = (x - chart::left) * sees_.search.maxDistPrbt / chart::length;
  const std::string text = Format(distance, "0.000");
  if (!(strictNumber(text) > 0)) return fields_.statuslbl.setCaption("Click to the right of the upright axis.");
  sees_.toxic.maxdstprtxt.setText(text);
  redraw();
  leavePick();
}

void ProfileCharts::restzoom_Click() {
  const Field& outermost = sees_.level.endpt[levelCount - 1];
  if (!outermost.isNumeric()) {
    sees_.desktop.messageBox(information(noProfile));
    return;
  }
  sees_.toxic.maxdstprtxt.setText(outermost.text());
  redraw();
  leavePick();
}

void ProfileCharts::redraw() {
  if (showsPercent()) ftlinjryprofl_Click();
  if (showsConcentration()) ihrprofl_Click();
}

void ProfileCharts::leavePick() {
  fields_.mousetxt.setCaption("");
  fields_.Xline.field.setVisible(false);
  fields_.Drw1.setTag(click::none);
  fields_.statuslbl.setCaption("");
}

}  // namespace noldarz
