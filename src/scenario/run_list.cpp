#include "scenario/run_list.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <tuple>

#include "platform/store/any_case.h"
#include "scenario/row_inputs.h"

namespace noldarz {

namespace {

constexpr int slotsPerRun = 5;
constexpr int mostSlots = std::numeric_limits<std::int16_t>::max();  // that the index of the fill can count

}  // namespace

RunList::RunList(ScenarioState& state, SweepState& sweep, const ScenarioInputs& in, const LevelFields& level,
                 const ScenarioFields& fields, MainLinks& links, Queries& queries, ProbitConstants& probit,
                 StatusLine& status)
    : state_(state),
      sweep_(sweep),
      in_(in),
      level_(level),
      fields_(fields),
      links_(links),
      queries_(queries),
      probit_(probit),
      status_(status) {}

void RunList::fill(const Trap& skipping) {
  DataLink& rows = links_.dt2a;
  skipping.steps([&] { queries_.use(rows, &Queries::buildQryRunList, state_.qryRunList); },
                 [&] { rows.refresh(); },
                 [&] { rows.moveFirst(); });
  runs_.clear();
  sweep_.bgnLevel = 0;
  skipping.step([&] {
    for (; !rows.eof(); rows.moveNext()) {
      state_.scnrListLast = slotsPerRun * static_cast<std::int32_t>(runs_.size());
      runs_.push_back({rows.text("scenariotxt"),
                       rows.value("scenariotxt_ac"),
                       rows.value("scnrotype"),
                       rows.text("scenariotxtUser"),
                       rows.value("QntyRels"),
                       rows.value("PoolRadiusRrsls")});
      sweep_.bgnLevel = static_cast<std::int16_t>(std::min(state_.scnrListLast + slotsPerRun, mostSlots));
    }
  });
  std::vector<std::string> names;
  for (auto run = runs_.rbegin(); run != runs_.rend(); ++run) names.push_back(run->scenariotxtUser);
  fields_.dspScnorlst_1.setEntries(names);
  skipping.step([&] { showDetails(); });
  skipping.step([&] { rows.moveFirst(); });
}

void RunList::showDetails() {
  if (!links_.dt2a.database() || runs_.empty()) return;
  Recordset rows{links_.dt2a.database(), comparingAnyCase(queries_.runDetails()), Recordset::Access::read};
  const auto text = [&](const std::string& column) { return textOf(rows.value(column)); };
  std::vector<EntryDetail> details;
  for (; !rows.eof(); rows.moveNext()) {
    EntryDetail& detail = details.emplace_back();
    detail.text = text("StblClas") + (text("wndvel").empty() ? "" : ", " + text("wndvel") + " m/s");
    for (int i = 0; i < levelCount; ++i)
      if (const std::string end = text(levelColumn("endptn", i)); !end.empty() && end != mark::nothing)
        detail.toolTip += fmt::format("{}{} {} ppm: {} m",
                                      detail.toolTip.empty() ? "" : "\n",
                                      text(levelColumn("constnTxt", i + 1)),
                                      text(levelColumn("constn", i + 1)),
                                      end);
    if (detail.toolTip.empty()) detail.toolTip = "Not computed yet";
  }
  std::reverse(details.begin(), details.end());
  if (details.size() == runs_.size()) fields_.dspScnorlst_1.setDetails(details);  // else the list is filled again soon
}

void RunList::showCurrent() {
  const DataLink& row = links_.dt2a;
  int current = -1;
  for (std::size_t i = 0; row.hasRow() && i < runs_.size(); ++i)
    if (runs_[i].scenariotxt == row.text("scenariotxt")) current = static_cast<int>(runs_.size() - 1 - i);
  fields_.dspScnorlst_1.setCurrent(current);
}

void RunList::dspScnorlst_1_DblClick() {
  const int entry = fields_.dspScnorlst_1.listIndex();
  const StatusLine::Act act{status_};
  const auto inForce = std::pair{state_.scnrUserText, std::int16_t{0}};
  const int position = static_cast<int>(runs_.size()) - 1 - entry;
  if (entry < 0 || position < 0) {
    state_.selectByUserText = 0;
    return;
  }
  const Run& run = runs_[static_cast<std::size_t>(position)];
  status_.clearFault();
  const Trap skipping = status_.skipping();
  skipping.step([&] { links_.dt2a.refresh(); });
  if (!standOnRow(run, skipping)) {
    std::tie(state_.scnrUserText, state_.selectByUserText) = inForce;
    fields_.tmr_1.enable();  // the row of the run in force is looked for again
    return status_.say("Run \"" + run.scenariotxtUser + "\" is out of reach: nothing has changed.");
  }
  takeScenario(run);
  state_.scnrText = fields_.scnrotxt.text();
  skipping.step([&] { links_.dt2.refresh(); });
  takeScenario(run);  // a refresh that could not store it has shown the former scenario again
  takeInputs(skipping);
  state_.selectByUserText = 0;
  skipping.step([&] { showCurrent(); });
  if (!status_.hasFault()) status_.say("Run \"" + run.scenariotxtUser + "\" selected. Compute to see its results.");
}

void RunList::takeScenario(const Run& run) const {
  const auto take = [](Field& field, const Cell& cell) {
    if (!holdsNothing(cell)) field.setText(textOf(cell));
  };
  take(fields_.scnrotxt, run.scenariotxt_ac);
  take(in_.scnrotypetxt, run.scnrotype);
  take(in_.QntyRelstxt, run.QntyRels);
  take(in_.PoolRadiusRrslstxt, run.PoolRadiusRrsls);
}

bool RunList::standOnRow(const Run& run, const Trap& skipping) {
  DataLink& row = links_.dt2a;
  const auto finds = [&](const std::string& name, std::int16_t byUserText) {
    state_.scnrUserText = name;
    state_.selectByUserText = byUserText;
    return skipping.holds([&] {
      queries_.use(row, &Queries::buildQryRunByText, state_.qryRunByText);
      row.refresh();
      return row.recordCount() == 1;
    });
  };
  // Of several runs with the name, or none, it is the one of the entry.
  return finds(run.scenariotxtUser, 1) || finds(run.scenariotxt, 0);
}

void RunList::takeInputs(const Trap& skipping) {
  const DataLink& row = links_.dt2a;
  skipping.step([&] { in_.stblclscbo.setText(textIn(row, "StblClas")); });
  probit_.takeChoiceFromRow(skipping);
  takeLevels(row, level_, skipping);
  skipping.steps([&] { in_.tempStore.setText(textIn(row, "TemptureTmp")); },
                 [&] { in_.hudityTxt.setText(textIn(row, "Hmudy")); });
}

}  // namespace noldarz
