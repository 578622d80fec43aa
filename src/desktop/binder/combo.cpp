// A list that drops down, with a line for other texts where the form has one.

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

#include "desktop/binder/kinds.h"

namespace noldarz {

namespace {

/// Keys at which a closed list would take another entry that nobody has seen yet.
bool walksThroughEntries(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

class ComboAdapter : public Adapter {
 public:
  ComboAdapter(Field& field, QComboBox& combo, const UserActs& acts) : Adapter(field, combo, acts), combo_(combo) {
    if (QLineEdit* line = combo.lineEdit())
      connect(line, &QLineEdit::textEdited, this, [this](const QString& text) { typed(text); });
    connect(&combo, &QComboBox::editTextChanged, this, [this](const QString& text) {
      if (!acts_.isShowing()) field_.setText(text.toStdString());
    });
    connect(&combo, &QComboBox::activated, this, [this](int entry) {
      if (acts_.isLeaving(combo_)) return;  // a text typed that is an entry was not picked
      acts_.settle();
      field_.setText(combo_.itemText(entry).toStdString());
      acts_.send(field_, Event::click);
    });
  }
  std::vector<QWidget*> parts() const override {
    if (!combo_.lineEdit()) return {&combo_};
    return {&combo_, combo_.lineEdit()};
  }
  bool takeKey(QWidget& at, const QKeyEvent& key) override {
    if (&at != &combo_ || !walksThroughEntries(key.key())) return Adapter::takeKey(at, key);
    combo_.showPopup();
    return true;
  }

 private:
  void showText() override {
    const QString text = qt(field_.text());
    if (combo_.currentText() == text && combo_.currentIndex() >= 0) return;
    const bool typed = combo_.isEditable() && combo_.lineEdit()->text() == text;
    if (!typed) combo_.setCurrentIndex(combo_.findText(text));
    if (!typed && combo_.isEditable()) combo_.setEditText(text);
  }
  void showEntries() override {
    combo_.clear();
    for (const auto& entry : field_.entries()) combo_.addItem(qt(entry));
    combo_.setCurrentIndex(-1);
    showText();
  }

  QComboBox& combo_;
};

}  // namespace

std::unique_ptr<Adapter> comboAdapter(Field& field, QWidget& widget, const UserActs& acts) {
  auto* combo = qobject_cast<QComboBox*>(&widget);
  return combo ? std::make_unique<ComboAdapter>(field, *combo, acts) : nullptr;
}

}  // namespace noldarz
