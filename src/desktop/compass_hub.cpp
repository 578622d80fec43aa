#include "desktop/compass_hub.h"

#include <QPainter>
#include <QPolygonF>
#include <algorithm>

namespace noldarz {

void CompassHub::paintEvent(QPaintEvent*) {
  constexpr int orientations = 8;
  constexpr double fullTurn = 360;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(QRectF(rect()).center());
  const double rim = (std::min(width(), height()) / 2.0) - 1;  // where an arrow begins
  const double ring = rim * 0.8;                               // where its point touches
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawEllipse(QPointF{}, ring, ring);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().color(QPalette::Highlight));
  const double half = (rim - ring) / 2;
  for (int i = 0; i < orientations; ++i) {
    painter.drawPolygon(QPolygonF{{0, -ring}, {-half, -rim}, {half, -rim}});
    painter.rotate(fullTurn / orientations);
  }
}

}  // namespace noldarz
