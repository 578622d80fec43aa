#include "plot/isopleth_plot.h"

#include <cmath>

#include "platform/failure.h"
#include "plot/header.h"

namespace noldarz {

namespace {

constexpr Colour fatalityColour{255, 128, 255};
constexpr Colour injuryColour{192, 192, 0};
constexpr double labelAngle = 10;   // degrees between the axis and the labels of the limits
constexpr double labelLift = -3.5;  // mm
constexpr double labelDrop = 0.5;   // mm

std::string metres(double value) { return Format(value, "0.00") + " m"; }

double twoDecimals(const Field& field) { return strictNumber(Format(field.text(), "0.00")); }

}  // namespace

bool IsoplethPlot::drawIsopleths() {
  bool drawn = true;
  const Trap failing{[&](const RuntimeFailure&) {
    sees_.desktop.messageBox(information(unableToPlot));
    sees_.outputs.close(AttachedView::chldfrm);
    sees_.view.canvas.setFontBold(false);
    sees_.view.canvas.setDrawWidth(sees_.lineWidth);
    drawn = false;
  }};
  sees_.desktop.setPointer(Pointer::hourglass);
  const Colour barColour = sees_.progress.progPic2.backColour();
  failing.step([&] {
    printHeader(sees_.view, sees_.menu, sees_.project);
    sees_.progress.view.show();
    const double direction = sees_.zone.wndsld1.value() * isoplethRadian;
    sin_ = std::sin(direction);
    cos_ = std::cos(direction);
    tips_ = 0;
    for (int level = levelCount - 1; level >= 0; --level) {
      sees_.query.plotLevel = static_cast<std::int16_t>(level);
      sees_.plot.plotColour = levelColours.at(static_cast<std::size_t>(level));
      if (isOutlined(level)) outline(level);
      endCircle(level);
    }
    limitCircles();
  });
  sees_.desktop.setPointer(Pointer::standard);
  sees_.view.mousetxt.setVisible(false);
  sees_.view.mousetxt.setCaption("");
  sees_.progress.view.close();
  sees_.progress.progPic2.setBackColour(barColour);
  return drawn;
}

bool IsoplethPlot::isOutlined(int level) const {
  const std::string& begin = sees_.level.bgnpt[level].text();
  const bool begins =
      begin != mark::nothing && begin != mark::notApplicable && begin != ">" + sees_.in.enddisttxt.text();
  return begins && sees_.zone.zonsplot[level].value() != 0;
}

void IsoplethPlot::outline(int level) {
  constexpr double fineEnd = 100;   // m
  constexpr double fineStep = 0.1;  // m
  constexpr double step = 1.0;      // m
  sees_.progress.progPic2.setWidth(15);
  sees_.progress.progPic2.setBackColour(colour());
  sees_.plot.plotEnd = sees_.level.endpt[level].number();
  const double stride = sees_.plot.plotEnd < fineEnd ? fineStep : step;
  const double from = twoDecimals(sees_.level.bgnpt[level]);
  const double to = twoDecimals(sees_.level.endpt[level]);

  pen_.reset();
  std::optional<Sample> start;
  Sample tip;
  for (sees_.model.distAt = from; sees_.model.distAt <= to; sees_.model.distAt += stride) {
    tip = sample(from);
    if (!pen_) start = pen_ = tip;
    lineTo(tip.x - tip.w * cos_, tip.y - tip.w * sin_);
    showProgress(level);
  }
  if (!start) return;
  printAt(
      sees_.view.canvas, tip.x, tip.y + (tips_++ % 2 == 0 ? labelLift : labelDrop), " " + metres(sees_.plot.plotEnd));
  for (sees_.model.distAt = to; sees_.model.distAt >= from; sees_.model.distAt -= stride) {
    const Sample at = sample(to);
    lineTo(at.x + at.w * cos_, at.y + at.w * sin_);
  }
  lineTo(start->x, start->y);
}

/// At distAt; the cloud has no width at the distance `without`, where a side begins.
IsoplethPlot::Sample IsoplethPlot::sample(double without) {
  const double distance = sees_.model.distAt;
  sees_.plot.halfWidthPlot = 0;
  if (distance != without) {
    sees_.plume.calcHalfWidthAt();
    sees_.plot.halfWidthPlot = sees_.model.halfWidthAtRounded;
  }
  const double x = checked(distance / sees_.plot.plotScale);
  const double w = checked(sees_.plot.halfWidthPlot / sees_.plot.plotScale);
  const double d = std::sqrt(0.00001 * 0.00001 + w + x * x);
  return {sees_.plot.sourceX + d * sin_, sees_.plot.sourceY - d * cos_, w};
}

void IsoplethPlot::lineTo(double x, double y) {
  sees_.view.canvas.Line(pen_->x, pen_->y, x, y, colour());
  pen_ = {x, y, 0};
}

void IsoplethPlot::showProgress(int level) {
  const double percent = sees_.model.distAt * 100 / sees_.plot.plotEnd;
  sees_.progress.progPic2.setWidth(percent * sees_.progress.progPic1.width() / 100);
  const std::string line =
      "Plotting " + sees_.view.LblDsply[level].caption() + " ...Wait " + Format(percent, "0") + " % complete";
  if (line == sees_.progress.probrLbl.caption()) return;
  sees_.progress.probrLbl.setCaption(line);
  sees_.desktop.refresh(sees_.progress.probrLbl);
}

void IsoplethPlot::endCircle(int level) {
  Canvas& canvas = sees_.view.canvas;
  if (sees_.zone.zonsplot[level].value() != 0) {
    canvas.setDrawWidth(1);
    if (sees_.query.isoElevate == 0)
      canvas.Circle(
          sees_.plot.sourceX, sees_.plot.sourceY, sees_.level.endpt[level].number() / sees_.plot.plotScale, colour());
  }
  canvas.setDrawWidth(sees_.lineWidth);
}

void IsoplethPlot::limitCircles() {
  if (sees_.zone.PlotFtlyInjryLmt.value() == 0 || sees_.query.isoElevate == 1) return;
  const struct {
    double stored;
    double raw;
    Colour colour;
    const char* label;
  } limits[]{{sees_.limits.ftlLimitStored, sees_.rawLimits.ftlLimitRaw, fatalityColour, "Fatality Limit "},
             {sees_.limits.injLimitStored, sees_.rawLimits.injLimitRaw, injuryColour, "Injury Limit "}};
  Canvas& canvas = sees_.view.canvas;
  const PlotState& plot = sees_.plot;
  canvas.setFontBold(true);
  for (const auto& limit : limits)
    canvas.Circle(plot.sourceX, plot.sourceY, limit.stored / plot.plotScale, limit.colour);
  const double b = (sees_.zone.wndsld1.value() - labelAngle) * isoplethRadian;
  for (const auto& limit : limits)  // the stored limit across, the raw one up
    printAt(canvas,
            plot.sourceX + limit.stored / plot.plotScale * std::sin(b),
            plot.sourceY - limit.raw / plot.plotScale * std::cos(b) + labelLift,
            limit.label + metres(limit.stored));
  canvas.setFontBold(false);
}

}  // namespace noldarz
