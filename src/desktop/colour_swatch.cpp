#include "desktop/colour_swatch.h"

#include <QPainter>

#include "desktop/drawn_widget.h"
#include "plot/fields.h"

namespace noldarz {

QSize ColourSwatch::sizeHint() const { return {2 * fontMetrics().height(), fontMetrics().height() / 2}; }

void ColourSwatch::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(onScreen(levelColour(property("level").toInt()), palette()));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace noldarz
