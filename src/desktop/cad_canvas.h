// The widget on which a drawing is seen: panned and zoomed with pointer and keys, and points picked on it.
#pragma once

#include <QRubberBand>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>

#include "desktop/cad_picture.h"

namespace noldarz {

class CadCanvas : public QWidget {
 public:
  /// `scene` outlives it, and its items stay; more may come behind them.
  explicit CadCanvas(const Scene& scene, QWidget* parent = nullptr);

  /// The place under the pointer, or on which it snaps; nothing when it has left.
  std::function<void(std::optional<ScenePoint>)> pointed;
  std::function<void(ScenePoint)> picked;
  /// The user types while he is to pick a point.
  std::function<void(const QString&)> typed;
  /// The next press draws the box that is to be seen, or not any more.
  std::function<void(bool)> boxing;

  /// There is more or less to see than before.
  void follow();
  void fit();
  /// About the middle, or the pixel.
  void zoom(double factor, std::optional<QPointF> about = std::nullopt);
  void pan(const QPoint& pixels);
  void setBoxing(bool on);
  bool isBoxing() const { return boxes_; }
  void setPicking(bool picking);
  void setSnapping(bool snapping);

  QPointF pixelOf(const ScenePoint& place) const { return view_.pixelOf(place) / devicePixelRatioF(); }
  ScenePoint placeOf(const QPointF& pixel) const { return view_.placeOf(pixel * devicePixelRatioF()); }
  double scale() const { return view_.scale / devicePixelRatioF(); }
  /// Whether what is shown is the drawing as it is.
  bool isPainted() const { return painted_; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void show(const CadView& view);
  void point(const QPointF& pixel);
  void followPointer();
  void endBox(const QPoint& corner);
  /// The end or corner of a visible item that is nearest to the pixel, when it is near.
  std::optional<ScenePoint> cornerAt(const QPointF& pixel) const;

  const Scene& scene_;
  SceneIndex index_;
  CadPicture picture_;
  CadView view_;
  bool fitted_ = true;  // the user has not chosen another view
  bool painted_ = true;
  bool picking_ = false;
  bool snapping_ = false;
  bool boxes_ = false;
  std::optional<QPointF> pointer_;
  std::optional<ScenePoint> snapped_;
  std::optional<QPoint> boxStart_;
  QRubberBand band_;
  /// Where a drag began, and what was seen then.
  struct Drag {
    QPointF start;
    CadView view;
  };
  std::optional<Drag> drag_;
  QTimer idle_;
};

}  // namespace noldarz
