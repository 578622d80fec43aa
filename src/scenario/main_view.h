// The main view `dspmnfrm`: the centre of the program. It joins the fields of the engine, and the rules of the
// scenario handling will add their own. Built and wired by system/.
#pragma once

#include "engine/fields.h"
#include "platform/view.h"

namespace noldarz {

struct MainView {
  explicit MainView(Views& views)
      : view(views, "dspmnfrm", " NOLDA-RZ : Dispersion Module  "),
        in(view),
        level(view),
        result(view),
        command(view) {}

  View view;
  ScenarioInputs in;
  LevelFields level;
  ResultFields result;
  CommandFields command;
};

}  // namespace noldarz
