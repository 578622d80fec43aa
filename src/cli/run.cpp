#include "cli/run.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <ostream>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/plume_model.h"

namespace noldarz {

namespace {

using Line = std::back_insert_iterator<std::string>;

/// "  name ........ text unit"
void item(Line out, std::string_view name, const Field& field, std::string_view unit = "") {
  fmt::format_to(out, "  {:<34}{:>12} {}", name, field.text(), unit);
}

void line(std::string& page, std::string_view name, const Field& field, std::string_view unit = "") {
  item(std::back_inserter(page), name, field, unit);
  page.erase(page.find_last_not_of(' ') + 1);
  page += '\n';
}

void inputs(std::string& page, const ScenarioInputs& in, bool puff) {
  page += "Inputs\n";
  line(page, "Release type", in.scnrotypetxt);
  line(page, puff ? "Quantity released" : "Rate of release", in.QntyRelstxt, puff ? "kg" : "kg/s");
  line(page, "Molecular weight", in.molwttxt, "g/mol");
  line(page, "Vapour density, air = 1", in.vapordnstytxt);
  line(page, "Temperature of release", in.tempStore, "deg C");
  line(page, "Height of release", in.htreltxt, "m");
  line(page, "Height of simulation, Z axis", in.htsmul, "m");
  line(page, "Max. distance for simulation", in.enddisttxt, "m");
  line(page, "Stability class", in.stblclscbo);
  line(page, "Terrain", in.roghwndoptcbo);
  line(page, "Wind velocity", in.wndveltxt, "m/s");
}

void results(std::string& page, const ResultFields& result) {
  page += "\nResults\n";
  line(page, "Modified wind velocity", result.wndvel, "m/s");
  line(page, "Maximum ground concentration (MGC)", result.mgctxt, "ppm");
  line(page, "MGC distance", result.distconctxt, "m");
  line(page, "Maximum isopleth concentration", result.constn1, "ppm");
  line(page, "Distance of the peak", result.maxdistconctxt, "m");
  line(page, "Flammable mass for VCE", result.expmass, "lbm");
  if (!result.tmestbllbl.caption().empty())
    page += fmt::format("  {}: {}\n", result.tmestbllbl.caption(), result.tmestbltxt.caption());
}

struct Column {
  std::string_view head;
  std::string_view unit;
  const FieldArray<levelCount>& fields;
};

void isopleths(std::string& page, const LevelFields& level) {
  const std::vector<Column> columns{
      {"Level", "", level.conclbl},   {"Conc.", "ppm", level.constn},  {"Begin", "m", level.bgnpt},
      {"End", "m", level.endpt},      {"Length", "m", level.isoplngt}, {"Width", "m", level.isopwdth},
      {"at", "m", level.distmaxisop}, {"Angle", "deg", level.isopang}, {"Area", "Ha", level.isoparea}};
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

}  // namespace

ExitStatus runAndReport(const std::string& file, const std::string& version, std::ostream& out, std::ostream& errors) {
  Messages messages;
  ScriptSession session{[&](const Json& entry) {
    if (entry.contains("box")) messages.add(entry["box"]);
  }};
  const ExitStatus status = runScriptFile(session, file, file, errors);
  if (status != ExitStatus::done) return status;
  const MainView& main = session.system().mainView();
  const bool puff = main.in.scnrotypetxt.wordIndex(releaseTypes) == static_cast<int>(Release::puff);
  std::string page = fmt::format("NOLDA-RZ {}, model revision {}: {}\n\n", version, modelRevision, file);
  inputs(page, main.in, puff);
  results(page, main.result);
  isopleths(page, main.level);
  messages.print(page);
  out << page;
  return ExitStatus::done;
}

}  // namespace noldarz
