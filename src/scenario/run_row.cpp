#include "scenario/run_row.h"

#include <fmt/format.h>

#include <utility>
#include <vector>

#include "engine/air.h"
#include "scenario/row_inputs.h"
#include "study/layout.h"
#include "study/row_edit.h"

namespace noldarz {

namespace {

constexpr int unknown = -1;  // the rows of the run could not be read

bool isStabilityClass(std::string_view text) { return isOneOf(stabilityClassEntries, text); }

/// A number with two decimals; any other text, such as a mark, as it stands.
std::string stored(const Field& field) { return Format(field.text(), "0.00"); }

std::string storedHalf(const Field& field) {
  return field.isNumeric() ? Format(field.number() / 2, "0.00") : field.text();
}

}  // namespace

void RunRow::settleRequest() {
  if (sees_.scenario.tmr_1.enabled() || owed_) saveRunRow();
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
    if (store->reason() != FailureNumber::storeLocked) return sees_.status.tellFault(store->what());
    if (owed_) return;
    std::vector<Field*> inputs{
        &sees_.in.prbtoptn, &sees_.in.avalftl, &sees_.in.nvalftl, &sees_.in.avalinj, &sees_.in.nvalinj};
    for (int i = 0; i < levelCount; ++i) inputs.push_back(&sees_.level.conclbl[i]);
    owed_.emplace(Owed{store->what(), KeptInputs{{&sees_.in.wndveltxt, &sees_.in.hudityTxt}}, KeptInputs{inputs}});
  }};
}

void RunRow::saveRunRow() {
  if (!sees_.links.dt1.database()) return sees_.scenario.tmr_1.disable();  // without a study there is no row
  const StatusLine::Act act{sees_.status};
  sees_.status.clearFault();
  const auto owed = std::exchange(owed_, {});
  const KeptInputs typedBound = owed ? owed->boundInputs.changes() : KeptInputs{{}};
  const KeptInputs typed = owed ? owed->inputs.changes() : KeptInputs{{}};
  if (owed) owed->boundInputs.bringBack();
  running_ = true;
  findRow(owed.has_value());
  running_ = false;
  if (owed && owed_) owed_ = owed;  // what was typed counts from the first time on
  takeTyped(typedBound, typed);
  sees_.scenario.tmr_1.disable();
  if (!owed_) sees_.study.scnrKeyByText = 1;
  sees_.status.hold("row",
                    owed_ ? owed_->cause + "; the next step that needs the row of the run looks for it again." : "");
}

void RunRow::takeTyped(const KeptInputs& typedBound, const KeptInputs& typed) {
  typedBound.bringBack();
  typed.bringBack();
  const bool choice = typed.holds(sees_.in.prbtoptn);
  const bool constants = typed.holds(sees_.in.avalftl) || typed.holds(sees_.in.nvalftl) ||
                         typed.holds(sees_.in.avalinj) || typed.holds(sees_.in.nvalinj);
  if (owed_ || !(choice || constants)) return;
  sees_.probit.prbtoptn_Click();
  if (sees_.in.prbtoptn.value() != 1) sees_.probit.prbtStoreConstants();
}

void RunRow::findRow(bool again) {
  DataLink& row = sees_.links.dt2a;
  const Trap skipping = stepping();
  skipping.steps([&] { useRunQuery(); }, [&] { row.refresh(); });
  if (owed_) return;
  sees_.probit.prbtFillDefaults();
  int found = unknown;
  skipping.step([&] { found = row.recordCount(); });
  if (found == 0) create(skipping);
  if (found == 1) bringUpToDate(skipping);
  if (owed_) return;
  skipping.step([&] { row.refresh(); });
  sees_.list.fill(skipping);
  standOnRow(skipping);
  skipping.step([&] { sees_.list.showCurrent(); });
  if (!again) skipping.step([&] { restoreLevels(); });  // later the user has levels of his own
  if (!focusDone_) {
    skipping.step([&] { sees_.desktop.setFocus(sees_.project.scnrotxtlbl); });
    focusDone_ = true;
  }
  tellOutcome(found);
}

void RunRow::useRunQuery() {
  if (sees_.study.scnrKeyByText != 0)
    sees_.queries.use(sees_.links.dt2a, &Queries::buildQryRunByText, sees_.study.qryRunByText);
  else
    sees_.queries.use(sees_.links.dt2a, &Queries::buildQryRunByClass, sees_.study.qryRunByClass);
}

std::string RunRow::classOfNewRow() const {
  const std::string& chosen = sees_.in.stblclscbo.text();
  if (sees_.study.scnrKeyByText == 0 && isStabilityClass(chosen)) return chosen;
  return isStabilityClass(sees_.state.stblClassStored) ? sees_.state.stblClassStored : "";
}

void RunRow::insertRow() {
  if (sees_.project.refnolbl.caption().empty() || sees_.study.scnrText.empty())
    throw StoreFailure(FailureNumber::noCurrentRow, "The study has no active project with a working scenario");
  requirePlain(sees_.queries.runKey());
  std::vector<std::pair<std::string_view, Cell>> cells{{"OrgName", sees_.project.Orglbltxt.caption()},
                                                       {"refNo", sees_.project.refnolbl.caption()},
                                                       {"scenariotxt", sees_.queries.runKey()},
                                                       {"scenariotxt_ac", sees_.study.scnrText},
                                                       {"scnrotype", sees_.in.scnrotypetxt.text()},
                                                       {"ScenarioOptn", std::string{moduleName}},
                                                       {"scenariotxtUser", sees_.study.scnrText},
                                                       {"QntyRels", sees_.in.QntyRelstxt.text()},
                                                       {"PoolRadiusRrsls", sees_.in.PoolRadiusRrslstxt.text()},
                                                       {"prbtoptn", truth(true)},
                                                       {"TemptureTmp", sees_.in.tempStore.text()}};
  if (const std::string stabilityClass = classOfNewRow(); !stabilityClass.empty())
    cells.emplace_back("StblClas", stabilityClass);
  for (const auto& cell : sees_.probit.softwareCells()) cells.push_back(cell);
  silently([&] { cells.emplace_back("qntystor", sees_.links.dt4.value("qntychem")); },
           [&] { cells.emplace_back("pipholradstor", sees_.links.dt4.value("pipetxt")); });
  sees_.links.dt2a.insert(cells);
}

void RunRow::create(const Trap& skipping) {
  bool stored = false;
  skipping.step([&] {
    try {
      insertRow();
      stored = true;
    } catch (const StoreFailure& failure) {
      if (failure.reason() != FailureNumber::duplicateKey) throw;
      sees_.status.tellFault(fmt::format("No run \"{}\": the stored run of this scenario and class is in force.",
                                         sees_.study.scnrUserText));
    }
  });
  if (!stored) return;
  sees_.probit.chooseDefaults();
  if (sees_.study.scnrKeyByText != 0 && isStabilityClass(sees_.state.stblClassStored))
    sees_.in.stblclscbo.setText(sees_.state.stblClassStored);
  sees_.scenario.tmr_1.disable();  // the row that the class asked for is there, and takes the wind of the class
  settleFocus();
}

void RunRow::settleFocus() {
  const Trap skipping = sees_.status.skipping();
  skipping.steps([&] { sees_.desktop.setFocus(sees_.in.stblclscbo); },
                 [&] { sees_.desktop.setFocus(sees_.project.scnrotxtlbl); });
}

void RunRow::bringUpToDate(const Trap& skipping) {
  DataLink& row = sees_.links.dt2a;
  const bool byName = sees_.study.scnrKeyByText != 0;
  const std::string& name = sees_.project.scnrotxtlbl.text();
  if (byName) skipping.step([&] { sees_.in.stblclscbo.setText(textIn(row, "StblClas")); });
  RowEdit edit{row, skipping};
  edit.set("scnrotype", sees_.in.scnrotypetxt.text());
  if (!name.empty()) edit.set("scenariotxtUser", name);
  if (!byName)
    edit.set("QntyRels", sees_.in.QntyRelstxt.text())
        .set("PoolRadiusRrsls", sees_.in.PoolRadiusRrslstxt.text())
        .set("expmass", sees_.result.expmass.isNumeric() ? sees_.result.expmass.text() : "0");
  sees_.probit.takeChoiceFromRow(skipping);
  edit.storeOrDrop();
}

void RunRow::standOnRow(const Trap& skipping) {
  DataLink& row = sees_.links.dt2a;
  skipping.steps([&] { useRunQuery(); }, [&] { row.refresh(); });
  // A name that finds no row, or several, must not lose the results of the run or put them into another one's row.
  const bool refused = row.recordSource().empty();
  if (!refused && !skipping.holds([&] { return row.recordCount() != 1; })) return;
  skipping.steps([&] { sees_.queries.use(row, &Queries::buildQryRunByClass, sees_.study.qryRunByClass); },
                 [&] { row.refresh(); });
  if (!row.hasRow()) return;
  skipping.step([&] { sees_.in.stblclscbo.setText(textIn(row, "StblClas")); });
  sees_.probit.takeChoiceFromRow(skipping);
}

void RunRow::restoreLevels() {
  const DataLink& row = sees_.links.dt2a;
  // A mark is different from 0, too: the level was searched for.
  for (const std::string_view column : {"bgnptn1", "endptn1", "bgnptn2", "endptn2", "bgnptn3", "endptn3"})
    if (const ParsedNumber point = parseNumber(textIn(row, column));
        point.outcome == ParsedNumber::Outcome::number && point.value == 0)
      return;
  takeLevels(row, sees_.level, sees_.status.skipping());
}

bool RunRow::takeStoredLevels() {
  const DataLink& row = sees_.links.dt2a;
  if (!row.hasRow()) return false;
  for (int i = 0; i < levelCount; ++i)
    if (holdsNothing(row.value(levelColumn("constn", i + 1)))) return false;
  takeLevels(row, sees_.level, sees_.status.skipping());
  return true;
}

void RunRow::tellOutcome(int found) {
  if (sees_.status.hasFault()) return;
  const std::string& name = sees_.project.scnrotxtlbl.text();
  if (found == 0) sees_.status.say(fmt::format("Run \"{}\" created.", name));
  if (found == 1) sees_.status.say(fmt::format("Run \"{}\" found.", name));
  if (found > 1) sees_.status.say(fmt::format("{} runs have the name \"{}\"; rename one of them.", found, name));
}

void RunRow::storeFlammableMass(double mass) {
  DataLink& scenario = sees_.links.dt2;
  if (!scenario.database()) return;  // no study is open
  std::optional<RuntimeFailure> met;
  const Trap telling{[&](const RuntimeFailure& failure) {
    if (!met) sees_.status.tellFault(failure.what());
    met = failure;
  }};
  RowEdit{scenario, telling}.set("expmass", mass).store();
  telling.step([&] { scenario.refresh(); });
  if (met) throw RuntimeFailure{*met};
}

void RunRow::storeRun() {
  DataLink& row = sees_.links.dt2a;
  stored_ = false;
  const DistanceLimits::RowLimits limits = sees_.limits.takeRowLimits();
  if (!row.database()) return sees_.status.say("No study is open: the results are not stored.");
  std::string fault;
  const Trap keeping{[&](const RuntimeFailure& failure) { fault = failure.what(); }};
  if (!row.hasRow()) silently([&] { row.refresh(); });  // it was out of reach when it was looked up last
  RowEdit edit{row, keeping};
  edit.set("FtlyXcord", limits.fatality)
      .set("InjXcord", limits.injury)
      .set("FtlyYcord", storedHalf(sees_.level.isopwdth[2]))
      .set("InjYcord", storedHalf(sees_.level.isopwdth[5]))
      .set("isopAngle", stored(sees_.level.isopang[2]))
      .set("expmass", sees_.result.expmass.isNumeric() ? stored(sees_.result.expmass) : "0");
  for (int i = 0; i < levelCount; ++i)
    edit.set(levelColumn("bgnptn", i), stored(sees_.level.bgnpt[i]))
        .set(levelColumn("endptn", i), stored(sees_.level.endpt[i]))
        .set(levelColumn("constn", i + 1), stored(sees_.level.constn[i]))
        .set(levelColumn("constnTxt", i + 1), sees_.level.conclbl[i].caption());
  const bool isOpen = row.hasRow() && row.recordset().isOpenForWriting();
  stored_ = edit.store();
  keeping.step([&] { row.refresh(), stored_ = isOpen; });  // tries again what an update could not store
  if (stored_)
    sees_.status.say(fmt::format("Results stored in run \"{}\".", sees_.project.scnrotxtlbl.text()));
  else
    sees_.status.tellFault("The results are not stored: " + fault);
}

}  // namespace noldarz
