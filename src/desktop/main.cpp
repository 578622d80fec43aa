// noldarz: the program at a desk.

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <filesystem>
#include <iostream>

#include "desktop/qt_desktop.h"
#include "system/system.h"

namespace {

constexpr int refused = 2;  // exit status for a request that can't be taken

/// The start folder of the command line, empty for the current one.
std::filesystem::path startFolder(const QApplication& application) {
  QCommandLineParser parser;
  parser.setApplicationDescription("Dispersion of a released chemical and what it does to people");
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument(
      "STARTFOLDER", "Folder beside the study's, data (default: the current one)", "[STARTFOLDER]");
  parser.process(application);
  return parser.positionalArguments().value(0).toStdString();
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setApplicationName("noldarz");
  QApplication::setApplicationVersion(NOLDARZ_VERSION);
  QApplication::setDesktopFileName("noldarz");
  QApplication::setWindowIcon(QIcon(":/noldarz.png"));
  QApplication::setQuitOnLastWindowClosed(false);  // the views tell when the program ends
  std::error_code error;
  const auto folder = startFolder(application);
  if (!folder.empty()) std::filesystem::current_path(folder, error);
  if (error) {
    std::cerr << folder.string() << ": " << error.message() << '\n';
    return refused;
  }
  noldarz::QtDesktop desktop;
  noldarz::System system{desktop, noldarz::Folders::ofUser()};
  desktop.attach(system.views());
  desktop.deliver([&] { system.start(); });
  return system.views().open().empty() ? 0 : QApplication::exec();
}
