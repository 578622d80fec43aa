#include "desktop/field_widget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>

#include "desktop/entry_delegate.h"
#include "desktop/theme.h"
#include "platform/text.h"
#include "platform/visible_text.h"

namespace noldarz {

namespace {

void showCaption(QAbstractButton& button, QString caption) {
  // The captions of levels are the user's own; those of buttons and menus name their key.
  if (qobject_cast<QCheckBox*>(&button)) caption.replace('&', "&&");
  const QKeySequence ofForm = button.shortcut();
  button.setText(caption);
  if (button.shortcut().isEmpty()) button.setShortcut(ofForm);  // the caption names none
}

void showChoice(QComboBox& combo, const QString& text) {
  if (combo.currentText() == text && combo.currentIndex() >= 0) return;
  const bool typed = combo.isEditable() && combo.lineEdit()->text() == text;
  if (!typed) combo.setCurrentIndex(combo.findText(text));
  if (!typed && combo.isEditable()) combo.setEditText(text);
}

/// In place: an entry that is under a double click stays.
void fillList(QListWidget& list, const std::vector<std::string>& entries) {
  const int count = static_cast<int>(entries.size());
  while (list.count() > count) delete list.takeItem(list.count() - 1);
  while (list.count() < count) list.addItem("");
  for (int i = 0; i < count; ++i) list.item(i)->setText(shown(entries[static_cast<std::size_t>(i)]));
}

}  // namespace

QString qt(const std::string& text) { return QString::fromStdString(text); }

QString shown(const std::string& text) { return qt(visibleText(text, "\n")); }

QLineEdit* lineOf(QWidget* widget) {
  if (const auto* combo = qobject_cast<QComboBox*>(widget)) return combo->lineEdit();
  return qobject_cast<QLineEdit*>(widget);
}

FieldWidget::FieldWidget(const Field& field, QWidget& widget)
    : field_(field), widget_(widget), ownToolTip_(widget.toolTip()) {
  if (auto* label = qobject_cast<QLabel*>(&widget)) label->setTextFormat(Qt::PlainText);
  if (auto* list = qobject_cast<QListWidget*>(&widget)) list->setItemDelegate(new EntryDelegate(list));
}

void FieldWidget::showAll() {
  for (const Property property : {Property::entries,
                                  Property::details,
                                  Property::text,
                                  Property::value,
                                  Property::enabled,
                                  Property::locked,
                                  Property::visible,
                                  Property::fault,
                                  Property::backColour})
    show(property);
}

void FieldWidget::show(Property property) {
  switch (property) {
    case Property::text: return showText();
    case Property::value:
      if (auto* check = qobject_cast<QCheckBox*>(&widget_)) check->setChecked(field_.value() == 1);
      return;
    case Property::entries: return showEntries();
    case Property::details:
    case Property::current: return showDetails();
    case Property::enabled: return widget_.setEnabled(field_.enabled());
    case Property::visible: return widget_.setVisible(field_.visible());
    case Property::toolTip: return showToolTip();
    case Property::fault: return showFault();
    case Property::locked:
      if (auto* edit = qobject_cast<QLineEdit*>(&widget_)) {
        // It can be read and copied by mouse, and lies outside the way of the Tab key.
        edit->setReadOnly(field_.locked());
        edit->setFocusPolicy(field_.locked() ? Qt::ClickFocus : Qt::StrongFocus);
      }
      return showColours();
    case Property::backColour:
    case Property::foreColour:
    case Property::fillColour: return showColours();
    case Property::width:
      if (auto* bar = qobject_cast<QProgressBar*>(&widget_)) bar->setValue(static_cast<int>(field_.width()));
      return;
    default: return;
  }
}

void FieldWidget::showText() const {
  const QString text = qt(field_.text());
  if (auto* edit = qobject_cast<QLineEdit*>(&widget_)) {
    if (edit->text() != text) edit->setText(text);
  } else if (auto* label = qobject_cast<QLabel*>(&widget_)) {
    const QByteArray pattern = widget_.property("pattern").toByteArray();  // the form rounds it for the eye
    label->setText(pattern.isEmpty() ? shown(field_.text()) : qt(Format(field_.text(), pattern.toStdString())));
    if (!pattern.isEmpty()) showToolTip();
  } else if (auto* button = qobject_cast<QAbstractButton*>(&widget_)) {
    showCaption(*button, shown(field_.text()));
  } else if (auto* combo = qobject_cast<QComboBox*>(&widget_)) {
    showChoice(*combo, text);
  } else if (auto* list = qobject_cast<QListWidget*>(&widget_)) {
    list->setCurrentRow(field_.listIndex());
  }
}

void FieldWidget::showEntries() const {
  if (auto* combo = qobject_cast<QComboBox*>(&widget_)) {
    combo->clear();
    for (const auto& entry : field_.entries()) combo->addItem(qt(entry));
    combo->setCurrentIndex(-1);
    showText();
  } else if (auto* list = qobject_cast<QListWidget*>(&widget_)) {
    fillList(*list, field_.entries());
    list->setCurrentRow(field_.listIndex());
  }
}

void FieldWidget::showDetails() const {
  const auto* list = qobject_cast<QListWidget*>(&widget_);
  for (int i = 0; list && i < list->count(); ++i) {
    QListWidgetItem& item = *list->item(i);
    const auto position = static_cast<std::size_t>(i);
    const EntryDetail detail = position < field_.details().size() ? field_.details()[position] : EntryDetail{};
    item.setData(EntryDelegate::detailRole, shown(detail.text));
    item.setToolTip(plainTip(shown(detail.toolTip)));
    QFont font = list->font();
    font.setBold(i == field_.current());
    item.setFont(font);
  }
}

void FieldWidget::showToolTip() const {
  QStringList tips;
  if (!field_.fault().empty()) tips << shown(field_.fault());
  if (widget_.property("pattern").isValid() && !field_.text().empty()) tips << shown(field_.text());
  const QString tip = field_.toolTip().empty() ? ownToolTip_ : shown(field_.toolTip());
  if (!tip.isEmpty()) tips << tip;
  widget_.setWhatsThis(plainTip(tip));
  widget_.setToolTip(plainTip(tips.join("\n\n")));
}

void FieldWidget::showFault() {
  if (field_.fault().empty())
    delete frame_;
  else if (!frame_)
    frame_ = new FaultFrame(widget_);
  showToolTip();
}

void FieldWidget::showColours() const {
  const bool faded = field_.foreColour() == Colour{SystemColour::disabledText};
  const Colour back = field_.backColour();
  const QString name = widget_.objectName();
  QString sheet;
  if (back != defaultBackColour(field_.kind()) && back.system == SystemColour::none && !faded)
    // Marked fields are light, so their text is dark in every theme.
    sheet = QString("#%1 { background-color: %2; color: black } #%1:disabled { color: gray }")
                .arg(name, qt(colourText(back)));
  if (widget_.styleSheet() != sheet) widget_.setStyleSheet(sheet);

  QPalette palette;
  if (faded)
    for (const auto role : {QPalette::Text, QPalette::WindowText}) palette.setColor(role, fadedText(QPalette()));
  if (field_.locked()) palette.setBrush(QPalette::Base, Qt::transparent);
  if (qobject_cast<QProgressBar*>(&widget_) && field_.fillColour() != Colour{})
    palette.setColor(QPalette::Highlight, qt(colourText(field_.fillColour())));
  widget_.setPalette(palette);
}

}  // namespace noldarz
