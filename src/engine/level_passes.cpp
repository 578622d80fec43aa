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
constexpr double refinedSpan = 10;   // m before and behind a coarse end point
constexpr double extension = 10000;  // m that a Yes adds to the maximum distance

}  // namespace

LevelPasses::LevelPasses(ModelState& model, SweepState& sweep, LevelState& passes, const ScenarioInputs& in,
                         const LevelFields& level, const ResultFields& result, const CommandFields& command,
                         Sweep& search, Isopleth& isopleth, Progress& progress, Desktop& desktop,
                         std::function<void()> press)
    : model_(model),
      sweep_(sweep),
      passes_(passes),
      in_(in),
      level_(level),
      result_(result),
      command_(command),
      search_(search),
      isopleth_(isopleth),
      progress_(progress),
      desktop_(desktop),
      press_(std::move(press)) {}

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
  passes_.firstPass = 0;
  return Outcome::closeOut;
}

void LevelPasses::disableInputs() const {
  command_.getconclvl.disable();
  for (int i = 0; i < levelCount; ++i) level_.constn[i].disable();
  for (Field* field : {&in_.prbtoptn, &in_.avalftl, &in_.nvalftl, &in_.avalinj, &in_.nvalinj, &in_.hudityTxt})
    field->disable();
}

int LevelPasses::firstBadLevel(const Trap& press) const {
  for (int i = 0; i + 1 < levelCount; ++i) {
    const Field& upper = level_.constn[i];
    const Field& lower = level_.constn[i + 1];
    if (!upper.isNumeric() || !lower.isNumeric()) return i;
    const bool bad = press.holds([&] {
      const double a = upper.number();
      return a >= result_.constn1.number() || a < lower.number() || a <= 0;
    });
    if (bad) return i;
  }
  return -1;
}

void LevelPasses::refuse(int bad, const Trap& press) const {
  const MessageBox box = critical(
      "1. Concentration should be >0 and in descending order.\n"
      "2. Concentrations (ppm) should be < Maximum Isop concentration (ppm) ");
  desktop_.messageBox(box);
  const int level = bad + 1;
  level_.setResults(level, mark::inputError);
  for (int i = 0; i < levelCount; ++i) level_.constn[i].enable();
  progress_.close();
  desktop_.setPointer(Pointer::standard);
  press.step([&] { desktop_.setFocus(level_.constn[level]); });
  const bool onlyOrder = press.holds([&] {
    const double a = level_.constn[bad].number();
    return a > 0 && a < result_.constn1.number();
  });
  level_.constn[onlyOrder ? level : bad].setFault(box.text);
  command_.prntprv.disable();
}

void LevelPasses::findBeginPoints(const Trap& press) {
  sweep_.bgnIdx = 0;
  const bool far = press.holds([&] { return result_.maxdistconctxt.number() > nearPeak; });
  sweep_.sweepStep = far ? beginStep : fineStep;
  sweep_.sweepFrom = firstDistance;
  press.step([&] { sweep_.sweepTo = reachOf(result_.maxdistconctxt); });
  search_.runSweep();
}

void LevelPasses::findEndPoints(const Trap& press) {
  sweep_.endIdx = 0;
  sweep_.sweepStep = coarseEndStep;
  sweep_.sweepTo = sweep_.endDist;
  for (passes_.sweepLevel = 0; passes_.sweepLevel < levelCount; ++passes_.sweepLevel) {
    press.step([&] { sweep_.sweepFrom = axisDistance(level_.bgnpt[passes_.sweepLevel]); });
    search_.runSweep();
  }
}

bool LevelPasses::hasPoints(int level) const {
  return !mark::isOpen(level_.bgnpt[level].text(), sweep_.endDist) && level_.endpt[level].text() != mark::nothing;
}

void LevelPasses::refineEndPoints(const Trap& press) {
  sweep_.bgnIdx = levelCount;
  sweep_.endIdx = 0;
  for (passes_.sweepLevel = 0; passes_.sweepLevel < levelCount; ++passes_.sweepLevel) {
    sweep_.sweepStep = fineStep;
    const Field& endpt = level_.endpt[passes_.sweepLevel];
    if (!hasPoints(passes_.sweepLevel) || endpt.text() == mark::beyond(sweep_.endDist)) continue;
    if (press.holds([&] { return endpt.number() <= refinedSpan; }))
      press.step([&] { sweep_.sweepFrom = axisDistance(level_.bgnpt[passes_.sweepLevel]); });
    else
      press.step([&] { sweep_.sweepFrom = axisDistance(endpt) - refinedSpan; });
    press.step([&] { sweep_.sweepTo = reachOf(endpt) + refinedSpan; });
    search_.runSweep();
  }
}

void LevelPasses::findWidths(const Trap& press) {
  sweep_.endIdx = levelCount;
  passes_.widthIdx = 0;
  press.step([&] { model_.distAt = axisDistance(result_.maxdistconctxt); });
  passes_.halfWidthPrev = 0;
  passes_.halfWidthLast = 0;
  for (passes_.widthLevel = 0; passes_.widthLevel < levelCount; ++passes_.widthLevel) {
    sweep_.sweepStep = widthStep;
    press.step([&] { model_.levelConcAt = rounded(level_.constn[passes_.widthLevel].number(), 2); });
    if (hasPoints(passes_.widthLevel))
      press.step([&] { isopleth_.findMaxWidth(press); });
    else
      command_.prntprv.disable();
  }
}

void LevelPasses::workOutResults(const Trap& press) {
  // A press inside the press moves levelIdx, as a rule past the last level.
  for (passes_.levelIdx = 0; passes_.levelIdx < levelCount; ++passes_.levelIdx) {
    const int level = passes_.levelIdx;
    const std::string& end = level_.endpt[level].text();
    if (end != mark::nothing && end != mark::beyond(sweep_.endDist)) {
      isopleth_.calcLevelShape(level, press);
      command_.prntprv.enable();
      continue;
    }
    level_.setResults(level, mark::beyond(sweep_.endDist));
    result_.expmass.setText(mark::nothing);
    if (!wantsFurther(level)) {
      openLevel(level, press);
      return;
    }
    extendDistance(level, press);
  }
}

bool LevelPasses::wantsFurther(int level) {
  const std::string distance = plainText(sweep_.endDist);
  MessageBox box = information("Concentration in ppm  > " + distance + " m \nWish to simulate beyond " + distance +
                               " m \n NOTE : You can Reset concentration " + level_.conclbl[level].caption() +
                               "\nEnter concentration > " + level_.constn[level].text());
  box.buttons = Buttons::yesNo;
  box.defaultReply = Reply::no;
  return desktop_.messageBox(box) == Reply::yes;
}

void LevelPasses::extendDistance(int level, const Trap& press) {
  in_.enddisttxt.setText(plainText(sweep_.endDist + extension));
  level_.setResults(level, mark::nothing);
  result_.expmass.setText(mark::nothing);
  press.step([&] { press_(); });
  command_.prntprv.disable();
}

void LevelPasses::openLevel(int level, const Trap& press) const {
  progress_.close();
  desktop_.setPointer(Pointer::standard);
  level_.constn[level].enable();
  press.step([&] { desktop_.setFocus(level_.constn[level]); });
  level_.constn[level].setBackColour(attentionColour);
  command_.prntprv.disable();
  command_.comput.disable();
}

}  // namespace noldarz
