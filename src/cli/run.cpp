#include "cli/run.h"

#include <fmt/format.h>

#include <ostream>

#include "platform/visible_text.h"
#include "population/grid.h"
#include "population/grid_commands.h"
#include "toxic/absolute_numbers.h"

namespace noldarz {

namespace {

/// The sector that the user has chosen last; -1 for a setting that is none.
int keptSector(const Settings& settings) {
  try {
    return savedSector(settings);
  } catch (const RuntimeFailure&) {
    return -1;
  }
}

/// Takes the densities of the study's grid, which a section of the report tells. Why there are none; empty when there
/// are. Fails with a StoreFailure.
std::string takeGrid(System& system, std::optional<int> wished, Report& report, std::vector<std::string>& taken) {
  const int sector = wished ? *wished - 1 : keptSector(system.settings());
  if (!isSector(sector)) return "the setting znePopdnstytr1 holds no sector from 0 to 7; --sector gives one";
  const auto densities = system.population().row.stored(system.study(), sector);
  if (!densities) return "the study has no population grid of this reference number";
  for (int band = 0; band < gridBands; ++band)
    if (const std::string& density = densities->at(static_cast<std::size_t>(band)); !faultOfDensity(density).empty())
      return fmt::format("\"{}\" in {} {}", density, cellName(cellIndex(sector, band)), faultOfDensity(density));
  ReportSection section{"population", "Population", {}};
  section.items.push_back({"sector",
                           fmt::format("Sector, to the {}", sectorNames.at(static_cast<std::size_t>(sector))),
                           std::to_string(sector + 1),
                           ""});
  for (std::size_t band = 0; band < bands.size(); ++band)
    section.items.push_back({fmt::format("populatndnsty({})", band),
                             fmt::format("Density {}", bands.at(band).caption),
                             densities->at(band),
                             "persons/Ha"});
  report.sections.push_back(section);
  taken.assign(densities->begin(), densities->end());
  return "";
}

/// Why the run gives no table; empty when it does.
std::string addTable(System& system, const RunRequest& request, Report& report) {
  std::vector<std::string> densities = itemsOf(request.densities.value_or(""));
  std::string fault;
  try {
    system.toxic().limitSearch.fillTable();
    if (request.densities && densities.empty()) fault = takeGrid(system, request.sector, report, densities);
  } catch (const RuntimeFailure& failure) {
    fault = failure.what();
  }
  if (!fault.empty()) return "no table of fatality and injury: " + fault;
  report.tables.push_back(probitTable(system.state(), densities));
  return "";
}

/// Why the request can't be taken; empty when it can.
std::string refusal(const RunRequest& request, bool ofStudy) {
  if (request.densities && request.densities->empty() && !ofStudy) return "--density takes five numbers for a script";
  if (request.sector && !(request.densities && request.densities->empty()))
    return "--sector goes with --density without numbers";
  const std::vector<std::string> densities = itemsOf(request.densities.value_or(""));
  if (std::string fault = faultOfList("--density", densities, ringCount, Gaps::refused); !fault.empty()) return fault;
  for (const std::string& density : densities)
    if (!faultOfDensity(density).empty()) return fmt::format("--density: \"{}\" {}", density, faultOfDensity(density));
  return "";
}

}  // namespace

ExitStatus runAndReport(const RunRequest& request, const std::string& version, std::ostream& out, std::ostream& errors,
                        const Folders& folders) {
  if (const std::string fault = refusal(request, !isScript(request)); !fault.empty()) {
    errors << visibleText(request.target + ": " + fault) << '\n';
    return ExitStatus::refused;
  }
  return withComputedRun(request, errors, folders, [&](ComputedRun& run) {
    System& system = run.session->system();
    Report report = reportOf(system, version, request.target, run.messages, run.limitsFrom);
    std::string fault = run.fault;
    if (request.table && fault.empty()) fault = addTable(system, request, report);
    out << printed(report, request.format);
    return fault;
  });
}

}  // namespace noldarz
