// The inputs of the plume model, read from the fields of the main view: parsed when a text of the view has changed,
// so that a step of a sweep costs loads, not parses. Used by the plume model alone.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "engine/air.h"
#include "engine/fields.h"
#include "engine/gaussian.h"
#include "platform/text.h"
#include "platform/view.h"

namespace noldarz {

/// Texts of `scnrotypetxt`, in the order of Release.
inline constexpr std::array<std::string_view, 3> releaseTypes{"PLUME", "POOL", "PUFF"};

/// A text that is no number fails where its number is asked for, not when it is read.
struct ModelInputs {
  Release release = Release::none;
  int stabilityClass = noClass;
  int terrain = -1;      // index in `terrains`; -1 for any other text
  ParsedNumber Q;        // rate of release (kg/s) or quantity (kg)
  ParsedNumber M;        // molecular weight (g/mol)
  ParsedNumber Tc;       // temperature of the release (deg C)
  ParsedNumber density;  // vapour density relative to air
  ParsedNumber wind;     // wind velocity selected or entered (m/s)
};

class ModelInputReader {
 public:
  explicit ModelInputReader(const ScenarioInputs& in) : in_(in), view_(in.scnrotypetxt.view()) {}

  /// Counts up with every change of a text of the view.
  std::uint64_t revision() const { return view_.textRevision(); }

  const ModelInputs& operator()() {
    if (revision_ != view_.textRevision()) read();
    return inputs_;
  }

 private:
  void read() {
    revision_ = view_.textRevision();
    inputs_ = {static_cast<Release>(in_.scnrotypetxt.wordIndex(releaseTypes)),
               in_.stblclscbo.wordIndex(stabilityClasses),
               in_.roghwndoptcbo.wordIndex(terrains),
               in_.QntyRelstxt.parsed(),
               in_.molwttxt.parsed(),
               in_.tempStore.parsed(),
               in_.vapordnstytxt.parsed(),
               in_.wndveltxt.parsed()};
  }

  const ScenarioInputs& in_;
  const View& view_;
  std::uint64_t revision_ = 0;
  ModelInputs inputs_;
};

}  // namespace noldarz
