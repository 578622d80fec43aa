// The program with its windows on a study of its own, started, and a user who works it.
#pragma once

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <memory>
#include <string>

#include "desktop/cad_windows.h"
#include "desktop/qt_desktop.h"
#include "support/test_study.h"

namespace noldarz::test {

class Window {
 public:
  explicit Window(const std::string& text = exampleStudy("lpg"), const PressPorts* effects = nullptr) {
    makeStudy(folder.study(), text);
    system = std::make_unique<System>(desktop, cad, folder.folders(), effects);
    desktop.attach(system->views(), system->settings());
    QObject::connect(&watch_, &QTimer::timeout, [this] { answerBox(); });
  }
  void start() {
    fs::current_path(folder / "start");
    desktop.deliver([this] { system->start(); });
    QTest::qWait(1000);  // the timers of the start-up
  }

  View& view() const { return system->mainView().view; }
  /// "field" of the main view, "view.field" of another one.
  Field& field(const std::string& name) const {
    const auto dot = name.find('.');
    View* of = dot == std::string::npos ? &view() : system->views().find(name.substr(0, dot));
    Field* found = of ? of->find(name.substr(dot == std::string::npos ? 0 : dot + 1)) : nullptr;
    if (!found) throw std::logic_error("no field " + name);
    return *found;
  }
  std::string text(const std::string& name) const { return field(name).text(); }
  template <class Widget = QWidget>
  Widget& widget(const std::string& name) const {
    return *qobject_cast<Widget*>(desktop.widgetOf(field(name)));
  }
  ViewWindow& window(const std::string& name) const { return *desktop.windowOf(*system->views().find(name)); }
  ViewWindow& main() const { return *desktop.windowOf(view()); }
  /// Where the focus is in the main window, also while another window is active.
  QWidget* focus() const { return main().focusWidget(); }
  bool ended() const { return system->views().open().empty(); }

  /// Answers every box that comes, and writes its text down.
  void watchBoxes(std::function<void(QMessageBox&)> answer = [](QMessageBox& box) { box.accept(); }) {
    answer_ = std::move(answer);
    watch_.start(30);
  }

  TestFolder folder;
  QtDesktop desktop;
  CadWindows drawings{desktop};
  DxfCad cad{drawings, [this] { return namedConverter(folder.folders()); }};
  std::unique_ptr<System> system;
  std::vector<std::string> boxes;

 private:
  void answerBox() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box || !box->isActiveWindow() || box->property("answered").toBool()) return;
    box->setProperty("answered", true);
    boxes.push_back(box->text().toStdString());
    answer_(*box);
  }

  QTimer watch_;
  std::function<void(QMessageBox&)> answer_;
};

}  // namespace noldarz::test
