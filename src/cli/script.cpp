#include "cli/script.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <utility>

#include "cli/commands.h"
#include "cli/words.h"

namespace noldarz {

ScriptSession::ScriptSession(ScriptedDesktop::Record record)
    : record_(std::move(record)), desktop_(record_), system_(desktop_) {
  system_.mainView().view.show();
}

void ScriptSession::runLine(std::string_view line) {
  if (const auto words = splitWords(line); !words.empty()) runCommand(*this, words);
}

ExitStatus runScript(ScriptSession& session, std::istream& lines, const std::string& name, std::ostream& errors) {
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) try {
      session.runLine(line);
    } catch (const ScriptError& error) {
      session.print({{"error", {{"line", number}, {"text", error.what()}}}});
      errors << name << ':' << number << ": " << error.what() << '\n';
      return ExitStatus::refused;
    }
  if (!lines.bad()) return ExitStatus::done;
  errors << name << ": the file can't be read\n";
  return ExitStatus::refused;
}

ExitStatus runScriptFile(ScriptSession& session, const std::string& file, std::ostream& errors) {
  if (file == "-") return runScript(session, std::cin, file, errors);
  std::error_code error;
  std::ifstream lines;
  if (std::filesystem::is_directory(file, error) || (lines.open(file), !lines)) {
    errors << file << ": the file can't be read\n";
    return ExitStatus::refused;
  }
  return runScript(session, lines, file, errors);
}

std::string jsonLine(const Json& object) { return object.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n'; }

}  // namespace noldarz
