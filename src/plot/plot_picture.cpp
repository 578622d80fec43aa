#include "plot/plot_picture.h"

#include <algorithm>

namespace noldarz {

PlotPicture::PlotPicture(const Sees& sees)
    : sees_(sees),
      view_(views_),
      zoneView_(views_, "zardzone", ""),
      zone_(zoneView_),
      resultView_(views_, "dspmnfrm", ""),
      result_(resultView_),
      toxic_(resultView_),
      plume_({.model = engine_, .query = engine_, .in = sees.in, .level = sees.level, .result = result_}),
      progress_({.views = views_,
                 .model = engine_,
                 .sweep = engine_,
                 .passes = engine_,
                 .level = sees.level,
                 .desktop = desktop_}),
      limitSearch_({.views = views_,
                    .model = engine_,
                    .search = toxicState_,
                    .rawLimits = toxicState_,
                    .table = toxicState_,
                    .passes = engine_,
                    .plume = plume_,
                    .in = sees.in,
                    .level = sees.level,
                    .toxic = toxic_,
                    .progress = progress_,
                    .desktop = desktop_}),
      share_({.shares = engine_, .in = sees.in, .result = result_, .desktop = desktop_}),
      drawings_({.state = state_,
                 .engineState = engine_,
                 .search = toxicState_,
                 .rawLimits = sees.rawLimits,
                 .limits = sees.limits,
                 .lineWidth = lineWidth_,
                 .in = sees.in,
                 .level = sees.level,
                 .result = sees.result,
                 .toxic = toxic_,
                 .project = sees.project,
                 .zone = zone_,
                 .view = view_,
                 .plume = plume_,
                 .windShare = share_,
                 .limitSearch = limitSearch_,
                 .outputs = outputs_,
                 .desktop = desktop_}) {}

std::string PlotPicture::draw(const Wish& wish) {
  desktop_.forget();
  engine_ = sees_.engine;
  toxic_.maxdstprtxt.setText(sees_.toxic.maxdstprtxt.text());
  view_.menu.reset();
  view_.fields.Drw1.setWidth(wish.width / millimetresPerTwip);
  view_.fields.Drw1.setHeight(wish.height / millimetresPerTwip);
  view_.fields.setTitle("");
  view_.fields.canvas.Cls();
  bool drawn = false;
  switch (wish.kind) {
    case PlotKind::concentration: drawn = drawings_.charts.drawConcProfile(); break;
    case PlotKind::percent: drawn = drawings_.charts.drawPercentProfile(); break;
    case PlotKind::pipeline: drawn = drawPipeline(wish); break;
    default: drawn = drawZones(wish);
  }
  if (drawn) return "";
  const std::string& status = view_.fields.statuslbl.caption();
  return !desktop_.said().empty() ? desktop_.said() : !status.empty() ? status : unableToPlot;
}

bool PlotPicture::drawZones(const Wish& wish) {
  state_.northDeg = wish.north;
  state_.zoomLevel = levelCount - 1;
  bool any = false;
  for (int i = 0; i < levelCount; ++i) {
    const bool drawn = wish.levels.at(static_cast<std::size_t>(i)) && isDrawable(sees_.level, i);
    zone_.zonsplot[i].setValue(drawn ? 1 : 0);
    zone_.zonsplot[i].setCaption(sees_.level.conclbl[i].caption());
    view_.fields.LblDsply[i].setCaption(legendText(sees_.level, i));
    if (drawn) state_.zoomLevel = static_cast<std::int16_t>(i);  // the last one reaches farthest
    any = any || drawn;
  }
  zone_.PlotFtlyInjryLmt.setValue(wish.limitCircles ? 1 : 0);
  if (!any) return false;
  const Fit fit = wish.kind == PlotKind::elevation ? Fit::elevation
                  : wish.kind == PlotKind::rose    ? Fit::rose
                                                   : Fit::vertical;
  const bool drawn = drawings_.fit.draw(fit, wish.wind);
  const bool tooMuchWind = fit == Fit::rose && engine_.windTotal > 100;  // of which the sectors know nothing
  return drawn && !tooMuchWind;
}

bool PlotPicture::drawPipeline(const Wish& wish) {
  constexpr double margin = 20;  // mm, of both edges
  const Field& end = sees_.level.endpt[0];
  if (!isDrawable(sees_.level, 0) || wish.trace.size() < 2) return false;
  const double r = end.number();
  const auto [left, right] = std::ranges::minmax_element(wish.trace, {}, &TracePoint::x);
  const auto [foot, top] = std::ranges::minmax_element(wish.trace, {}, &TracePoint::y);
  state_.plotScale = std::max((right->x - left->x + 2 * r) / (wish.width - margin),
                              (top->y - foot->y + 2 * r) / (wish.height - margin));
  const double middleX = (left->x + right->x) / 2;
  const double middleY = (foot->y + top->y) / 2;
  drawings_.pipeline.pltFrPipe_Click();
  for (const TracePoint& point : wish.trace)
    drawings_.pipeline.traceClick(wish.width / 2 + (point.x - middleX) / state_.plotScale,
                                  wish.height / 2 - (point.y - middleY) / state_.plotScale);
  view_.fields.setTitle("NOLDA -RZ: Dispersion Model (Pipeline)");
  view_.fields.showScale(state_.plotScale);
  return drawings_.pipeline.drawPipelineZones();
}

}  // namespace noldarz
