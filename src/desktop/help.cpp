#include "desktop/help.h"

#include <sqlite3.h>

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QShortcut>
#include <QWhatsThis>

#include "engine/plume_model.h"

namespace noldarz {

namespace {

void showAbout(QMainWindow& window) {
  QMessageBox::about(&window,
                     "About NOLDA-RZ",
                     QString("<h3>NOLDA-RZ %1</h3><p>Model revision %2</p>"
                             "<p>Dispersion module of a process-risk suite: how far a released chemical reaches, "
                             "how wide its cloud is, and what it does to people.</p><p>Qt %3, SQLite %4</p>")
                         .arg(QApplication::applicationVersion())
                         .arg(modelRevision)
                         .arg(qVersion(), sqlite3_libversion()));
}

}  // namespace

void addHelp(QMainWindow& window, const std::function<void(const std::function<void()>&)>& withBox) {
  auto* help = window.menuBar()->addMenu("&Help");
  help->addAction(QWhatsThis::createAction(help));
  QObject::connect(help->addAction("&About NOLDA-RZ"), &QAction::triggered, &window, [&window, withBox] {
    withBox([&window] { showAbout(window); });
  });
  QMenuBar& menus = *window.menuBar();
  QObject::connect(new QShortcut(Qt::Key_F10, &window), &QShortcut::activated, &window, [&menus] {
    menus.setActiveAction(menus.actions().first());
  });
}

}  // namespace noldarz
