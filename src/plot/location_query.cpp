#include "plot/location_query.h"

#include <array>
#include <cmath>

#include "platform/failure.h"
#include "platform/text.h"
#include "plot/paper.h"

namespace noldarz {

namespace {

constexpr std::string_view howToAsk{"Click places to ask for; Enter or Escape ends the questions."};
constexpr int none = -1;
struct Hazard {
  int from;   ///< level that the concentration reaches
  int below;  ///< level that it stays below
  int named;  ///< level that has to bear this caption
  std::string_view caption;
  std::string_view text;
};
constexpr std::array<Hazard, 5> hazards{{{2, none, 2, "TEEL3/IDLH:", "  Hazard LvL: Fatel Hazard"},
                                         {3, 2, 3, "TEEL2:", "  Hazard LvL: High Hazard"},
                                         {4, 3, 4, "TEEL1:", "  Hazard LvL: Medium Hazard"},
                                         {5, 4, 4, "TEEL1:", "  Hazard LvL: Low Hazard"},
                                         {none, 5, 5, "TEEL0:", "  Hazard LvL: Safe"}}};

}  // namespace

std::vector<std::string_view> hazardLines(double concentration, const LevelFields& level) {
  std::vector<std::string_view> lines;
  for (const Hazard& hazard : hazards)
    silently([&] {
      const bool holds = (hazard.from == none || level.constn[hazard.from].number() <= concentration) &&
                         (hazard.below == none || concentration < level.constn[hazard.below].number());
      if (holds && level.conclbl[hazard.named].caption() == hazard.caption) lines.push_back(hazard.text);
    });
  return lines;
}

LocationQuery::LocationQuery(const Sees& sees) : sees_(sees), fields_(sees.view.fields), menu_(sees.view.menu) {
  sees_.view.view.on(menu_.sltloctn, Event::click, [this] { sltloctn_Click(); });
}

void LocationQuery::sltloctn_Click() {
  sees_.clicks.locationOn = 1;
  fields_.canvas.Cls();
  if (sees_.clicks.locationReady == 0) {
    sees_.scale.usrdef_Click();
    sees_.clicks.locationReady = 1;
    return;
  }
  fields_.Drw1.setTag(click::none);
  menu_.selctdwg.setTag(tag::picture);
  sees_.query.drawMode = drawMode::location;
  fields_.Xline.field.setVisible(false);
  sees_.scale.drawBar();
  fields_.showDial(false);
  markSource(fields_.canvas, sees_.plot.sourceX, sees_.plot.sourceY, Weight::bold);
  fields_.Xline.setStart(sees_.plot.sourceX, sees_.plot.sourceY);
  fields_.Xline.field.setVisible(true);
  fields_.mousetxt.setCaption(" Select Location");
  fields_.mousetxt.setVisible(true);
  fields_.statuslbl.setCaption(howToAsk);
}

void LocationQuery::ask(double x, double y) {
  ClickState& clicks = sees_.clicks;
  clicks.clickX = x;
  clicks.clickY = y;
  const double away = std::hypot(sees_.plot.sourceY - y, sees_.plot.sourceX - x) * sees_.plot.plotScale;
  clicks.clickDist = rounded(std::abs(away), 2);
  sees_.model.distAt = clicks.clickDist;
  const bool known = Trap::ignoring().holds([&] {
    sees_.plume.calcHalfWidthAt();
    return true;
  });
  Canvas& canvas = fields_.canvas;
  canvas.PSet(x, y, placing);
  canvas.Circle(x, y, 0.5);
  canvas.Print("  Distance : " + plainText(clicks.clickDist) + " m");
  if (!known)
    return fields_.statuslbl.setCaption(clicks.clickDist == 0 ? "There is no concentration on the source itself."
                                                              : "The inputs of the run give no concentration.");
  fields_.statuslbl.setCaption(howToAsk);
  clicks.clickConc = sees_.model.concAt;
  printAt(canvas, x, y + 3, "  Conc.: " + Format(clicks.clickConc, "0.00") + " ppm");
  for (const std::string_view line : hazardLines(clicks.clickConc, sees_.level)) printAt(canvas, x, y + 6, line);
}

void LocationQuery::leave() {
  fields_.Xline.field.setVisible(false);
  fields_.mousetxt.setVisible(false);
  fields_.mousetxt.setCaption("");
  sees_.desktop.setPointer(Pointer::standard);
  sees_.clicks.locationReady = 0;
  sees_.query.drawMode = 0;
  fields_.statuslbl.setCaption("");
}

}  // namespace noldarz
