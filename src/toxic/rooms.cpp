#include "toxic/rooms.h"

namespace noldarz {

ToxicRooms::ToxicRooms(const Sees& sees)
    : probit({.view = sees.mainView,
              .base = sees.state,
              .in = sees.in,
              .command = sees.command,
              .project = sees.project,
              .links = sees.links,
              .desktop = sees.desktop,
              .status = sees.status}),
      limitSearch({.views = sees.views,
                   .model = sees.model,
                   .search = sees.state,
                   .rawLimits = sees.state,
                   .table = sees.state,
                   .passes = sees.passes,
                   .plume = sees.plume,
                   .in = sees.in,
                   .level = sees.level,
                   .toxic = sees.toxic,
                   .progress = sees.progress,
                   .desktop = sees.desktop}),
      limits({.view = sees.mainView,
              .limits = sees.limits,
              .storedLimits = sees.state,
              .rawLimits = sees.state,
              .table = sees.state,
              .in = sees.in,
              .level = sees.level,
              .toxic = sees.toxic,
              .limitSearch = limitSearch,
              .progress = sees.progress,
              .links = sees.links,
              .settings = sees.settings,
              .status = sees.status}),
      effects(sees.in, probit, limits) {}

}  // namespace noldarz
