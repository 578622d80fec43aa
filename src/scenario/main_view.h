// The main view `dspmnfrm`: the centre of the program. It joins the fields of the engine, of the toxic effects
// and of the scenario handling. Built and wired by system/.
#pragma once

#include "engine/fields.h"
#include "platform/view.h"
#include "scenario/fields.h"
#include "toxic/fields.h"

namespace noldarz {

inline constexpr std::string_view mainViewTitle{" NOLDA-RZ : Dispersion Module  "};

struct MainView {
  explicit MainView(Views& views)
      : view(views, "dspmnfrm", std::string{mainViewTitle}),
        in(view),
        level(view),
        result(view),
        command(view),
        toxic(view),
        scenario(view) {}

  View view;
  ScenarioInputs in;
  LevelFields level;
  ResultFields result;
  CommandFields command;
  ToxicFields toxic;
  ScenarioFields scenario;
};

}  // namespace noldarz
