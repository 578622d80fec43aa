#include "desktop/binder/binder.h"

#include <QAction>
#include <QComboBox>
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
#include <QSlider>
#include <QTabBar>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "desktop/drawn_widget.h"
#include "desktop/theme.h"

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

}  // namespace

QString widgetName(const std::string& fieldName) {
  QString name = qt(fieldName);
  return name.replace('(', '_').remove(')');
}

Binder::Binder(View& view, QWidget& form, Front front) : form_(form), front_(std::move(front)) {
  acts_ = {[this](Field& field, Event event) { send(field, event); },
           [this] { return showing_; },
           [this] { front_.settle(); },
           [this](Field& field) { return front_.focusArrived(field); },
           [this](const QWidget& widget) { return focusLeaving_ == &widget; },
           [this](Field& field, const PointerEvent& event) {
             if (event.act == PointerEvent::Act::down) front_.settle();
             front_.deliver([&] { field.view().pointer(field, event); });
           },
           [this](Field& field, const KeyEvent& key) {
             front_.settle();
             front_.deliver([&] { field.view().key(field, key); });
           }};
  for (Field& field : view.fields()) bind(field);
  reportSpareWidgets();
  view.observe([this](Field& field, Property property) { show(field, property); });
}

void Binder::bind(Field& field) {
  const QString name = widgetName(field.name());
  if (field.kind() == FieldKind::timer || field.kind() == FieldKind::carried) return;  // nothing on the screen
  Adapter* around = adapterAround(field);
  if (around && around->paints(field)) return;
  if (field.kind() == FieldKind::menu) {
    if (auto* menu = form_.findChild<QMenu*>(name)) return bindMenu(field, *menu);
    if (auto* action = form_.findChild<QAction*>(name)) return bindAction(field, *action);
  } else if (auto* widget = form_.findChild<QWidget*>(name)) {
    Adapter& adapter = *(adapters_[&field] = adapterOf(field, *widget, acts_));
    for (QWidget* part : adapter.parts()) {
      part->installEventFilter(this);
      fields_[part] = &field;
    }
    const QScopedValueRollback<bool> showing{showing_, true};
    adapter.showAll();
    if (around) around->showChild(field, widget);
    return;
  }
  faults_ << "no widget " + name;
}

void Binder::bindMenu(Field& field, QMenu& menu) {
  menu.setToolTipsVisible(true);
  connect(&menu, &QMenu::aboutToShow, this, [this, &field] {
    front_.settle();
    send(field, Event::click);
  });
  actions_[&field] = menu.menuAction();
  fields_[menu.menuAction()] = &field;
  showAllOf(field);
}

void Binder::bindAction(Field& field, QAction& action) {
  actions_[&field] = &action;
  fields_[&action] = &field;
  connect(&action, &QAction::triggered, this, [this, &field] {
    front_.settle();
    send(field, Event::click);
    show(field, Property::value);  // the screen has turned the check over; the rule may have not
  });
  showAllOf(field);
}

void Binder::showAllOf(const Field& entry) {
  for (const Property property :
       {Property::text, Property::value, Property::enabled, Property::visible, Property::toolTip})
    show(entry, property);
}

Adapter* Binder::adapterAround(const Field& field) const {
  const auto found = field.parent() ? adapters_.find(field.parent()) : adapters_.end();
  return found == adapters_.end() ? nullptr : found->second.get();
}

void Binder::send(Field& field, Event event) const {
  if (!showing_) front_.deliver([&field, event] { field.fire(event); });
}

bool Binder::isHere(Field& field, const QEvent& event) const {
  const QWidget* widget = widgetOf(field);
  return !field.takesFocus() || !widget || !tellsFocus(*widget, event) || front_.focusArrived(field);
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
  const auto found = fields_.find(watched);
  if (found == fields_.end()) return false;
  Field& field = *found->second;
  Adapter& adapter = *adapters_.at(&field);
  const bool here = isHere(field, *event);
  switch (event->type()) {
    case QEvent::Wheel:  // turned over a closed list it would pick an entry that nobody looks at
      if (field.kind() != FieldKind::combo && field.kind() != FieldKind::slider) return false;
      event->ignore();
      return true;
    case QEvent::FocusOut:
      focusLeaving_ = watched;
      QTimer::singleShot(0, this, [this] { focusLeaving_ = nullptr; });
      return false;
    case QEvent::Move:
    case QEvent::Resize: followFieldsOver(field); return false;
    case QEvent::MouseButtonDblClick:
      if (field.kind() == FieldKind::label || field.kind() == FieldKind::picture) send(field, Event::dblClick);
      // On a button it would be a second press, of what nobody has seen yet.
      return !here || field.kind() == FieldKind::button || !adapter.isAimStill(*event);
    case QEvent::KeyPress:
      return !here || adapter.takeKey(static_cast<QWidget&>(*watched), static_cast<const QKeyEvent&>(*event));
    case QEvent::MouseButtonPress: return !here || !adapter.isAimStill(*event);
    default: return false;
  }
}

void Binder::followFieldsOver(const Field& field) const {
  for (const auto& [other, adapter] : adapters_)
    if (other->over() == &field) showPlace(*other, adapter->widget());
}

QWidget* Binder::widgetOf(const Field& field) const {
  const auto found = adapters_.find(&field);
  return found == adapters_.end() ? nullptr : &found->second->widget();
}

void Binder::show(const Field& field, Property property) {
  const QScopedValueRollback<bool> showing{showing_, true};
  if (const auto action = actions_.find(&field); action != actions_.end())
    return showAction(field, *action->second, property);
  const auto found = adapters_.find(&field);
  if (found != adapters_.end()) {
    if (property == Property::visible || property == Property::left) showPlace(field, found->second->widget());
    found->second->show(property);
  }
  if (Adapter* around = adapterAround(field)) around->showChild(field, widgetOf(field));
}

void Binder::showAction(const Field& field, QAction& action, Property property) const {
  if (property == Property::text) action.setText(qt(field.caption()));
  if (property == Property::value) action.setChecked(field.value() == 1);
  if (property == Property::enabled) action.setEnabled(field.enabled());
  if (property == Property::visible) action.setVisible(field.visible());
  if (property == Property::toolTip) action.setToolTip(plainTip(shown(field.toolTip())));
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
  for (const auto& [field, adapter] : adapters_) adapter->show(Property::foreColour);
}

void Binder::pointAt(bool places) {
  for (const auto& [field, adapter] : adapters_)
    if (field->kind() == FieldKind::canvas) adapter->widget().setCursor(places ? Qt::CrossCursor : Qt::ArrowCursor);
}

void Binder::followDrawings() {
  for (const auto& [field, adapter] : adapters_) adapter->follow();
}

void Binder::reportSpareWidgets() {
  for (QWidget* widget : form_.findChildren<QWidget*>()) {
    const bool ours = qobject_cast<QLineEdit*>(widget) || qobject_cast<QAbstractButton*>(widget) ||
                      qobject_cast<QComboBox*>(widget) || qobject_cast<QListWidget*>(widget) ||
                      qobject_cast<QProgressBar*>(widget) || qobject_cast<QLabel*>(widget) ||
                      qobject_cast<QSlider*>(widget) || dynamic_cast<DrawnWidget*>(widget);
    const QString name = widget->objectName();
    if (qobject_cast<QTabBar*>(widget->parentWidget())) continue;  // its own buttons
    if (ours && !name.isEmpty() && !name.startsWith("qt_") && !name.startsWith("caption") && !fields_.contains(widget))
      faults_ << "no field " + name;
  }
  for (const auto& [field, adapter] : adapters_) {
    const bool silent = field->kind() == FieldKind::canvas || !field->takesFocus() || !field->visible() ||
                        !adapter->widget().toolTip().isEmpty();
    if (!silent) faults_ << "no tool tip " + adapter->widget().objectName();
  }
}

}  // namespace noldarz
