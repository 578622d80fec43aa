// A user with a mouse and a keyboard at the program's window, without a screen.
#pragma once

#include <QAbstractItemView>
#include <QComboBox>

#include "cli/words.h"
#include "desktop/canvas_widget.h"
#include "platform/property.h"
#include "support/window.h"

namespace noldarz::test {

struct MouseUser : Window {
  explicit MouseUser(const std::string& study = exampleStudy("lpg"), const PressPorts* effects = nullptr,
                     bool starts = true)
      : Window(study, effects) {
    if (starts) start();
  }
  void type(const std::string& name, const std::string& text) const {
    comeBack();
    auto* edit = qobject_cast<QLineEdit*>(&widget(name));
    if (!edit) edit = widget<QComboBox>(name).lineEdit();
    QTest::mouseClick(edit, Qt::LeftButton);
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, QString::fromStdString(text));
  }
  void tab() const {
    comeBack();
    QTest::keyClick(focus(), Qt::Key_Tab);
  }
  void click(const std::string& name) const {
    if (field(name).kind() == FieldKind::menu) {
      const View& of = field(name).view();
      auto* entry = desktop.windowOf(of)->findChild<QAction*>(QString::fromStdString(field(name).name()));
      return entry->trigger();
    }
    const bool check = field(name).kind() == FieldKind::check;
    QTest::mouseClick(&widget(name), Qt::LeftButton, Qt::NoModifier, check ? QPoint(8, 8) : QPoint());
  }
  void choose(const std::string& name, const std::string& entry) const {
    auto& combo = widget<QComboBox>(name);
    combo.showPopup();
    combo.view()->setCurrentIndex(combo.model()->index(combo.findText(QString::fromStdString(entry)), 0));
    QTest::keyClick(combo.view(), Qt::Key_Return);
  }
  /// A place on a canvas (mm).
  void point(const std::string& act, const std::string& name, QPointF place) const {
    auto& canvas = dynamic_cast<CanvasWidget&>(widget(name));
    const QPoint at = canvas.pixelOf(place.x(), place.y()).toPoint();
    if (act == "move") QTest::mouseMove(&canvas, at);
    if (act == "down") QTest::mousePress(&canvas, Qt::LeftButton, Qt::NoModifier, at);
    if (act == "up") QTest::mouseRelease(&canvas, Qt::LeftButton, Qt::NoModifier, at);
  }
  /// Without a window manager nothing makes the window active again behind a box.
  void comeBack() const {
    if (!boxes.empty() && !QApplication::activeWindow()) QApplication::setActiveWindow(&main());
  }
  /// Carries a line of a script out as a user does; what only prints is left out.
  void carryOut(const std::vector<std::string>& words) {
    if (words.empty()) return;
    if (words[0] == "start") start();
    if (words[0] == "set") {
      Field& target = field(words[1]);
      setProperty(target, words.size() == 3 ? mainProperty(target) : findProperty(words[2]).value(), words.back());
    }
    if (words[0] == "enter") type(words[1], words[2]), QTest::keyClick(&widget(words[1]), Qt::Key_Tab);
    if (words[0] == "mouse") point(words[1], words[2], {parseNumber(words[3]).value, parseNumber(words[4]).value});
    if (words[0] == "choose") choose(words[1], words[2]);
    if (words[0] == "click" || words[0] == "check" || words[0] == "uncheck") click(words[1]);
    if (words[0] == "wait") QTest::qWait(300);
  }
};

}  // namespace noldarz::test
