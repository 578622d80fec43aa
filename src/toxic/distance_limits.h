// The distances past which nobody dies or is hurt, as the view shows and the run row holds them: by the probit equation, or
// by lethal concentration. The close-out asks for them, and a click of `MaxFtlyDstOptn` goes from one way to the other.
#pragma once

#include <string_view>

#include "engine/fields.h"
#include "engine/progress.h"
#include "engine/state.h"
#include "platform/settings.h"
#include "platform/status_line.h"
#include "platform/store/data_link.h"
#include "toxic/fields.h"
#include "toxic/limit_search.h"
#include "toxic/state.h"

namespace noldarz {

class DistanceLimits {
 public:
  /// `row`: the link that stands on the run row.
  DistanceLimits(LimitState& limits, StoredLimitState& stored, const RawLimitState& raw, ToxicState& toxic,
                 const ScenarioInputs& in, const LevelFields& level, const ToxicFields& fields, LimitSearch& search,
                 Progress& progress, DataLink& row, const Settings& settings, StatusLine& status);

  /// Clears the 20 rows of the report table, and takes the end of the outermost level as the end of the search.
  void prepareSearch(const Trap& regime);

  /// Runs the search with `MaxFtlyDstOptn` on and shows both limits; one that was off goes off again behind it. Each turn
  /// runs the click.
  void searchLimits(const Trap& regime);

  /// The limits are shown by the way now chosen, stored in the run row if there are any, and the choice is kept as a
  /// setting. By the probit equation they are those that the search has found; by lethal concentration the end point of level
  /// 2 for fatality, of level 4 for injury. A probit limit of nobody goes into the row as 0 here.
  void MaxFtlyDstOptn_Click();

  /// What the row of a finished run holds as limits (m): a probit limit of nobody is 0.05.
  struct RowLimits {
    Cell fatality;
    Cell injury;
  };
  /// The stored limits take the same numbers; a mark leaves that limit unchanged.
  RowLimits takeRowLimits();

 private:
  void showLimits();
  void showFatality();
  void showInjury();
  void takeProbitLimits();
  void takeLethalLimits();
  /// Both limits in one change of the row, and the link is refreshed.
  void storeLimits(const Cell& fatality, const Cell& injury);
  void keepChoice();

  LimitState& limits_;
  StoredLimitState& stored_;
  const RawLimitState& raw_;
  ToxicState& toxic_;
  const ScenarioInputs& in_;
  const LevelFields& level_;
  const ToxicFields& fields_;
  LimitSearch& search_;
  Progress& progress_;
  DataLink& row_;
  const Settings& settings_;
  StatusLine& status_;
};

/// The choice between the probit equation (1) and lethal concentration: its captions and the setting that keeps it.
namespace limitChoice {
inline constexpr std::string_view byProbit{"Computes Fatality and Injury dist. limit using Probit Equation."};
inline constexpr std::string_view byConcentration{
    "Computes Fatality and Injury dist. limit using lethal concentration."};
// As the start-up shows it, the word twice.
inline constexpr std::string_view byConcentrationAtStart{
    "Computes Fatality and Injury dist. limit using using lethal concentration."};
inline constexpr const char* application = "noldarz";
inline constexpr const char* section = "FatltyInjryDistOptnStr";
inline constexpr const char* key = "FatltyInjryDistOptnStr1";
}  // namespace limitChoice

}  // namespace noldarz
