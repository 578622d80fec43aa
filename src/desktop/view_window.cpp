#include "desktop/view_window.h"

#include <QCloseEvent>
#include <QLayout>
#include <QScreen>

#include "desktop/form_sizes.h"
#include "desktop/page.h"
#include "desktop/window_place.h"

namespace noldarz {

ViewWindow::ViewWindow(View& view, const Settings& settings, Front front)
    : view_(view), settings_(settings), front_(std::move(front)) {}

QSize ViewWindow::firstSize() const {
  // What was measured before the window shows is without the style.
  for (QWidget* widget : findChildren<QWidget*>()) {
    widget->ensurePolished();
    widget->updateGeometry();
  }
  for (QLayout* layout : findChildren<QLayout*>()) layout->invalidate();
  const QSize least = minimumSizeHint();
  const auto* page = findChild<Page*>();
  if (!page) return least;
  const QMargins margins = centralWidget()->layout()->contentsMargins();
  const QSize content = page->wholeSize() + QSize(4, 4);  // a text of a first press may need a little more
  const QSize whole{content.width() + margins.left() + margins.right(),
                    least.height() + content.height() - page->minimumSizeHint().height()};
  const QSize titleBar{8, 40};  // and borders, not known before the window shows
  return whole.expandedTo(least).boundedTo(screen()->availableSize() - titleBar);
}

void ViewWindow::appear() {
  if (!testAttribute(Qt::WA_Resized)) {
    if (!restorePlace(*this, settings_, view_.name())) resize(firstSize());
  }
  show();
}

void ViewWindow::disappear() {
  hide();
  if (findChild<Page*>()) keepPlace(*this, settings_, view_.name());  // others are of one size and in the middle
}

void ViewWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  front_.close();
}

void ViewWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) front_.themeChanged();
  if (event->type() == QEvent::FontChange) setWidths(*this);
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) front_.arrived();
}

}  // namespace noldarz
