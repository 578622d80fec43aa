#include "desktop/fault_frame.h"

#include <QEvent>
#include <QPainter>
#include <QPolygonF>

namespace noldarz {

namespace {

constexpr int line = 2;  // width of the frame, outside of the widget

}  // namespace

FaultFrame::FaultFrame(QWidget& marked) : QWidget(marked.parentWidget()), marked_(marked) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  marked.installEventFilter(this);
  QObject::connect(&marked, &QObject::destroyed, this, &QObject::deleteLater);
  follow();
}

bool FaultFrame::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide: follow(); break;
    default: break;
  }
  return false;
}

void FaultFrame::follow() {
  setGeometry(marked_.geometry().adjusted(-line, -line, line, line));
  setVisible(!marked_.isHidden());
  raise();
}

void FaultFrame::paintEvent(QPaintEvent*) {
  const QColor red{0xd0, 0x30, 0x30};
  constexpr double corner = 9;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(red, line));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 2, 2);
  painter.setPen(Qt::NoPen);
  painter.setBrush(red);
  painter.drawPolygon(QPolygonF{{0, 0}, {corner, 0}, {0, corner}});
}

}  // namespace noldarz
