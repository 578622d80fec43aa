#include "desktop/drawn_widget.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <QMouseEvent>
#include <QPalette>
#include <map>

#include "desktop/theme.h"

namespace noldarz {

namespace {

PointerEvent::Button buttonOf(Qt::MouseButtons buttons) {
  if (buttons & Qt::LeftButton) return PointerEvent::Button::left;
  return buttons & Qt::RightButton ? PointerEvent::Button::right : PointerEvent::Button::none;
}

}  // namespace

DrawnWidget::DrawnWidget(QWidget* parent) : QWidget(parent) { setMouseTracking(true); }

void DrawnWidget::tell(PointerEvent::Act act, const QMouseEvent& event, Qt::MouseButtons buttons) const {
  if (!pointed) return;
  const QPointF place = placeOf(event.position());
  pointed({.act = act,
           .button = buttonOf(buttons),
           .x = place.x(),
           .y = place.y(),
           .shift = event.modifiers().testFlag(Qt::ShiftModifier),
           .control = event.modifiers().testFlag(Qt::ControlModifier)});
}

void DrawnWidget::mousePressEvent(QMouseEvent* event) { tell(PointerEvent::Act::down, *event, event->button()); }
void DrawnWidget::mouseMoveEvent(QMouseEvent* event) { tell(PointerEvent::Act::move, *event, event->buttons()); }
void DrawnWidget::mouseReleaseEvent(QMouseEvent* event) { tell(PointerEvent::Act::up, *event, event->button()); }
void DrawnWidget::mouseDoubleClickEvent(QMouseEvent* event) { tell(PointerEvent::Act::twice, *event, event->button()); }

KeyEvent keyEventOf(const QKeyEvent& key) {
  static const std::map<int, const char*> names{{Qt::Key_Return, "Enter"},
                                                {Qt::Key_Enter, "Enter"},
                                                {Qt::Key_Escape, "Escape"},
                                                {Qt::Key_PageUp, "PageUp"},
                                                {Qt::Key_PageDown, "PageDown"},
                                                {Qt::Key_Delete, "Delete"},
                                                {Qt::Key_Insert, "Insert"}};
  const auto found = names.find(key.key());
  std::string name = found != names.end() ? found->second : QKeySequence(key.key()).toString().toStdString();
  const bool isLetter = key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z;
  if (isLetter) name = QString(QChar(key.key())).toLower().toStdString();
  for (const auto& [modifier, before] :
       {std::pair{Qt::AltModifier, "Alt+"}, {Qt::ControlModifier, "Ctrl+"}, {Qt::ShiftModifier, "Shift+"}})
    if (key.modifiers().testFlag(modifier)) name.insert(0, before);
  return {name};
}

QColor onScreen(Colour colour, const QPalette& palette) {
  switch (colour.system) {
    case SystemColour::windowBackground: return palette.color(QPalette::Base);
    case SystemColour::windowText: return palette.color(QPalette::Text);
    case SystemColour::buttonFace: return palette.color(QPalette::Button);
    case SystemColour::buttonText: return palette.color(QPalette::ButtonText);
    case SystemColour::disabledText: return fadedText(palette);
    case SystemColour::none: break;
  }
  const QColor plain = QColor::fromRgb(colour.rgb);
  const bool grey = plain.red() == plain.green() && plain.green() == plain.blue();
  return grey && isDark(palette) ? mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), plain.redF())
                                 : plain;
}

}  // namespace noldarz
