#include "toxic/distance_limits.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "platform/colour.h"
#include "platform/text.h"
#include "study/row_edit.h"

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

void DistanceLimits::prepareSearch(const Trap& regime) {
  std::fill_n(sees_.table.prbtTable.begin(), tableCells, TableCell{0.0});
  regime.step([&] { sees_.toxic.maxdstprtxt.setText(plainText(sees_.level.endpt[outermost].number())); });
}

void DistanceLimits::searchLimits(const Trap& regime) {
  const bool wasOff = sees_.in.MaxFtlyDstOptn.value() != 1;
  const auto turn = [&](int value) {
    sees_.in.MaxFtlyDstOptn.setValue(value);
    MaxFtlyDstOptn_Click();
  };
  if (wasOff) turn(1);
  sees_.progress.showSearch(searchLine);
  regime.step([&] { sees_.limitSearch.findLimits(); });
  showLimits();
  if (wasOff) turn(0);
}

void DistanceLimits::showLimits() {
  sees_.in.MaxFtlyDstOptn.setCaption(limitChoice::byProbit);
  sees_.limits.ftlLimit = limitOf(sees_.rawLimits.ftlLimitRaw);
  sees_.limits.injLimit = limitOf(sees_.rawLimits.injLimitRaw);
  showFatality();
  showInjury();
  const bool nobody = sees_.rawLimits.ftlLimitRaw == 0 || sees_.rawLimits.ftlLimitRaw == noLimit;
  sees_.toxic.FatatyDistDsplyLbl.setBackColour(nobody ? noLimitColour : Colour{SystemColour::buttonFace});
}

void DistanceLimits::showFatality() {
  sees_.toxic.FatatyDistDsplyLbl.setCaption("Fatality dist. limit: " + plainText(sees_.limits.ftlLimit) + " m");
}

void DistanceLimits::showInjury() {
  sees_.toxic.InjuryDistDsplyLbl.setCaption("Injury dist. limit : " + plainText(sees_.limits.injLimit) + " m");
}

void DistanceLimits::MaxFtlyDstOptn_Click() {
  sees_.toxic.FatatyDistDsplyLbl.setBackColour(SystemColour::buttonFace);
  sees_.toxic.FatatyDistDsplyLbl.setCaption("Fatality dist. limit : TO BE COMPUTED");
  sees_.toxic.InjuryDistDsplyLbl.setCaption("Injury dist. limit : TO BE COMPUTED");
  if (sees_.in.MaxFtlyDstOptn.value() == 1)
    takeProbitLimits();
  else
    takeLethalLimits();
  keepChoice();
}

void DistanceLimits::takeProbitLimits() {
  sees_.in.MaxFtlyDstOptn.setCaption(limitChoice::byProbit);
  showFatality();
  if (sees_.limits.injLimit > noLimit || sees_.limits.ftlLimit > noLimit) {
    showInjury();
    storeLimits(plainText(sees_.limits.ftlLimit), plainText(sees_.limits.injLimit));
  }
  sees_.storedLimits = {sees_.limits.ftlLimit, sees_.limits.injLimit};
  if (sees_.rawLimits.ftlLimitRaw <= noLimit) sees_.toxic.FatatyDistDsplyLbl.setBackColour(noLimitColour);
}

void DistanceLimits::takeLethalLimits() {
  sees_.in.MaxFtlyDstOptn.setCaption(limitChoice::byConcentration);
  const Field& fatality = sees_.level.endpt[fatalityLevel];
  const Field& injury = sees_.level.endpt[injuryLevel];
  const bool computed =
      Trap::ignoring().holds([&] { return fatality.number() > 0 && sees_.level.endpt[outermost].number() > 0; });
  if (!computed) return;
  sees_.toxic.FatatyDistDsplyLbl.setCaption("Fatality dist. limit : " + fatality.text() + " m");
  sees_.toxic.InjuryDistDsplyLbl.setCaption("Injury dist. limit : " + injury.text() + " m");
  storeLimits(Format(fatality.text(), "0.00"), Format(injury.text(), "0.00"));
  silently([&] { sees_.storedLimits.ftlLimitStored = rounded(fatality.number(), 2); },
           [&] { sees_.storedLimits.injLimitStored = rounded(injury.number(), 2); });
}

void DistanceLimits::storeLimits(const Cell& fatality, const Cell& injury) {
  DataLink& row = sees_.links.dt2a;
  if (!row.database()) return;  // no study is open
  const Trap skipping = sees_.status.skipping();
  if (RowEdit{row, skipping}.set("FtlyXcord", fatality).set("InjXcord", injury).store())
    sees_.status.say("Stored: distance limits.");
  skipping.step([&] { row.refresh(); });
}

void DistanceLimits::keepChoice() {
  try {
    sees_.settings.set(limitChoice::application,
                       limitChoice::section,
                       limitChoice::key,
                       sees_.in.MaxFtlyDstOptn.value() == 1 ? "1" : "0");
  } catch (const std::runtime_error& failure) {
    sees_.status.tellFault(std::string{"The setting is not kept: "} + failure.what());
  }
}

DistanceLimits::RowLimits DistanceLimits::takeRowLimits() {
  if (sees_.in.MaxFtlyDstOptn.value() == 1) {
    sees_.storedLimits.ftlLimitStored = sees_.rawLimits.ftlLimitRaw == 0 ? noLimit : sees_.limits.ftlLimit;
    sees_.storedLimits.injLimitStored = sees_.rawLimits.injLimitRaw == 0 ? noLimit : sees_.limits.injLimit;
    return {plainText(sees_.storedLimits.ftlLimitStored), plainText(sees_.storedLimits.injLimitStored)};
  }
  const Field& fatality = sees_.level.endpt[fatalityLevel];
  const Field& injury = sees_.level.endpt[injuryLevel];
  silently([&] { sees_.storedLimits.ftlLimitStored = fatality.number(); },
           [&] { sees_.storedLimits.injLimitStored = injury.number(); });
  return {fatality.text(), injury.text()};
}

}  // namespace noldarz
