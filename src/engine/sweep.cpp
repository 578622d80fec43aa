#include "engine/sweep.h"

#include <algorithm>

#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr double purePpm = 1000000;         // a concentration can't be higher
constexpr double shownBelowPeak = 0.05;     // share by which the shown maximum stands below the peak
constexpr double reportedDistance = 10000;  // m, from which a sweep reports that it went so far

constexpr std::string_view plumeTimeCaption = "Time for stabilization concentration zones of dispersion (Secs)";
constexpr std::string_view puffTimeCaption = "Time for Puff Dispersion to end (Secs)";

}  // namespace

Sweep::Sweep(SweepState& sweep, ModelState& model, PlumeModel& plume, const LevelFields& level,
             const ResultFields& result, Progress& progress, Desktop& desktop)
    : sweep_(sweep),
      model_(model),
      plume_(plume),
      level_(level),
      result_(result),
      progress_(progress),
      desktop_(desktop),
      trap_([this](const RuntimeFailure&) {
        failed_ = true;
        desktop_.messageBox(information("Please Run this application as an administrator."));
      }),
      beginPointTrap_([this](const RuntimeFailure& failure) {
        failed_ = true;
        desktop_.messageBox(information("2. Please Run this program as an administrator/Anti-virus trust.\nMsg. No." +
                                        std::to_string(failure.number())));
      }) {}

void Sweep::runSweep() {
  const double limit = sweep_.sweepTo;
  const double step = sweep_.sweepStep;
  Stride stride;
  for (sweep_.distSweep = sweep_.sweepFrom; sweep_.distSweep <= limit; sweep_.distSweep += step) {
    takeStep();
    if (!failed_) skipQuietSteps(limit, step, stride);
  }
  reportFarSweep();
}

void Sweep::takeStep() {
  failed_ = false;
  model_.distX = rounded(sweep_.distSweep, 2);
  trap_.steps([&] { plume_.calcSigmaZBase(); },
              [&] { plume_.calcWindAtHeight(); },
              [&] { plume_.calcSigmaZ(); },
              [&] { plume_.calcSigmaY(); },
              [&] { progress_.showProgress(); },
              [&] { findPeak(); },
              [&] { testBeginPoint(); },
              [&] { testEndPoint(); });
  if (sweep_.mgcDone == 0)
    trap_.step([&] {  // one step: a candidate that fails must not give its place to that of another release
      plume_.calcConcGround();
      takeGroundMaximum();
    });
}

void Sweep::skipQuietSteps(double limit, double step, Stride& stride) {
  const int most = std::min(stride.steps(), progress_.stepsToTurn());
  const auto [before, next, steps] = stretchAhead(sweep_.distSweep, step, limit, most);
  if (steps < 2) return;
  if (!isQuiet(model_.distX, rounded(next, 2))) return stride.failed();
  sweep_.distSweep = before;
  progress_.skip(steps - 1);
  stride.succeeded();
}

bool Sweep::isQuiet(double from, double to) {
  const auto range = plume_.axisRange(from, to);
  if (!range) return false;
  if (sweep_.maxConcDone == 0) {
    const double warmth = plume_.releaseTemperature() / isoplethTemperature;
    if (!range->rises() || !(warmth > 0) || range->high * warmth * 2 > purePpm) return false;
  }
  if (sweep_.mgcDone == 0 && range->sigmaZ.high * (1 + AxisRange::margin) >= model_.sigmaZAtMax) return false;
  if (sweep_.bgnIdx < levelCount && (sweep_.bgnLevel != sweep_.bgnIdx || !range->liesBelow(sweep_.levelConcBgn)))
    return false;
  return sweep_.endIdx >= levelCount || (sweep_.endLevel == sweep_.endIdx && range->liesAbove(sweep_.levelConcEnd));
}

void Sweep::findPeak() {
  if (sweep_.maxConcDone != 0) return;
  if (const Release release = plume_.release(); release != Release::none) {
    plume_.plumeConc(model_.sigmaY, model_.sigmaZ, plume_.releaseTemperature(), model_.concAxis);
    result_.tmestbllbl.setCaption(release == Release::puff ? puffTimeCaption : plumeTimeCaption);
  }
  if (model_.concAxis > purePpm) {
    model_.concAxis = purePpm;
    sweep_.maxIsopConc = purePpm;
    sweep_.maxConcDist = model_.distX;
    showPeak();
    sweep_.maxConcDone = 1;
  }
  if (sweep_.concPeak <= model_.concAxis) {  // still rising, or flat
    sweep_.concPeak = model_.concAxis;
    return;
  }
  sweep_.maxConcDist = model_.distX;
  sweep_.maxIsopConc = model_.concAxis;  // the first value past the peak, not the peak
  showPeak();
  sweep_.maxConcDone = 1;
  if (sweep_.mgcDone == 1) endSweep();
}

void Sweep::showPeak() {
  result_.constn1.setText(Format(sweep_.maxIsopConc - sweep_.maxIsopConc * shownBelowPeak, "0.00"));
  result_.maxdistconctxt.setText(Format(sweep_.maxConcDist, "0.00"));
}

void Sweep::testBeginPoint() {
  if (sweep_.bgnIdx >= levelCount) return;
  sweep_.bgnLevel = sweep_.bgnIdx;
  const Field& constn = level_.constn[sweep_.bgnLevel];
  beginPointTrap_.steps([&] { sweep_.levelConcBgn = rounded(constn.number(), 2); },
                        [&] { plume_.isoplethConc(model_.concAxis); });
  if (beginPointTrap_.holds(
          [&] { return constn.text() == mark::nothing || result_.constn1.number() < sweep_.levelConcBgn; })) {
    level_.setResults(sweep_.bgnLevel, mark::notApplicable);
    ++sweep_.bgnIdx;
  } else if (sweep_.levelConcBgn <= model_.concAxis) {
    sweep_.bgnPoint = model_.distX;
    level_.bgnpt[sweep_.bgnLevel].setText(Format(sweep_.bgnPoint, "0.00"));
    ++sweep_.bgnIdx;
    runSweep();  // the next, lower level is reached nearer to the source
  }
}

void Sweep::testEndPoint() {
  if (sweep_.endIdx >= levelCount) return;
  sweep_.endLevel = sweep_.endIdx;
  const int level = sweep_.endIdx;
  sweep_.levelConcEnd = rounded(level_.constn[level].number(), 2);
  plume_.isoplethConc(model_.concAxisEnd);
  if (sweep_.levelConcEnd <= model_.concAxisEnd) return;  // still inside the level
  sweep_.endPoint = model_.distX;
  level_.endpt[level].setText(Format(sweep_.endPoint, "0.00"));
  silently(
      [&] {
        const double length = level_.endpt[level].number() - level_.bgnpt[level].number();
        level_.isoplngt[level].setText(Format(length, "0.00"));
      },
      [&] { endSweep(); },
      [&] { ++sweep_.endIdx; });
}

void Sweep::takeGroundMaximum() {
  if (model_.sigmaZ < model_.sigmaZAtMax) return;
  sweep_.mgc = model_.concGround > purePpm ? purePpm : model_.concGround;
  sweep_.mgcDist = model_.distX;
  result_.mgctxt.setText(Format(sweep_.mgc, "0.00"));
  result_.distconctxt.setText(Format(sweep_.mgcDist - 1, "0.00"));  // shown 1 m before the step that found it
  sweep_.mgcDone = 1;
  if (sweep_.maxConcDone == 1) endSweep();
}

void Sweep::reportFarSweep() {
  if (model_.distX < reportedDistance && result_.mgctxt.text() != mark::nothing) return;
  if (sweep_.mgcDone == 1) {
    result_.distconctxt.setText(Format(model_.distX - 1, "0.00"));
    desktop_.messageBox(
        information("Can not compute MGC (Maximum Ground Concentration) beyond " + plainText(sweep_.mgc) + " ppm"));
  } else {
    desktop_.messageBox(information("Can not compute MGC (Maximum Ground Concentration in ppm) beyond " +
                                    plainText(model_.distX) + " m"));
  }
}

}  // namespace noldarz
