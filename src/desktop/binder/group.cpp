#include "desktop/binder/group.h"

#include <QAbstractButton>
#include <QVariant>
#include <QWidget>
#include <cstdlib>

namespace noldarz {

namespace {

constexpr const char* groupProperty = "group";

/// One step on the screen; none for another key.
QPoint stepOf(int key) {
  switch (key) {
    case Qt::Key_Left: return {-1, 0};
    case Qt::Key_Right: return {1, 0};
    case Qt::Key_Up: return {0, -1};
    case Qt::Key_Down: return {0, 1};
    default: return {};
  }
}

}  // namespace

bool isArrow(int key) { return !stepOf(key).isNull(); }

bool isGrouped(const QWidget& widget) { return widget.property(groupProperty).isValid(); }

QList<QWidget*> groupOf(const QWidget& widget) {
  QList<QWidget*> members;
  const QVariant group = widget.property(groupProperty);
  for (QWidget* sibling : widget.parentWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
    if (group.isValid() && sibling->property(groupProperty) == group) members << sibling;
  return members;
}

QWidget* pressedOf(const QWidget& window, const QString& group) {
  for (auto* button : window.findChildren<QAbstractButton*>())
    if (button->isChecked() && button->property(groupProperty) == group) return button;
  return nullptr;
}

QWidget* neighbourOf(const QWidget& widget, int key) {
  const QPoint step = stepOf(key);
  const QPoint aside{step.y(), step.x()};
  QWidget* nearest = nullptr;
  int least = 0;
  for (QWidget* member : groupOf(widget)) {
    const QPoint way = member->geometry().center() - widget.geometry().center();
    const int ahead = QPoint::dotProduct(way, step);
    const int beside = std::abs(QPoint::dotProduct(way, aside));
    if (ahead <= beside || !member->isEnabled() || !member->isVisible()) continue;
    if (nearest && ahead + beside >= least) continue;
    nearest = member;
    least = ahead + beside;
  }
  return nearest;
}

}  // namespace noldarz
