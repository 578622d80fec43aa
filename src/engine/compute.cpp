#include "engine/compute.h"

#include "engine/constants.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr double firstStep = 0.5;  // m
constexpr Colour secondPressColour = Colour::fromScreen(0xFFFF80);

}  // namespace

Trap Compute::pressTrap() {
  return Trap{[this](const RuntimeFailure&) {
    sees_.desktop.setPointer(Pointer::standard);
    sees_.mainView.show();
    sees_.progress.close();
  }};
}

void Compute::comput_Click() {
  const Trap press = pressTrap();
  sees_.limits = {};
  press.steps([&] { sees_.sweep.endDist = reachOf(sees_.in.enddisttxt); },
              [&] { sees_.model.htRelease = sees_.in.htreltxt.number(); },
              [&] { sees_.model.htSimul = sees_.in.htsmul.number(); });
  sees_.passes.sweepLevel = 0;
  sees_.passes.widthLevel = 0;
  press.step([&] { sees_.ports.toxic->takeProbitConstants(press); });
  sees_.progress.show();
  if (sees_.sweep.mgcDone == 0 && sees_.sweep.maxConcDone == 0) {
    firstPress(press);
  } else if (sees_.sweep.mgcDone == 1 && sees_.sweep.maxConcDone == 1) {
    if (sees_.levelPasses.runLevelPasses(press) == LevelPasses::Outcome::refused) return;
  }
  sees_.closeOut.closeRun(press);
}

void Compute::firstPress(const Trap& press) {
  for (Field* field :
       {&sees_.in.htreltxt, &sees_.in.stblclscbo, &sees_.in.htsmul, &sees_.in.roghwndoptcbo, &sees_.in.wndveltxt})
    field->disable();
  sees_.command.comput.setCaption("&Compute maximum concentration");
  sees_.command.comput.setBackColour(SystemColour::buttonFace);
  press.step([&] { sees_.model.sigmaZAtMax = checked(sees_.model.htRelease / rootOfTwo); });
  sees_.model.concGround = 0;  // a type outside the three leaves it, and must not find that of an earlier release
  sees_.model.mgcPass = 1;
  sees_.sweep.bgnIdx = sees_.sweep.endIdx = sees_.passes.widthIdx = levelCount;
  sees_.passes.firstPass = 1;
  sees_.sweep.sweepFrom = firstDistance;
  sees_.sweep.sweepTo = sees_.sweep.endDist;
  sees_.sweep.sweepStep = firstStep;
  sees_.search.runSweep();
  sees_.model.mgcPass = 0;
  sees_.command.comput.setCaption("&Compute at given concentration");
  sees_.command.comput.setBackColour(secondPressColour);
  sees_.result.nodfdwndlbl.setCaption("Modified wind velocity - " + Format(sees_.model.windAtHeight, "0.00") + " m/s");
}

}  // namespace noldarz
