// noldarz: the program at a desk.

#include <QApplication>

#include "desktop/qt_desktop.h"
#include "system/system.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setApplicationName("noldarz");
  QApplication::setApplicationVersion(NOLDARZ_VERSION);
  QApplication::setQuitOnLastWindowClosed(false);  // the views tell when the program ends
  noldarz::QtDesktop desktop;
  noldarz::System system{desktop, noldarz::Folders::ofUser()};
  desktop.attach(system.views());
  desktop.deliver([&] { system.start(); });
  return system.views().open().empty() ? 0 : QApplication::exec();
}
