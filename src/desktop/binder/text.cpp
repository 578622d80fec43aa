// An input line.

#include <QLineEdit>

#include "desktop/binder/kinds.h"

namespace noldarz {

namespace {

class TextAdapter : public Adapter {
 public:
  TextAdapter(Field& field, QLineEdit& line, const UserActs& acts) : Adapter(field, line, acts), line_(line) {
    connect(&line, &QLineEdit::textEdited, this, [this](const QString& text) { typed(text); });
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

  QLineEdit& line_;
};

}  // namespace

std::unique_ptr<Adapter> textAdapter(Field& field, QWidget& widget, const UserActs& acts) {
  auto* line = qobject_cast<QLineEdit*>(&widget);
  return line ? std::make_unique<TextAdapter>(field, *line, acts) : nullptr;
}

}  // namespace noldarz
