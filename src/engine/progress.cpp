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

Progress::Progress(Views& views, const ModelState& model, SweepState& sweep, LevelState& passes,
                   const LevelFields& level, Desktop& desktop)
    : view_(views, "aniwait1", ""),
      wait_(view_),
      model_(model),
      sweep_(sweep),
      passes_(passes),
      level_(level),
      desktop_(desktop) {
  view_.onLoad([this, &passes] {
    wait_.plumepic1.setWidth(startWidth);
    wait_.plumepic1.setFillColour({});
    wait_.plumepic1.setVisible(true);
    wait_.waitlbl1.setCaption(firstLine);
    wait_.progPic2.setWidth(0);
    wait_.pctdsp.setCaption("");
    shownPercent_ = -1;
    desktop_.setPointer(Pointer::hourglass);
    passes.waitShown = 1;
  });
  view_.onClose([&passes] { passes.waitShown = 0; });
}

void Progress::showProgress() {
  ++stepCount_;
  if (wait_.plumepic1.width() <= progressWidth) {
    wait_.plumepic1.setWidth(wait_.plumepic1.width() + 1);
    return;
  }
  wait_.waitlbl1.setCaption(textLine());
  desktop_.refresh(wait_.waitlbl1);
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
  desktop_.refresh(wait_.waitlbl1);
}

void Progress::showShare(double percent) {
  wait_.progPic2.setWidth(wait_.progPic1.width() * percent / 100);
  const double whole = std::floor(percent + 0.5);
  if (whole == shownPercent_) return;
  shownPercent_ = whole;
  wait_.pctdsp.setCaption(Format(percent, "0") + " %");
  desktop_.refresh(wait_.pctdsp);
}

std::string Progress::textLine() {
  if (sweep_.mgcDone != 0) sweep_.shownLevel = passes_.widthLevel;
  const std::string percent = Format(checked(model_.distX * 100 / divisor(sweep_.sweepTo)), "0");
  if (sweep_.mgcDone == 0) return std::string{firstLine} + percent + " % complete";
  return "Computing distance for concentration : " + level_.conclbl[sweep_.shownLevel].caption() + " - " +
         level_.constn[sweep_.shownLevel].text() + " [ " + percent + " % complete ]";
}

}  // namespace noldarz
