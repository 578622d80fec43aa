// A widget that the program paints itself and that the user works with pointer and keys: what he does there is told in
// the unit of its field.
#pragma once

#include <QWidget>
#include <functional>

#include "platform/colour.h"
#include "platform/pointer_event.h"

namespace noldarz {

class DrawnWidget : public QWidget {
 public:
  explicit DrawnWidget(QWidget* parent = nullptr);

  /// Takes what the pointer does, from a press on also outside of the widget.
  std::function<void(const PointerEvent&)> pointed;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

  /// A place on the widget (px) in the unit of the field.
  virtual QPointF placeOf(QPointF pixel) const = 0;

 private:
  void tell(PointerEvent::Act act, const QMouseEvent& event, Qt::MouseButtons buttons) const;
};

/// The name of a key, with what is held beside it.
KeyEvent keyEventOf(const QKeyEvent& key);

/// The colour on the screen, of a drawing or a shape. Greys lie as far from the ground as they do on white paper, so
/// that a grid stays in the background of a dark theme.
QColor onScreen(Colour colour, const QPalette& palette);

}  // namespace noldarz
