#include "engine/close_out.h"

#include "engine/wind_share.h"
#include "platform/text.h"

namespace noldarz {

CloseOut::CloseOut(View& mainView, const ModelState& model, const SweepState& sweep, const LevelState& passes,
                   WindShareState& wind, const ScenarioInputs& in, const LevelFields& level, const ResultFields& result,
                   const CommandFields& command, Isopleth& isopleth, Progress& progress, Desktop& desktop,
                   Effects effects)
    : mainView_(mainView),
      model_(model),
      sweep_(sweep),
      passes_(passes),
      wind_(wind),
      in_(in),
      level_(level),
      result_(result),
      command_(command),
      isopleth_(isopleth),
      progress_(progress),
      desktop_(desktop),
      effects_(effects) {}

void CloseOut::closeRun(const Trap& press) {
  const bool levelsPassed = passes_.firstPass == 0;
  const Trap regime = levelsPassed ? Trap::ignoring() : press;
  if (levelsPassed) {
    press.step([&] { isopleth_.calcFlammableMass(); });
    regime.step([&] { showStabilizationTime(); });
  }
  regime.steps([&] { takeFlammableMass(regime); },
               [&] { judgeLastLevel(); },
               [&] { effects_.toxic.prepareSearch(regime); },
               [&] { reportNegativeLength(); },
               [&] { effects_.toxic.searchLimits(regime); });
  if (regime.holds([&] { return isStorable(level_); })) storeResults(regime);
  desktop_.setPointer(Pointer::standard);
  mainView_.show();
  progress_.close();
  if (command_.prntprv.enabled()) openOutputs(regime);
}

ScaledTime scaledTime(double seconds) {
  constexpr double minute = 60;
  constexpr double hour = 3600;
  if (seconds > hour) return {seconds / hour, "h"};
  if (seconds > minute) return {seconds / minute, "min"};
  return {seconds, "s"};
}

void CloseOut::showStabilizationTime() {
  double time = 0;
  silently([&] { time = checked(level_.endpt[levelCount - 1].number() / divisor(model_.windAtHeight)); });
  // The caption says seconds on every scale.
  const ScaledTime shown = scaledTime(time);
  result_.tmestbltxt.setCaption(Format(shown.value, "0.00"));
  result_.tmeunitlbl.setCaption(shown.unit);
}

void CloseOut::takeFlammableMass(const Trap& regime) {
  const ParsedNumber mass = parseNumber(result_.expmass.text());
  const bool positive = mass.outcome == ParsedNumber::Outcome::number && mass.value > 0;
  if (!positive) result_.expmass.setText("Mass = 0");
  regime.step([&] { effects_.rows.storeFlammableMass(positive ? mass.value : 0); });
}

void CloseOut::judgeLastLevel() {
  const auto isOpen = [&](const Field& point) { return mark::isOpen(point.text(), sweep_.endDist); };
  command_.prntprv.setEnabled(!isOpen(level_.bgnpt[levelCount - 1]) && !isOpen(level_.endpt[levelCount - 1]));
}

void CloseOut::reportNegativeLength() {
  for (int i = 0; i < levelCount; ++i) {
    // Texts are compared, so that a mark is no negative length: all of them sort after "0".
    if (level_.isoplngt[i].text() < mark::nothing) {
      desktop_.messageBox(critical("Reset concentration " + level_.conclbl[i].caption() +
                                   "\nNote:Enter concentration < " + level_.constn[i].text()));
      progress_.close();
      level_.constn[i].setBackColour(attentionColour);
      command_.prntprv.disable();
      level_.constn[i].enable();
      return;
    }
    level_.constn[i].setBackColour(SystemColour::windowBackground);
  }
}

void CloseOut::storeResults(const Trap& regime) {
  regime.steps([&] { effects_.rows.storeRun(); },
               [&] { command_.comput.setCaption("Results at given concentration"); },
               [&] { wind_.windTotal = windSum(in_); },
               [&] { wind_.calmPct = 100 - wind_.windTotal; },
               [&] { result_.calmlbl[0].setCaption(Format(wind_.calmPct, "0.00")); });
}

void CloseOut::openOutputs(const Trap& regime) {
  regime.steps([&] { desktop_.setFocus(command_.prntprv); },
               [&] { desktop_.openDropDown(command_.prntprv); },
               [&] { command_.comput.setCaption("Concentration distances computed."); });
}

}  // namespace noldarz
