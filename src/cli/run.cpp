#include "cli/run.h"

#include <ostream>

#include "platform/visible_text.h"
#include "toxic/absolute_numbers.h"

namespace noldarz {

namespace {

/// Why the run gives no table; empty when it does.
std::string addTable(System& system, const std::vector<std::string>& densities, Report& report) {
  try {
    system.toxic().limitSearch.fillTable();
  } catch (const RuntimeFailure& failure) {
    return std::string{"no table of fatality and injury: "} + failure.what();
  }
  report.tables.push_back(probitTable(system.state(), densities));
  return "";
}

}  // namespace

ExitStatus runAndReport(const RunRequest& request, const std::string& version, std::ostream& out, std::ostream& errors,
                        const Folders& folders) {
  const std::vector<std::string> densities = itemsOf(request.densities);
  if (const std::string fault = faultOfList("--density", densities, ringCount, Gaps::refused); !fault.empty()) {
    errors << visibleText(request.target + ": " + fault) << '\n';
    return ExitStatus::refused;
  }
  return withComputedRun(request, errors, folders, [&](ComputedRun& run) {
    System& system = run.session->system();
    Report report = reportOf(system, version, request.target, run.messages, run.limitsFrom);
    std::string fault = run.fault;
    if (request.table && fault.empty()) fault = addTable(system, densities, report);
    out << printed(report, request.format);
    return fault;
  });
}

}  // namespace noldarz
