// A dial of compass sectors and rings round a source, with the wind over it. Rings and sectors that their view fills
// with a colour are shaded, and the cells where both meet more strongly.
#pragma once

#include "desktop/dial_widget.h"

namespace noldarz {

/// Shapes of the dial are arms, rings (with a place) and sectors (without: they are of one width, clockwise, the first
/// one to the north). Labels stand at their places, that of the wind at its arm.
class SectorDial : public DialWidget {
 public:
  using DialWidget::DialWidget;

  bool hasHeightForWidth() const override { return false; }

 protected:
  QRectF seen() const override;
  void paintCircles(QPainter& painter) const override;
  void paintLetter(QPainter& painter, const Field& letter) const override;

 private:
  void shade(QPainter& painter, const std::vector<const Field*>& rings, const std::vector<const Field*>& sectors) const;
};

}  // namespace noldarz
