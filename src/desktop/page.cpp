#include "desktop/page.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QScrollBar>

namespace noldarz {

Page::Page(QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now && widget() && widget()->isAncestorOf(now)) bringIntoView(*now);
  });
}

void Page::bringIntoView(const QWidget& part) {
  constexpr int margin = 12;  // px
  const QPoint centre = part.mapTo(widget(), part.rect().center());
  ensureVisible(centre.x(), centre.y(), (part.width() / 2) + margin, (part.height() / 2) + margin);
}

QBoxLayout* Page::parts() const { return widget() ? qobject_cast<QBoxLayout*>(widget()->layout()) : nullptr; }

QSize Page::wholeSize() const {
  const QBoxLayout* layout = parts();
  QSize whole;
  for (int i = 0; layout && i < layout->count(); ++i) {
    const QLayoutItem& part = *layout->itemAt(i);
    const int width = part.minimumSize().width();
    const int height = part.hasHeightForWidth() ? part.minimumHeightForWidth(width) : part.minimumSize().height();
    whole = {whole.width() + width + (i > 0 ? layout->spacing() : 0), qMax(whole.height(), height)};
  }
  return whole;
}

void Page::resizeEvent(QResizeEvent* event) {
  arrange();
  QScrollArea::resizeEvent(event);
}

bool Page::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widget() && event->type() == QEvent::LayoutRequest) arrange();  // a caption has another length
  return QScrollArea::eventFilter(watched, event);
}

void Page::arrange() {
  QBoxLayout* layout = parts();
  if (!layout) return;
  const QSize whole = wholeSize();
  const int bar = height() < whole.height() ? verticalScrollBar()->sizeHint().width() : 0;
  layout->setDirection(width() - bar < whole.width() ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

}  // namespace noldarz
