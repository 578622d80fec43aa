// Shows a canvas: what was added to its list since the last paint is painted on a picture in memory, and what moves
// over the canvas on top of that. A widget with the property `fits` shows the whole canvas in its own size; others are
// as large as the canvas.
#pragma once

#include <QPixmap>
#include <vector>

#include "desktop/drawn_widget.h"
#include "platform/canvas/replay.h"

class QScreen;

namespace noldarz {

class CanvasWidget : public DrawnWidget {
 public:
  using DrawnWidget::DrawnWidget;

  /// Shows the canvas from now on, and the shapes that move over it.
  void setCanvas(Canvas& canvas, std::vector<const Field*> overlays);
  /// Takes the size of the canvas, and is painted when there is more to see.
  void follow();
  bool fits() const { return property("fits").toBool(); }
  /// A place on the canvas (mm) on the widget (px).
  QPointF pixelOf(double x, double y) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  QPointF placeOf(QPointF pixel) const override;

 private:
  /// What a painted picture is good for.
  struct Ground {
    std::uint64_t generation = 0;
    QSize size;  // device pixels
    double scale = 0;
    qint64 palette = 0;
    bool operator==(const Ground&) const = default;
  };

  /// Pixels a millimetre.
  double scale() const;
  QSizeF drawnSize() const;
  QPointF corner() const;
  void catchUp();
  void begin(const Ground& ground);
  void paintOverlays(QPainter& painter) const;

  Canvas* canvas_ = nullptr;
  std::vector<const Field*> overlays_;
  QPixmap picture_;
  Ground ground_;
  Replay replay_;
};

/// Pixels a millimetre at which canvases are shown on the screen: its real ones where the screen tells plausible ones,
/// else those of its texts.
double dotsPerMillimetre(const QScreen& screen);

}  // namespace noldarz
