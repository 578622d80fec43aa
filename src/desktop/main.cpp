// noldarz: the program at a desk.

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <csignal>
#include <filesystem>
#include <iostream>

#include "desktop/cad_windows.h"
#include "system/system.h"

namespace {

constexpr int refused = 2;  // exit status for a request that can't be taken

void describe(QCommandLineParser& parser) {
  parser.setApplicationDescription("Dispersion of a released chemical and what it does to people");
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument(
      "STARTFOLDER", "Folder beside which data/orgtn.mdb, the study, lies (default: the current one)", "[STARTFOLDER]");
}

/// Version and help need no screen.
void answerWithoutScreen(QCommandLineParser& parser, int argc, char** argv) {
  QStringList words;
  for (int i = 0; i < argc; ++i) words << argv[i];
  if (!parser.parse(words)) return;  // words of the toolkit may be among them
  if (parser.isSet("version")) parser.showVersion();
  if (parser.isSet("help")) {
    const QCoreApplication application(argc, argv);
    parser.showHelp();
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGXFSZ, SIG_IGN);  // a file that may not grow is an error of the write
  QApplication::setApplicationName("noldarz");
  QApplication::setApplicationVersion(NOLDARZ_VERSION);
  QApplication::setDesktopFileName("noldarz");
  QCommandLineParser parser;
  describe(parser);
  answerWithoutScreen(parser, argc, argv);

  const QApplication application(argc, argv);
  QApplication::setWindowIcon(QIcon(":/noldarz.png"));
  QApplication::setQuitOnLastWindowClosed(false);  // the views tell when the program ends
  parser.process(application);
  if (parser.positionalArguments().size() > 1) {
    std::cerr << "noldarz: one start folder at most\n";
    return refused;
  }
  std::error_code error;
  const std::filesystem::path folder = parser.positionalArguments().value(0).toStdString();
  if (!folder.empty()) std::filesystem::current_path(folder, error);
  if (error) {
    std::cerr << folder.string() << ": " << error.message() << '\n';
    return refused;
  }
  const noldarz::Folders folders = noldarz::Folders::ofUser();
  noldarz::QtDesktop desktop;
  noldarz::CadWindows drawings{desktop};
  noldarz::DxfCad cad{drawings, [&] { return noldarz::namedConverter(folders); }};
  noldarz::System system{desktop, cad, folders};
  desktop.attach(system.views(), system.settings());
  desktop.deliver([&] { system.start(); });
  return system.views().open().empty() ? 0 : QApplication::exec();
}
