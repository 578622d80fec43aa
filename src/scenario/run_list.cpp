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

void RunList::fill(const Trap& skipping) {
  DataLink& rows = sees_.links.dt2a;
  skipping.steps([&] { sees_.queries.use(rows, &Queries::buildQryRunList, sees_.study.qryRunList); },
                 [&] { rows.refresh(); },
                 [&] { rows.moveFirst(); });
  runs_.clear();
  sees_.sweep.bgnLevel = 0;
  skipping.step([&] {
    for (; !rows.eof(); rows.moveNext()) {
      sees_.state.scnrListLast = slotsPerRun * static_cast<std::int32_t>(runs_.size());
      runs_.push_back({rows.text("scenariotxt"),
                       rows.value("scenariotxt_ac"),
                       rows.value("scnrotype"),
                       rows.text("scenariotxtUser"),
                       rows.value("QntyRels"),
                       rows.value("PoolRadiusRrsls")});
      sees_.sweep.bgnLevel = static_cast<std::int16_t>(std::min(sees_.state.scnrListLast + slotsPerRun, mostSlots));
    }
  });
  std::vector<std::string> names;
  for (auto run = runs_.rbegin(); run != runs_.rend(); ++run) names.push_back(run->scenariotxtUser);
  sees_.scenario.dspScnorlst_1.setEntries(names);
  skipping.step([&] { showDetails(); });
  skipping.step([&] { rows.moveFirst(); });
}

void RunList::showDetails() {
  if (!sees_.links.dt2a.database() || runs_.empty()) return;
  Recordset rows{sees_.links.dt2a.database(), comparingAnyCase(sees_.queries.runDetails()), Recordset::Access::read};
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
  if (details.size() == runs_.size())
    sees_.scenario.dspScnorlst_1.setDetails(details);  // else the list is filled again soon
}

void RunList::showCurrent() {
  const DataLink& row = sees_.links.dt2a;
  int current = -1;
  for (std::size_t i = 0; row.hasRow() && i < runs_.size(); ++i)
    if (runs_[i].scenariotxt == row.text("scenariotxt")) current = static_cast<int>(runs_.size() - 1 - i);
  sees_.scenario.dspScnorlst_1.setCurrent(current);
}

void RunList::dspScnorlst_1_DblClick() {
  const int entry = sees_.scenario.dspScnorlst_1.listIndex();
  const StatusLine::Act act{sees_.status};
  const auto inForce = std::pair{sees_.study.scnrUserText, std::int16_t{0}};
  const int position = static_cast<int>(runs_.size()) - 1 - entry;
  if (entry < 0 || position < 0) {
    sees_.study.selectByUserText = 0;
    return;
  }
  const Run& run = runs_[static_cast<std::size_t>(position)];
  sees_.status.clearFault();
  const Trap skipping = sees_.status.skipping();
  skipping.step([&] { sees_.links.dt2a.refresh(); });
  if (!standOnRow(run, skipping)) {
    std::tie(sees_.study.scnrUserText, sees_.study.selectByUserText) = inForce;
    sees_.scenario.tmr_1.enable();  // the row of the run in force is looked for again
    return sees_.status.say("Run \"" + run.scenariotxtUser + "\" is out of reach: nothing has changed.");
  }
  takeScenario(run);
  sees_.study.scnrText = sees_.project.scnrotxt.text();
  skipping.step([&] { sees_.links.dt2.refresh(); });
  takeScenario(run);  // a refresh that could not store it has shown the former scenario again
  takeInputs(skipping);
  sees_.study.selectByUserText = 0;
  skipping.step([&] { showCurrent(); });
  if (!sees_.status.hasFault())
    sees_.status.say("Run \"" + run.scenariotxtUser + "\" selected. Compute to see its results.");
}

void RunList::takeScenario(const Run& run) const {
  const auto take = [](Field& field, const Cell& cell) {
    if (!holdsNothing(cell)) field.setText(textOf(cell));
  };
  take(sees_.project.scnrotxt, run.scenariotxt_ac);
  take(sees_.in.scnrotypetxt, run.scnrotype);
  take(sees_.in.QntyRelstxt, run.QntyRels);
  take(sees_.in.PoolRadiusRrslstxt, run.PoolRadiusRrsls);
}

bool RunList::standOnRow(const Run& run, const Trap& skipping) {
  DataLink& row = sees_.links.dt2a;
  const auto finds = [&](const std::string& name, std::int16_t byUserText) {
    sees_.study.scnrUserText = name;
    sees_.study.selectByUserText = byUserText;
    return skipping.holds([&] {
      sees_.queries.use(row, &Queries::buildQryRunByText, sees_.study.qryRunByText);
      row.refresh();
      return row.recordCount() == 1;
    });
  };
  // Of several runs with the name, or none, it is the one of the entry.
  return finds(run.scenariotxtUser, 1) || finds(run.scenariotxt, 0);
}

void RunList::takeInputs(const Trap& skipping) {
  const DataLink& row = sees_.links.dt2a;
  skipping.step([&] { sees_.in.stblclscbo.setText(textIn(row, "StblClas")); });
  sees_.probit.takeChoiceFromRow(skipping);
  takeLevels(row, sees_.level, skipping);
  skipping.steps([&] { sees_.in.tempStore.setText(textIn(row, "TemptureTmp")); },
                 [&] { sees_.in.hudityTxt.setText(textIn(row, "Hmudy")); });
}

}  // namespace noldarz
