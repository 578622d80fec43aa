#include "desktop/binder.h"

#include <QAction>
#include <QCheckBox>
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
#include <QStyle>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace noldarz {

namespace {

QString qt(const std::string& text) { return QString::fromStdString(text); }

/// Whether the event tells that the user has come to the widget. A window that becomes active tells nothing: it gives the
/// focus to the widget that had it, behind a box too; a press of a key or button there does.
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

/// A locked text can be read and copied by mouse, and lies outside the way of the Tab key.
void lock(QLineEdit& edit, bool locked) {
  edit.setReadOnly(locked);
  edit.setFocusPolicy(locked ? Qt::ClickFocus : Qt::StrongFocus);
  QPalette palette;
  if (locked) palette.setBrush(QPalette::Base, Qt::transparent);
  edit.setPalette(palette);
}

void fill(QProgressBar& bar, Colour colour) {
  QPalette palette;
  if (colour != Colour{}) palette.setColor(QPalette::Highlight, qt(colourText(colour)));
  bar.setPalette(palette);
}

void showCaption(QAbstractButton& button, QString caption) {
  // The captions of levels are the user's own; those of buttons and menus name their key.
  if (qobject_cast<QCheckBox*>(&button)) caption.replace('&', "&&");
  const QKeySequence ofForm = button.shortcut();
  button.setText(caption);
  if (button.shortcut().isEmpty()) button.setShortcut(ofForm);  // the caption names none
}

}  // namespace

QString widgetName(const std::string& fieldName) {
  QString name = qt(fieldName);
  return name.replace('(', '_').remove(')');
}

Binder::Binder(View& view, QWidget& form, Front front) : view_(view), form_(form), front_(std::move(front)) {
  for (Field& field : view.fields()) bind(field);
  reportSpareWidgets();
  view.observe([this](Field& field, Property property) { show(field, property); });
}

void Binder::bind(Field& field) {
  const QString name = widgetName(field.name());
  if (field.kind() == FieldKind::timer) return;  // nothing on the screen
  if (field.kind() == FieldKind::menu) {
    auto* menu = form_.findChild<QMenu*>(name);
    if (QAction* action = menu ? menu->menuAction() : form_.findChild<QAction*>(name))
      return bindAction(field, *action);
  } else if (auto* widget = form_.findChild<QWidget*>(name)) {
    widgets_[&field] = widget;
    ownToolTips_[widget] = widget->toolTip();
    fields_[widget] = &field;
    connectEvents(field, *widget);
    return showAll(field);
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
  showAll(field);
}

void Binder::send(Field& field, Event event) const {
  if (!showing_) front_.deliver([&field, event] { field.fire(event); });
}

void Binder::connectEvents(Field& field, QWidget& widget) {
  widget.installEventFilter(this);
  if (auto* label = qobject_cast<QLabel*>(&widget)) label->setTextFormat(Qt::PlainText);
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
  const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
  if ((enter || key == Qt::Key_Space) && pick(field, list) && enter) send(field, Event::dblClick);
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
      return !here || !isAimStill(field, *event);
    case QEvent::KeyPress: {
      const auto& key = static_cast<const QKeyEvent&>(*event);
      const auto* list = qobject_cast<QListWidget*>(watched);
      if (here && list && !key.isAutoRepeat()) takeListKey(field, *list, key.key());
      if (here && field.over() && key.key() == Qt::Key_Return) widgetOf(*field.over())->setFocus();
      return !here;
    }
    case QEvent::MouseButtonPress: return !here || !isAimStill(field, *event);
    default: return false;
  }
}

void Binder::followFieldsOver(const Field& field) const {
  for (const auto& [other, widget] : widgets_)
    if (other->over() == &field) showPlace(*other, *widget);
}

QWidget* Binder::widgetOf(const Field& field) const {
  const auto found = widgets_.find(&field);
  return found == widgets_.end() ? nullptr : found->second;
}

void Binder::showAll(const Field& field) {
  for (const Property property : {Property::entries,
                                  Property::text,
                                  Property::value,
                                  Property::enabled,
                                  Property::locked,
                                  Property::visible,
                                  Property::toolTip,
                                  Property::backColour})
    show(field, property);
}

void Binder::show(const Field& field, Property property) {
  const QScopedValueRollback<bool> showing{showing_, true};
  if (const auto action = actions_.find(&field); action != actions_.end()) {
    if (property == Property::text) action->second->setText(qt(field.caption()));
    if (property == Property::value) action->second->setChecked(field.value() == 1);
    if (property == Property::enabled) action->second->setEnabled(field.enabled());
    return;
  }
  QWidget* widget = widgetOf(field);
  if (!widget) return;
  switch (property) {
    case Property::text: return showText(field, *widget);
    case Property::value: return showValue(field, *widget);
    case Property::entries: return showEntries(field, *widget);
    case Property::enabled: return widget->setEnabled(field.enabled());
    case Property::visible: showPlace(field, *widget); return widget->setVisible(field.visible());
    case Property::toolTip: return showToolTip(field, *widget);
    case Property::fault: return showFault(field, *widget);
    case Property::backColour: return showStyle(field, *widget);
    case Property::locked:
      if (auto* edit = qobject_cast<QLineEdit*>(widget)) lock(*edit, field.locked());
      return;
    case Property::left: return showPlace(field, *widget);
    case Property::fillColour:
      if (auto* bar = qobject_cast<QProgressBar*>(widget)) fill(*bar, field.fillColour());
      return;
    case Property::width:
      if (auto* bar = qobject_cast<QProgressBar*>(widget)) bar->setValue(static_cast<int>(field.width()));
      return;
    default: return;
  }
}

void Binder::showText(const Field& field, QWidget& widget) {
  const QString text = qt(field.text());
  if (auto* edit = qobject_cast<QLineEdit*>(&widget)) {
    if (edit->text() != text) edit->setText(text);
  } else if (auto* label = qobject_cast<QLabel*>(&widget)) {
    label->setText(text);
  } else if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
    showCaption(*button, text);
  } else if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
    if (combo->currentText() == text && combo->currentIndex() >= 0) return;
    const bool typed = combo->isEditable() && combo->lineEdit()->text() == text;
    if (!typed) combo->setCurrentIndex(combo->findText(text));
    if (!typed && combo->isEditable()) combo->setEditText(text);
  } else if (auto* list = qobject_cast<QListWidget*>(&widget)) {
    list->setCurrentRow(field.listIndex());
  }
}

void Binder::showValue(const Field& field, QWidget& widget) {
  if (auto* check = qobject_cast<QCheckBox*>(&widget)) check->setChecked(field.value() == 1);
}

void Binder::showEntries(const Field& field, QWidget& widget) {
  QStringList entries;
  for (const auto& entry : field.entries()) entries << qt(entry);
  if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
    combo->clear();
    combo->addItems(entries);
    combo->setCurrentIndex(-1);
    showText(field, widget);
  } else if (auto* list = qobject_cast<QListWidget*>(&widget)) {
    // In place: an entry that is under a double click stays.
    while (list->count() > entries.size()) delete list->takeItem(list->count() - 1);
    while (list->count() < entries.size()) list->addItem("");
    for (int i = 0; i < list->count(); ++i) list->item(i)->setText(entries[i]);
    list->setCurrentRow(field.listIndex());
  }
}

void Binder::showToolTip(const Field& field, QWidget& widget) const {
  const QString own = ownToolTips_.at(&widget);
  const QString tip = field.toolTip().empty() ? own : qt(field.toolTip());
  widget.setWhatsThis(tip);
  widget.setToolTip(field.fault().empty() ? tip : qt(field.fault()) + "\n\n" + tip);
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

void Binder::showFault(const Field& field, QWidget& widget) {
  auto* edit = qobject_cast<QLineEdit*>(&widget);
  if (const auto* combo = qobject_cast<QComboBox*>(&widget)) edit = combo->lineEdit();
  if (!edit) return;
  if (field.fault().empty()) {
    delete signs_[&field];
    signs_.erase(&field);
  } else if (!signs_[&field]) {
    signs_[&field] =
        edit->addAction(edit->style()->standardIcon(QStyle::SP_MessageBoxCritical), QLineEdit::LeadingPosition);
  }
  showToolTip(field, widget);
  showStyle(field, widget);
}

void Binder::showStyle(const Field& field, QWidget& widget) const {
  const Colour colour = field.backColour();
  const QString name = widget.objectName();
  QString sheet;
  if (colour != defaultBackColour(field.kind()) && colour.system == SystemColour::none)
    // Marked fields are light, so their text is dark in every theme.
    sheet += QString("#%1 { background-color: %2; color: black } #%1:disabled { color: gray } ")
                 .arg(name, qt(colourText(colour)));
  if (!field.fault().empty()) sheet += "QLineEdit { border: 2px solid #d03030; border-radius: 2px }";
  widget.setStyleSheet(sheet);
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
  for (const auto& [field, widget] : widgets_) {
    const bool silent = !field->takesFocus() || !field->visible() || !widget->toolTip().isEmpty();
    if (!silent) faults_ << "no tool tip " + widget->objectName();
  }
}

}  // namespace noldarz
