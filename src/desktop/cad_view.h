// Which part of a drawing a picture shows, and how large: drawing units to pixels of the device, y up to y down.
#pragma once

#include <QPointF>
#include <QSize>
#include <cmath>

#include "platform/cad/scene.h"

namespace noldarz {

struct CadView {
  double left = 0;   ///< drawing units at the left edge
  double top = 0;    ///< and at the upper one
  double scale = 1;  ///< pixels a unit

  QPointF pixelOf(const ScenePoint& place) const { return {(place.x - left) * scale, (top - place.y) * scale}; }
  ScenePoint placeOf(const QPointF& pixel) const { return {left + pixel.x() / scale, top - pixel.y() / scale}; }
  /// What lies in a rectangle of the picture.
  SceneBox boxOf(const QRectF& pixels) const {
    const ScenePoint corner = placeOf(pixels.topLeft());
    const ScenePoint opposite = placeOf(pixels.bottomRight());
    return {corner.x, opposite.y, opposite.x, corner.y};
  }
  /// The view in which the drawing has moved by so many pixels.
  CadView moved(const QPointF& by) const { return {left - by.x() / scale, top + by.y() / scale, scale}; }
  /// The view with another scale, in which the pixel shows the same place.
  CadView scaled(double factor, const QPointF& about) const {
    const ScenePoint place = placeOf(about);
    const double to = scale * factor;
    return {place.x - about.x() / to, place.y + about.y() / to, to};
  }
  /// The view that shows the whole box in the middle.
  static CadView around(const SceneBox& box, const QSizeF& size) {
    const double width = std::max(box.right - box.left, 1e-9);
    const double height = std::max(box.top - box.bottom, 1e-9);
    CadView view;
    view.scale = std::min(size.width() / width, size.height() / height);
    view.left = (box.left + box.right) / 2 - size.width() / view.scale / 2;
    view.top = (box.bottom + box.top) / 2 + size.height() / view.scale / 2;
    return view;
  }
  bool operator==(const CadView&) const = default;
};

}  // namespace noldarz
