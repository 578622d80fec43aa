#include "desktop/plot_window.h"

#include <QLayout>

#include "desktop/canvas_widget.h"
#include "plot/fields.h"

namespace noldarz {

namespace {

constexpr const char* isExpanded = "expanded";

/// Over the canvas, where the field says.
void layOver(QWidget& widget, const Field& field, CanvasWidget& canvas, const Field& drawing) {
  const auto pixelOf = [&](double x, double y) {
    return canvas.pixelOf(x * millimetresPerTwip, y * millimetresPerTwip).toPoint();
  };
  const QPoint size = pixelOf(field.width(), field.height());
  QRect place(pixelOf(field.left() - drawing.left(), field.top() - drawing.top()), QSize(size.x(), size.y()));
  if (widget.hasHeightForWidth()) place.setHeight(std::max(place.height(), widget.heightForWidth(place.width())));
  widget.setGeometry(place);
}

}  // namespace

void followExpansion(ViewWindow& window) {
  View& view = window.view();
  const Field& drawing = *view.find("Drw1");
  auto& canvas = dynamic_cast<CanvasWidget&>(*window.findChild<QWidget*>("Drw1"));
  auto& side = *window.findChild<QWidget*>("side");
  const bool expands = view.find("Expscrn")->caption() == shrinkCaption;
  const bool changes = window.property(isExpanded).toBool() != expands;
  window.setProperty(isExpanded, expands);
  int row = 0;
  for (const char* name : {"North_wndDialPic", "lndFRme"}) {
    QWidget& widget = *window.findChild<QWidget*>(name);
    const Field& field = *view.find(name);
    if (changes) {
      expands ? widget.setParent(&canvas) : static_cast<QBoxLayout*>(side.layout())->insertWidget(row, &widget);
      widget.setVisible(field.visible());
    }
    if (expands) layOver(widget, field, canvas, drawing);
    ++row;
  }
  if (!changes) return;
  const int margin = expands ? 0 : 6;  // px
  window.centralWidget()->layout()->setContentsMargins(margin, margin, margin, margin);
  side.setVisible(!expands);
  window.findChild<QWidget*>("header")->setVisible(!expands);
  expands ? window.showMaximized() : window.showNormal();
}

}  // namespace noldarz
