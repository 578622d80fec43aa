// A study in a folder of its own, and a program started on it.
#pragma once

#include <sstream>
#include <string>

#include "cli/study.h"
#include "platform/store/recordset.h"
#include "study/layout.h"
#include "support/record.h"
#include "support/test_folder.h"
#include "support/test_system.h"

namespace noldarz::test {

/// The text of an example study ("chlorine"), with texts in it replaced.
inline std::string exampleStudy(const std::string& name,
                                const std::vector<std::pair<std::string, std::string>>& replaced = {}) {
  std::string text = readFile(NOLDARZ_SOURCE_DIR "/examples/studies/" + name + ".toml");
  for (const auto& [from, to] : replaced) {
    const auto at = text.find(from);
    if (at == std::string::npos) throw std::logic_error("the example has no " + from);
    text.replace(at, from.size(), to);
  }
  return text;
}

/// Makes the study; returns what was reported, empty when it was made.
inline std::string makeStudy(const fs::path& file, const std::string& text) {
  const fs::path source = file.string() + ".toml";
  writeFile(source, text);
  std::ostringstream errors;
  createStudy(file, source, true, errors);
  fs::remove(source);
  return errors.str();
}

/// The program on a study of its own, not started yet.
class TestStudy {
 public:
  explicit TestStudy(const std::string& text = exampleStudy("chlorine")) {
    if (const std::string fault = makeStudy(folder.study(), text); !fault.empty()) throw std::logic_error(fault);
    open();
  }

  /// Another life of the program on the same study.
  void open() {
    session.reset();
    fs::current_path(folder / "start");
    session = std::make_unique<ScriptSession>(record.taker(), folder.folders());
  }
  void run(const std::string& lines) {
    std::istringstream stream(lines);
    std::ostringstream errors;
    if (runScript(*session, stream, "test", errors) != ExitStatus::done) throw std::logic_error(errors.str());
  }
  /// NAME of the main view, or VIEW.NAME.
  Field& field(const std::string& name) {
    const auto point = name.find('.');
    View* view = point == std::string::npos ? &session->system().mainView().view : viewNamed(name.substr(0, point));
    Field* found = view ? view->find(name.substr(point + 1)) : nullptr;
    if (!found) throw std::logic_error("no field " + name);
    return *found;
  }
  View* viewNamed(const std::string& name) { return session->system().views().find(name); }
  std::string text(const std::string& name) { return field(name).text(); }
  /// Visible views, the one in front last.
  std::string views() {
    std::string names;
    for (const View* view : session->system().views().open())
      if (view->visible()) names += (names.empty() ? "" : " ") + view->name();
    return names;
  }
  /// What has happened, without advice.
  std::string status() { return session->system().status().happened(); }
  const RunState& state() { return session->system().state(); }

  /// The cells that a query finds, "a|b" a row, read beside the running program.
  std::vector<std::string> rows(const std::string& query) {
    Recordset found{std::make_shared<Database>(folder.study(), studyLayout()), query};
    std::vector<std::string> lines;
    for (; !found.eof(); found.moveNext()) {
      std::string line;
      for (int i = 0; i < static_cast<int>(found.columns().size()); ++i)
        line += (i == 0 ? "" : "|") + textOf(found.value(i));
      lines.push_back(line);
    }
    return lines;
  }
  std::vector<std::string> runs() {
    return rows("SELECT scenariotxt, scenariotxtUser, StblClas FROM maimTbl4All ORDER BY rowid");
  }
  void execute(const std::string& statements) const { changeFromOutside(folder.study(), statements); }

  TestFolder folder;
  Record record;
  std::unique_ptr<ScriptSession> session;
};

/// The two presses, with the levels of the chlorine example.
inline void compute(TestStudy& study) {
  study.run(R"(
click comput
enter constn(0) 1000
enter constn(1) 100
enter constn(2) 20
enter constn(3) 2
enter constn(4) 0.5
enter constn(5) 0.25
click comput
)");
}

}  // namespace noldarz::test
