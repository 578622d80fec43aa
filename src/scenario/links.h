// The data links of the main view and their bound fields.
#pragma once

#include "engine/fields.h"
#include "platform/store/data_link.h"
#include "scenario/fields.h"
#include "scenario/status_line.h"

namespace noldarz {

struct MainLinks {
  MainLinks(Databases& databases, const ScenarioInputs& in, const ScenarioFields& fields, StatusLine& status);

  DataLink dt1;   // active project
  DataLink dt2;   // working scenario
  DataLink dt2a;  // row of the run in force
  DataLink dt3;   // release heights and terrain of the reference number
  DataLink dt4;   // chemical data of the project
};

}  // namespace noldarz
