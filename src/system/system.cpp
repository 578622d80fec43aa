#include "system/system.h"

#include "scenario/study_layout.h"

namespace noldarz {

System::System(Desktop& desktop, Folders folders, Effects effects)
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
      probit_(state_, main_.in, main_.scenario.chmnmelbl),
      runList_(state_, main_.in, main_.level, main_.scenario, links_, queries_, status_),
      runRow_(state_, main_.in, main_.level, main_.result, main_.scenario, links_, queries_, runList_, probit_, desktop,
              status_),
      runReset_(state_, state_, state_, main_.in, main_.level, main_.result, main_.command, main_.scenario, desktop),
      levelPasses_(state_, state_, state_, plume_, main_.in, main_.level, main_.result, main_.command, search_,
                   isopleth_, progress_, desktop, [this] { compute_.comput_Click(); }),
      closeOut_(main_.view, state_, state_, state_, state_, main_.in, main_.level, main_.result, main_.command,
                isopleth_, progress_, desktop, Effects{effects.toxic, effects.rows ? effects.rows : &runRow_}),
      compute_(main_.view, state_, state_, state_, state_, main_.in, main_.result, main_.command, search_, levelPasses_,
               closeOut_, progress_, desktop, Effects{effects.toxic, effects.rows ? effects.rows : &runRow_}),
      inputRules_(main_.view, state_, state_, main_.in, main_.result, main_.scenario, links_, plume_, settings_,
                  desktop, status_),
      requiredFiles_(views_, state_, folders_, desktop),
      startUp_(views_, main_, state_, links_, queries_, probit_, requiredFiles_, folders_, settings_, desktop,
               status_) {
  wire();
}

void System::press() {
  // A run row step that is still asked for comes first, so that the results go into the row of this run.
  if (main_.scenario.tmr_1.enabled() && links_.dt2a.hasRow()) runRow_.saveRunRow();
  compute_.comput_Click();
}

void System::wire() {
  View& view = main_.view;
  const ScenarioFields& fields = main_.scenario;
  view.on(main_.command.comput, Event::click, [this] { press(); });
  view.on(fields.tmr_1, Event::timer, [this] { runRow_.saveRunRow(); });
  view.on(fields.dspScnorlst_1, Event::click, [this] { runReset_.resetRunView(); });
  view.on(fields.dspScnorlst_1, Event::dblClick, [this] { runList_.dspScnorlst_1_DblClick(); });
  view.on(fields.redosimul, Event::click, [this] { runReset_.resetRunView(); });
  const auto noSheet = [this] { status_.say("The explanation sheet is not part of this version."); };
  view.on(fields.helpVinf, Event::click, noSheet);
  for (int i = 0; i < fields.headings.size(); ++i) view.on(fields.headings[i], Event::dblClick, noSheet);
}

}  // namespace noldarz
