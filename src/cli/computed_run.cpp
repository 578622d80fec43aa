#include "cli/computed_run.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <ostream>
#include <set>
#include <sstream>
#include <stdexcept>

#include "platform/visible_text.h"
#include "toxic/distance_limits.h"

namespace noldarz {

namespace fs = std::filesystem;

std::vector<std::string> itemsOf(const std::string& list) {
  std::vector<std::string> found;
  std::istringstream stream(list.empty() ? list : list + ',');
  for (std::string item; std::getline(stream, item, ',');) found.push_back(item);
  return found;
}

std::string faultOfList(const char* option, const std::vector<std::string>& numbers, std::size_t count, Gaps gaps) {
  if (!numbers.empty() && numbers.size() != count)
    return fmt::format("{} takes {} numbers, not {}", option, count, numbers.size());
  for (const auto& number : numbers)
    if (!isNumeric(number) && !(gaps == Gaps::allowed && number.empty()))
      return fmt::format("{}: \"{}\" is no number", option, number);
  return "";
}

bool isScript(const RunTarget& request) {
  std::error_code error;
  return request.target == "-" || fs::is_regular_file(request.target, error);
}

namespace {

/// Why the request can't be taken; empty when it can.
std::string refusal(const RunTarget& request) {
  const bool ofStudy = !isScript(request);
  if (ofStudy && !request.startFolder.empty()) return "--start goes with a script";
  if (!ofStudy && !request.levels.empty()) return "--levels goes with a study";
  if (!ofStudy && request.limits) return "--limits goes with a study";
  return faultOfList("--levels", itemsOf(request.levels), levelCount, Gaps::allowed);
}

/// Enters the folder in which the program starts. Empty, or why not.
std::string enterStartFolder(const RunTarget& request) {
  const bool ofStudy = !isScript(request);
  const std::string& folder = ofStudy ? request.target : request.startFolder;
  std::error_code error;
  if (!folder.empty()) fs::current_path(folder, error);
  if (!error) return "";
  return folder + (ofStudy ? ": no such folder or script" : ": no such folder");
}

/// Each question takes the reply of the request, if there is one.
void prepareAnswers(ScriptedDesktop& desktop, const RunTarget& request) {
  if (!request.answer) return;
  desktop.answerQuestions([answer = *request.answer, asked = std::set<std::string>{}](const MessageBox& box) mutable {
    const bool again = !asked.insert(box.text).second;
    return again && answer == Reply::yes ? box.defaultReply : answer;
  });
}

bool foundMaximum(const RunState& state) { return state.mgcDone == 1 && state.maxConcDone == 1; }

void pressCompute(ScriptSession& session, const std::vector<std::string>& levels) {
  session.runLine("click comput");
  if (!foundMaximum(session.system().state())) return;
  if (!session.system().scenario().runRow.takeStoredLevels()) session.runLine("click getconclvl");
  for (std::size_t i = 0; i < levels.size(); ++i)
    if (!levels[i].empty()) session.runLine(fmt::format("enter constn({}) \"{}\"", i, levels[i]));
  session.runLine("click comput");
}

/// The same box, over and over: an input fails alike at every step.
class GivenUp : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The boxes of the run, as long as it is worth going on.
class BoxesOfRun {
 public:
  void take(const BoxShown& box) {
    constexpr int mostInARow = 100'000;
    messages_.add(box);
    inARow_ = last_ && box == *last_ ? inARow_ + 1 : 1;
    if (inARow_ == 1) last_ = box;
    if (inARow_ == mostInARow)
      throw GivenUp(fmt::format("given up: \"{}\" came {} times in a row", box.box.text, mostInARow));
  }
  const Messages& messages() const { return messages_; }

 private:
  Messages messages_;
  std::optional<BoxShown> last_;
  int inARow_ = 0;
};

/// Takes the limits that the request asks for, and tells where the choice comes from.
std::string chooseLimits(ScriptSession& session, const RunTarget& request) {
  const std::array<std::string, 3> key{limitChoice::application, limitChoice::section, limitChoice::key};
  if (request.limits) session.presetSetting(key, *request.limits == "probit" ? "1" : "0");
  if (request.limits) return "--limits";
  return session.system().settings().get(key[0], key[1], key[2]) ? "the user's setting" : "the default";
}

/// Why there is no valid run, or none in the study; empty when there is.
std::string faultOfRun(System& system, bool ofStudy) {
  if (!foundMaximum(system.state())) return "no maximum ground concentration or no peak was found";
  const LevelFields& level = system.mainView().level;
  for (int i = 0; i < levelCount; ++i)
    if (level.bgnpt[i].text() == mark::inputError)
      return ofStudy ? "the levels were refused; --levels gives others" : "the levels were refused";
  if (!ofStudy || system.scenario().runRow.isStored()) return "";
  if (Trap::ignoring().holds([&] { return isStorable(level); })) return system.status().happened();
  return "the results are not stored: the level " + level.conclbl[storingLevel].caption() + " is not complete";
}

/// Computes into the run. `done` when there is one to use.
ExitStatus compute(const RunTarget& request, ComputedRun& run, BoxesOfRun& boxes, std::ostream& errors) {
  const std::string script = request.target == "-" ? "-" : fs::absolute(request.target).string();
  if (const std::string fault = enterStartFolder(request); !fault.empty()) {
    errors << visibleText(fault) << '\n';
    return ExitStatus::refused;
  }
  const auto failed = [&](const std::string& fault) {
    errors << visibleText(request.target + ": " + fault) << '\n';
    return ExitStatus::failed;
  };
  const auto record = [&](const RecordEntry& entry) {
    if (const auto* box = std::get_if<BoxShown>(&entry)) boxes.take(*box);
  };
  run.session = std::make_unique<ScriptSession>(record, run.folders);
  prepareAnswers(run.session->desktop(), request);
  try {
    if (!run.ofStudy) return runScriptFile(*run.session, script, request.target, errors);
    run.limitsFrom = chooseLimits(*run.session, request);
    run.session->start();
    if (!run.session->system().study())
      return failed(run.session->system().views().find("reqfrm")->find("reasonlbl")->caption());
    pressCompute(*run.session, itemsOf(request.levels));
  } catch (const GivenUp& fault) {
    return failed(fault.what());
  }
  return ExitStatus::done;
}

}  // namespace

ExitStatus withComputedRun(const RunTarget& request, std::ostream& errors, const Folders& folders, const UseRun& use) {
  const auto report = [&](const std::string& fault, ExitStatus status) {
    errors << visibleText(request.target + ": " + fault) << '\n';
    return status;
  };
  if (const std::string fault = refusal(request); !fault.empty()) return report(fault, ExitStatus::refused);
  BoxesOfRun boxes;
  ComputedRun run{.folders = folders, .ofStudy = !isScript(request), .limitsFrom = "the script", .session = {}};
  if (const ExitStatus status = compute(request, run, boxes, errors); status != ExitStatus::done) return status;
  run.messages = boxes.messages();
  run.fault = faultOfRun(run.session->system(), run.ofStudy);
  const std::string fault = use(run);
  if (run.ofStudy) run.session->runLine("close");
  return fault.empty() ? ExitStatus::done : report(fault, ExitStatus::failed);
}

}  // namespace noldarz
