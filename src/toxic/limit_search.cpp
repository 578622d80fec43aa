#include "toxic/limit_search.h"

#include "engine/constants.h"
#include "engine/gaussian.h"
#include "engine/stretch.h"
#include "platform/colour.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr int outermost = levelCount - 1;
constexpr int walkLevel = 4;  // people walk to the edge of this one

constexpr double beyondBegin = 0.1;     // m, from the begin of level 0 to the first distance
constexpr double fineStepReach = 1000;  // m, walked by 1 m; beyond it the step grows
constexpr double stripLength = 1;       // m
constexpr double leastArea = 0.001;     // Ha
constexpr std::string_view tinyArea{"<0.001"};
constexpr int concDecimals = 4;           // of the concentration in a walk
constexpr double mostConc = 1000000;      // ppm that a row shows; above it
constexpr double concAboveMost = 950000;  // ppm

// The chart: its left end and the line of 0 %, its width and height in what the axes show.
constexpr double chartLeft = 10.31;  // mm
constexpr double chartFoot = 130;    // mm
constexpr double chartWidth = 190;   // mm
constexpr double chartHeight = 130;  // mm
constexpr double chartTopPercent = 105;
constexpr Colour injuryColour = basicPalette[10];
constexpr Colour fatalityColour = basicPalette[12];

}  // namespace

LimitSearch::LimitSearch(const Sees& sees) : sees_(sees), profileProgress_(sees.views) {}

void LimitSearch::findLimits() {
  found_ = false;
  found_ = prbtRun(Product::limits, nullptr);
}

bool LimitSearch::prbtRun(Product product, ProfileSink* chart) {
  product_ = product;
  bool walked = false;
  try {
    begin();
    const std::string& length = sees_.level.isoplngt[walkLevel].text();
    // Compared with the text that the user sees, not with the distance of the press.
    if (length != mark::notApplicable && length != ">" + sees_.in.enddisttxt.text()) walked = goDownwind(chart);
  } catch (...) {
    end();
    throw;
  }
  end();
  return walked;
}

bool LimitSearch::goDownwind(ProfileSink* chart) {
  const bool walks = sees_.model.distAt <= sees_.search.maxDistPrbt;
  if (product_ != Product::table) takeFineStep();
  if (chart) beginChart(*chart);
  Stride stride;
  while (sees_.model.distAt <= sees_.search.maxDistPrbt && row_ < tableRows) {
    evaluate();
    if (product_ == Product::limits)
      stride.passOver(sees_.model.distAt, sees_.search.prbtStep, sees_.search.maxDistPrbt, [this](double next) {
        return Trap::ignoring().holds([&] { return isAlike(sees_.model.distAt, next); });
      });
    else
      finishRow(chart);
    advance();
  }
  return walks;
}

void LimitSearch::end() {
  profileProgress_.view.close();
  sees_.desktop.setPointer(Pointer::standard);
}

void LimitSearch::begin() {
  sees_.search.maxDistPrbt = reachOf(sees_.toxic.maxdstprtxt);
  sees_.model.levelConcAt = rounded(sees_.level.constn[outermost].number(), 2);
  sees_.search.prbtStep = rounded(sees_.search.maxDistPrbt / tableRows, 2);
  sees_.model.distAt = rounded(axisDistance(sees_.level.bgnpt[0]) + beyondBegin, 2);
  strip_ = sees_.model.distAt;
  sees_.search.rowFrom = 0;
  halfWidthBefore_ = 0;
  row_ = 0;
}

void LimitSearch::takeFineStep() {
  sees_.search.prbtStep =
      sees_.search.maxDistPrbt <= fineStepReach ? 1 : rounded(sees_.search.maxDistPrbt / fineStepReach, 0);
}

void LimitSearch::beginChart(ProfileSink& chart) {
  penX_ = chartLeft;
  penFtl_ = penInj_ = chartFoot;
  sees_.search.profileScaleX = sees_.search.maxDistPrbt / chartWidth;
  sees_.search.profileScaleY = chartTopPercent / chartHeight;
  chart.drawFrame();
  profileProgress_.view.show();
}

void LimitSearch::evaluate() {
  clearWalk(sees_.search);
  sees_.search.doseRow = sees_.search.concRow = 0;
  sees_.search.areaHa = 0.0;
  showShare();
  sees_.plume.calcSigmaYAt();
  sees_.plume.calcSigmaZBaseAt();
  sees_.plume.calcSigmaZAt();
  prbtConcAt();
  sees_.search.concRow = rounded(sees_.search.concPrbt, 2);
  if (sees_.search.concRow > mostConc) sees_.search.concRow = concAboveMost;
  prbtExposure();
}

void LimitSearch::showShare() {
  const double percent = checked(sees_.model.distAt * 100 / divisor(sees_.search.maxDistPrbt));
  if (sees_.passes.waitShown == 1) return sees_.progress.showShare(percent);
  profileProgress_.progPic2.setWidth(profileProgress_.progPic1.width() * percent / 100);
  profileProgress_.probrLbl.setCaption("Plotting Fatality and Injury...Wait " + Format(percent, "0") + " % complete");
  sees_.desktop.refresh(profileProgress_.probrLbl);
}

void LimitSearch::prbtConcAt() {
  sees_.plume.plumeConc(sees_.model.sigmaYAt, sees_.model.sigmaZAt, isoplethTemperature, sees_.search.concPrbt);
}

Walk LimitSearch::walkIn(double conc) const {
  Walk walk;
  walk.halfEdge = reachOf(sees_.level.isopwdth[walkLevel]) / 2;
  walk.C = walk.halfEdge >= 0 ? rounded(conc, concDecimals) : conc;
  walk.M = sees_.in.molwttxt.number();
  if (takesTime(walk.halfEdge) && walk.C > 0) {
    walk.fatality = {sees_.in.avalftl.number(), sees_.in.nvalftl.number()};
    walk.injury = {sees_.in.avalinj.number(), sees_.in.nvalinj.number()};
  }
  return walk;
}

void LimitSearch::prbtExposure() {
  const Walk walk = walkIn(sees_.search.concPrbt);
  sees_.search.concPrbt = walk.C;
  // A row shows the dose, which the walk step by step alone gives to the last digit.
  if (product_ == Product::table)
    walkStepByStep(walk, sees_.search);
  else
    walk_.walk(walk, sees_.search);
}

bool LimitSearch::isAlike(double from, double to) {
  const auto range = sees_.plume.axisRange(from, to);
  if (!range) return false;
  // The figures go up or down with the concentration all the way, so it is enough to look at its bounds.
  for (const double conc : {range->low * (1 - AxisRange::margin), range->high * (1 + AxisRange::margin)}) {
    const Walk walk = walkIn(conc);
    if (!takesTime(walk.halfEdge) || !(walk.C > 0)) return false;
    LimitSearchState outcome;
    walk_.walk(walk, outcome);
    if ((outcome.pctFtl > 0) != (sees_.search.pctFtl > 0) || (outcome.pctInj > 0) != (sees_.search.pctInj > 0))
      return false;
  }
  return true;
}

void LimitSearch::prbtHalfWidth() {
  silently(
      [&] { sees_.plume.calcSigmaYAt(); },
      [&] { sees_.plume.calcSigmaZBaseAt(); },
      [&] { sees_.plume.calcSigmaZAt(); },
      [&] {
        sees_.plume.plumeConc(sees_.model.sigmaYAt, sees_.model.sigmaZAt, isoplethTemperature, sees_.model.concAt);
      },
      [&] { sees_.model.halfWidthAt = halfWidth(sees_.model.concAt, sees_.model.levelConcAt, sees_.model.sigmaYAt); });
  sees_.search.halfWidthArea = sees_.model.halfWidthAt;
}

void LimitSearch::addBand() {
  const double row = sees_.model.distAt;
  const double next = sees_.search.rowFrom + sees_.search.prbtStep;
  double area = 0;
  for (; strip_ <= next; strip_ += stripLength) {
    sees_.model.distAt = strip_;
    if (sees_.level.endpt[outermost].number() > strip_) {
      prbtHalfWidth();
      area += (sees_.search.halfWidthArea + halfWidthBefore_) * hectaresPerSquareMetre;
    }
    halfWidthBefore_ = sees_.search.halfWidthArea;
  }
  strip_ = sees_.search.rowFrom = next;
  sees_.model.distAt = row;
  if (area < leastArea || sees_.search.concRow == 0)
    sees_.search.areaHa = std::string{tinyArea};
  else
    sees_.search.areaHa = area;
}

void LimitSearch::finishRow(ProfileSink* chart) {
  addBand();
  // Each is 0 to 100 after the walk.
  if (sees_.search.pctFtl + sees_.search.pctInj > 100) sees_.search.pctInj = 100 - sees_.search.pctFtl;
  if (chart)
    drawCurves(*chart);
  else
    writeRow();
}

void LimitSearch::drawCurves(ProfileSink& chart) {
  const double x = sees_.model.distAt / divisor(sees_.search.profileScaleX) + chartLeft;
  const auto draw = [&](double& pen, double percent, Colour colour) {
    const double y = chartFoot - percent / sees_.search.profileScaleY;
    chart.drawSegment(penX_, pen, x, y, colour);
    pen = y;
  };
  draw(penInj_, sees_.search.pctInj, injuryColour);
  draw(penFtl_, sees_.search.pctFtl, fatalityColour);
  penX_ = x;
}

void LimitSearch::writeRow() {
  sees_.search.doseRow = rounded(sees_.search.doseSum, 4);
  const auto* area = std::get_if<double>(&sees_.search.areaHa);
  TableCell* cell = &sees_.table.prbtTable.at(static_cast<std::size_t>(row_) * rowCells);
  *cell++ = rounded(sees_.model.distAt, 2);
  *cell++ = rounded(sees_.search.pctFtl, 2);
  *cell++ = rounded(sees_.search.pctInj, 2);
  *cell++ = area ? Format(*area, "0.000") : cellText(sees_.search.areaHa);
  *cell++ = sees_.search.concRow;
  *cell = sees_.search.doseRow;
  ++row_;
}

void LimitSearch::advance() {
  sees_.model.distAt += sees_.search.prbtStep;
  const double past = sees_.model.distAt + sees_.search.prbtStep;
  if (sees_.search.pctFtl > 0) sees_.rawLimits.ftlLimitRaw = past;
  if (sees_.search.pctInj > 0) sees_.rawLimits.injLimitRaw = past;
}

}  // namespace noldarz
