#include "desktop/binder/adapter.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPalette>
#include <QProgressBar>
#include <QWidget>

#include "desktop/binder/kinds.h"
#include "desktop/theme.h"
#include "platform/visible_text.h"

namespace noldarz {

QString qt(const std::string& text) { return QString::fromStdString(text); }

QString shown(const std::string& text) { return qt(visibleText(text, "\n")); }

QLineEdit* lineOf(QWidget* widget) {
  if (const auto* combo = qobject_cast<QComboBox*>(widget)) return combo->lineEdit();
  return qobject_cast<QLineEdit*>(widget);
}

bool isEnter(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

Adapter::Adapter(Field& field, QWidget& widget, const UserActs& acts)
    : field_(field), acts_(acts), widget_(widget), ownToolTip_(widget.toolTip()) {}

void Adapter::showAll() {
  for (const Property property : {Property::entries,
                                  Property::details,
                                  Property::text,
                                  Property::value,
                                  Property::enabled,
                                  Property::locked,
                                  Property::visible,
                                  Property::fault,
                                  Property::backColour,
                                  Property::width})
    show(property);
}

void Adapter::show(Property property) {
  switch (property) {
    case Property::text: return showText();
    case Property::value: return showValue();
    case Property::entries: return showEntries();
    case Property::details:
    case Property::current: return showDetails();
    case Property::enabled: return widget_.setEnabled(field_.enabled());
    case Property::visible: return widget_.setVisible(field_.visible());
    case Property::toolTip: return showToolTip();
    case Property::fault: return showFault();
    case Property::locked: showLocked(); return showColours();
    case Property::backColour:
    case Property::foreColour:
    case Property::fillColour: return showColours();
    case Property::width: return showWidth();
    case Property::height:
    case Property::picture: return showPicture();
    default: return;
  }
}

bool Adapter::takeKey(QWidget& at, const QKeyEvent& key) {
  QLineEdit* line = lineOf(&at);
  if (!line || line->isReadOnly()) return false;
  const auto typeInstead = [&](int code, const QString& text) {
    QKeyEvent other(QEvent::KeyPress, code, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&at, &other);
    return true;
  };
  if (isEnter(key.key())) return typeInstead(Qt::Key_Tab, "\t");
  if (key.text() == "," && !line->property("freeText").toBool()) return typeInstead(Qt::Key_Period, ".");
  if (key.key() != Qt::Key_Escape || !field_.over()) return false;
  acts_.send(field_, Event::cancel);
  return true;
}

void Adapter::typed(const QString& text) const {
  field_.setText(text.toStdString());
  acts_.send(field_, Event::change);
}

void Adapter::showToolTip() const {
  QStringList tips;
  if (!field_.fault().empty()) tips << shown(field_.fault());
  if (widget_.property("pattern").isValid() && !field_.text().empty()) tips << shown(field_.text());
  const QString tip = field_.toolTip().empty() ? ownToolTip_ : shown(field_.toolTip());
  if (!tip.isEmpty()) tips << tip;
  widget_.setWhatsThis(plainTip(tip));
  widget_.setToolTip(plainTip(tips.join("\n\n")));
}

void Adapter::showFault() {
  if (field_.fault().empty())
    delete frame_;
  else if (!frame_)
    frame_ = new FaultFrame(widget_);
  showToolTip();
}

void Adapter::showColours() const {
  const bool faded = field_.foreColour() == Colour{SystemColour::disabledText};
  const Colour back = field_.backColour();
  QString sheet;
  if (back != defaultBackColour(field_.kind()) && back.system == SystemColour::none && !faded)
    // Marked fields are light, so their text is dark in every theme.
    sheet = QString("#%1 { background-color: %2; color: black } #%1:disabled { color: gray }")
                .arg(widget_.objectName(), qt(colourText(back)));
  if (widget_.styleSheet() != sheet) widget_.setStyleSheet(sheet);

  QPalette palette;
  if (faded)
    for (const auto role : {QPalette::Text, QPalette::WindowText}) palette.setColor(role, fadedText(QPalette()));
  if (field_.locked()) palette.setBrush(QPalette::Base, Qt::transparent);
  colour(palette);
  widget_.setPalette(palette);
}

}  // namespace noldarz
