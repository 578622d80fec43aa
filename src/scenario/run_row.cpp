#include "scenario/run_row.h"

#include <fmt/format.h>

#include <utility>
#include <vector>

#include "engine/air.h"
#include "scenario/row_inputs.h"
#include "scenario/study_layout.h"

namespace noldarz {

namespace {

constexpr int unknown = -1;  // the rows of the run could not be read

bool isStabilityClass(std::string_view text) { return isOneOf(stabilityClassEntries, text); }

/// A number with two decimals; any other text, such as a mark, as it stands.
std::string stored(const Field& field) { return Format(field.text(), "0.00"); }

std::string storedHalf(const Field& field) {
  return field.isNumeric() ? Format(field.number() / 2, "0.00") : field.text();
}

/// Sets cells of what is open for writing, each as a statement of its own.
auto setter(DataLink& row, const Trap& trap) {
  return [&](std::string_view column, const Cell& value) { trap.step([&] { row.set(column, value); }); };
}

}  // namespace

RunRow::RunRow(ScenarioState& state, const ScenarioInputs& in, const LevelFields& level, const ResultFields& result,
               const ScenarioFields& fields, MainLinks& links, Queries& queries, RunList& list, ProbitConstants& probit,
               DistanceLimits& limits, Desktop& desktop, StatusLine& status)
    : state_(state),
      in_(in),
      level_(level),
      result_(result),
      fields_(fields),
      links_(links),
      queries_(queries),
      list_(list),
      probit_(probit),
      limits_(limits),
      desktop_(desktop),
      status_(status) {}

void RunRow::settleRequest() {
  if (fields_.tmr_1.enabled() || owed_) saveRunRow();
}

void RunRow::provide() {
  if (running_ || !owed_) return;
  saveRunRow();
  if (owed_) throw StoreFailure(FailureNumber::storeLocked, owed_->cause);
}

Trap RunRow::stepping() {
  return Trap{[this](const RuntimeFailure& failure) {
    const auto* store = dynamic_cast<const StoreFailure*>(&failure);
    if (!store) return;
    if (store->reason() != FailureNumber::storeLocked) return status_.tellFault(store->what());
    if (owed_) return;
    std::vector<Field*> inputs{&in_.prbtoptn, &in_.avalftl, &in_.nvalftl, &in_.avalinj, &in_.nvalinj};
    for (int i = 0; i < levelCount; ++i) inputs.push_back(&level_.conclbl[i]);
    owed_.emplace(Owed{store->what(), KeptInputs{{&in_.wndveltxt, &in_.hudityTxt}}, KeptInputs{inputs}});
  }};
}

void RunRow::saveRunRow() {
  if (!links_.dt1.database()) return fields_.tmr_1.disable();  // without a study there is no row
  const StatusLine::Act act{status_};
  status_.clearFault();
  const auto owed = std::exchange(owed_, {});
  const KeptInputs typedBound = owed ? owed->boundInputs.changes() : KeptInputs{{}};
  const KeptInputs typed = owed ? owed->inputs.changes() : KeptInputs{{}};
  if (owed) owed->boundInputs.bringBack();
  running_ = true;
  findRow(owed.has_value());
  running_ = false;
  if (owed && owed_) owed_ = owed;  // what was typed counts from the first time on
  takeTyped(typedBound, typed);
  fields_.tmr_1.disable();
  if (!owed_) state_.scnrKeyByText = 1;
  status_.hold("row", owed_ ? owed_->cause + "; the next step that needs the row of the run looks for it again." : "");
}

void RunRow::takeTyped(const KeptInputs& typedBound, const KeptInputs& typed) {
  typedBound.bringBack();
  typed.bringBack();
  const bool choice = typed.holds(in_.prbtoptn);
  const bool constants =
      typed.holds(in_.avalftl) || typed.holds(in_.nvalftl) || typed.holds(in_.avalinj) || typed.holds(in_.nvalinj);
  if (owed_ || !(choice || constants)) return;
  probit_.prbtoptn_Click();
  if (in_.prbtoptn.value() != 1) probit_.prbtStoreConstants();
}

void RunRow::findRow(bool again) {
  DataLink& row = links_.dt2a;
  const Trap skipping = stepping();
  skipping.steps([&] { useRunQuery(); }, [&] { row.refresh(); });
  if (owed_) return;
  probit_.prbtFillDefaults();
  int found = unknown;
  skipping.step([&] { found = row.recordCount(); });
  if (found == 0) create(skipping);
  if (found == 1) bringUpToDate(skipping);
  if (owed_) return;
  skipping.step([&] { row.refresh(); });
  list_.fill(skipping);
  standOnRow(skipping);
  skipping.step([&] { list_.showCurrent(); });
  if (!again) skipping.step([&] { restoreLevels(); });  // later the user has levels of his own
  if (!focusDone_) {
    skipping.step([&] { desktop_.setFocus(fields_.scnrotxtlbl); });
    focusDone_ = true;
  }
  tellOutcome(found);
}

void RunRow::useRunQuery() {
  if (state_.scnrKeyByText != 0)
    queries_.use(links_.dt2a, &Queries::buildQryRunByText, state_.qryRunByText);
  else
    queries_.use(links_.dt2a, &Queries::buildQryRunByClass, state_.qryRunByClass);
}

std::string RunRow::classOfNewRow() const {
  const std::string& chosen = in_.stblclscbo.text();
  if (state_.scnrKeyByText == 0 && isStabilityClass(chosen)) return chosen;
  return isStabilityClass(state_.stblClassStored) ? state_.stblClassStored : "";
}

void RunRow::insertRow() {
  if (fields_.refnolbl.caption().empty() || state_.scnrText.empty())
    throw StoreFailure(FailureNumber::noCurrentRow, "The study has no active project with a working scenario");
  requirePlain(queries_.runKey());
  std::vector<std::pair<std::string_view, Cell>> cells{{"OrgName", fields_.Orglbltxt.caption()},
                                                       {"refNo", fields_.refnolbl.caption()},
                                                       {"scenariotxt", queries_.runKey()},
                                                       {"scenariotxt_ac", state_.scnrText},
                                                       {"scnrotype", in_.scnrotypetxt.text()},
                                                       {"ScenarioOptn", std::string{moduleName}},
                                                       {"scenariotxtUser", state_.scnrText},
                                                       {"QntyRels", in_.QntyRelstxt.text()},
                                                       {"PoolRadiusRrsls", in_.PoolRadiusRrslstxt.text()},
                                                       {"prbtoptn", truth(true)},
                                                       {"TemptureTmp", in_.tempStore.text()}};
  if (const std::string stabilityClass = classOfNewRow(); !stabilityClass.empty())
    cells.emplace_back("StblClas", stabilityClass);
  for (const auto& [column, constant] : probit_.softwareCells()) cells.emplace_back(column, std::string{constant});
  silently([&] { cells.emplace_back("qntystor", links_.dt4.value("qntychem")); },
           [&] { cells.emplace_back("pipholradstor", links_.dt4.value("pipetxt")); });
  links_.dt2a.insert(cells);
}

void RunRow::create(const Trap& skipping) {
  bool stored = false;
  skipping.step([&] {
    try {
      insertRow();
      stored = true;
    } catch (const StoreFailure& failure) {
      if (failure.reason() != FailureNumber::duplicateKey) throw;
      status_.tellFault(
          fmt::format("No run \"{}\": the stored run of this scenario and class is in force.", state_.scnrUserText));
    }
  });
  if (!stored) return;
  probit_.chooseDefaults();
  if (state_.scnrKeyByText != 0 && isStabilityClass(state_.stblClassStored))
    in_.stblclscbo.setText(state_.stblClassStored);
  fields_.tmr_1.disable();  // the row that the class asked for is there, and takes the wind of the class
  settleFocus();
}

void RunRow::settleFocus() {
  const Trap skipping = status_.skipping();
  skipping.steps([&] { desktop_.setFocus(in_.stblclscbo); }, [&] { desktop_.setFocus(fields_.scnrotxtlbl); });
}

void RunRow::bringUpToDate(const Trap& skipping) {
  DataLink& row = links_.dt2a;
  const auto set = setter(row, skipping);
  if (state_.scnrKeyByText != 0) skipping.step([&] { in_.stblclscbo.setText(textIn(row, "StblClas")); });
  skipping.step([&] { row.edit(); });
  set("scnrotype", in_.scnrotypetxt.text());
  if (!fields_.scnrotxtlbl.text().empty()) set("scenariotxtUser", fields_.scnrotxtlbl.text());
  if (state_.scnrKeyByText == 0) {
    set("QntyRels", in_.QntyRelstxt.text());
    set("PoolRadiusRrsls", in_.PoolRadiusRrslstxt.text());
    set("expmass", result_.expmass.isNumeric() ? result_.expmass.text() : "0");
  }
  probit_.takeChoiceFromRow(skipping);
  skipping.step([&] {
    try {
      row.update();
    } catch (const StoreFailure&) {
      row.cancelUpdate();  // or the next refresh would wait for the file again
      throw;
    }
  });
}

void RunRow::standOnRow(const Trap& skipping) {
  DataLink& row = links_.dt2a;
  skipping.steps([&] { useRunQuery(); }, [&] { row.refresh(); });
  // A name that finds no row, or several, must not lose the results of the run or put them into another one's row.
  const bool refused = row.recordSource().empty();
  if (!refused && !skipping.holds([&] { return row.recordCount() != 1; })) return;
  skipping.steps([&] { queries_.use(row, &Queries::buildQryRunByClass, state_.qryRunByClass); },
                 [&] { row.refresh(); });
  if (!row.hasRow()) return;
  skipping.step([&] { in_.stblclscbo.setText(textIn(row, "StblClas")); });
  probit_.takeChoiceFromRow(skipping);
}

void RunRow::restoreLevels() {
  const DataLink& row = links_.dt2a;
  // A mark is different from 0, too: the level was searched for.
  for (const std::string_view column : {"bgnptn1", "endptn1", "bgnptn2", "endptn2", "bgnptn3", "endptn3"})
    if (const ParsedNumber point = parseNumber(textIn(row, column));
        point.outcome == ParsedNumber::Outcome::number && point.value == 0)
      return;
  takeLevels(row, level_, status_.skipping());
}

bool RunRow::takeStoredLevels() {
  const DataLink& row = links_.dt2a;
  if (!row.hasRow()) return false;
  for (int i = 0; i < levelCount; ++i)
    if (holdsNothing(row.value(levelColumn("constn", i + 1)))) return false;
  takeLevels(row, level_, status_.skipping());
  return true;
}

void RunRow::tellOutcome(int found) {
  if (status_.hasFault()) return;
  const std::string& name = fields_.scnrotxtlbl.text();
  if (found == 0) status_.say(fmt::format("Run \"{}\" created.", name));
  if (found == 1) status_.say(fmt::format("Run \"{}\" found.", name));
  if (found > 1) status_.say(fmt::format("{} runs have the name \"{}\"; rename one of them.", found, name));
}

void RunRow::storeFlammableMass(double mass) {
  DataLink& scenario = links_.dt2;
  if (!scenario.database()) return;  // no study is open
  std::optional<RuntimeFailure> met;
  const Trap telling{[&](const RuntimeFailure& failure) {
    if (!met) status_.tellFault(failure.what());
    met = failure;
  }};
  telling.steps([&] { scenario.edit(); },
                [&] { scenario.set("expmass", mass); },
                [&] { scenario.update(); },
                [&] { scenario.refresh(); });
  if (met) throw RuntimeFailure{*met};
}

void RunRow::storeRun() {
  DataLink& row = links_.dt2a;
  stored_ = false;
  const DistanceLimits::RowLimits limits = limits_.takeRowLimits();
  if (!row.database()) return status_.say("No study is open: the results are not stored.");
  std::string fault;
  const Trap keeping{[&](const RuntimeFailure& failure) { fault = failure.what(); }};
  const auto set = setter(row, keeping);
  if (!row.hasRow()) silently([&] { row.refresh(); });  // it was out of reach when it was looked up last
  keeping.step([&] { row.edit(); });
  set("FtlyXcord", limits.fatality);
  set("InjXcord", limits.injury);
  set("FtlyYcord", storedHalf(level_.isopwdth[2]));
  set("InjYcord", storedHalf(level_.isopwdth[5]));
  set("isopAngle", stored(level_.isopang[2]));
  set("expmass", result_.expmass.isNumeric() ? stored(result_.expmass) : "0");
  for (int i = 0; i < levelCount; ++i) {
    set(levelColumn("bgnptn", i), stored(level_.bgnpt[i]));
    set(levelColumn("endptn", i), stored(level_.endpt[i]));
    set(levelColumn("constn", i + 1), stored(level_.constn[i]));
    set(levelColumn("constnTxt", i + 1), level_.conclbl[i].caption());
  }
  const bool isOpen = row.hasRow() && row.recordset().isOpenForWriting();
  keeping.steps([&] { row.update(), stored_ = true; },
                [&] { row.refresh(), stored_ = isOpen; });  // tries again what an update could not store
  if (stored_)
    status_.say(fmt::format("Results stored in run \"{}\".", fields_.scnrotxtlbl.text()));
  else
    status_.tellFault("The results are not stored: " + fault);
}

}  // namespace noldarz
