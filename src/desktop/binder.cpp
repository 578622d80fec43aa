#include "desktop/binder.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace noldarz {

namespace {

/// Whether the event tells that the user has come to the widget. A window that becomes active tells nothing: it gives
/// the focus to the widget that had it, after a box too; a press of a key or button there does.
bool tellsFocus(const QWidget& widget, const QEvent& event) {
  switch (event.type()) {
    case QEvent::FocusIn: {
      const auto reason = static_cast<const QFocusEvent&>(event).reason();
      return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: return (widget.focusPolicy() & Qt::ClickFocus) != 0;
    case QEvent::KeyPress: return true;
    default: return false;
  }
}

/// Keys at which a closed list would take another entry that nobody has seen yet.
bool walksThroughEntries(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

bool isEnter(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

}  // namespace

QString widgetName(const std::string& fieldName) {
  QString name = qt(fieldName);
  return name.replace('(', '_').remove(')');
}

Binder::Binder(View& view, QWidget& form, Front front) : form_(form), front_(std::move(front)) {
  for (Field& field : view.fields()) bind(field);
  reportSpareWidgets();
  view.observe([this](Field& field, Property property) { show(field, property); });
}

void Binder::bind(Field& field) {
  const QString name = widgetName(field.name());
  if (field.kind() == FieldKind::timer || field.kind() == FieldKind::carried) return;  // nothing on the screen
  if (field.kind() == FieldKind::menu) {
    auto* menu = form_.findChild<QMenu*>(name);
    if (QAction* action = menu ? menu->menuAction() : form_.findChild<QAction*>(name))
      return bindAction(field, *action);
  } else if (auto* widget = form_.findChild<QWidget*>(name)) {
    FieldWidget& shown = widgets_.try_emplace(&field, field, *widget).first->second;
    fields_[widget] = &field;
    connectEvents(field, *widget);
    const QScopedValueRollback<bool> showing{showing_, true};
    return shown.showAll();
  }
  faults_ << "no widget " + name;
}

void Binder::bindAction(Field& field, QAction& action) {
  actions_[&field] = &action;
  fields_[&action] = &field;
  connect(&action, &QAction::triggered, this, [this, &field] {
    front_.settle();
    send(field, Event::click);
    show(field, Property::value);  // the screen has turned the check over; the rule may have not
  });
  for (const Property property : {Property::text, Property::value, Property::enabled}) show(field, property);
}

void Binder::send(Field& field, Event event) const {
  if (!showing_) front_.deliver([&field, event] { field.fire(event); });
}

void Binder::connectEvents(Field& field, QWidget& widget) {
  widget.installEventFilter(this);
  if (auto* edit = qobject_cast<QLineEdit*>(&widget)) {
    connect(edit, &QLineEdit::textEdited, this, [this, &field](const QString& text) {
      field.setText(text.toStdString());
      send(field, Event::change);
    });
  } else if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
    connect(button, &QAbstractButton::clicked, this, [this, &field] { press(field); });
  } else if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
    connectCombo(field, *combo);
  } else if (auto* list = qobject_cast<QListWidget*>(&widget)) {
    connectList(field, *list);
  }
}

void Binder::connectCombo(Field& field, QComboBox& combo) {
  if (QLineEdit* edit = combo.lineEdit()) {
    edit->installEventFilter(this);
    fields_[edit] = &field;
    connect(edit, &QLineEdit::textEdited, this, [this, &field](const QString& text) {
      field.setText(text.toStdString());
      send(field, Event::change);
    });
  }
  connect(&combo, &QComboBox::editTextChanged, this, [this, &field](const QString& text) {
    if (showing_) return;
    field.setText(text.toStdString());
  });
  connect(&combo, &QComboBox::activated, this, [this, &field, &combo](int entry) {
    if (focusLeaving_ == &combo) return;  // a text typed that is an entry was not picked
    front_.settle();
    field.setText(combo.itemText(entry).toStdString());
    send(field, Event::click);
  });
}

void Binder::connectList(Field& field, QListWidget& list) {
  list.viewport()->installEventFilter(this);
  fields_[list.viewport()] = &field;
  connect(&list, &QListWidget::itemClicked, this, [this, &field, &list] { pick(field, list); });
  connect(&list, &QListWidget::itemDoubleClicked, this, [this, &field, &list] {
    field.select(list.currentRow());
    send(field, Event::dblClick);
  });
}

void Binder::press(Field& field) {
  const bool takesFocus = (widgetOf(field)->focusPolicy() & Qt::ClickFocus) != 0;  // a shortcut does not bring it
  if (takesFocus && !front_.focusArrived(field)) return show(field, Property::value);
  front_.settle();
  if (const auto* check = qobject_cast<QCheckBox*>(widgetOf(field))) field.setValue(check->isChecked() ? 1 : 0);
  send(field, Event::click);
}

bool Binder::pick(Field& field, const QListWidget& list) const {
  if (list.currentRow() < 0) return false;
  field.select(list.currentRow());
  send(field, Event::click);
  return true;
}

/// By keyboard: the space bar is a click on the entry, Enter a double click.
void Binder::takeListKey(Field& field, const QListWidget& list, int key) const {
  front_.settle();
  if ((isEnter(key) || key == Qt::Key_Space) && pick(field, list) && isEnter(key)) send(field, Event::dblClick);
}

bool Binder::isAimStill(const Field& field, const QEvent& event) const {
  const auto* list = qobject_cast<const QListWidget*>(widgetOf(field));
  const auto entry = [&] {
    const QListWidgetItem* item = list->itemAt(static_cast<const QMouseEvent&>(event).position().toPoint());
    return item ? item->text() : QString{};
  };
  const QString aimedAt = list ? entry() : QString{};
  if (list) front_.settle();
  return !list || entry() == aimedAt;
}

bool Binder::isHere(Field& field, const QEvent& event) const {
  const QWidget* widget = widgetOf(field);
  return !field.takesFocus() || !widget || !tellsFocus(*widget, event) || front_.focusArrived(field);
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
  const auto found = fields_.find(watched);
  if (found == fields_.end()) return false;
  Field& field = *found->second;
  const bool here = isHere(field, *event);
  switch (event->type()) {
    case QEvent::Wheel:  // turned over a closed list it would pick an entry that nobody looks at
      if (field.kind() != FieldKind::combo) return false;
      event->ignore();
      return true;
    case QEvent::FocusOut:
      focusLeaving_ = watched;
      QTimer::singleShot(0, this, [this] { focusLeaving_ = nullptr; });
      return false;
    case QEvent::Move:
    case QEvent::Resize: followFieldsOver(field); return false;
    case QEvent::MouseButtonDblClick:
      if (field.kind() == FieldKind::label) send(field, Event::dblClick);
      // On a button it would be a second press, of what nobody has seen yet.
      return !here || field.kind() == FieldKind::button || !isAimStill(field, *event);
    case QEvent::KeyPress:
      return !here || takeKey(field, static_cast<QWidget&>(*watched), static_cast<const QKeyEvent&>(*event));
    case QEvent::MouseButtonPress: return !here || !isAimStill(field, *event);
    default: return false;
  }
}

bool Binder::takeKey(Field& field, QWidget& widget, const QKeyEvent& key) const {
  if (const auto* list = qobject_cast<const QListWidget*>(&widget); list && !key.isAutoRepeat())
    takeListKey(field, *list, key.key());
  if (auto* combo = qobject_cast<QComboBox*>(&widget); combo && walksThroughEntries(key.key())) {
    combo->showPopup();
    return true;
  }
  QLineEdit* line = lineOf(&widget);
  if (!line || line->isReadOnly()) return false;
  const auto typeInstead = [&](int code, const QString& text) {
    QKeyEvent other(QEvent::KeyPress, code, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&widget, &other);
    return true;
  };
  if (isEnter(key.key())) return typeInstead(Qt::Key_Tab, "\t");
  if (key.text() == "," && !line->property("freeText").toBool()) return typeInstead(Qt::Key_Period, ".");
  if (key.key() == Qt::Key_Escape && field.over()) {
    send(field, Event::cancel);
    return true;
  }
  return false;
}

void Binder::followFieldsOver(const Field& field) const {
  for (const auto& [other, shown] : widgets_)
    if (other->over() == &field) showPlace(*other, shown.widget());
}

QWidget* Binder::widgetOf(const Field& field) const {
  const auto found = widgets_.find(&field);
  return found == widgets_.end() ? nullptr : &found->second.widget();
}

void Binder::show(const Field& field, Property property) {
  const QScopedValueRollback<bool> showing{showing_, true};
  if (const auto action = actions_.find(&field); action != actions_.end())
    return showAction(field, *action->second, property);
  const auto found = widgets_.find(&field);
  if (found == widgets_.end()) return;
  if (property == Property::visible || property == Property::left) showPlace(field, found->second.widget());
  found->second.show(property);
}

void Binder::showAction(const Field& field, QAction& action, Property property) const {
  if (property == Property::text) action.setText(qt(field.caption()));
  if (property == Property::value) action.setChecked(field.value() == 1);
  if (property == Property::enabled) action.setEnabled(field.enabled());
}

void Binder::showPlace(const Field& field, QWidget& widget) const {
  QWidget* under = field.over() ? widgetOf(*field.over()) : nullptr;
  if (!under) return;
  if (QLayout* layout = widget.parentWidget()->layout()) layout->removeWidget(&widget);
  QRect place = under->geometry();
  place.setHeight(std::max(place.height(), widget.sizeHint().height()));
  place.moveCenter(under->geometry().center());
  widget.setGeometry(place);
  widget.raise();
  QWidget::setTabOrder(under, &widget);
}

void Binder::followTheme() {
  for (auto& [field, widget] : widgets_) widget.show(Property::foreColour);
}

void Binder::reportSpareWidgets() {
  for (QWidget* widget : form_.findChildren<QWidget*>()) {
    const bool ours = qobject_cast<QLineEdit*>(widget) || qobject_cast<QAbstractButton*>(widget) ||
                      qobject_cast<QComboBox*>(widget) || qobject_cast<QListWidget*>(widget) ||
                      qobject_cast<QProgressBar*>(widget) || qobject_cast<QLabel*>(widget);
    const QString name = widget->objectName();
    if (ours && !name.isEmpty() && !name.startsWith("qt_") && !name.startsWith("caption") && !fields_.contains(widget))
      faults_ << "no field " + name;
  }
  for (const auto& [field, shown] : widgets_) {
    const bool silent = !field->takesFocus() || !field->visible() || !shown.widget().toolTip().isEmpty();
    if (!silent) faults_ << "no tool tip " + shown.widget().objectName();
  }
}

}  // namespace noldarz
