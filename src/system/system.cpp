#include "system/system.h"

#include "scenario/study_layout.h"

namespace noldarz {

System::System(Desktop& desktop, Folders folders, const Effects* effects)
    : folders_(std::move(folders)),
      settings_(folders_.configuration),
      databases_(studyLayout()),
      main_(views_),
      status_(main_.scenario.statuslbl),
      links_(databases_, main_.in, main_.scenario, status_),
      queries_(state_, main_.in, main_.scenario),
      plume_(state_, state_, main_.in, main_.level, main_.result),
      progress_(views_, state_, state_, state_, main_.level, desktop),
      search_(state_, state_, plume_, main_.level, main_.result, progress_, desktop),
      isopleth_(state_, state_, state_, plume_, main_.in, main_.level, main_.result, progress_),
      probit_(state_, main_.in, main_.command, main_.scenario.chmnmelbl, main_.scenario.redosimul, links_.dt2a, desktop,
              status_),
      limitSearch_(views_, state_, state_, state_, state_, state_, plume_, main_.in, main_.level, main_.toxic,
                   progress_, desktop),
      limits_(state_, state_, state_, state_, main_.in, main_.level, main_.toxic, limitSearch_, progress_, links_.dt2a,
              settings_, status_),
      toxicEffects_(main_.in, probit_, limits_),
      runList_(state_, state_, main_.in, main_.level, main_.scenario, links_, queries_, probit_, status_),
      runRow_(state_, main_.in, main_.level, main_.result, main_.scenario, links_, queries_, runList_, probit_, limits_,
              desktop, status_),
      effects_(effects ? *effects : Effects{toxicEffects_, runRow_}),
      runReset_(state_, state_, state_, state_, main_.in, main_.level, main_.result, main_.command, main_.toxic,
                desktop),
      levelPasses_(state_, state_, state_, main_.in, main_.level, main_.result, main_.command, search_, isopleth_,
                   progress_, desktop, [this] { compute_.comput_Click(); }),
      closeOut_(main_.view, state_, state_, state_, state_, main_.in, main_.level, main_.result, main_.command,
                isopleth_, progress_, desktop, effects_),
      compute_(main_.view, state_, state_, state_, state_, main_.in, main_.result, main_.command, search_, levelPasses_,
               closeOut_, progress_, desktop, effects_),
      windShare_(state_, main_.in, main_.result, desktop),
      inputRules_(main_.view, state_, state_, main_.in, main_.level, main_.result, main_.scenario, links_, plume_,
                  windShare_, desktop, status_),
      outputList_(main_.view, state_, state_, main_.command, desktop, status_),
      releaseLine_(main_.view, main_.in, main_.scenario),
      standing_(main_.view, state_, state_, limitSearch_, main_.in, main_.level, main_.result, main_.toxic,
                main_.scenario, status_),
      levelCaptions_(main_.view, main_.level, main_.scenario, links_, desktop, status_),
      levelChoice_(main_.level, main_.result, main_.scenario, links_, desktop, status_),
      requiredFiles_(views_, state_, folders_, desktop),
      startUp_(views_, main_, state_, links_, queries_, probit_, requiredFiles_, folders_, settings_, desktop,
               status_) {
  views_.onAct([this] { databases_.beginAct(); });
  wire();
}

void System::wire() {
  View& view = main_.view;
  const ScenarioFields& fields = main_.scenario;
  links_.dt2a.beforeEdit([this] { runRow_.provide(); });
  view.on(main_.command.comput, Event::click, [this] { press(); });
  view.on(fields.tmr_1, Event::timer, [this] { runRow_.saveRunRow(); });
  view.on(fields.dspScnorlst_1, Event::click, [this, &fields] {
    const std::string& run = fields.dspScnorlst_1.text();
    clear(run.empty() ? "" : "A double click brings the inputs of \"" + run + "\" back.");
  });
  view.on(fields.dspScnorlst_1, Event::dblClick, [this] { runList_.dspScnorlst_1_DblClick(); });
  view.on(fields.redosimul, Event::click, [this] { clear("Change the inputs, then press Compute."); });
  view.on(main_.command.getconclvl, Event::click, [this] {
    levelChoice_.getconclvl_Click();
    standing_.levelsLoaded();
  });
  view.on(main_.in.MaxFtlyDstOptn, Event::click, [this] { limits_.MaxFtlyDstOptn_Click(); });
  probit_.subscribe(view);
  for (Field* field : {&main_.in.stblclscbo, &main_.in.wndveltxt})
    view.on(*field, Event::lostFocus, [this] { showRunDetails(); });
}

void System::press() {
  const StatusLine::Act act{status_};
  runRow_.settleRequest();
  standing_.pressBegins();
  compute_.comput_Click();
  standing_.pressEnds();
  showRunDetails();
}

void System::showRunDetails() {
  status_.skipping().step([this] { runList_.showDetails(); });
}

void System::clear(const std::string& next) {
  runReset_.resetRunView();
  standing_.cleared();
  status_.say("Results cleared.");
  status_.advise(next);
}

}  // namespace noldarz
