#include "plot/plot_picture.h"

namespace noldarz {

PlotPicture::PlotPicture(const Sees& sees)
    : sees_(sees),
      view_(views_),
      zoneView_(views_, "zardzone", ""),
      zone_(zoneView_),
      resultView_(views_, "dspmnfrm", ""),
      result_(resultView_),
      progress_(views_),
      plume_({.model = engine_, .query = engine_, .in = sees.in, .level = sees.level, .result = result_}),
      share_({.shares = engine_, .in = sees.in, .result = result_, .desktop = desktop_}),
      isopleths_({.plot = state_,
                  .query = engine_,
                  .model = engine_,
                  .rawLimits = sees.rawLimits,
                  .limits = sees.limits,
                  .lineWidth = lineWidth_,
                  .in = sees.in,
                  .level = sees.level,
                  .project = sees.project,
                  .zone = zone_,
                  .view = view_.fields,
                  .menu = view_.menu,
                  .progress = progress_,
                  .plume = plume_,
                  .outputs = outputs_,
                  .desktop = desktop_}),
      rose_({.plot = state_,
             .rose = state_,
             .shares = engine_,
             .in = sees.in,
             .level = sees.level,
             .project = sees.project,
             .zone = zone_,
             .view = view_.fields,
             .menu = view_.menu,
             .wind = share_,
             .desktop = desktop_}),
      scale_({.plot = state_,
              .clicks = state_,
              .trace = state_,
              .query = engine_,
              .zone = zone_,
              .view = view_,
              .desktop = desktop_}),
      fit_({.plot = state_,
            .clicks = state_,
            .trace = state_,
            .query = engine_,
            .lineWidth = lineWidth_,
            .in = sees.in,
            .level = sees.level,
            .zone = zone_,
            .view = view_,
            .scale = scale_,
            .isopleths = isopleths_,
            .rose = rose_,
            .desktop = desktop_}) {}

std::string PlotPicture::draw(const Wish& wish) {
  desktop_.forget();
  engine_ = sees_.engine;
  view_.menu.reset();
  view_.fields.Drw1.setWidth(wish.width / millimetresPerTwip);
  view_.fields.Drw1.setHeight(wish.height / millimetresPerTwip);
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
  zone_.PlotFtlyInjryLmt.setValue(wish.limits ? 1 : 0);
  view_.fields.canvas.Cls();
  if (!any) return unableToPlot;
  const bool drawn = fit_.draw(wish.fit, wish.wind);
  const bool tooMuchWind = wish.fit == Fit::rose && engine_.windTotal > 100;  // of which the sectors know nothing
  return drawn && !tooMuchWind ? "" : desktop_.said();
}

}  // namespace noldarz
