#include "scenario/run_reset.h"

#include <string>

#include "platform/failure.h"

namespace noldarz {

namespace {

constexpr Colour grey = Colour::fromScreen(0xC0C0C0);

}  // namespace

RunReset::RunReset(SweepState& sweep, LevelState& passes, LimitState& limits, RawLimitState& rawLimits,
                   const ScenarioInputs& in, const LevelFields& level, const ResultFields& result,
                   const CommandFields& command, const ToxicFields& toxic, Desktop& desktop)
    : sweep_(sweep),
      passes_(passes),
      limits_(limits),
      rawLimits_(rawLimits),
      in_(in),
      level_(level),
      result_(result),
      command_(command),
      toxic_(toxic),
      desktop_(desktop) {}

void RunReset::resetRunView() {
  const Trap trap{[&](const RuntimeFailure& failure) {
    desktop_.messageBox(information("1. Please Run this program as an administrator/Anti-virus trust.\nMsg. No." +
                                    std::to_string(failure.number())));
  }};
  trap.steps([&] { command_.comput.setCaption("&Compute maximum concentration"); },
             [&] { command_.comput.setBackColour(grey); },
             [&] { toxic_.FatatyDistDsplyLbl.setBackColour(SystemColour::buttonFace); });
  clearState();
  clearResults(trap);
  openInputs(trap);
}

void RunReset::clearState() {
  sweep_.concPeak = 0;
  sweep_.mgcDone = 0;
  sweep_.maxConcDone = 0;
  rawLimits_ = {};
  limits_ = {};  // or a click of MaxFtlyDstOptn would give those of one run to another
  passes_.waitShown = 0;
}

void RunReset::clearResults(const Trap& trap) {
  for (Field* field :
       {&result_.mgctxt, &result_.distconctxt, &result_.expmass, &result_.constn1, &result_.maxdistconctxt})
    trap.step([&] { field->setText("0"); });
  trap.steps([&] { result_.tmestbltxt.setCaption("0"); },
             [&] { result_.tmeunitlbl.setCaption(""); },
             [&] { command_.prntprv.disable(); },
             [&] { toxic_.FatatyDistDsplyLbl.setCaption(""); },
             [&] { toxic_.InjuryDistDsplyLbl.setCaption(""); });
  for (int i = 0; i < levelCount; ++i) trap.step([&] { level_.setResults(i, mark::nothing); });
}

void RunReset::openInputs(const Trap& trap) {
  for (Field* field : {&in_.htreltxt,
                       &in_.stblclscbo,
                       &in_.htsmul,
                       &in_.roghwndoptcbo,
                       &command_.comput,
                       &command_.getconclvl,
                       &in_.prbtoptn,
                       &in_.wndveltxt,
                       &in_.hudityTxt})
    trap.step([&] { field->enable(); });
  for (int i = 0; i < levelCount; ++i) trap.step([&] { level_.constn[i].enable(); });
  trap.step([&] {
    const bool byDefault = in_.prbtoptn.value() == 1 && in_.prbtoptn.caption() == "Use software default";
    for (Field* field : {&in_.avalftl, &in_.nvalftl, &in_.avalinj, &in_.nvalinj}) field->setEnabled(!byDefault);
    if (!byDefault) in_.prbtoptn.setCaption("User input");
  });
}

}  // namespace noldarz
