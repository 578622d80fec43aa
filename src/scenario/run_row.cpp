#include "scenario/run_row.h"

#include <fmt/format.h>

#include <optional>

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
  if (fields_.tmr_1.enabled()) saveRunRow();
}

void RunRow::saveRunRow() {
  if (!links_.dt1.database()) return fields_.tmr_1.disable();  // without a study there is no row
  DataLink& row = links_.dt2a;
  status_.clearFault();
  const Trap skipping = status_.skipping();
  list_.clear();
  skipping.steps([&] { useRunQuery(); }, [&] { row.refresh(); });
  probit_.prbtFillDefaults();
  int found = unknown;
  skipping.step([&] { found = row.recordCount(); });
  if (found == 0) create(skipping);
  if (found == 1) bringUpToDate(skipping);
  skipping.steps([&] { update(); }, [&] { row.refresh(); });
  list_.fill(skipping);
  standOnRow(skipping);
  skipping.step([&] { restoreLevels(); });
  if (!focusDone_) {
    skipping.step([&] { desktop_.setFocus(fields_.scnrotxtlbl); });
    focusDone_ = true;
  }
  state_.scnrKeyByText = 1;
  fields_.tmr_1.disable();
  tellOutcome(found);
}

void RunRow::useRunQuery() {
  if (state_.scnrKeyByText != 0)
    queries_.use(links_.dt2a, &Queries::buildQryRunByText, state_.qryRunByText);
  else
    queries_.use(links_.dt2a, &Queries::buildQryRunByClass, state_.qryRunByClass);
}

void RunRow::create(const Trap& skipping) {
  DataLink& row = links_.dt2a;
  const auto set = setter(row, skipping);
  skipping.step([&] {
    if (fields_.refnolbl.caption().empty() || state_.scnrText.empty())
      throw StoreFailure(FailureNumber::noCurrentRow, "The study has no active project with a working scenario");
    requirePlain(queries_.runKey());
    row.addNew();
  });
  if (!skipping.holds([&] { return row.recordset().isAdding(); })) return;
  set("OrgName", fields_.Orglbltxt.caption());
  set("refNo", fields_.refnolbl.caption());
  set("scenariotxt", queries_.runKey());
  set("scenariotxt_ac", state_.scnrText);
  set("scnrotype", in_.scnrotypetxt.text());
  set("ScenarioOptn", std::string{moduleName});
  fields_.scnrotxtlbl.setText(state_.scnrText);  // the link stores it
  set("QntyRels", in_.QntyRelstxt.text());
  set("PoolRadiusRrsls", in_.PoolRadiusRrslstxt.text());
  if (isStabilityClass(state_.stblClassStored)) set("StblClas", state_.stblClassStored);
  set("prbtoptn", truth(true));
  probit_.chooseDefaults();
  probit_.setCells(skipping);
  set("TemptureTmp", in_.tempStore.text());
  skipping.steps([&] { row.set("qntystor", links_.dt4.value("qntychem")); },
                 [&] { row.set("pipholradstor", links_.dt4.value("pipetxt")); });
  if (state_.scnrKeyByText != 0 && isStabilityClass(state_.stblClassStored)) {
    in_.stblclscbo.setText(state_.stblClassStored);
    set("StblClas", in_.stblclscbo.text());
  }
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
}

void RunRow::update() try { links_.dt2a.update(); } catch (const StoreFailure& failure) {
  links_.dt2a.cancelUpdate();  // or the next refresh would wait for the file again
  if (failure.reason() != FailureNumber::duplicateKey) throw;
  status_.tellFault(
      fmt::format("No run \"{}\": the stored run of this scenario and class is in force.", state_.scnrUserText));
}

void RunRow::standOnRow(const Trap& skipping) {
  DataLink& row = links_.dt2a;
  skipping.steps([&] { useRunQuery(); }, [&] { row.refresh(); });
  // A name that finds no row, or several, must not lose the results of the run or put them into another one's row.
  const bool refused = row.recordSource().empty();
  if (!refused && !skipping.holds([&] { return row.recordCount() != 1; })) return;
  skipping.steps([&] { queries_.use(row, &Queries::buildQryRunByClass, state_.qryRunByClass); },
                 [&] { row.refresh(); });
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
