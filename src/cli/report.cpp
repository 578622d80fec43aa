#include "cli/report.h"

#include <fmt/format.h>

#include <algorithm>

#include "cli/record_json.h"
#include "cli/script.h"
#include "engine/close_out.h"
#include "engine/model_inputs.h"
#include "platform/visible_text.h"
#include "toxic/absolute_numbers.h"

namespace noldarz {

namespace {

std::string trimmed(const std::string& text) { return text.substr(std::min(text.find_first_not_of(' '), text.size())); }

ReportItem item(const Field& field, std::string label, std::string unit = "") {
  return {field.name(), std::move(label), field.text(), std::move(unit)};
}

/// A check field, whose text is its caption, by its value.
ReportItem choice(const Field& field, std::string label) {
  return {field.name(), std::move(label), field.value() == 1 ? "1" : "0", ""};
}

ReportSection study(const MainView& main, const RunState& state) {
  return {"study",
          "Study",
          {item(main.project.Orglbltxt, "Organisation"),
           item(main.project.refnolbl, "Reference number"),
           {main.project.chmnmelbl.name(), "Chemical", state.chemName, ""},
           item(main.project.scnrotxt, "Scenario"),
           item(main.project.scnrotxtlbl, "Run")}};
}

ReportSection inputs(const MainView& main, bool puff, const std::string& limitsFrom) {
  const ScenarioInputs& in = main.in;
  ReportSection section{"inputs",
                        "Inputs",
                        {item(in.scnrotypetxt, "Release type"),
                         item(in.QntyRelstxt, puff ? "Quantity released" : "Rate of release", puff ? "kg" : "kg/s"),
                         item(in.PoolRadiusRrslstxt, "Pool radius", "m"),
                         item(in.molwttxt, "Molecular weight", "g/mol"),
                         item(in.vapordnstytxt, "Vapour density, air = 1"),
                         item(in.tempStore, "Temperature of release", "deg C"),
                         item(in.htreltxt, "Height of release", "m"),
                         item(in.htsmul, "Height of simulation, Z axis", "m"),
                         item(in.enddisttxt, "Max. distance for simulation", "m"),
                         item(in.stblclscbo, "Stability class"),
                         item(in.roghwndoptcbo, "Terrain"),
                         item(in.wndveltxt, "Wind velocity", "m/s"),
                         choice(in.prbtoptn, "Probit constants by software"),
                         item(in.avalftl, "Probit fatality A"),
                         item(in.nvalftl, "Probit fatality B"),
                         item(in.avalinj, "Probit injury A"),
                         item(in.nvalinj, "Probit injury B"),
                         item(in.hudityTxt, "Relative humidity", "%"),
                         choice(in.MaxFtlyDstOptn, "Limits by probit equation"),
                         {"limitsFrom", "Limits chosen by", limitsFrom, ""}}};
  for (int i = 0; i < in.Givnwnd.size(); ++i)
    section.items.push_back(item(in.Givnwnd[i], "Wind " + trimmed(main.in.wndlbl1[i].caption()), "%"));
  return section;
}

ReportSection results(const MainView& main, bool puff) {
  const ResultFields& result = main.result;
  return {"results",
          "Results",
          {item(result.wndvel, "Modified wind velocity", "m/s"),
           item(result.mgctxt, "Maximum ground concentration (MGC)", "ppm"),
           item(result.distconctxt, "MGC distance", "m"),
           item(result.constn1, "Maximum isopleth concentration", "ppm"),
           item(result.maxdistconctxt, "Distance of the peak", "m"),
           item(result.expmass, "Flammable mass for VCE", result.expmass.isNumeric() ? "lbm" : ""),
           item(result.tmestbltxt,
                puff ? "Time for puff dispersion to end" : "Time of stabilization",
                result.tmeunitlbl.text()),
           item(main.toxic.FatatyDistDsplyLbl, ""),
           item(main.toxic.InjuryDistDsplyLbl, ""),
           {"limitsNote", "", main.scenario.resultnotelbl.text(), ""}}};
}

ReportTable isopleths(const LevelFields& level) {
  const struct {
    const FieldArray<levelCount>& fields;
    const char* key;
    const char* label;
    const char* unit;
  } columns[] = {{level.conclbl, "conclbl", "Level", ""},
                 {level.constn, "constn", "Conc.", "ppm"},
                 {level.bgnpt, "bgnpt", "Begin", "m"},
                 {level.endpt, "endpt", "End", "m"},
                 {level.isoplngt, "isoplngt", "Length", "m"},
                 {level.isopwdth, "isopwdth", "Width", "m"},
                 {level.distmaxisop, "distmaxisop", "at", "m"},
                 {level.isopang, "isopang", "Angle", "deg"},
                 {level.isoparea, "isoparea", "Area", "Ha"}};
  ReportTable table{"isopleths", "Isopleths", {}, std::vector<std::vector<std::string>>(levelCount), 1};
  for (const auto& [fields, key, label, unit] : columns) {
    table.columns.push_back({key, label, "", unit});
    for (int i = 0; i < levelCount; ++i) table.rows[static_cast<std::size_t>(i)].push_back(fields[i].text());
  }
  return table;
}

/// "  name            text unit"; an item without a label is a sentence.
std::string line(const ReportItem& item) {
  const std::string shown = visibleText(item.text);
  if (item.label.empty()) return shown.empty() ? "" : "  " + shown + '\n';
  const std::string unit = item.unit.empty() || item.text.empty() ? "" : " " + item.unit;
  std::string text = fmt::format("  {:<34}{:>12}{}", item.label, shown, unit);
  text.erase(text.find_last_not_of(' ') + 1);
  return text + '\n';
}

std::string lines(const ReportTable& table) {
  std::vector<std::string> page(table.rows.size() + 2);
  for (std::size_t column = 0; column < table.columns.size(); ++column) {
    std::vector<std::string> cells{table.columns[column].label, table.columns[column].unit};
    for (const auto& row : table.rows) cells.push_back(visibleText(row[column]));
    std::size_t width = 0;
    for (const auto& cell : cells) width = std::max(width, cell.size());
    const bool words = column < table.wordColumns;
    for (std::size_t i = 0; i < page.size(); ++i)
      page[i] += words ? fmt::format("  {:<{}}", cells[i], width) : fmt::format("  {:>{}}", cells[i], width);
  }
  std::string text;
  for (auto& row : page) {
    row.erase(row.find_last_not_of(' ') + 1);
    text += row + '\n';
  }
  return text;
}

/// A message with the reply to a question and how often it came.
std::string messageText(const BoxShown& shown, int count) {
  std::string text = shown.box.text;
  if (shown.box.buttons == Buttons::yesNo) text += fmt::format(" [{}]", shown.reply);
  return count > 1 ? text + fmt::format(" ({} times)", count) : text;
}

std::string withLineBreaks(std::string text, std::string_view lineBreak) {
  for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += lineBreak.size())
    text.replace(at, 1, lineBreak);
  return text;
}

std::string page(const Report& report) {
  std::string text =
      fmt::format("NOLDA-RZ {}, model revision {}: {}\n", report.version, modelRevision, visibleText(report.source));
  for (const ReportSection& section : report.sections) {
    text += '\n' + section.title + '\n';
    for (const ReportItem& item : section.items) text += line(item);
  }
  for (const ReportTable& table : report.tables) text += '\n' + table.title + '\n' + lines(table);
  if (!report.messages.counted().empty()) text += "\nMessages\n";
  for (const auto& [box, count] : report.messages.counted())
    text += "  - " + withLineBreaks(visibleText(messageText(box, count), "\n"), "\n    ") + '\n';
  if (!report.status.empty()) text += '\n' + visibleText(report.status) + '\n';
  return text;
}

Json json(const Report& report) {
  Json object{{"program", "NOLDA-RZ"},
              {"version", report.version},
              {"modelRevision", modelRevision},
              {"source", report.source}};
  Json units = Json::object();
  const auto note = [&units](const ReportItem& item) {
    if (!item.unit.empty()) units[item.key] = item.unit;
  };
  for (const ReportSection& section : report.sections)
    for (const ReportItem& item : section.items) {
      object[section.key][item.key] = item.text;
      note(item);
    }
  for (const ReportTable& table : report.tables) {
    std::for_each(table.columns.begin(), table.columns.end(), note);
    for (const auto& row : table.rows) {
      Json& cells = object[table.key].emplace_back(Json::object());
      for (std::size_t i = 0; i < row.size(); ++i) cells[table.columns[i].key] = row[i];
    }
  }
  object["units"] = units;
  object["messages"] = Json::array();
  for (const auto& [box, count] : report.messages.counted()) {
    Json message = boxJson(box);
    message["count"] = count;
    object["messages"].push_back(message);
  }
  object["status"] = report.status;
  return object;
}

/// A cell of a table of comma-separated values; one that a spreadsheet would take for a formula begins with an
/// apostrophe.
std::string quoted(const std::string& raw) {
  const bool formula = !raw.empty() && std::string_view{"=+-@\t\r"}.find(raw.front()) != std::string_view::npos;
  std::string cell = (formula && !isNumeric(raw) ? "'" : "") + visibleText(raw);
  if (cell.find_first_of(",\"") == std::string::npos) return cell;
  std::string text = "\"";
  for (const char c : cell) text += c == '"' ? std::string{"\"\""} : std::string{c};
  return text + '"';
}

/// A line of names and one of texts, so that the lines of many runs make one table.
std::string csv(const Report& report) {
  std::string head = "version,modelRevision,source";
  std::string row = fmt::format("{},{},{}", quoted(report.version), modelRevision, quoted(report.source));
  const auto add = [&](const std::string& key, const std::string& text) {
    head += "," + quoted(key);
    row += "," + quoted(text);
  };
  for (const ReportSection& section : report.sections)
    for (const ReportItem& item : section.items) add(item.key, item.text);
  for (const ReportTable& table : report.tables)
    for (std::size_t i = 0; i < table.rows.size(); ++i)
      for (std::size_t column = 0; column < table.columns.size(); ++column)
        add(fmt::format("{}({})", table.columns[column].key, i), table.rows[i][column]);
  std::string messages;
  for (const auto& [box, count] : report.messages.counted())
    messages += (messages.empty() ? "" : " | ") + withLineBreaks(messageText(box, count), " ");
  add("messages", messages);
  add("status", report.status);
  return head + '\n' + row + '\n';
}

}  // namespace

void Messages::add(const BoxShown& box) {
  const auto known = std::find_if(counted_.begin(), counted_.end(), [&](const auto& c) { return c.first == box; });
  if (known == counted_.end())
    counted_.emplace_back(box, 1);
  else
    ++known->second;
}

ReportTable probitTable(const RunState& state, const std::vector<std::string>& densities) {
  ReportTable table{"probitTable",
                    "Fatality and injury",
                    {{"distance", "Distance", "", "m"},
                     {"pctFtl", "Fatality", "", "%"},
                     {"pctInj", "Injury", "", "%"},
                     {"areaHa", "Area", "", "Ha"},
                     {"concRow", "Conc.", "", "ppm"},
                     {"doseRow", "Dose", "", "mg"}},
                    {}};
  RingDensities density;
  std::copy(densities.begin(), densities.end(), density.begin());
  if (!densities.empty()) {
    table.columns.push_back({"Absftltxt", "Fatality No.", "", ""});
    table.columns.push_back({"AbsInjtxt", "Injury No.", "", ""});
  }
  for (std::size_t row = 0; row < tableRows; ++row) {
    RowTexts cells;
    for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = cellText(state.prbtTable.at(row * rowCells + i));
    auto& texts = table.rows.emplace_back(cells.begin(), cells.end());
    if (densities.empty()) continue;
    std::string dead;
    std::string hurt;
    absRow(cells, density, dead, hurt);
    texts.insert(texts.end(), {dead, hurt});
  }
  return table;
}

Report reportOf(System& system, std::string version, std::string source, Messages messages,
                const std::string& limitsFrom) {
  const MainView& main = system.mainView();
  const RunState& state = system.state();
  const bool puff = main.in.scnrotypetxt.wordIndex(releaseTypes) == static_cast<int>(Release::puff);
  Report report{std::move(version), std::move(source), {}, {}, std::move(messages), ""};
  if (system.study()) {
    report.sections.push_back(study(main, state));
    report.status = system.status().happened();
  }
  report.sections.push_back(inputs(main, puff, limitsFrom));
  report.sections.push_back(results(main, puff));
  report.tables.push_back(isopleths(main.level));
  return report;
}

std::string printed(const Report& report, ReportFormat format) {
  switch (format) {
    case ReportFormat::json: return jsonLine(json(report));
    case ReportFormat::csv: return csv(report);
    default: return page(report);
  }
}

}  // namespace noldarz
