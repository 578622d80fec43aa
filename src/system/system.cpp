#include "system/system.h"

namespace noldarz {

System::System(Desktop& desktop, Folders folders, const PressPorts* ports)
    : folders_(std::move(folders)),
      settings_(folders_.configuration),
      main_(views_),
      status_(main_.scenario.statuslbl),
      study_({.state = state_, .in = main_.in, .project = main_.project, .status = status_}),
      engine_({.views = views_,
               .mainView = main_.view,
               .state = state_,
               .in = main_.in,
               .level = main_.level,
               .result = main_.result,
               .command = main_.command,
               .ports = ports_,
               .desktop = desktop}),
      toxic_({.views = views_,
              .mainView = main_.view,
              .model = state_,
              .passes = state_,
              .limits = state_,
              .state = state_,
              .in = main_.in,
              .level = main_.level,
              .command = main_.command,
              .toxic = main_.toxic,
              .project = main_.project,
              .links = study_.links,
              .plume = engine_.plume,
              .progress = engine_.progress,
              .settings = settings_,
              .desktop = desktop,
              .status = status_}),
      scenario_({.views = views_,
                 .main = main_,
                 .engineState = state_,
                 .rawLimits = state_,
                 .studyState = state_,
                 .state = state_,
                 .study = study_,
                 .engine = engine_,
                 .toxic = toxic_,
                 .folders = folders_,
                 .settings = settings_,
                 .desktop = desktop,
                 .status = status_}) {
  ports_ = ports ? *ports : PressPorts{&toxic_.effects, &scenario_.runRow};
  views_.onAct([this] { study_.databases.beginAct(); });
}

}  // namespace noldarz
