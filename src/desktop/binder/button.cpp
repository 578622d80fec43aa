// A button or check field: a click by mouse, key or shortcut. Check fields of a group, as the form has it, are one stop
// of the Tab key, and arrow keys choose among them.

#include <QCheckBox>
#include <QKeyEvent>

#include "desktop/binder/group.h"
#include "desktop/binder/kinds.h"

namespace noldarz {

namespace {

class ButtonAdapter : public Adapter {
 public:
  ButtonAdapter(Field& field, QAbstractButton& button, const UserActs& acts)
      : Adapter(field, button, acts), button_(button), isBox_(qobject_cast<QCheckBox*>(&button)) {
    connect(&button, &QAbstractButton::clicked, this, [this] { press(); });
  }

  bool takeKey(QWidget& at, const QKeyEvent& key) override {
    if (!isArrow(key.key()) || !isGrouped(button_)) return Adapter::takeKey(at, key);
    if (auto* next = qobject_cast<QAbstractButton*>(neighbourOf(button_, key.key()))) {
      next->setFocus(Qt::TabFocusReason);
      next->click();
    }
    return true;
  }

 private:
  void press() {
    const bool takesFocus = (button_.focusPolicy() & Qt::ClickFocus) != 0;  // a shortcut does not bring it
    if (takesFocus && !acts_.arrived(field_)) return showValue();
    acts_.settle();
    if (button_.isCheckable()) field_.setValue(button_.isChecked() ? 1 : 0);
    acts_.send(field_, Event::click);
  }
  void showText() override {
    QString caption = shown(field_.text());
    // The captions of levels are the user's own; those of buttons and menus name their key.
    if (isBox_) caption.replace('&', "&&");
    const QKeySequence ofForm = button_.shortcut();
    button_.setText(caption);
    if (button_.shortcut().isEmpty()) button_.setShortcut(ofForm);  // the caption names none
  }
  void showValue() override {
    if (!button_.isCheckable()) return;
    button_.setChecked(field_.value() == 1);
    show(Property::backColour);
    if (button_.isChecked() && isGrouped(button_)) beTabStop();
  }
  /// Most styles show a button that is down hardly different from another.
  void colour(QPalette& palette) const override {
    if (isBox_ || !button_.isChecked()) return;
    const QPalette theme;
    palette.setColor(QPalette::Button, theme.color(QPalette::Highlight));
    palette.setColor(QPalette::ButtonText, theme.color(QPalette::HighlightedText));
  }
  void beTabStop() {
    for (QWidget* member : groupOf(button_))
      member->setFocusPolicy(member == &button_ ? Qt::StrongFocus : Qt::ClickFocus);
  }

  QAbstractButton& button_;
  bool isBox_;
};

}  // namespace

std::unique_ptr<Adapter> buttonAdapter(Field& field, QWidget& widget, const UserActs& acts) {
  auto* button = qobject_cast<QAbstractButton*>(&widget);
  return button ? std::make_unique<ButtonAdapter>(field, *button, acts) : nullptr;
}

}  // namespace noldarz
