// What the figures of the main view stand for: which are results of the inputs as they are, which are none yet, and
// which an input has left behind. It greys those that are no results, says so in a line below the limits, and names the
// next step in the status line. It reads the view and the state of the searches; nothing reads it but the user.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "engine/fields.h"
#include "engine/state.h"
#include "platform/status_line.h"
#include "scenario/fields.h"
#include "toxic/fields.h"
#include "toxic/limit_search.h"

namespace noldarz {

class ResultStanding {
 public:
  struct Sees {
    View& view;
    const SweepState& sweep;
    const LevelState& passes;
    const LimitSearch& limitSearch;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ResultFields& result;
    const ToxicFields& toxic;
    const ScenarioFields& scenario;
    StatusLine& status;
  };
  /// Subscribes to changes of the inputs.
  explicit ResultStanding(const Sees& sees);

  /// While a press runs its own changes of inputs count for nothing; after it the figures stand for the inputs as they
  /// are.
  void pressBegins() { pressing_ = true; }
  void pressEnds();
  /// The results were cleared: none stands.
  void cleared();
  /// The levels came from the chemical.
  void levelsLoaded();

 private:
  enum class Stage : std::uint8_t {
    nothing,    ///< no press yet, or cleared
    noMaximum,  ///< the first press found no maximum ground concentration or no peak
    maximum,    ///< levels are to be set
    refused,    ///< a level was refused
    levels      ///< the level passes have run
  };

  Stage stage() const;
  bool hasLimits() const;
  /// Why there are no limits; empty when there are.
  std::string faultOfLimits() const;
  std::string faultOfLevel(int level) const;
  std::string note() const;
  std::string nextStep() const;
  std::vector<std::string> inputsOf(const std::set<const Field*>& fields) const;
  bool isStale(Stage stage) const;
  void follow(const Field& changed, Property property);
  void show();

  Sees sees_;
  std::set<const Field*> ofMaximum_;  // inputs that all figures stand for
  std::set<const Field*> ofLevels_;   // inputs that levels and limits stand for beside those
  std::vector<std::string> maximumInputs_;
  std::vector<std::string> levelInputs_;
  bool pressing_ = false;
  bool pressed_ = false;
};

}  // namespace noldarz
