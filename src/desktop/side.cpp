#include "desktop/side.h"

#include <QBoxLayout>
#include <QEvent>
#include <QGroupBox>

#include "desktop/canvas_widget.h"

namespace noldarz {

Side::Side(QWidget* parent) : QWidget(parent) {}

QWidget* Side::part(int index) const { return findChildren<QGroupBox*>(Qt::FindDirectChildrenOnly).value(index); }

QWidget* Side::shownIn(int index) const {
  for (QWidget* widget : part(index)->findChildren<QWidget*>())
    if (dynamic_cast<CanvasWidget*>(widget)) return widget;
  return nullptr;
}

int Side::heightOf(std::initializer_list<const QWidget*> parts) const {
  int height = layout()->itemAt(layout()->count() - 1)->minimumSize().height();  // Redo, below both
  for (const QWidget* one : parts) height += one->minimumSizeHint().height() + layout()->spacing();
  return height;
}

QSize Side::minimumSizeHint() const {
  return part(0) ? QSize(part(0)->minimumSizeHint().width(), heightOf({part(0)})) : QWidget::minimumSizeHint();
}

void Side::begin() {
  layout()->setSizeConstraint(QLayout::SetNoConstraint);
  layout()->setContentsMargins(0, 0, 0, 0);
  tabs_ = new QTabBar(this);
  tabs_->setDrawBase(false);
  for (int i = 0; i < 2; ++i) tabs_->addTab(static_cast<QGroupBox*>(part(i))->title());
  auto& column = static_cast<QBoxLayout&>(*layout());
  column.insertWidget(0, tabs_);
  column.setStretchFactor(part(0), 1);
  column.setStretchFactor(part(1), 2);
  connect(tabs_, &QTabBar::currentChanged, this, &Side::arrange);
  shownIn(1)->installEventFilter(this);
}

bool Side::event(QEvent* event) {
  const bool done = QWidget::event(event);
  const auto type = event->type();
  if (type != QEvent::Polish && type != QEvent::Resize && type != QEvent::Show) return done;
  if (!tabs_ && part(1)) begin();
  arrange();
  return done;
}

bool Side::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) arrange();
  return QWidget::eventFilter(watched, event);
}

void Side::arrange() {
  if (!tabs_) return;
  const bool two = !shownIn(1)->isHidden();
  const bool room = height() >= heightOf({part(0), part(1)});
  tabs_->setVisible(two && !room);
  part(0)->setVisible(!two || room || tabs_->currentIndex() == 0);
  part(1)->setVisible(two && (room || tabs_->currentIndex() == 1));
}

}  // namespace noldarz
