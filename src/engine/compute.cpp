#include "engine/compute.h"

#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr double firstStep = 0.5;     // m
constexpr double rootOfTwo = 1.4142;  // these digits
constexpr Colour secondPressColour = Colour::fromScreen(0xFFFF80);

}  // namespace

Compute::Compute(View& mainView, ModelState& model, SweepState& sweep, LevelState& passes, LimitState& limits,
                 const ScenarioInputs& in, const ResultFields& result, const CommandFields& command, Sweep& search,
                 LevelPasses& levelPasses, CloseOut& closeOut, Progress& progress, Desktop& desktop, Effects effects)
    : mainView_(mainView),
      model_(model),
      sweep_(sweep),
      passes_(passes),
      limits_(limits),
      in_(in),
      result_(result),
      command_(command),
      search_(search),
      levelPasses_(levelPasses),
      closeOut_(closeOut),
      progress_(progress),
      desktop_(desktop),
      effects_(effects) {}

Trap Compute::pressTrap() {
  return Trap{[this](const RuntimeFailure&) {
    desktop_.setPointer(Pointer::standard);
    mainView_.show();
    progress_.close();
  }};
}

void Compute::comput_Click() {
  const Trap press = pressTrap();
  limits_ = {};
  press.steps([&] { sweep_.endDist = reachOf(in_.enddisttxt); },
              [&] { model_.htRelease = in_.htreltxt.number(); },
              [&] { model_.htSimul = in_.htsmul.number(); });
  passes_.sweepLevel = 0;
  passes_.widthLevel = 0;
  press.step([&] { effects_.toxic.takeProbitConstants(press); });
  progress_.show();
  if (sweep_.mgcDone == 0 && sweep_.maxConcDone == 0) {
    firstPress(press);
  } else if (sweep_.mgcDone == 1 && sweep_.maxConcDone == 1) {
    if (levelPasses_.runLevelPasses(press) == LevelPasses::Outcome::refused) return;
  }
  closeOut_.closeRun(press);
}

void Compute::firstPress(const Trap& press) {
  for (Field* field : {&in_.htreltxt, &in_.stblclscbo, &in_.htsmul, &in_.roghwndoptcbo, &in_.wndveltxt})
    field->disable();
  command_.comput.setCaption("&Compute maximum concentration");
  command_.comput.setBackColour(SystemColour::buttonFace);
  press.step([&] { model_.sigmaZAtMax = checked(model_.htRelease / rootOfTwo); });
  model_.concGround = 0;  // a type outside the three leaves it, and must not find that of an earlier release
  model_.mgcPass = 1;
  sweep_.bgnIdx = sweep_.endIdx = passes_.widthIdx = levelCount;
  passes_.firstPass = 1;
  sweep_.sweepFrom = firstDistance;
  sweep_.sweepTo = sweep_.endDist;
  sweep_.sweepStep = firstStep;
  search_.runSweep();
  model_.mgcPass = 0;
  command_.comput.setCaption("&Compute at given concentration");
  command_.comput.setBackColour(secondPressColour);
  result_.nodfdwndlbl.setCaption("Modified wind velocity - " + Format(model_.windAtHeight, "0.00") + " m/s");
}

}  // namespace noldarz
