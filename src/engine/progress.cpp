#include "engine/progress.h"

#include <algorithm>
#include <cmath>

#include "platform/colour.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

namespace {
constexpr double startWidth = 210;  // units of the shape
constexpr int colourCount = 15;     // the first entries of the basic palette
constexpr std::string_view firstLine = "Computing Maximum Ground Concentration (MGC)";
}  // namespace

Progress::Progress(const Sees& sees) : sees_(sees), view_(sees.views, "aniwait1", ""), wait_(view_) {
  view_.onLoad([this] {
    wait_.plumepic1.setWidth(startWidth);
    wait_.plumepic1.setFillColour({});
    wait_.plumepic1.setVisible(true);
    wait_.waitlbl1.setCaption(firstLine);
    wait_.progPic2.setWidth(0);
    wait_.pctdsp.setCaption("");
    shownPercent_ = -1;
    sees_.desktop.setPointer(Pointer::hourglass);
    sees_.passes.waitShown = 1;
  });
  view_.onClose([this] { sees_.passes.waitShown = 0; });
}

void Progress::showProgress() {
  ++stepCount_;
  if (wait_.plumepic1.width() <= progressWidth) {
    wait_.plumepic1.setWidth(wait_.plumepic1.width() + 1);
    return;
  }
  wait_.waitlbl1.setCaption(textLine());
  sees_.desktop.refresh(wait_.waitlbl1);
  wait_.plumepic1.setWidth(startWidth);
  wait_.plumepic1.setFillColour(basicPalette.at(random_() % colourCount));
}

int Progress::stepsToTurn() const { return std::max(0, static_cast<int>(progressWidth - wait_.plumepic1.width()) + 1); }

void Progress::skip(int steps) {
  stepCount_ += static_cast<std::uint64_t>(steps);
  wait_.plumepic1.setWidth(wait_.plumepic1.width() + steps);
}

void Progress::showSearch(std::string_view line) {
  wait_.plumepic1.setVisible(false);
  wait_.waitlbl1.setCaption(line);
  sees_.desktop.refresh(wait_.waitlbl1);
}

void Progress::showShare(double percent) {
  wait_.progPic2.setWidth(wait_.progPic1.width() * percent / 100);
  const double whole = std::floor(percent + 0.5);
  if (whole == shownPercent_) return;
  shownPercent_ = whole;
  wait_.pctdsp.setCaption(Format(percent, "0") + " %");
  sees_.desktop.refresh(wait_.pctdsp);
}

std::string Progress::textLine() {
  if (sees_.sweep.mgcDone != 0) sees_.sweep.shownLevel = sees_.passes.widthLevel;
  const std::string percent = Format(checked(sees_.model.distX * 100 / divisor(sees_.sweep.sweepTo)), "0");
  if (sees_.sweep.mgcDone == 0) return std::string{firstLine} + percent + " % complete";
  return "Computing distance for concentration : " + sees_.level.conclbl[sees_.sweep.shownLevel].caption() + " - " +
         sees_.level.constn[sees_.sweep.shownLevel].text() + " [ " + percent + " % complete ]";
}

}  // namespace noldarz
