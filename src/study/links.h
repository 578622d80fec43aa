// The data links of the main view and their bound fields.
#pragma once

#include <array>

#include "engine/fields.h"
#include "platform/status_line.h"
#include "platform/store/data_link.h"
#include "study/fields.h"

namespace noldarz {

class MainLinks {
  /// Where the links tell what they could not store and what they have stored.
  struct Told {
    explicit Told(StatusLine& status);
    DataLink::Tells refused;
    DataLink::Tells stored;
  };
  Told told_;

 public:
  MainLinks(Databases& databases, const ScenarioInputs& in, const ProjectFields& project, StatusLine& status);

  std::array<DataLink*, 5> all() { return {&dt1, &dt2, &dt2a, &dt3, &dt4}; }

  DataLink dt1;   // active project
  DataLink dt2;   // working scenario
  DataLink dt2a;  // row of the run in force
  DataLink dt3;   // release heights and terrain of the reference number
  DataLink dt4;   // chemical data of the project
};

/// The lowest height of release (m).
inline constexpr double leastReleaseHeight = 0.1;

/// Least and most relative humidity that can be entered (%).
inline constexpr double leastHumidity = 0.1;
inline constexpr double mostHumidity = 100;

}  // namespace noldarz
