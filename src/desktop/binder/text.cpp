// An input line. One that is a cell of a table, by the form, has a group, in which Up and Down lead to the next row,
// and a button that pastes several cells.

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include "desktop/binder/group.h"
#include "desktop/binder/kinds.h"
#include "platform/view.h"

namespace noldarz {

namespace {

class TextAdapter : public Adapter {
 public:
  TextAdapter(Field& field, QLineEdit& line, const UserActs& acts) : Adapter(field, line, acts), line_(line) {
    connect(&line, &QLineEdit::textEdited, this, [this](const QString& text) { typed(text); });
  }

  bool takeKey(QWidget& at, const QKeyEvent& key) override {
    if (key.matches(QKeySequence::Paste) && pasteCells()) return true;
    const bool changesRow = key.key() == Qt::Key_Up || key.key() == Qt::Key_Down;
    if (!changesRow || !isGrouped(line_)) return Adapter::takeKey(at, key);
    if (QWidget* next = neighbourOf(line_, key.key())) next->setFocus(Qt::TabFocusReason);
    return true;
  }

 private:
  void showText() override {
    const QString text = qt(field_.text());
    if (line_.text() != text) line_.setText(text);
  }
  void showLocked() override {
    // It can be read and copied by mouse, and lies outside the way of the Tab key.
    line_.setReadOnly(field_.locked());
    line_.setFocusPolicy(field_.locked() ? Qt::ClickFocus : Qt::StrongFocus);
  }

  /// False when there is no more than the text of a line to paste.
  bool pasteCells() const {
    Field* button = field_.view().find(line_.property("pasteButton").toString().toStdString());
    const QString cells = button ? QGuiApplication::clipboard()->text() : QString();
    if (!cells.contains('\t') && !cells.contains('\n')) return false;
    acts_.settle();
    if (button->usable()) acts_.send(*button, Event::click);
    return true;
  }

  QLineEdit& line_;
};

}  // namespace

std::unique_ptr<Adapter> textAdapter(Field& field, QWidget& widget, const UserActs& acts) {
  auto* line = qobject_cast<QLineEdit*>(&widget);
  return line ? std::make_unique<TextAdapter>(field, *line, acts) : nullptr;
}

}  // namespace noldarz
