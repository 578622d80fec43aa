#include "toxic/distance_limits.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "platform/colour.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr int fatalityLevel = 2;  // by lethal concentration
constexpr int injuryLevel = 4;
constexpr int outermost = levelCount - 1;

constexpr double noLimit = 0.05;  // m, stands in the row for nobody
constexpr Colour noLimitColour = Colour::fromScreen(0x11DF4F);

constexpr std::string_view searchLine{"Now Computing maximum fatality and Injury distance"};

/// A raw limit lies two steps past the last distance; 1 m comes off, whatever the step.
double limitOf(double raw) { return raw > 2 ? raw - 1 : raw; }

}  // namespace

DistanceLimits::DistanceLimits(LimitState& limits, StoredLimitState& stored, const RawLimitState& raw,
                               ToxicState& toxic, const ScenarioInputs& in, const LevelFields& level,
                               const ToxicFields& fields, LimitSearch& search, Progress& progress, DataLink& row,
                               const Settings& settings, StatusLine& status)
    : limits_(limits),
      stored_(stored),
      raw_(raw),
      toxic_(toxic),
      in_(in),
      level_(level),
      fields_(fields),
      search_(search),
      progress_(progress),
      row_(row),
      settings_(settings),
      status_(status) {}

void DistanceLimits::prepareSearch(const Trap& regime) {
  std::fill_n(toxic_.prbtTable.begin(), tableCells, TableCell{0.0});
  regime.step([&] { fields_.maxdstprtxt.setText(plainText(level_.endpt[outermost].number())); });
}

void DistanceLimits::searchLimits(const Trap& regime) {
  const bool wasOff = in_.MaxFtlyDstOptn.value() != 1;
  const auto turn = [&](int value) {
    in_.MaxFtlyDstOptn.setValue(value);
    MaxFtlyDstOptn_Click();
  };
  if (wasOff) turn(1);
  progress_.showSearch(searchLine);
  regime.step([&] { search_.findLimits(); });
  showLimits();
  if (wasOff) turn(0);
}

void DistanceLimits::showLimits() {
  in_.MaxFtlyDstOptn.setCaption(limitChoice::byProbit);
  limits_.ftlLimit = limitOf(raw_.ftlLimitRaw);
  limits_.injLimit = limitOf(raw_.injLimitRaw);
  showFatality();
  showInjury();
  const bool nobody = raw_.ftlLimitRaw == 0 || raw_.ftlLimitRaw == noLimit;
  fields_.FatatyDistDsplyLbl.setBackColour(nobody ? noLimitColour : Colour{SystemColour::buttonFace});
}

void DistanceLimits::showFatality() {
  fields_.FatatyDistDsplyLbl.setCaption("Fatality dist. limit: " + plainText(limits_.ftlLimit) + " m");
}

void DistanceLimits::showInjury() {
  fields_.InjuryDistDsplyLbl.setCaption("Injury dist. limit : " + plainText(limits_.injLimit) + " m");
}

void DistanceLimits::MaxFtlyDstOptn_Click() {
  fields_.FatatyDistDsplyLbl.setBackColour(SystemColour::buttonFace);
  fields_.FatatyDistDsplyLbl.setCaption("Fatality dist. limit : TO BE COMPUTED");
  fields_.InjuryDistDsplyLbl.setCaption("Injury dist. limit : TO BE COMPUTED");
  if (in_.MaxFtlyDstOptn.value() == 1)
    takeProbitLimits();
  else
    takeLethalLimits();
  keepChoice();
}

void DistanceLimits::takeProbitLimits() {
  in_.MaxFtlyDstOptn.setCaption(limitChoice::byProbit);
  showFatality();
  if (limits_.injLimit > noLimit || limits_.ftlLimit > noLimit) {
    showInjury();
    storeLimits(plainText(limits_.ftlLimit), plainText(limits_.injLimit));
  }
  stored_ = {limits_.ftlLimit, limits_.injLimit};
  if (raw_.ftlLimitRaw <= noLimit) fields_.FatatyDistDsplyLbl.setBackColour(noLimitColour);
}

void DistanceLimits::takeLethalLimits() {
  in_.MaxFtlyDstOptn.setCaption(limitChoice::byConcentration);
  const Field& fatality = level_.endpt[fatalityLevel];
  const Field& injury = level_.endpt[injuryLevel];
  const bool computed =
      Trap::ignoring().holds([&] { return fatality.number() > 0 && level_.endpt[outermost].number() > 0; });
  if (!computed) return;
  fields_.FatatyDistDsplyLbl.setCaption("Fatality dist. limit : " + fatality.text() + " m");
  fields_.InjuryDistDsplyLbl.setCaption("Injury dist. limit : " + injury.text() + " m");
  storeLimits(Format(fatality.text(), "0.00"), Format(injury.text(), "0.00"));
  silently([&] { stored_.ftlLimitStored = rounded(fatality.number(), 2); },
           [&] { stored_.injLimitStored = rounded(injury.number(), 2); });
}

void DistanceLimits::storeLimits(const Cell& fatality, const Cell& injury) {
  if (!row_.database()) return;  // no study is open
  status_.skipping().steps([&] { row_.edit(); },
                           [&] { row_.set("FtlyXcord", fatality); },
                           [&] { row_.set("InjXcord", injury); },
                           [&] { row_.update(), status_.say("Stored: distance limits."); },
                           [&] { row_.refresh(); });
}

void DistanceLimits::keepChoice() {
  try {
    settings_.set(
        limitChoice::application, limitChoice::section, limitChoice::key, in_.MaxFtlyDstOptn.value() == 1 ? "1" : "0");
  } catch (const std::runtime_error& failure) {
    status_.tellFault(std::string{"The setting is not kept: "} + failure.what());
  }
}

DistanceLimits::RowLimits DistanceLimits::takeRowLimits() {
  if (in_.MaxFtlyDstOptn.value() == 1) {
    stored_.ftlLimitStored = raw_.ftlLimitRaw == 0 ? noLimit : limits_.ftlLimit;
    stored_.injLimitStored = raw_.injLimitRaw == 0 ? noLimit : limits_.injLimit;
    return {plainText(stored_.ftlLimitStored), plainText(stored_.injLimitStored)};
  }
  const Field& fatality = level_.endpt[fatalityLevel];
  const Field& injury = level_.endpt[injuryLevel];
  silently([&] { stored_.ftlLimitStored = fatality.number(); }, [&] { stored_.injLimitStored = injury.number(); });
  return {fatality.text(), injury.text()};
}

}  // namespace noldarz
