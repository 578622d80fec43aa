// The main view `dspmnfrm`: the centre of the program. It joins the fields of the engine, of the toxic effects
// and of the scenario handling.
#pragma once

#include "engine/fields.h"
#include "platform/view.h"
#include "scenario/fields.h"
#include "study/fields.h"
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
        project(view),
        scenario(view) {}

  View view;
  ScenarioInputs in;
  LevelFields level;
  ResultFields result;
  CommandFields command;
  ToxicFields toxic;
  ProjectFields project;
  ScenarioFields scenario;
};

}  // namespace noldarz
