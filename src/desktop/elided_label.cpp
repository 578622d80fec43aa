#include "desktop/elided_label.h"

#include <QPainter>
#include <QStyle>

namespace noldarz {

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
