#include "population/rooms.h"

namespace noldarz {

PopulationRooms::PopulationRooms(const Sees& sees)
    : status(sees.grid.statuslbl),
      dt5(
          sees.study.databases, [this](const std::string& text) { status.tellFault(text); },
          [this](const std::string& words) { status.say("Stored: " + words + "."); }),
      row({.dt5 = dt5,
           .study = sees.studyState,
           .project = sees.project,
           .view = sees.grid,
           .queries = sees.study.queries,
           .status = status}),
      conversion({.state = sees.state, .view = sees.grid, .row = row, .desktop = sees.desktop, .status = status}),
      gridImport(
          {.state = sees.state, .view = sees.grid, .dt5 = dt5, .row = row, .desktop = sees.desktop, .status = status}),
      table({.view = sees.grid, .row = row, .desktop = sees.desktop, .status = status}),
      commands({.state = sees.state,
                .wind = sees.wind,
                .view = sees.grid,
                .popdnsty = sees.popdnsty,
                .outputList = sees.outputList,
                .reportView = sees.reportView,
                .report = sees.report,
                .row = row,
                .outputs = sees.study.outputs,
                .settings = sees.settings,
                .desktop = sees.desktop,
                .status = status,
                .mainStatus = sees.mainStatus}) {}

}  // namespace noldarz
