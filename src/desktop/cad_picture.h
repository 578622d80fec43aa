// A scene as a picture that follows a view: when the view moves, what is painted moves with it and only what comes into
// sight is painted; when it changes its scale, the old picture stands in, scaled, until the new one is painted.
#pragma once

#include <QImage>
#include <optional>
#include <vector>

#include "desktop/cad_painter.h"
#include "platform/cad/scene_index.h"

namespace noldarz {

class CadPicture {
 public:
  /// `scene` stays and may grow behind the items that the index knows.
  CadPicture(const Scene& scene, const SceneIndex& index) : scene_(scene), index_(index) {}

  /// The scene, or what is visible of it, has changed.
  void outdate();
  /// Paints what the view shows on a picture of that size (pixels of the device), for about so many milliseconds.
  /// Whether all is painted; if not, it goes on at the next call.
  bool follow(const CadView& view, const QSize& size, double devicePixelRatio, const CadInk& ink, int milliseconds);
  /// What there is, as the view of the last call shows it.
  void draw(QPainter& painter) const;

 private:
  struct Painting {
    QImage image;
    CadView view;
    bool smooth = false;
    std::vector<std::uint32_t> items;
    std::size_t painted = 0;  // of the items
  };

  bool moveTo(const CadView& view);
  /// Pixels by which the view lies beside that of the painting; nothing when another scale or a part of a pixel is
  /// between them.
  static std::optional<QPoint> moveBetween(const Painting& painting, const CadView& view);
  void begin(const CadView& view, const QSize& size);
  bool goOn(int milliseconds);
  void paintPart(Painting& painting, const QRect& part) const;
  std::vector<std::uint32_t> itemsIn(const SceneBox& box) const;

  const Scene& scene_;
  const SceneIndex& index_;
  std::optional<CadInk> ink_;
  double ratio_ = 1;
  CadView view_;
  Painting shown_;
  bool current_ = false;  // what is shown is of the scene as it is
  std::optional<Painting> coming_;
};

}  // namespace noldarz
