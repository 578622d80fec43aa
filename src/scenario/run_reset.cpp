#include "scenario/run_reset.h"

#include <string>

#include "platform/failure.h"

namespace noldarz {

namespace {

constexpr Colour grey = Colour::fromScreen(0xC0C0C0);

}  // namespace

void RunReset::resetRunView() {
  const Trap trap{[&](const RuntimeFailure& failure) {
    sees_.desktop.messageBox(information("1. Please Run this program as an administrator/Anti-virus trust.\nMsg. No." +
                                         std::to_string(failure.number())));
  }};
  trap.steps([&] { sees_.command.comput.setCaption("&Compute maximum concentration"); },
             [&] { sees_.command.comput.setBackColour(grey); },
             [&] { sees_.toxic.FatatyDistDsplyLbl.setBackColour(SystemColour::buttonFace); });
  clearState();
  clearResults(trap);
  openInputs(trap);
}

void RunReset::clearState() {
  sees_.sweep.concPeak = 0;
  sees_.sweep.mgcDone = 0;
  sees_.sweep.maxConcDone = 0;
  sees_.rawLimits = {};
  sees_.limits = {};  // or a click of MaxFtlyDstOptn would give those of one run to another
  sees_.passes.waitShown = 0;
}

void RunReset::clearResults(const Trap& trap) {
  for (Field* field : {&sees_.result.mgctxt,
                       &sees_.result.distconctxt,
                       &sees_.result.expmass,
                       &sees_.result.constn1,
                       &sees_.result.maxdistconctxt})
    trap.step([&] { field->setText("0"); });
  trap.steps([&] { sees_.result.tmestbltxt.setCaption("0"); },
             [&] { sees_.result.tmeunitlbl.setCaption(""); },
             [&] { sees_.command.prntprv.disable(); },
             [&] { sees_.toxic.FatatyDistDsplyLbl.setCaption(""); },
             [&] { sees_.toxic.InjuryDistDsplyLbl.setCaption(""); });
  for (int i = 0; i < levelCount; ++i) trap.step([&] { sees_.level.setResults(i, mark::nothing); });
}

void RunReset::openInputs(const Trap& trap) {
  for (Field* field : {&sees_.in.htreltxt,
                       &sees_.in.stblclscbo,
                       &sees_.in.htsmul,
                       &sees_.in.roghwndoptcbo,
                       &sees_.command.comput,
                       &sees_.command.getconclvl,
                       &sees_.in.prbtoptn,
                       &sees_.in.wndveltxt,
                       &sees_.in.hudityTxt})
    trap.step([&] { field->enable(); });
  for (int i = 0; i < levelCount; ++i) trap.step([&] { sees_.level.constn[i].enable(); });
  trap.step([&] {
    const bool byDefault = sees_.in.prbtoptn.value() == 1 && sees_.in.prbtoptn.caption() == "Use software default";
    for (Field* field : {&sees_.in.avalftl, &sees_.in.nvalftl, &sees_.in.avalinj, &sees_.in.nvalinj})
      field->setEnabled(!byDefault);
    if (!byDefault) sees_.in.prbtoptn.setCaption("User input");
  });
}

}  // namespace noldarz
