#include "system/system.h"

namespace noldarz {

System::System(Desktop& desktop, Effects* effects)
    : main_(views_),
      plume_(state_, state_, main_.in, main_.level, main_.result),
      progress_(views_, state_, state_, state_, main_.level, desktop),
      search_(state_, state_, plume_, main_.level, main_.result, progress_, desktop),
      isopleth_(state_, state_, state_, plume_, main_.in, main_.level, main_.result, progress_),
      levelPasses_(state_, state_, state_, plume_, main_.in, main_.level, main_.result, main_.command, search_,
                   isopleth_, progress_, desktop, [this] { compute_.comput_Click(); }),
      closeOut_(main_.view, state_, state_, state_, state_, main_.in, main_.level, main_.result, main_.command,
                isopleth_, progress_, desktop, effects),
      compute_(main_.view, state_, state_, state_, state_, main_.in, main_.result, main_.command, search_, levelPasses_,
               closeOut_, progress_, desktop, effects) {
  main_.view.on(main_.command.comput, Event::click, [this] { compute_.comput_Click(); });
}

}  // namespace noldarz
