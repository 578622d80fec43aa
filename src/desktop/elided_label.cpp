#include "desktop/elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace noldarz {

bool ElidedLabel::event(QEvent* event) {
  const bool isCut = fontMetrics().horizontalAdvance(text()) > contentsRect().width();
  if (event->type() != QEvent::ToolTip || !isCut) return QLabel::event(event);
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
  return true;
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect place = contentsRect();
  style()->drawItemText(&painter,
                        place,
                        static_cast<int>(alignment()) | Qt::TextSingleLine,
                        palette(),
                        isEnabled(),
                        fontMetrics().elidedText(text(), Qt::ElideRight, place.width()),
                        foregroundRole());
}

}  // namespace noldarz
