#include "cli/script.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <utility>

#include "cli/commands.h"
#include "cli/record_json.h"
#include "cli/script_error.h"
#include "cli/words.h"
#include "platform/text.h"
#include "platform/visible_text.h"

namespace noldarz {

namespace {

constexpr std::string_view unreadable = "the file can't be read";
constexpr int unfolded = 99;  // boxes in a row

ExitStatus refuse(ScriptSession& session, const std::string& name, int line, std::string_view text,
                  std::ostream& errors) {
  session.print(dumped({{"error", {{"line", line}, {"text", text}}}}));
  errors << visibleText(fmt::format("{}:{}: {}", name, line, text)) << '\n';
  return ExitStatus::refused;
}

}  // namespace

ScriptSession::ScriptSession(TakeEntry record, Folders folders)
    : record_(std::move(record)),
      folders_(std::move(folders)),
      startFolder_(std::filesystem::current_path()),
      desktop_(record_),
      cad_(desktop_, [this] { return namedConverter(folders_); }) {
  makeSystem();
  system_->mainView().view.show();
  paint();
}

void ScriptSession::makeSystem() {
  desktop_.forgetFields();
  system_ = std::make_unique<System>(desktop_, cad_, folders_);
  for (const auto& [key, value] : presets_) system_->settings().preset(key[0], key[1], key[2], value);
  desktop_.watchTimers(system_->views());
}

void ScriptSession::start() {
  if (started_ && !ended()) throw ScriptError("the system runs already; close it first");
  std::error_code error;
  std::filesystem::current_path(startFolder_, error);
  if (error) throw ScriptError(startFolder_.string() + " is no folder to start in");
  makeSystem();
  started_ = true;
  system_->start();
  desktop_.runTimers({});
}

void ScriptSession::paint() {
  const auto open = system_->views().open();  // a copy: a rule may open or close a view
  for (View* view : open)
    if (view->visible() && view->isPaintDue()) view->paint();
}

void ScriptSession::runLine(std::string_view line) try {
  const auto words = splitWords(line);
  if (words.empty()) return;
  if (!std::all_of(words.begin(), words.end(), isPlainText)) throw ScriptError("a word is no text in UTF-8");
  runCommand(*this, words);
  paint();
} catch (const RuntimeFailure& failure) {
  throw ScriptError(failure.what());
}

ExitStatus runScript(ScriptSession& session, std::istream& lines, const std::string& name, std::ostream& errors) {
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) try {
      session.runLine(line);
    } catch (const ScriptError& error) {
      return refuse(session, name, number, error.what(), errors);
    }
  return lines.bad() ? refuse(session, name, 0, unreadable, errors) : ExitStatus::done;
}

ExitStatus runScriptFile(ScriptSession& session, const std::string& file, const std::string& name,
                         std::ostream& errors) {
  if (file == "-") return runScript(session, std::cin, name, errors);
  std::error_code error;
  std::ifstream lines;
  if (!std::filesystem::is_directory(file, error)) lines.open(file);
  return lines.is_open() ? runScript(session, lines, name, errors) : refuse(session, name, 0, unreadable, errors);
}

void FoldedBoxes::Run::take(const RecordEntry& entry) {
  const auto* box = std::get_if<BoxShown>(&entry);
  if (!box || times_ == 0 || *box != last_) end();
  if (box) {
    last_ = *box;
    ++times_;
  }
  if (times_ <= unfolded) record_(entry);
}

void FoldedBoxes::Run::end() {
  if (const int folded = std::exchange(times_, 0) - unfolded; folded > 0) {
    last_.times = folded;
    record_(last_);
  }
}

}  // namespace noldarz
