#include "engine/sweep.h"

#include "engine/constants.h"
#include "engine/stretch.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr double shownBelowPeak = 0.05;     // share by which the shown maximum stands below the peak
constexpr double reportedDistance = 10000;  // m, from which a sweep reports that it went so far

constexpr std::string_view plumeTimeCaption = "Time for stabilization concentration zones of dispersion (Secs)";
constexpr std::string_view puffTimeCaption = "Time for Puff Dispersion to end (Secs)";

}  // namespace

Sweep::Sweep(const Sees& sees)
    : sees_(sees),
      trap_([this](const RuntimeFailure&) {
        failed_ = true;
        sees_.desktop.messageBox(information("Please Run this application as an administrator."));
      }),
      beginPointTrap_([this](const RuntimeFailure& failure) {
        failed_ = true;
        sees_.desktop.messageBox(
            information("2. Please Run this program as an administrator/Anti-virus trust.\nMsg. No." +
                        std::to_string(failure.number())));
      }) {}

void Sweep::runSweep() {
  const double limit = sees_.sweep.sweepTo;
  const double step = sees_.sweep.sweepStep;
  Stride stride;
  for (sees_.sweep.distSweep = sees_.sweep.sweepFrom; sees_.sweep.distSweep <= limit; sees_.sweep.distSweep += step) {
    takeStep();
    if (failed_) continue;
    sees_.progress.skip(stride.passOver(
        sees_.sweep.distSweep,
        step,
        limit,
        [this](double next) { return isQuiet(sees_.model.distX, rounded(next, 2)); },
        sees_.progress.stepsToTurn()));
  }
  reportFarSweep();
}

void Sweep::takeStep() {
  failed_ = false;
  sees_.model.distX = rounded(sees_.sweep.distSweep, 2);
  trap_.steps([&] { sees_.plume.calcSigmaZBase(); },
              [&] { sees_.plume.calcWindAtHeight(); },
              [&] { sees_.plume.calcSigmaZ(); },
              [&] { sees_.plume.calcSigmaY(); },
              [&] { sees_.progress.showProgress(); },
              [&] { findPeak(); },
              [&] { testBeginPoint(); },
              [&] { testEndPoint(); });
  if (sees_.sweep.mgcDone == 0)
    trap_.step([&] {  // one step: a candidate that fails must not give its place to that of another release
      sees_.plume.calcConcGround();
      takeGroundMaximum();
    });
}

bool Sweep::isQuiet(double from, double to) {
  const auto range = sees_.plume.axisRange(from, to);
  return range && holdsNoPeak(*range) && holdsNoGroundMaximum(*range) && holdsNoBeginPoint(*range) &&
         holdsNoEndPoint(*range);
}

bool Sweep::holdsNoPeak(const AxisRange& range) {
  if (sees_.sweep.maxConcDone != 0) return true;
  const double warmth = sees_.plume.releaseTemperature() / isoplethTemperature;
  return range.rises() && warmth > 0 && range.high * warmth * 2 <= purePpm;
}

bool Sweep::holdsNoGroundMaximum(const AxisRange& range) const {
  return sees_.sweep.mgcDone != 0 || range.sigmaZ.high * (1 + AxisRange::margin) < sees_.model.sigmaZAtMax;
}

bool Sweep::holdsNoBeginPoint(const AxisRange& range) const {
  return sees_.sweep.bgnIdx >= levelCount ||
         (sees_.sweep.bgnLevel == sees_.sweep.bgnIdx && range.liesBelow(sees_.sweep.levelConcBgn));
}

bool Sweep::holdsNoEndPoint(const AxisRange& range) const {
  return sees_.sweep.endIdx >= levelCount ||
         (sees_.sweep.endLevel == sees_.sweep.endIdx && range.liesAbove(sees_.sweep.levelConcEnd));
}

void Sweep::findPeak() {
  if (sees_.sweep.maxConcDone != 0) return;
  if (const Release release = sees_.plume.release(); release != Release::none) {
    sees_.plume.plumeConc(
        sees_.model.sigmaY, sees_.model.sigmaZ, sees_.plume.releaseTemperature(), sees_.model.concAxis);
    sees_.result.tmestbllbl.setCaption(release == Release::puff ? puffTimeCaption : plumeTimeCaption);
  }
  if (sees_.model.concAxis > purePpm) {
    sees_.model.concAxis = purePpm;
    sees_.sweep.maxIsopConc = purePpm;
    sees_.sweep.maxConcDist = sees_.model.distX;
    showPeak();
    sees_.sweep.maxConcDone = 1;
  }
  if (sees_.sweep.concPeak <= sees_.model.concAxis) {  // still rising, or flat
    sees_.sweep.concPeak = sees_.model.concAxis;
    return;
  }
  sees_.sweep.maxConcDist = sees_.model.distX;
  sees_.sweep.maxIsopConc = sees_.model.concAxis;  // the first value past the peak, not the peak
  showPeak();
  sees_.sweep.maxConcDone = 1;
  if (sees_.sweep.mgcDone == 1) endSweep();
}

void Sweep::showPeak() {
  sees_.result.constn1.setText(Format(sees_.sweep.maxIsopConc - sees_.sweep.maxIsopConc * shownBelowPeak, "0.00"));
  sees_.result.maxdistconctxt.setText(Format(sees_.sweep.maxConcDist, "0.00"));
}

void Sweep::testBeginPoint() {
  if (sees_.sweep.bgnIdx >= levelCount) return;
  sees_.sweep.bgnLevel = sees_.sweep.bgnIdx;
  const Field& constn = sees_.level.constn[sees_.sweep.bgnLevel];
  beginPointTrap_.steps([&] { sees_.sweep.levelConcBgn = rounded(constn.number(), 2); },
                        [&] { sees_.plume.isoplethConc(sees_.model.concAxis); });
  if (beginPointTrap_.holds(
          [&] { return constn.text() == mark::nothing || sees_.result.constn1.number() < sees_.sweep.levelConcBgn; })) {
    sees_.level.setResults(sees_.sweep.bgnLevel, mark::notApplicable);
    ++sees_.sweep.bgnIdx;
  } else if (sees_.sweep.levelConcBgn <= sees_.model.concAxis) {
    sees_.sweep.bgnPoint = sees_.model.distX;
    sees_.level.bgnpt[sees_.sweep.bgnLevel].setText(Format(sees_.sweep.bgnPoint, "0.00"));
    ++sees_.sweep.bgnIdx;
    runSweep();  // the next, lower level is reached nearer to the source
  }
}

void Sweep::testEndPoint() {
  if (sees_.sweep.endIdx >= levelCount) return;
  sees_.sweep.endLevel = sees_.sweep.endIdx;
  const int level = sees_.sweep.endIdx;
  sees_.sweep.levelConcEnd = rounded(sees_.level.constn[level].number(), 2);
  sees_.plume.isoplethConc(sees_.model.concAxisEnd);
  if (sees_.sweep.levelConcEnd <= sees_.model.concAxisEnd) return;  // still inside the level
  sees_.sweep.endPoint = sees_.model.distX;
  sees_.level.endpt[level].setText(Format(sees_.sweep.endPoint, "0.00"));
  silently(
      [&] {
        const double length = sees_.level.endpt[level].number() - sees_.level.bgnpt[level].number();
        sees_.level.isoplngt[level].setText(Format(length, "0.00"));
      },
      [&] { endSweep(); },
      [&] { ++sees_.sweep.endIdx; });
}

void Sweep::takeGroundMaximum() {
  if (sees_.model.sigmaZ < sees_.model.sigmaZAtMax) return;
  sees_.sweep.mgc = sees_.model.concGround > purePpm ? purePpm : sees_.model.concGround;
  sees_.sweep.mgcDist = sees_.model.distX;
  sees_.result.mgctxt.setText(Format(sees_.sweep.mgc, "0.00"));
  sees_.result.distconctxt.setText(Format(sees_.sweep.mgcDist - 1, "0.00"));  // shown 1 m before the step that found it
  sees_.sweep.mgcDone = 1;
  if (sees_.sweep.maxConcDone == 1) endSweep();
}

void Sweep::reportFarSweep() {
  if (sees_.model.distX < reportedDistance && sees_.result.mgctxt.text() != mark::nothing) return;
  if (sees_.sweep.mgcDone == 1) {
    sees_.result.distconctxt.setText(Format(sees_.model.distX - 1, "0.00"));
    sees_.desktop.messageBox(information("Can not compute MGC (Maximum Ground Concentration) beyond " +
                                         plainText(sees_.sweep.mgc) + " ppm"));
  } else {
    sees_.desktop.messageBox(information("Can not compute MGC (Maximum Ground Concentration in ppm) beyond " +
                                         plainText(sees_.model.distX) + " m"));
  }
}

}  // namespace noldarz
