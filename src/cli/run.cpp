#include "cli/run.h"

#include <fmt/format.h>

#include <algorithm>
#include <ostream>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/close_out.h"
#include "engine/plume_model.h"

namespace noldarz {

namespace {

/// "  name            text unit"
void line(std::string& page, std::string_view name, std::string_view text, std::string_view unit = "") {
  page += fmt::format("  {:<34}{:>12}{}{}\n", name, text, unit.empty() ? "" : " ", unit);
}

void inputs(std::string& page, const ScenarioInputs& in, bool puff) {
  page += "Inputs\n";
  line(page, "Release type", in.scnrotypetxt.text());
  line(page, puff ? "Quantity released" : "Rate of release", in.QntyRelstxt.text(), puff ? "kg" : "kg/s");
  line(page, "Molecular weight", in.molwttxt.text(), "g/mol");
  line(page, "Vapour density, air = 1", in.vapordnstytxt.text());
  line(page, "Temperature of release", in.tempStore.text(), "deg C");
  line(page, "Height of release", in.htreltxt.text(), "m");
  line(page, "Height of simulation, Z axis", in.htsmul.text(), "m");
  line(page, "Max. distance for simulation", in.enddisttxt.text(), "m");
  line(page, "Stability class", in.stblclscbo.text());
  line(page, "Terrain", in.roghwndoptcbo.text());
  line(page, "Wind velocity", in.wndveltxt.text(), "m/s");
}

/// The unit in which the time of stabilization stands in its field; empty when there was no end point to work it out.
std::string_view stabilizationUnit(const MainView& main, const RunState& state) {
  const Field& end = main.level.endpt[levelCount - 1];
  if (!end.isNumeric() || !(state.windAtHeight > 0) || state.firstPass != 0) return "";
  return scaledTime(end.number() / state.windAtHeight).unit;
}

void results(std::string& page, const ResultFields& result, bool puff, std::string_view timeUnit) {
  page += "\nResults\n";
  line(page, "Modified wind velocity", result.wndvel.text(), "m/s");
  line(page, "Maximum ground concentration (MGC)", result.mgctxt.text(), "ppm");
  line(page, "MGC distance", result.distconctxt.text(), "m");
  line(page, "Maximum isopleth concentration", result.constn1.text(), "ppm");
  line(page, "Distance of the peak", result.maxdistconctxt.text(), "m");
  line(page, "Flammable mass for VCE", result.expmass.text(), result.expmass.isNumeric() ? "lbm" : "");
  line(page, puff ? "Time for puff dispersion to end" : "Time of stabilization", result.tmestbltxt.text(), timeUnit);
}

struct Column {
  std::string_view head;
  std::string_view unit;
  const FieldArray<levelCount>& fields;
};

void isopleths(std::string& page, const LevelFields& level) {
  const std::vector<Column> columns{{"Level", "", level.conclbl},
                                    {"Conc.", "ppm", level.constn},
                                    {"Begin", "m", level.bgnpt},
                                    {"End", "m", level.endpt},
                                    {"Length", "m", level.isoplngt},
                                    {"Width", "m", level.isopwdth},
                                    {"at", "m", level.distmaxisop},
                                    {"Angle", "deg", level.isopang},
                                    {"Area", "Ha", level.isoparea}};
  std::vector<std::string> rows(levelCount + 2);
  for (const Column& column : columns) {
    std::vector<std::string_view> cells{column.head, column.unit};
    for (int i = 0; i < levelCount; ++i) cells.push_back(column.fields[i].text());
    std::size_t width = 0;
    for (const auto cell : cells) width = std::max(width, cell.size());
    const bool first = &column == &columns.front();
    for (std::size_t i = 0; i < rows.size(); ++i)
      rows[i] += first ? fmt::format("  {:<{}}", cells[i], width) : fmt::format("  {:>{}}", cells[i], width);
  }
  page += "\nIsopleths\n";
  for (auto& row : rows) {
    row.erase(row.find_last_not_of(' ') + 1);
    page += row + '\n';
  }
}

/// A message as an item of a list, later lines indented.
std::string messageItem(const Json& box) {
  std::string text = box["text"];
  for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 5) text.replace(at, 1, "\n    ");
  if (box["buttons"] == "yesno") text += fmt::format(" [{}]", box["reply"].get<std::string>());
  return "  - " + text;
}

/// The boxes of a run, each said once and counted: a failing statement can show one at every step of a sweep.
class Messages {
 public:
  void add(const Json& box) {
    const auto known = std::find_if(counted_.begin(), counted_.end(), [&](const auto& c) { return c.first == box; });
    if (known == counted_.end())
      counted_.emplace_back(box, 1);
    else
      ++known->second;
  }
  void print(std::string& page) const {
    if (!counted_.empty()) page += "\nMessages\n";
    for (const auto& [box, count] : counted_)
      page += messageItem(box) + (count > 1 ? fmt::format(" ({} times)\n", count) : "\n");
  }

 private:
  std::vector<std::pair<Json, int>> counted_;  // in the order of their first appearance
};

/// Why the run is none; empty for a run.
std::string_view faultOf(System& system) {
  if (system.state().mgcDone != 1 || system.state().maxConcDone != 1)
    return "no maximum ground concentration or no peak was found";
  const LevelFields& level = system.mainView().level;
  for (int i = 0; i < levelCount; ++i)
    if (level.bgnpt[i].text() == mark::inputError) return "the levels were refused";
  return "";
}

}  // namespace

ExitStatus runAndReport(const std::string& file, const std::string& name, const std::string& version, std::ostream& out,
                        std::ostream& errors) {
  Messages messages;
  ScriptSession session{[&](const Json& entry) {
    if (entry.contains("box")) messages.add(entry["box"]);
  }};
  const ExitStatus status = runScriptFile(session, file, name, errors);
  if (status != ExitStatus::done) return status;
  const MainView& main = session.system().mainView();
  const bool puff = main.in.scnrotypetxt.wordIndex(releaseTypes) == static_cast<int>(Release::puff);
  std::string page = fmt::format("NOLDA-RZ {}, model revision {}: {}\n\n", version, modelRevision, name);
  inputs(page, main.in, puff);
  results(page, main.result, puff, stabilizationUnit(main, session.system().state()));
  isopleths(page, main.level);
  messages.print(page);
  out << page;
  const std::string_view fault = faultOf(session.system());
  if (fault.empty()) return ExitStatus::done;
  errors << name << ": " << fault << '\n';
  return ExitStatus::failed;
}

}  // namespace noldarz
