// A button or check field: a click by mouse, key or shortcut.

#include <QCheckBox>

#include "desktop/binder/kinds.h"

namespace noldarz {

namespace {

class ButtonAdapter : public Adapter {
 public:
  ButtonAdapter(Field& field, QAbstractButton& button, const UserActs& acts)
      : Adapter(field, button, acts), button_(button), check_(qobject_cast<QCheckBox*>(&button)) {
    connect(&button, &QAbstractButton::clicked, this, [this] { press(); });
  }

 private:
  void press() {
    const bool takesFocus = (button_.focusPolicy() & Qt::ClickFocus) != 0;  // a shortcut does not bring it
    if (takesFocus && !acts_.arrived(field_)) return showValue();
    acts_.settle();
    if (check_) field_.setValue(check_->isChecked() ? 1 : 0);
    acts_.send(field_, Event::click);
  }
  void showText() override {
    QString caption = shown(field_.text());
    // The captions of levels are the user's own; those of buttons and menus name their key.
    if (check_) caption.replace('&', "&&");
    const QKeySequence ofForm = button_.shortcut();
    button_.setText(caption);
    if (button_.shortcut().isEmpty()) button_.setShortcut(ofForm);  // the caption names none
  }
  void showValue() override {
    if (check_) check_->setChecked(field_.value() == 1);
  }

  QAbstractButton& button_;
  QCheckBox* check_;
};

}  // namespace

std::unique_ptr<Adapter> buttonAdapter(Field& field, QWidget& widget, const UserActs& acts) {
  auto* button = qobject_cast<QAbstractButton*>(&widget);
  return button ? std::make_unique<ButtonAdapter>(field, *button, acts) : nullptr;
}

}  // namespace noldarz
