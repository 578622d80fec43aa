#include "desktop/form_sizes.h"

#include <QFrame>
#include <QLineEdit>

namespace noldarz {

void scaleFonts(const QWidget& form) {
  for (QWidget* widget : form.findChildren<QWidget*>()) {
    const double scale = widget->property("fontScale").toDouble();
    if (scale == 0) continue;
    QFont font = widget->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    widget->setFont(font);
  }
}

void setWidths(const QWidget& form) {
  for (QWidget* widget : form.findChildren<QWidget*>()) {
    const auto width = widthInCharacters(widget);
    if (!width) continue;
    if (qobject_cast<QLineEdit*>(widget))
      widget->setSizePolicy(QSizePolicy::Preferred, widget->sizePolicy().verticalPolicy());
    if (qobject_cast<QFrame*>(widget))
      widget->setMinimumWidth(*width);  // a label, a list: their size is not the style's
  }
}

std::optional<int> widthInCharacters(const QWidget* widget) {
  const int characters = widget ? widget->property("characters").toInt() : 0;
  if (characters == 0) return std::nullopt;
  const int frame = 2 * widget->fontMetrics().averageCharWidth();
  return (characters * widget->fontMetrics().horizontalAdvance('0')) + frame;
}

}  // namespace noldarz
