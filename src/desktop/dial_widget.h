// Paints a dial as its view has it: circles, arms and letters are fields that lie in the field of the dial, whose unit
// is the twip. A dial with more than these derives from it.
#pragma once

#include <vector>

#include "desktop/drawn_widget.h"
#include "platform/field.h"

namespace noldarz {

/// A shape without a width of its line, which an arm has.
bool isCircle(const Field& part);

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

  /// What of the ground is seen (twips): its circle with the letters around, or else all of it.
  virtual QRectF seen() const;
  /// What lies below arms and letters.
  virtual void paintCircles(QPainter& painter) const;
  /// A letter beyond the tip of its arm.
  virtual void paintLetter(QPainter& painter, const Field& letter) const;

  const std::vector<const Field*>& parts() const { return parts_; }
  QPointF pixelOf(double x, double y) const;
  /// The square around a part (px).
  QRectF pixelsOf(const Field& part) const;

 private:
  /// Pixels a twip.
  double scale() const;
  void paintGround(QPainter& painter) const;
  void paintArm(QPainter& painter, const Field& arm) const;

  const Field* ground_ = nullptr;
  std::vector<const Field*> parts_;
};

}  // namespace noldarz
