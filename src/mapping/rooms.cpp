#include "mapping/rooms.h"

namespace noldarz {

MappingRooms::MappingRooms(const Sees& sees)
    : status(sees.zone.statuslbl),
      dt_1(sees.study.databases, [this](const std::string& text) { status.tellFault(text); }),
      commands({.mainView = sees.main.view,
                .plot = sees.plot,
                .clicks = sees.plot,
                .trace = sees.plot,
                .query = sees.engineState,
                .passes = sees.engineState,
                .study = sees.studyState,
                .scenario = sees.scenario,
                .level = sees.main.level,
                .zone = sees.zone,
                .plotView = sees.plotView,
                .dt_1 = dt_1,
                .queries = sees.study.queries,
                .outputs = sees.study.outputs,
                .settings = sees.settings,
                .desktop = sees.desktop,
                .status = status}),
      cadMapping({.plot = sees.plot,
                  .clicks = sees.plot,
                  .cadState = sees.cadState,
                  .model = sees.engineState,
                  .query = sees.engineState,
                  .scenario = sees.scenario,
                  .in = sees.main.in,
                  .level = sees.main.level,
                  .project = sees.main.project,
                  .zone = sees.zone,
                  .plume = sees.plume,
                  .outputs = sees.study.outputs,
                  .folders = sees.folders,
                  .cad = sees.cad,
                  .desktop = sees.desktop,
                  .status = status}),
      thumbnail({.main = sees.main,
                 .engine = sees.engineState,
                 .rawLimits = sees.rawLimits,
                 .limits = sees.limits,
                 .outputs = sees.study.outputs,
                 .settings = sees.settings}) {
  sees.plotView.view.onFront([this] { cadMapping.giveBackPlot(); });
}

}  // namespace noldarz
