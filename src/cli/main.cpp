// noldarz-cli: the program without a screen.

#include <CLI/CLI.hpp>
#include <csignal>
#include <exception>
#include <filesystem>
#include <iostream>
#include <map>
#include <string>

#include "cli/at.h"
#include "cli/map.h"
#include "cli/plot.h"
#include "cli/record_json.h"
#include "cli/run.h"
#include "cli/script.h"
#include "cli/study.h"
#include "platform/visible_text.h"
#include "population/state.h"

namespace {

using noldarz::ExitStatus;

ExitStatus script(const std::string& startFolder, const std::string& file) {
  const std::string path = file == "-" ? file : std::filesystem::absolute(file).string();
  std::error_code error;
  if (!startFolder.empty()) std::filesystem::current_path(startFolder, error);
  if (error) {
    std::cerr << noldarz::visibleText(startFolder) << ": no such folder\n";
    return ExitStatus::refused;
  }
  noldarz::ScriptSession session{noldarz::FoldedBoxes{
      [](const noldarz::RecordEntry& entry) { std::cout << noldarz::jsonLine(entry) << std::flush; }}};
  return noldarz::runScriptFile(session, path, file, std::cerr);
}

/// How `run`, `plot` and `at` compute.
void addComputing(CLI::App& command, noldarz::RunTarget& target) {
  command.add_option("--start", target.startFolder, "Folder in which a script starts");
  command
      .add_option_function<std::string>(
          "--answer",
          [&target](const std::string& reply) {
            target.answer = reply == "yes" ? noldarz::Reply::yes : noldarz::Reply::no;
          },
          "Reply to every question (default: the one that each box proposes); a question that comes back after a Yes "
          "takes its default")
      ->check(CLI::IsMember({"yes", "no"}));
}

/// What they compute, and how.
void addTarget(CLI::App& command, noldarz::RunTarget& target) {
  command.add_option(
      "TARGET",
      target.target,
      "Start folder of the study (default: the current one), or the script of a release, \"-\" for standard "
      "input");
  addComputing(command, target);
}

/// The options of `run`, which fill the request when the command line is parsed.
CLI::App* addRun(CLI::App& app, noldarz::RunRequest& request) {
  auto* run = app.add_subcommand("run", "Compute the scenario of a study and print and keep its results");
  addTarget(*run, request);
  auto* json = run->add_flag_callback(
      "--json", [&request] { request.format = noldarz::ReportFormat::json; }, "Print one JSON object");
  run->add_flag_callback(
         "--csv",
         [&request] { request.format = noldarz::ReportFormat::csv; },
         "Print a line of names and a line of texts, separated by commas")
      ->excludes(json);
  run->add_option(
      "--levels",
      request.levels,
      "Six levels in ppm, highest first, separated by commas; an empty one stays as the run or the chemical has it");
  run->add_option_function<std::string>(
         "--limits",
         [&request](const std::string& limits) { request.limits = limits; },
         "Limits by probit equation or by lethal concentration (default: the user's setting, and the page says so)")
      ->check(CLI::IsMember({"probit", "lethal"}));
  run->add_flag("--table", request.table, "Print fatality and injury by distance");
  run->add_option_function<std::string>(
         "--density",
         [&request](const std::string& densities) {
           request.densities = densities;
           request.table = true;
         },
         "Persons per hectare in the rings up to 2, 4, 6, 8 and 10 km, separated by commas (behind the folder, without "
         "them: those of the study's grid): the table with the numbers of people")
      ->expected(0, 1);
  run->add_option("--sector", request.sector, "Sector of the study's grid, 1 (north) to 8, clockwise")
      ->check(CLI::Range(1, noldarz::gridSectors));
  run->footer(
      "Exit status: 0 computed (and stored, in a study), 1 no valid run or no study to open, 2 a request that can't be "
      "taken");
  return run;
}

/// The same of `plot`.
CLI::App* addPlot(CLI::App& app, noldarz::PlotRequest& request) {
  using noldarz::PlotKind;
  auto* plot = app.add_subcommand("plot", "Compute as run does, and write a drawing of the zones");
  static const std::map<std::string, PlotKind> kinds{{"isopleths", PlotKind::isopleths},
                                                     {"elevation", PlotKind::elevation},
                                                     {"rose", PlotKind::rose},
                                                     {"concentration", PlotKind::concentration},
                                                     {"percent", PlotKind::percent},
                                                     {"pipeline", PlotKind::pipeline}};
  plot->add_option("KIND", request.kind, "isopleths, elevation, rose, concentration, percent or pipeline")
      ->required()
      ->transform(CLI::Transformer(kinds));
  addTarget(*plot, request);
  plot->add_option("-o,--output", request.file, "Drawing to write: .svg, .pdf, .png or .bmp")->required();
  plot->add_option(
          "--wind", request.wind, "Where the wind blows to, of isopleths: degrees, 0 up, clockwise (default: 0)")
      ->check(CLI::Range(0, noldarz::wholeTurn));
  plot->add_option("--north", request.north, "Where north lies in a rose: degrees, 0 up, clockwise (default: 0)")
      ->check(CLI::Range(0, noldarz::wholeTurn));
  plot->add_option(
      "--levels", request.chosen, "Levels to draw, 0 the highest concentration, separated by commas (default: all)");
  plot->add_option("--trace", request.trace, "Points of a pipeline: x,y in metres a line, x to the right, y up");
  plot->add_option("--size", request.size, "Page: A4, or WxH in mm (default: A4, lying, or what a chart needs)");
  plot->add_flag("--limits", request.limitCircles, "Draw the circles of the fatality and injury limits");
  plot->add_flag("--line-styles", request.lineStyles, "A pattern beside the colour of each level");
  plot->footer(
      "Exit status: 0 written, 1 no valid run, no study to open or nothing to draw, 2 a request that can't be taken");
  return plot;
}

/// And of `at`: the last word is what is computed, unless it is a place.
CLI::App* addAt(CLI::App& app, noldarz::AtRequest& request) {
  auto* at = app.add_subcommand("at", "Compute as run does, and tell what arrives at places");
  at->add_option("PLACES", request.places, "X or X,Y in metres from the source; last the start folder or script")
      ->allow_extra_args();
  at->add_option("--points", request.file, "File of places, one a line; \"-\" for standard input");
  addComputing(*at, request);
  auto* json = at->add_flag_callback(
      "--json", [&request] { request.format = noldarz::ReportFormat::json; }, "Print one JSON object");
  at->add_flag_callback(
        "--csv", [&request] { request.format = noldarz::ReportFormat::csv; }, "Print lines separated by commas")
      ->excludes(json);
  at->callback([&request] {
    if (request.places.empty() || noldarz::isPlace(request.places.back())) return;
    request.target = request.places.back();
    request.places.pop_back();
  });
  return at;
}

/// And of `map`.
CLI::App* addMap(CLI::App& app, noldarz::MapRequest& request) {
  auto* map = app.add_subcommand("map", "Compute as run does, and map the zones into a CAD drawing");
  addTarget(*map, request);
  map->add_option("--drawing", request.drawing, "Drawing to map into: DXF, or DWG where a converter is installed")
      ->required();
  map->add_option("--at", request.at, "Source: X,Y in drawing units")->required();
  map->add_option("--wind", request.wind, "Where the wind blows to: degrees, 0 up, clockwise")
      ->required()
      ->check(CLI::Range(0, noldarz::wholeTurn));
  map->add_option("--scale", request.scale, "Drawing units per metre")->required();
  map->add_option(
      "--locations", request.locations, "Places to mark with what arrives there: X,Y in drawing units a line");
  map->add_option("-o,--output", request.file, "Drawing to write, .dxf or .dwg")->required();
  map->footer(
      "Exit status: 0 written, 1 no valid run, no study to open or a drawing that can't be mapped into, 2 a request "
      "that "
      "can't be taken");
  return map;
}

}  // namespace

int main(int argc, char** argv) try {
  std::signal(SIGXFSZ, SIG_IGN);  // a file that may not grow is an error of the write
  CLI::App app{"NOLDA-RZ, dispersion of a released chemical and what it does to people, without a screen"};
  app.set_version_flag("--version", std::string{"noldarz-cli "} + NOLDARZ_VERSION);
  app.require_subcommand(1);

  std::string file;
  std::string startFolder;
  auto* scriptCommand = app.add_subcommand("script", "Drive every field by name; prints one JSON object a line");
  scriptCommand->add_option("--start", startFolder, "Folder in which the program starts");
  scriptCommand->add_option("FILE", file, "Script, \"-\" for standard input")->required();
  noldarz::RunRequest request;
  const auto* runCommand = addRun(app, request);
  noldarz::AtRequest atRequest;
  const auto* atCommand = addAt(app, atRequest);
  noldarz::PlotRequest plotRequest;
  const auto* plotCommand = addPlot(app, plotRequest);
  noldarz::MapRequest mapRequest;
  const auto* mapCommand = addMap(app, mapRequest);

  std::string source;
  bool force = false;
  auto* study = app.add_subcommand("study", "Make, print or check a study file")->require_subcommand(1);
  auto* create = study->add_subcommand("create", "Make a study from its text");
  create->add_option("FILE", file, "Study to make")->required();
  create->add_option("--from", source, "TOML text of the study")->required();
  create->add_flag("--force", force, "Replace a study that is there");
  auto* exportCommand = study->add_subcommand("export", "Print a study as a TOML text");
  exportCommand->add_option("FILE", file, "Study")->required();
  auto* check = study->add_subcommand("check", "Tell whether a file is a sound study");
  check->add_option("FILE", file, "Study")->required();

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : static_cast<int>(ExitStatus::refused);
  }
  ExitStatus status = ExitStatus::done;
  if (scriptCommand->parsed()) status = script(startFolder, file);
  if (runCommand->parsed()) status = noldarz::runAndReport(request, NOLDARZ_VERSION, std::cout, std::cerr);
  if (atCommand->parsed()) status = noldarz::tellPlaces(atRequest, std::cin, std::cout, std::cerr);
  if (plotCommand->parsed()) status = noldarz::plotToFile(plotRequest, NOLDARZ_VERSION, std::cerr);
  if (mapCommand->parsed()) status = noldarz::mapIntoDrawing(mapRequest, std::cerr);
  if (create->parsed()) status = noldarz::createStudy(file, source, force, std::cerr);
  if (exportCommand->parsed()) status = noldarz::exportStudy(file, std::cout, std::cerr);
  if (check->parsed()) status = noldarz::checkStudy(file, std::cout, std::cerr);
  std::cout.flush();
  if (!std::cout) {
    std::cerr << "noldarz-cli: the output could not be written\n";
    return static_cast<int>(ExitStatus::failed);
  }
  return static_cast<int>(status);
} catch (const std::exception& error) {
  std::cerr << "noldarz-cli: " << noldarz::visibleText(error.what()) << '\n';
  return static_cast<int>(ExitStatus::failed);
}
