// The study of a run: its links, its queries, its outputs.
#pragma once

#include "engine/fields.h"
#include "platform/status_line.h"
#include "platform/store/database.h"
#include "study/fields.h"
#include "study/layout.h"
#include "study/links.h"
#include "study/outputs.h"
#include "study/queries.h"
#include "study/state.h"

namespace noldarz {

struct StudyRooms {
  struct Sees {
    StudyState& state;
    const ScenarioInputs& in;
    const ProjectFields& project;
    StatusLine& status;
  };
  explicit StudyRooms(const Sees& sees)
      : links(databases, sees.in, sees.project, sees.status), queries(sees.state, sees.in, sees.project) {}

  Databases databases{studyLayout()};
  MainLinks links;
  Queries queries;
  Outputs outputs;
};

}  // namespace noldarz
