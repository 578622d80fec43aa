// noldarz-cli: the program without a screen.

#include <CLI/CLI.hpp>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

#include "cli/run.h"
#include "cli/script.h"

namespace {

using noldarz::ExitStatus;

ExitStatus script(const std::string& startFolder, const std::string& file) {
  // FILE is a path of the caller's folder, wherever the program starts.
  const std::string path = file == "-" ? file : std::filesystem::absolute(file).string();
  std::error_code error;
  if (!startFolder.empty()) std::filesystem::current_path(startFolder, error);
  if (error) {
    std::cerr << startFolder << ": no such folder\n";
    return ExitStatus::refused;
  }
  noldarz::ScriptSession session{
      [](const noldarz::Json& object) { std::cout << noldarz::jsonLine(object) << std::flush; }};
  return noldarz::runScriptFile(session, path, file, std::cerr);
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
  runCommand->add_option("FILE", file, "Script of the release, \"-\" for standard input")->required();

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : static_cast<int>(ExitStatus::refused);
  }
  const ExitStatus status = scriptCommand->parsed()
                                ? script(startFolder, file)
                                : noldarz::runAndReport(file, NOLDARZ_VERSION, std::cout, std::cerr);
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
