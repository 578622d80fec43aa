#include "scenario/main_commands.h"

namespace noldarz {

MainCommands::MainCommands(const Sees& sees) : sees_(sees) {
  View& view = sees_.view;
  view.on(sees_.command.comput, Event::click, [this] { press(); });
  view.on(sees_.command.redosimul, Event::click, [this] { clear("Change the inputs, then press Compute."); });
  view.on(sees_.command.getconclvl, Event::click, [this] {
    sees_.levelChoice.getconclvl_Click();
    sees_.standing.levelsLoaded();
  });
  view.on(sees_.scenario.dspScnorlst_1, Event::click, [this] {
    const std::string& run = sees_.scenario.dspScnorlst_1.text();
    clear(run.empty() ? "" : "A double click brings the inputs of \"" + run + "\" back.");
  });
  for (Field* field : {&sees_.in.stblclscbo, &sees_.in.wndveltxt})
    view.on(*field, Event::lostFocus, [this] { showRunDetails(); });
}

void MainCommands::press() {
  const StatusLine::Act act{sees_.status};
  sees_.runRow.settleRequest();
  sees_.standing.pressBegins();
  sees_.compute.comput_Click();
  sees_.standing.pressEnds();
  showRunDetails();
}

void MainCommands::showRunDetails() {
  sees_.status.skipping().step([this] { sees_.runList.showDetails(); });
}

void MainCommands::clear(const std::string& next) {
  sees_.runReset.resetRunView();
  sees_.standing.cleared();
  sees_.status.say("Results cleared.");
  sees_.status.advise(next);
}

}  // namespace noldarz
