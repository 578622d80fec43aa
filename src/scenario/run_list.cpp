#include "scenario/run_list.h"

#include "scenario/row_inputs.h"

namespace noldarz {

namespace {

constexpr int slotsPerRun = 5;

}  // namespace

RunList::RunList(ScenarioState& state, const ScenarioInputs& in, const LevelFields& level, const ScenarioFields& fields,
                 MainLinks& links, Queries& queries, ProbitConstants& probit, StatusLine& status)
    : state_(state),
      in_(in),
      level_(level),
      fields_(fields),
      links_(links),
      queries_(queries),
      probit_(probit),
      status_(status) {}

void RunList::clear() { fields_.dspScnorlst_1.setEntries({}); }

void RunList::fill(const Trap& skipping) {
  DataLink& rows = links_.dt2a;
  skipping.steps([&] { queries_.use(rows, &Queries::buildQryRunList, state_.qryRunList); },
                 [&] { rows.refresh(); },
                 [&] { rows.moveFirst(); });
  clear();
  runs_.clear();
  skipping.step([&] {
    for (; !rows.eof(); rows.moveNext())
      runs_.push_back({rows.text("scenariotxt"),
                       rows.value("scenariotxt_ac"),
                       rows.value("scnrotype"),
                       rows.text("scenariotxtUser"),
                       rows.value("QntyRels"),
                       rows.value("PoolRadiusRrsls")});
  });
  std::vector<std::string> names;
  for (auto run = runs_.rbegin(); run != runs_.rend(); ++run) names.push_back(run->scenariotxtUser);
  fields_.dspScnorlst_1.setEntries(names);
  if (!runs_.empty()) state_.scnrListLast = slotsPerRun * (static_cast<std::int32_t>(runs_.size()) - 1);
  skipping.step([&] { rows.moveFirst(); });
}

void RunList::dspScnorlst_1_DblClick() {
  const int entry = fields_.dspScnorlst_1.listIndex();
  const int position = static_cast<int>(runs_.size()) - 1 - entry;
  if (entry < 0 || position < 0) {
    state_.selectByUserText = 0;
    return;
  }
  const Run& run = runs_[static_cast<std::size_t>(position)];
  status_.clearFault();
  const Trap skipping = status_.skipping();
  takeScenario(run);
  state_.scnrText = fields_.scnrotxt.text();
  skipping.step([&] { links_.dt2a.refresh(); });
  standOnRow(run, skipping);
  skipping.step([&] { links_.dt2.refresh(); });
  takeScenario(run);  // a refresh that could not store it has shown the former scenario again
  takeInputs(skipping);
  state_.selectByUserText = 0;
  if (!status_.hasFault() && links_.dt2a.hasRow())
    status_.say("Run \"" + run.scenariotxtUser + "\" selected. Compute to see its results.");
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

void RunList::standOnRow(const Run& run, const Trap& skipping) {
  DataLink& row = links_.dt2a;
  const auto lookUp = [&](const std::string& name, std::int16_t byUserText) {
    state_.scnrUserText = name;
    state_.selectByUserText = byUserText;
    skipping.steps([&] { queries_.use(row, &Queries::buildQryRunByText, state_.qryRunByText); },
                   [&] { row.refresh(); });
  };
  lookUp(run.scenariotxtUser, 1);
  // Of several runs with the name, or none, it is the one of the entry.
  if (skipping.holds([&] { return row.recordCount() != 1; })) lookUp(run.scenariotxt, 0);
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
