#include "toxic/limit_search.h"

#include "engine/gaussian.h"
#include "platform/colour.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr int outermost = levelCount - 1;
constexpr int walkLevel = 4;  // people walk to the edge of this one

constexpr double behindBegin = 0.1;     // m, from the begin of level 0 to the first distance
constexpr double fineStepReach = 1000;  // m, walked by 1 m; beyond it the step grows
constexpr double stripLength = 1;       // m
constexpr double hectaresPerSquareMetre = 0.0001;
constexpr double leastArea = 0.001;  // Ha
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

LimitSearch::LimitSearch(Views& views, ModelState& model, LimitSearchState& search, RawLimitState& limits,
                         ToxicState& toxic, const LevelState& passes, PlumeModel& plume, const ScenarioInputs& in,
                         const LevelFields& level, const ToxicFields& fields, Progress& progress, Desktop& desktop)
    : model_(model),
      search_(search),
      limits_(limits),
      toxic_(toxic),
      passes_(passes),
      plume_(plume),
      in_(in),
      level_(level),
      fields_(fields),
      progress_(progress),
      profileProgress_(views),
      desktop_(desktop) {}

void LimitSearch::findLimits() {
  found_ = false;
  found_ = prbtRun(Product::limits, nullptr);
}

bool LimitSearch::prbtRun(Product product, ProfileSink* chart) {
  product_ = product;
  bool walked = false;
  try {
    begin();
    const std::string& length = level_.isoplngt[walkLevel].text();
    // Compared with the text that the user sees, not with the distance of the press.
    if (length != mark::notApplicable && length != ">" + in_.enddisttxt.text()) walked = goDownwind(chart);
  } catch (...) {
    end();
    throw;
  }
  end();
  return walked;
}

bool LimitSearch::goDownwind(ProfileSink* chart) {
  const bool walks = model_.distAt <= search_.maxDistPrbt;
  if (product_ != Product::table) takeFineStep();
  if (chart) beginChart(*chart);
  Stride stride;
  while (model_.distAt <= search_.maxDistPrbt && row_ < tableRows) {
    evaluate();
    if (product_ == Product::limits)
      skipAlikeDistances(stride);
    else
      finishRow(chart);
    advance();
  }
  return walks;
}

void LimitSearch::end() {
  profileProgress_.view.close();
  desktop_.setPointer(Pointer::standard);
}

void LimitSearch::begin() {
  search_.maxDistPrbt = reachOf(fields_.maxdstprtxt);
  model_.levelConcAt = rounded(level_.constn[outermost].number(), 2);
  search_.prbtStep = rounded(search_.maxDistPrbt / tableRows, 2);
  model_.distAt = rounded(axisDistance(level_.bgnpt[0]) + behindBegin, 2);
  strip_ = model_.distAt;
  search_.rowFrom = 0;
  halfWidthBefore_ = 0;
  row_ = 0;
}

void LimitSearch::takeFineStep() {
  search_.prbtStep = search_.maxDistPrbt <= fineStepReach ? 1 : rounded(search_.maxDistPrbt / fineStepReach, 0);
}

void LimitSearch::beginChart(ProfileSink& chart) {
  penX_ = chartLeft;
  penFtl_ = penInj_ = chartFoot;
  search_.profileScaleX = search_.maxDistPrbt / chartWidth;
  search_.profileScaleY = chartTopPercent / chartHeight;
  chart.drawFrame();
  profileProgress_.view.show();
}

void LimitSearch::evaluate() {
  clearWalk(search_);
  search_.doseRow = search_.concRow = 0;
  search_.areaHa = 0.0;
  showShare();
  plume_.calcSigmaYAt();
  plume_.calcSigmaZBaseAt();
  plume_.calcSigmaZAt();
  prbtConcAt();
  search_.concRow = rounded(search_.concPrbt, 2);
  if (search_.concRow > mostConc) search_.concRow = concAboveMost;
  prbtExposure();
}

void LimitSearch::showShare() {
  const double percent = checked(model_.distAt * 100 / divisor(search_.maxDistPrbt));
  if (passes_.waitShown == 1) return progress_.showShare(percent);
  profileProgress_.progPic2.setWidth(profileProgress_.progPic1.width() * percent / 100);
  profileProgress_.probrLbl.setCaption("Plotting Fatality and Injury...Wait " + Format(percent, "0") + " % complete");
  desktop_.refresh(profileProgress_.probrLbl);
}

void LimitSearch::prbtConcAt() {
  plume_.plumeConc(model_.sigmaYAt, model_.sigmaZAt, isoplethTemperature, search_.concPrbt);
}

Walk LimitSearch::walkIn(double conc) const {
  Walk walk;
  walk.halfEdge = reachOf(level_.isopwdth[walkLevel]) / 2;
  walk.C = walk.halfEdge >= 0 ? rounded(conc, concDecimals) : conc;
  walk.M = in_.molwttxt.number();
  if (takesTime(walk.halfEdge) && walk.C > 0) {
    walk.fatality = {in_.avalftl.number(), in_.nvalftl.number()};
    walk.injury = {in_.avalinj.number(), in_.nvalinj.number()};
  }
  return walk;
}

void LimitSearch::prbtExposure() {
  const Walk walk = walkIn(search_.concPrbt);
  search_.concPrbt = walk.C;
  // A row shows the dose, which the walk step by step alone gives to the last digit.
  if (product_ == Product::table)
    walkStepByStep(walk, search_);
  else
    walk_.walk(walk, search_);
}

void LimitSearch::skipAlikeDistances(Stride& stride) {
  const auto [before, next, steps] = stretchAhead(model_.distAt, search_.prbtStep, search_.maxDistPrbt, stride.steps());
  if (steps < 2) return;
  if (!Trap::ignoring().holds([&, to = next] { return isAlike(model_.distAt, to); })) return stride.failed();
  model_.distAt = before;
  stride.succeeded();
}

bool LimitSearch::isAlike(double from, double to) {
  const auto range = plume_.axisRange(from, to);
  if (!range) return false;
  // The figures go up or down with the concentration all the way, so it is enough to look at its bounds.
  for (const double conc : {range->low * (1 - AxisRange::margin), range->high * (1 + AxisRange::margin)}) {
    const Walk walk = walkIn(conc);
    if (!takesTime(walk.halfEdge) || !(walk.C > 0)) return false;
    LimitSearchState outcome;
    walk_.walk(walk, outcome);
    if ((outcome.pctFtl > 0) != (search_.pctFtl > 0) || (outcome.pctInj > 0) != (search_.pctInj > 0)) return false;
  }
  return true;
}

void LimitSearch::prbtHalfWidth() {
  silently([&] { plume_.calcSigmaYAt(); },
           [&] { plume_.calcSigmaZBaseAt(); },
           [&] { plume_.calcSigmaZAt(); },
           [&] { plume_.plumeConc(model_.sigmaYAt, model_.sigmaZAt, isoplethTemperature, model_.concAt); },
           [&] { model_.halfWidthAt = halfWidth(model_.concAt, model_.levelConcAt, model_.sigmaYAt); });
  search_.halfWidthArea = model_.halfWidthAt;
}

void LimitSearch::addBand() {
  const double row = model_.distAt;
  const double next = search_.rowFrom + search_.prbtStep;
  double area = 0;
  for (; strip_ <= next; strip_ += stripLength) {
    model_.distAt = strip_;
    if (level_.endpt[outermost].number() > strip_) {
      prbtHalfWidth();
      area += (search_.halfWidthArea + halfWidthBefore_) * hectaresPerSquareMetre;
    }
    halfWidthBefore_ = search_.halfWidthArea;
  }
  strip_ = search_.rowFrom = next;
  model_.distAt = row;
  if (area < leastArea || search_.concRow == 0)
    search_.areaHa = std::string{tinyArea};
  else
    search_.areaHa = area;
}

void LimitSearch::finishRow(ProfileSink* chart) {
  addBand();
  // Each is 0 to 100 behind the walk.
  if (search_.pctFtl + search_.pctInj > 100) search_.pctInj = 100 - search_.pctFtl;
  if (chart)
    drawCurves(*chart);
  else
    writeRow();
}

void LimitSearch::drawCurves(ProfileSink& chart) {
  const double x = model_.distAt / divisor(search_.profileScaleX) + chartLeft;
  const auto draw = [&](double& pen, double percent, Colour colour) {
    const double y = chartFoot - percent / search_.profileScaleY;
    chart.drawSegment(penX_, pen, x, y, colour);
    pen = y;
  };
  draw(penInj_, search_.pctInj, injuryColour);
  draw(penFtl_, search_.pctFtl, fatalityColour);
  penX_ = x;
}

void LimitSearch::writeRow() {
  search_.doseRow = rounded(search_.doseSum, 4);
  const auto* area = std::get_if<double>(&search_.areaHa);
  TableCell* cell = &toxic_.prbtTable.at(static_cast<std::size_t>(row_) * rowCells);
  *cell++ = rounded(model_.distAt, 2);
  *cell++ = rounded(search_.pctFtl, 2);
  *cell++ = rounded(search_.pctInj, 2);
  *cell++ = area ? Format(*area, "0.000") : cellText(search_.areaHa);
  *cell++ = search_.concRow;
  *cell = search_.doseRow;
  ++row_;
}

void LimitSearch::advance() {
  model_.distAt += search_.prbtStep;
  const double past = model_.distAt + search_.prbtStep;
  if (search_.pctFtl > 0) limits_.ftlLimitRaw = past;
  if (search_.pctInj > 0) limits_.injLimitRaw = past;
}

}  // namespace noldarz
