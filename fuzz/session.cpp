#include <array>
#include <iterator>
#include <sstream>

#include "cli/script.h"
#include "cli/script_error.h"
#include "cli/study.h"
#include "platform/store/recordset.h"
#include "support/figures.h"
#include "targets.h"

namespace noldarz::fuzz {

namespace {

/// A fresh study in data/ beside the folder start/.
void laySiteDown() {
  static const bool made = [] {
    std::ostringstream errors;
    fs::create_directories(scratch() / "data");
    fs::create_directories(scratch() / "start");
    createStudy(scratch() / "fresh.mdb", NOLDARZ_SOURCE_DIR "/examples/studies/lpg.toml", true, errors);
    demand(errors.str().empty(), errors.str());
    return true;
  }();
  static_cast<void>(made);
  fs::remove_all(scratch() / "data");
  fs::create_directories(scratch() / "data");
  fs::copy_file(scratch() / "fresh.mdb", scratch() / "data/orgtn.mdb");
  fs::current_path(scratch() / "start");
}

std::string quoted(const std::string& text) {
  std::string quotedText = "\"";
  for (const char c : text) {
    if (c == '\n') continue;
    if (c == '"' || c == '\\') quotedText += '\\';
    quotedText += c;
  }
  return quotedText + '"';
}

/// What a user may do next.
std::string anyAction(Chance& chance, View& view) {
  static const std::array plausible{
      "1", "10", "0.5", "2000", "95000", "21000", "14000", "1000", "D", "F", "Rural", "Night", "12.5"};
  Field& field = view.fields()[chance.below(view.fields().size())];
  const std::string& name = field.name();
  switch (field.kind()) {
    case FieldKind::text:
      return "enter " + name + " " + quoted(chance.once(3) ? anyText(chance) : chance.oneOf(plausible));
    case FieldKind::combo:
      if (chance.once(4) || field.entries().empty()) return "enter " + name + " " + quoted(anyText(chance));
      return "choose " + name + " " + quoted(chance.oneOf(field.entries()));
    case FieldKind::timer: return "wait 300";
    case FieldKind::list: return (chance.once(2) ? "dblclick " : "choose ") + name + (chance.once(2) ? "" : " #0");
    default: return (chance.once(5) ? "dblclick " : "click ") + name;
  }
}

bool sameFigure(const std::string& cell, const std::string& text) {
  return isNumeric(cell) && isNumeric(text) ? strictNumber(cell) == strictNumber(text) : cell == text;
}

/// A press that says so has stored what the fields show.
void expectStored(System& system) {
  const LevelFields& level = system.mainView().level;
  const std::string& done = system.mainView().command.comput.caption();
  const bool stored = done == "Results at given concentration" || done == "Concentration distances computed.";
  if (!stored || !system.mainView().scenario.statuslbl.caption().starts_with("Results stored")) return;
  Recordset rows{system.study(), "SELECT * FROM maimTbl4All"};
  for (; !rows.eof(); rows.moveNext()) {
    bool same = true;
    for (int i = 0; i < levelCount; ++i)
      same = same && sameFigure(textOf(rows.value("endptn" + std::to_string(i))), level.endpt[i].text()) &&
             sameFigure(textOf(rows.value("bgnptn" + std::to_string(i))), level.bgnpt[i].text());
    if (same) return;
  }
  demand(false, "no row holds the results");
}

}  // namespace

void useProgram(Chance& chance) {
  laySiteDown();
  ScriptSession session{[](const RecordEntry&) {}, Folders{scratch() / "start", scratch(), scratch()}};
  session.desktop().answerQuestions([&](const MessageBox&) { return chance.once(3) ? Reply::yes : Reply::no; });
  session.runLine("start");
  View& view = session.system().mainView().view;
  int presses = 0;
  for (std::size_t count = 10 + chance.below(40); count > 0 && view.loaded(); --count) {
    const bool press = chance.once(8);
    if (press && ++presses > 6) break;
    const std::string line = press ? "click comput" : chance.once(12) ? "click getconclvl" : anyAction(chance, view);
    if (line.starts_with("click exit") && !chance.once(10)) continue;
    try {
      session.runLine(line);
      if (line == "click comput") expectStored(session.system());
    } catch (const ScriptError&) {  // the screen would not let him
    }
    const std::string fault = faultOfFigures(view);
    demand(fault.empty(), fault);
  }
  if (view.loaded()) view.close();
  std::ostringstream out;
  std::ostringstream errors;
  demand(checkStudy(scratch() / "data/orgtn.mdb", out, errors) == ExitStatus::done, "the study: " + errors.str());
}

}  // namespace noldarz::fuzz
