// Paints a dial as its view has it: circle, arms and letters are fields that lie in the field of the dial, whose unit
// is the twip.
#pragma once

#include <vector>

#include "desktop/drawn_widget.h"
#include "platform/field.h"

namespace noldarz {

class DialWidget : public DrawnWidget {
 public:
  using DrawnWidget::DrawnWidget;

  /// Shows the fields from now on, which lie in `ground`.
  void setParts(const Field& ground, std::vector<const Field*> parts);

  QSize sizeHint() const override { return minimumSize(); }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override { return width; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  QPointF placeOf(QPointF pixel) const override;

 private:
  /// What of the ground is seen (twips).
  QRectF seen() const;
  /// Pixels a twip.
  double scale() const;
  QPointF pixelOf(double x, double y) const;
  void paintDisc(QPainter& painter) const;
  void paintArm(QPainter& painter, const Field& arm) const;
  void paintLetter(QPainter& painter, const Field& letter) const;

  const Field* ground_ = nullptr;
  std::vector<const Field*> parts_;
};

}  // namespace noldarz
