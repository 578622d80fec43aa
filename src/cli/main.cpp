// noldarz-cli: the program without a screen.

#include <CLI/CLI.hpp>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

#include "cli/run.h"
#include "cli/script.h"
#include "cli/study.h"

namespace {

using noldarz::ExitStatus;

/// Enters the folder in which the program starts; a file that was named stays the one of the caller's folder.
bool enterStartFolder(const std::string& folder, std::string& file) {
  if (folder.empty()) return true;
  if (file != "-") file = std::filesystem::absolute(file).string();
  std::error_code error;
  std::filesystem::current_path(folder, error);
  if (error) std::cerr << folder << ": no such folder\n";
  return !error;
}

ExitStatus script(const std::string& startFolder, const std::string& file) {
  std::string path = file;
  if (!enterStartFolder(startFolder, path)) return ExitStatus::refused;
  noldarz::ScriptSession session{
      [](const noldarz::Json& object) { std::cout << noldarz::jsonLine(object) << std::flush; }};
  return noldarz::runScriptFile(session, path, file, std::cerr);
}

ExitStatus run(const std::string& startFolder, const std::string& file) {
  std::string path = file;
  if (!enterStartFolder(startFolder, path)) return ExitStatus::refused;
  return noldarz::runAndReport(path, file, NOLDARZ_VERSION, std::cout, std::cerr);
}

}  // namespace

int main(int argc, char** argv) try {
  CLI::App app{"NOLDA-RZ, dispersion of a released chemical: concentration distances without a screen"};
  app.set_version_flag("--version", std::string{"noldarz-cli "} + NOLDARZ_VERSION);
  app.require_subcommand(1);

  std::string file;
  std::string startFolder;
  auto* scriptCommand = app.add_subcommand("script", "Drive every field by name; prints one JSON object a line");
  scriptCommand->add_option("--start", startFolder, "Folder in which the program starts");
  scriptCommand->add_option("FILE", file, "Script, \"-\" for standard input")->required();
  auto* runCommand = app.add_subcommand("run", "Compute a release and print its inputs, results and isopleths");
  runCommand->add_option("--start", startFolder, "Folder in which the program starts");
  runCommand->add_option("FILE", file, "Script of the release, \"-\" for standard input")->required();

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
  if (runCommand->parsed()) status = run(startFolder, file);
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
  std::cerr << "noldarz-cli: " << error.what() << '\n';
  return static_cast<int>(ExitStatus::failed);
}
