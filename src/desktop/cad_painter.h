// Paints items of a scene on an image. What is smaller than a pixel is a dot, a text too small to be read a line.
#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <vector>

#include "desktop/cad_ink.h"
#include "desktop/cad_view.h"

namespace noldarz {

class CadPainter {
 public:
  struct Look {
    double pixel = 1;  ///< width of a line (px)
    bool smooth = false;
  };

  /// `image`: of 32 bits a pixel. It must stay unshared while this lives.
  CadPainter(QImage& image, const Scene& scene, const CadView& view, const CadInk& ink, const Look& look);

  /// Clears a part of the image, and paints nowhere else.
  void clear(const QRect& part);
  void paint(const SceneItem& item);

 private:
  void dot(const QPointF& at, QRgb colour);
  void chain(const SceneItem& item, QRgb colour);
  void drawLine();
  void text(const SceneItem& item, QRgb colour);
  void use(QRgb colour);

  const Scene& scene_;
  const CadView& view_;
  const CadInk& ink_;
  QRgb* pixels_;
  qsizetype pixelsPerLine_;
  QRect part_;
  double pixel_;
  bool smooth_;
  QPainter painter_;
  QFont font_;
  double capital_;  // height of a capital, of a pixel of the font's size
  QRgb pen_ = 0;
  std::vector<QPointF> line_;
};

}  // namespace noldarz
