// The distances past which nobody dies or is hurt, as the view shows and the run row holds them: by the probit
// equation, or by lethal concentration. The close-out asks for them, and a click of `MaxFtlyDstOptn` goes from one way
// to the other.
#pragma once

#include <string_view>

#include "engine/fields.h"
#include "engine/progress.h"
#include "engine/state.h"
#include "platform/settings.h"
#include "platform/status_line.h"
#include "study/fields.h"
#include "study/links.h"
#include "toxic/fields.h"
#include "toxic/limit_search.h"
#include "toxic/state.h"

namespace noldarz {

class DistanceLimits {
 public:
  struct Sees {
    View& view;
    LimitState& limits;
    StoredLimitState& storedLimits;
    const RawLimitState& rawLimits;
    ReportTableState& table;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ToxicFields& toxic;
    LimitSearch& limitSearch;
    Progress& progress;
    MainLinks& links;
    const Settings& settings;
    StatusLine& status;
  };
  /// Subscribes the choice of the way.
  explicit DistanceLimits(const Sees& sees) : sees_(sees) {
    sees_.view.on(sees_.in.MaxFtlyDstOptn, Event::click, [this] { MaxFtlyDstOptn_Click(); });
  }

  /// Clears the 20 rows of the report table, and takes the end of the outermost level as the end of the search.
  void prepareSearch(const Trap& regime);

  /// Runs the search with `MaxFtlyDstOptn` on and shows both limits; an option that was off is turned off again
  /// afterwards. Each turn runs the click.
  void searchLimits(const Trap& regime);

  /// The limits are shown by the way now chosen, stored in the run row if there are any, and the choice is kept as a
  /// setting. By the probit equation they are those that the search has found; by lethal concentration the end point of
  /// level 2 for fatality, of level 4 for injury. A probit limit of nobody goes into the row as 0 here.
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

  Sees sees_;
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
