#include "cli/run.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <ostream>
#include <set>
#include <sstream>

namespace noldarz {

namespace {

namespace fs = std::filesystem;

bool isScript(const RunRequest& request) {
  std::error_code error;
  return request.target == "-" || fs::is_regular_file(request.target, error);
}

/// Enters the folder in which the program starts; the script that was named stays the one of the caller's folder.
std::string enterStartFolder(const RunRequest& request, std::string& script) {
  if (script != "-") script = fs::absolute(script).string();
  const std::string folder = isScript(request) ? request.startFolder : request.target;
  std::error_code error;
  if (!folder.empty()) fs::current_path(folder, error);
  return error ? folder + ": no such folder" : "";
}

std::vector<std::string> items(const std::string& list) {
  std::vector<std::string> found;
  std::istringstream stream(list.empty() ? list : list + ',');
  for (std::string item; std::getline(stream, item, ',');) found.push_back(item);
  return found;
}

/// Why the numbers of a list can't be taken; empty when they can.
std::string faultOf(const char* option, const std::vector<std::string>& numbers, std::size_t count, bool gaps) {
  if (!numbers.empty() && numbers.size() != count)
    return fmt::format("{} takes {} numbers, not {}", option, count, numbers.size());
  for (const auto& number : numbers)
    if (!isNumeric(number) && !(gaps && number.empty())) return fmt::format("{}: \"{}\" is no number", option, number);
  return "";
}

void pressCompute(ScriptSession& session, const std::vector<std::string>& levels) {
  session.runLine("click comput");
  if (session.system().state().mgcDone != 1 || session.system().state().maxConcDone != 1) return;
  if (!session.system().runRow().takeStoredLevels()) session.runLine("click getconclvl");
  for (std::size_t i = 0; i < levels.size(); ++i)
    if (!levels[i].empty()) session.runLine(fmt::format("enter constn({}) \"{}\"", i, levels[i]));
  session.runLine("click comput");
}

/// Why the run is none; empty for a run.
std::string faultOf(System& system, bool ofStudy) {
  const RunState& state = system.state();
  if (state.mgcDone != 1 || state.maxConcDone != 1) return "no maximum ground concentration or no peak was found";
  const LevelFields& level = system.mainView().level;
  for (int i = 0; i < levelCount; ++i)
    if (level.bgnpt[i].text() == mark::inputError) return "the levels were refused; --levels gives others";
  if (!ofStudy || system.runRow().isStored()) return "";
  if (level.isoplngt[2].isNumeric() && level.isoplngt[2].number() > 0)
    return system.mainView().scenario.statuslbl.text();
  return "the results are not stored: the level " + level.conclbl[2].caption() + " is not complete";
}

}  // namespace

ExitStatus runAndReport(const RunRequest& request, const std::string& version, std::ostream& out, std::ostream& errors,
                        const Folders& folders) {
  const auto report = [&](const std::string& fault, ExitStatus status) {
    errors << request.target << ": " << fault << '\n';
    return status;
  };
  const auto levels = items(request.levels);
  const auto densities = items(request.densities);
  for (const auto& fault : {faultOf("--levels", levels, levelCount, true), faultOf("--density", densities, 5, false)})
    if (!fault.empty()) return report(fault, ExitStatus::refused);
  const bool ofStudy = !isScript(request);
  std::string script = request.target;
  if (const std::string fault = enterStartFolder(request, script); !fault.empty()) {
    errors << fault << '\n';
    return ExitStatus::refused;
  }
  Messages messages;
  ScriptSession session{[&](const Json& entry) {
                          if (entry.contains("box")) messages.add(entry["box"]);
                        },
                        folders};
  std::set<std::string> asked;
  if (request.answer)
    session.desktop().answerQuestions([&](const MessageBox& box) {
      const bool again = !asked.insert(box.text).second;
      return again && request.answer == Reply::yes ? box.defaultReply : *request.answer;
    });
  if (!ofStudy) {
    const ExitStatus status = runScriptFile(session, script, request.target, errors);
    if (status != ExitStatus::done) return status;
  } else {
    session.start();
    if (!session.system().study())
      return report(session.system().views().find("reqfrm")->find("reasonlbl")->caption(), ExitStatus::failed);
    pressCompute(session, levels);
  }
  Report printout = reportOf(session.system(), version, request.target, messages);
  const std::string fault = faultOf(session.system(), ofStudy);
  if (request.table) {
    if (fault.empty()) session.system().limitSearch().fillTable();
    printout.tables.push_back(probitTable(session.system().state(), densities));
  }
  out << printed(printout, request.format);
  if (ofStudy) session.runLine("close");
  return fault.empty() ? ExitStatus::done : report(fault, ExitStatus::failed);
}

}  // namespace noldarz
