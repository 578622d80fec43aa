#include "engine/level_passes.h"

#include <utility>

#include "platform/text.h"

namespace noldarz {

namespace {

constexpr double nearPeak = 30;      // m; a peak up to here is approached by the fine step
constexpr double beginStep = 0.5;    // m
constexpr double fineStep = 0.01;    // m
constexpr double coarseEndStep = 5;  // m
constexpr double widthStep = 1;      // m
constexpr double refinedSpan = 10;   // m before and after a coarse end point
constexpr double extension = 10000;  // m that a Yes adds to the maximum distance

}  // namespace

LevelPasses::Outcome LevelPasses::runLevelPasses(const Trap& press) {
  disableInputs();
  if (const int bad = firstBadLevel(press); bad >= 0) {
    refuse(bad, press);
    return Outcome::refused;
  }
  findBeginPoints(press);
  findEndPoints(press);
  refineEndPoints(press);
  findWidths(press);
  workOutResults(press);
  sees_.passes.firstPass = 0;
  return Outcome::closeOut;
}

void LevelPasses::disableInputs() const {
  sees_.command.getconclvl.disable();
  for (int i = 0; i < levelCount; ++i) sees_.level.constn[i].disable();
  for (Field* field : {&sees_.in.prbtoptn,
                       &sees_.in.avalftl,
                       &sees_.in.nvalftl,
                       &sees_.in.avalinj,
                       &sees_.in.nvalinj,
                       &sees_.in.hudityTxt})
    field->disable();
}

int LevelPasses::firstBadLevel(const Trap& press) const {
  for (int i = 0; i + 1 < levelCount; ++i) {
    const Field& upper = sees_.level.constn[i];
    const Field& lower = sees_.level.constn[i + 1];
    if (!upper.isNumeric() || !lower.isNumeric()) return i;
    const bool bad = press.holds([&] {
      const double a = upper.number();
      return a >= sees_.result.constn1.number() || a < lower.number() || a <= 0;
    });
    if (bad) return i;
  }
  return -1;
}

void LevelPasses::refuse(int bad, const Trap& press) const {
  const MessageBox box = critical(
      "1. Concentration should be >0 and in descending order.\n"
      "2. Concentrations (ppm) should be < Maximum Isop concentration (ppm) ");
  sees_.desktop.messageBox(box);
  const int level = bad + 1;
  sees_.level.setResults(level, mark::inputError);
  for (int i = 0; i < levelCount; ++i) sees_.level.constn[i].enable();
  sees_.progress.close();
  sees_.desktop.setPointer(Pointer::standard);
  press.step([&] { sees_.desktop.setFocus(sees_.level.constn[level]); });
  const bool onlyOrder = press.holds([&] {
    const double a = sees_.level.constn[bad].number();
    return a > 0 && a < sees_.result.constn1.number();
  });
  sees_.level.constn[onlyOrder ? level : bad].setFault(box.text);
  sees_.command.prntprv.disable();
}

void LevelPasses::findBeginPoints(const Trap& press) {
  sees_.sweep.bgnIdx = 0;
  const bool far = press.holds([&] { return sees_.result.maxdistconctxt.number() > nearPeak; });
  sees_.sweep.sweepStep = far ? beginStep : fineStep;
  sees_.sweep.sweepFrom = firstDistance;
  press.step([&] { sees_.sweep.sweepTo = reachOf(sees_.result.maxdistconctxt); });
  sees_.search.runSweep();
}

void LevelPasses::findEndPoints(const Trap& press) {
  sees_.sweep.endIdx = 0;
  sees_.sweep.sweepStep = coarseEndStep;
  sees_.sweep.sweepTo = sees_.sweep.endDist;
  for (sees_.passes.sweepLevel = 0; sees_.passes.sweepLevel < levelCount; ++sees_.passes.sweepLevel) {
    press.step([&] { sees_.sweep.sweepFrom = axisDistance(sees_.level.bgnpt[sees_.passes.sweepLevel]); });
    sees_.search.runSweep();
  }
}

bool LevelPasses::hasPoints(int level) const {
  return !mark::isOpen(sees_.level.bgnpt[level].text(), sees_.sweep.endDist) &&
         sees_.level.endpt[level].text() != mark::nothing;
}

void LevelPasses::refineEndPoints(const Trap& press) {
  sees_.sweep.bgnIdx = levelCount;
  sees_.sweep.endIdx = 0;
  for (sees_.passes.sweepLevel = 0; sees_.passes.sweepLevel < levelCount; ++sees_.passes.sweepLevel) {
    sees_.sweep.sweepStep = fineStep;
    const Field& endpt = sees_.level.endpt[sees_.passes.sweepLevel];
    if (!hasPoints(sees_.passes.sweepLevel) || endpt.text() == mark::beyond(sees_.sweep.endDist)) continue;
    if (press.holds([&] { return endpt.number() <= refinedSpan; }))
      press.step([&] { sees_.sweep.sweepFrom = axisDistance(sees_.level.bgnpt[sees_.passes.sweepLevel]); });
    else
      press.step([&] { sees_.sweep.sweepFrom = axisDistance(endpt) - refinedSpan; });
    press.step([&] { sees_.sweep.sweepTo = reachOf(endpt) + refinedSpan; });
    sees_.search.runSweep();
  }
}

void LevelPasses::findWidths(const Trap& press) {
  sees_.sweep.endIdx = levelCount;
  sees_.passes.widthIdx = 0;
  press.step([&] { sees_.model.distAt = axisDistance(sees_.result.maxdistconctxt); });
  sees_.passes.halfWidthPrev = 0;
  sees_.passes.halfWidthLast = 0;
  for (sees_.passes.widthLevel = 0; sees_.passes.widthLevel < levelCount; ++sees_.passes.widthLevel) {
    sees_.sweep.sweepStep = widthStep;
    press.step([&] { sees_.model.levelConcAt = rounded(sees_.level.constn[sees_.passes.widthLevel].number(), 2); });
    if (hasPoints(sees_.passes.widthLevel))
      press.step([&] { sees_.isopleth.findMaxWidth(press); });
    else
      sees_.command.prntprv.disable();
  }
}

void LevelPasses::workOutResults(const Trap& press) {
  // A press inside the press moves levelIdx, as a rule past the last level.
  for (sees_.passes.levelIdx = 0; sees_.passes.levelIdx < levelCount; ++sees_.passes.levelIdx) {
    const int level = sees_.passes.levelIdx;
    const std::string& end = sees_.level.endpt[level].text();
    if (end != mark::nothing && end != mark::beyond(sees_.sweep.endDist)) {
      sees_.isopleth.calcLevelShape(level, press);
      sees_.command.prntprv.enable();
      continue;
    }
    sees_.level.setResults(level, mark::beyond(sees_.sweep.endDist));
    sees_.result.expmass.setText(mark::nothing);
    if (!wantsFurther(level)) {
      openLevel(level, press);
      return;
    }
    extendDistance(level, press);
  }
}

bool LevelPasses::wantsFurther(int level) {
  const std::string distance = plainText(sees_.sweep.endDist);
  MessageBox box = information("Concentration in ppm  > " + distance + " m \nWish to simulate beyond " + distance +
                               " m \n NOTE : You can Reset concentration " + sees_.level.conclbl[level].caption() +
                               "\nEnter concentration > " + sees_.level.constn[level].text());
  box.buttons = Buttons::yesNo;
  box.defaultReply = Reply::no;
  return sees_.desktop.messageBox(box) == Reply::yes;
}

void LevelPasses::extendDistance(int level, const Trap& press) {
  sees_.in.enddisttxt.setText(plainText(sees_.sweep.endDist + extension));
  sees_.level.setResults(level, mark::nothing);
  sees_.result.expmass.setText(mark::nothing);
  press.step([&] { sees_.press(); });
  sees_.command.prntprv.disable();
}

void LevelPasses::openLevel(int level, const Trap& press) const {
  sees_.progress.close();
  sees_.desktop.setPointer(Pointer::standard);
  sees_.level.constn[level].enable();
  press.step([&] { sees_.desktop.setFocus(sees_.level.constn[level]); });
  sees_.level.constn[level].setBackColour(attentionColour);
  sees_.command.prntprv.disable();
  sees_.command.comput.disable();
}

}  // namespace noldarz
