#include "engine/close_out.h"

#include "engine/wind_share.h"
#include "platform/text.h"

namespace noldarz {

void CloseOut::closeRun(const Trap& press) {
  const bool levelsPassed = sees_.passes.firstPass == 0;
  const Trap regime = levelsPassed ? Trap::ignoring() : press;
  if (levelsPassed) {
    press.step([&] { sees_.isopleth.calcFlammableMass(); });
    regime.step([&] { showStabilizationTime(); });
  }
  regime.steps([&] { takeFlammableMass(regime); },
               [&] { judgeLastLevel(); },
               [&] { sees_.ports.toxic->prepareSearch(regime); },
               [&] { reportNegativeLength(); },
               [&] { sees_.ports.toxic->searchLimits(regime); });
  if (regime.holds([&] { return isStorable(sees_.level); })) storeResults(regime);
  sees_.desktop.setPointer(Pointer::standard);
  sees_.mainView.show();
  sees_.progress.close();
  if (sees_.command.prntprv.enabled()) openOutputs(regime);
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
  silently([&] { time = checked(sees_.level.endpt[levelCount - 1].number() / divisor(sees_.model.windAtHeight)); });
  // The caption says seconds on every scale.
  const ScaledTime shown = scaledTime(time);
  sees_.result.tmestbltxt.setCaption(Format(shown.value, "0.00"));
  sees_.result.tmeunitlbl.setCaption(shown.unit);
}

void CloseOut::takeFlammableMass(const Trap& regime) {
  const ParsedNumber mass = parseNumber(sees_.result.expmass.text());
  const bool positive = mass.outcome == ParsedNumber::Outcome::number && mass.value > 0;
  if (!positive) sees_.result.expmass.setText("Mass = 0");
  regime.step([&] { sees_.ports.rows->storeFlammableMass(positive ? mass.value : 0); });
}

void CloseOut::judgeLastLevel() {
  const auto isOpen = [&](const Field& point) { return mark::isOpen(point.text(), sees_.sweep.endDist); };
  sees_.command.prntprv.setEnabled(!isOpen(sees_.level.bgnpt[levelCount - 1]) &&
                                   !isOpen(sees_.level.endpt[levelCount - 1]));
}

void CloseOut::reportNegativeLength() {
  for (int i = 0; i < levelCount; ++i) {
    // Texts are compared, so that a mark is no negative length: all of them sort after "0".
    if (sees_.level.isoplngt[i].text() < mark::nothing) {
      sees_.desktop.messageBox(critical("Reset concentration " + sees_.level.conclbl[i].caption() +
                                        "\nNote:Enter concentration < " + sees_.level.constn[i].text()));
      sees_.progress.close();
      sees_.level.constn[i].setBackColour(attentionColour);
      sees_.command.prntprv.disable();
      sees_.level.constn[i].enable();
      return;
    }
    sees_.level.constn[i].setBackColour(SystemColour::windowBackground);
  }
}

void CloseOut::storeResults(const Trap& regime) {
  regime.steps([&] { sees_.ports.rows->storeRun(); },
               [&] { sees_.command.comput.setCaption("Results at given concentration"); },
               [&] { sees_.shares.windTotal = windSum(sees_.in); },
               [&] { sees_.shares.calmPct = 100 - sees_.shares.windTotal; },
               [&] { sees_.result.calmlbl[0].setCaption(Format(sees_.shares.calmPct, "0.00")); });
}

void CloseOut::openOutputs(const Trap& regime) {
  regime.steps([&] { sees_.desktop.setFocus(sees_.command.prntprv); },
               [&] { sees_.desktop.openDropDown(sees_.command.prntprv); },
               [&] { sees_.command.comput.setCaption("Concentration distances computed."); });
}

}  // namespace noldarz
