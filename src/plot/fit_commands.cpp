#include "plot/fit_commands.h"

#include <algorithm>
#include <cmath>

#include "platform/failure.h"
#include "plot/paper.h"

namespace noldarz {

namespace {

constexpr double farthest = 1e9;  // mm, of a source from its canvas
constexpr double margin = 10;     // mm, between the source or the end point and the edge
constexpr std::string_view elevationTitle{"NOLDA -RZ: Dispersion Model (Isoelevate)"};

}  // namespace

FitPlace fitPlace(Fit fit, double canvasWidth, double canvasHeight) {
  const double across = canvasWidth - 2 * margin;
  switch (fit) {
    case Fit::vertical: return {canvasWidth / 2, canvasHeight - margin, 0, canvasHeight - 2 * margin};
    case Fit::horizontal: return {margin, canvasHeight / 2, 90, across};
    case Fit::elevation: return {margin, canvasHeight - margin, 90, across};
    case Fit::rose: break;
  }
  return {canvasWidth / 2, canvasHeight / 2, 0, canvasHeight / 2 - margin};
}

FitPlace fitPlace(int wind, double canvasWidth, double canvasHeight) {
  const double right = std::sin(wind * isoplethRadian);
  const double up = std::cos(wind * isoplethRadian);
  const double length = std::min((canvasWidth - 2 * margin) / std::max(std::abs(right), 1e-9),
                                 (canvasHeight - 2 * margin) / std::max(std::abs(up), 1e-9));
  return {canvasWidth / 2 - length / 2 * right, canvasHeight / 2 + length / 2 * up, wind, length};
}

FitCommands::FitCommands(const Sees& sees) : sees_(sees), fields_(sees.view.fields), menu_(sees.view.menu) {
  View& view = sees_.view.view;
  view.on(menu_.Ftvert, Event::click, [this] { draw(Fit::vertical); });
  view.on(menu_.fthiznt, Event::click, [this] { draw(Fit::horizontal); });
  view.on(menu_.isoelvat, Event::click, [this] { draw(Fit::elevation); });
  view.on(menu_.FtvertB, Event::click, [this] { draw(Fit::rose); });
  view.on(menu_.zoomin1, Event::click, [this] { zoom(-1); });
  view.on(menu_.zoomout1, Event::click, [this] { zoom(1); });
  view.on(menu_.zoomall, Event::click, [this] {
    sees_.plot.zoomLevel = levelCount - 1;
    repeat();
  });
}

bool FitCommands::findLevel() {
  const int asked = std::clamp<int>(sees_.plot.zoomLevel, 0, levelCount - 1);
  int found = asked;
  while (found >= 0 && !hasEnd(sees_.level, found)) --found;
  if (found < 0) found = asked;
  while (found < levelCount && !hasEnd(sees_.level, found)) ++found;
  if (found == levelCount) return false;
  sees_.plot.zoomLevel = static_cast<std::int16_t>(found);
  return true;
}

bool FitCommands::draw(Fit fit, std::optional<int> wind) {
  const double width = fields_.canvas.ScaleWidth();
  const double height = fields_.canvas.ScaleHeight();
  FitPlace place = wind ? fitPlace(*wind, width, height) : fitPlace(fit, width, height);
  double scale = 0;
  const bool fits = findLevel() && place.length > 0 && Trap::ignoring().holds([&] {
    scale = sees_.level.endpt[sees_.plot.zoomLevel].number() / place.length;
    if (fit == Fit::elevation) place.sourceY = checked(height - (sees_.in.htreltxt.number() / scale + groundBand));
    return std::abs(place.sourceY) <= farthest;
  });
  if (!fits) {
    sees_.desktop.messageBox(information(unableToPlot));
    return false;
  }
  begin(fit);
  if (fit == Fit::rose) {
    fields_.eqlvalu.setText(sees_.level.endpt[sees_.plot.zoomLevel].text());
    sees_.clicks.scaleSpan = place.length;
  }
  sees_.plot.plotScale = scale;
  sees_.plot.sourceX = place.sourceX;
  sees_.plot.sourceY = place.sourceY;
  sees_.scale.applyScale();
  fields_.showDial(false);
  if (fit != Fit::rose) sees_.zone.wndsld1.setValue(place.wind);
  fields_.statuslbl.setCaption("");
  return fit == Fit::rose ? drawRose() : drawZones(fit);
}

void FitCommands::begin(Fit fit) {
  sees_.query.drawMode = sees_.trace.traceRubber = 0;
  sees_.query.isoElevate = fit == Fit::elevation ? 1 : 0;
  sees_.trace.pipeMode = false;
  fields_.Xline.field.setVisible(false);
  fields_.sclsdspl.setVisible(true);
  fields_.canvas.setPicture(nullptr);
  menu_.selctdwg.setTag(tag::none);
  menu_.slcsrc.disable();
  menu_.zoom1.enable();
  menu_.Ftvert.setTag(fit == Fit::vertical ? tag::shown : fit == Fit::rose ? tag::roseShown : tag::none);
  menu_.fthiznt.setTag(fit == Fit::horizontal || fit == Fit::elevation ? tag::shown : tag::none);
  fields_.Drw1.setTag(click::none);
  fields_.GroundLvl.setVisible(false);
}

bool FitCommands::drawZones(Fit fit) {
  Canvas& canvas = fields_.canvas;
  const bool elevated = fit == Fit::elevation;
  if (elevated) {
    const double width = canvas.ScaleWidth();
    fields_.GroundLvl.setVisible(true);
    fields_.GroundLvl.setLeft(canvas.currentX());
    fields_.GroundLvl.setTop(canvas.ScaleHeight() - groundBand);
    fields_.GroundLvl.setWidth(width);
    fields_.GroundLvl.setHeight(groundBand);
    drawGround(canvas);
  }
  canvas.setDrawWidth(sees_.lineWidth);
  fields_.setTitle(elevated ? elevationTitle : isoplethTitle);
  const bool drawn = sees_.isopleths.drawIsopleths();
  const std::string height = "  Source point \n            at : " + sees_.in.htreltxt.text() + " m";
  markSource(
      canvas, sees_.plot.sourceX, sees_.plot.sourceY, Weight::bold, elevated ? std::string_view{height} : sourceText);
  if (elevated) printAt(canvas, 0, canvas.ScaleHeight() - 14, "  Gr.Lvl.");
  return drawn;
}

bool FitCommands::drawRose() {
  fields_.canvas.setDrawWidth(sees_.lineWidth);
  sees_.rose.windRoseTable();
  if (!sees_.rose.drawRoseEnd() || !sees_.rose.drawRoseBegin()) return false;
  fields_.Drw1.setTag(click::none);
  markSource(fields_.canvas, sees_.plot.sourceX, sees_.plot.sourceY, Weight::normal);
  fields_.sclsdspl.setVisible(true);
  fields_.showDial(true);
  return true;
}

void FitCommands::zoom(int step) {
  int next = sees_.plot.zoomLevel + step;
  while (next >= 0 && next < levelCount && !hasEnd(sees_.level, next)) next += step;
  if (next < 0 || next >= levelCount) {
    sees_.desktop.messageBox(information("Zoom Limit"));
    return;
  }
  sees_.plot.zoomLevel = static_cast<std::int16_t>(next);
  repeat();
}

void FitCommands::repeat() {
  if (menu_.Ftvert.tag() == tag::shown)
    draw(Fit::vertical);
  else if (menu_.Ftvert.tag() == tag::roseShown)
    draw(Fit::rose);
  if (menu_.fthiznt.tag() == tag::shown) draw(sees_.query.isoElevate == 1 ? Fit::elevation : Fit::horizontal);
}

}  // namespace noldarz
