#include "desktop/cad_canvas.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <map>

#include "desktop/vector_state.h"

namespace noldarz {

namespace {

constexpr double wheelStep = 1.25;
constexpr double margin = 0.04;       // of the size, around what fits
constexpr double leastScale = 1e-11;  // pixels a unit; a drawing may be 2e12 of them wide
constexpr double mostScale = 1e9;
constexpr double snapDistance = 10;  // px
constexpr int firstTime = 25;        // ms that a paint may take before the old picture stands in
constexpr int idleTime = 15;         // ms between two looks at what the user does

/// What a typed point can begin with.
bool beginsPoint(const QString& words) {
  return !words.isEmpty() && (words[0].isDigit() || words[0] == '.' || words[0] == '-');
}

}  // namespace

CadCanvas::CadCanvas(const Scene& scene, QWidget* parent)
    : QWidget(parent), scene_(scene), index_(scene), picture_(scene_, index_), band_(QRubberBand::Rectangle, this) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAccessibleName("Drawing");
  idle_.setSingleShot(true);
  QObject::connect(&idle_, &QTimer::timeout, this, [this] { update(); });
}

void CadCanvas::follow() {
  picture_.outdate();
  followPointer();
  update();
}

void CadCanvas::show(const CadView& view) {
  const bool fine = view.scale >= leastScale && view.scale <= mostScale && std::isfinite(view.left + view.top);
  if (fine) view_ = view;
  followPointer();
  update();
}

void CadCanvas::fit() {
  constexpr double nothing = 100;  // units that are seen of an empty drawing
  SceneBox box = boundsOf(scene_).value_or(SceneBox{0, 0, nothing, nothing});
  if (box.left == box.right && box.bottom == box.top) box = {box.left - 1, box.bottom - 1, box.right + 1, box.top + 1};
  const QSizeF size = QSizeF(this->size()) * devicePixelRatioF();
  if (size.isEmpty()) return;
  show(CadView::around(box, size).scaled(1 - 2 * margin, QPointF(size.width(), size.height()) / 2));
  fitted_ = true;
}

void CadCanvas::zoom(double factor, std::optional<QPointF> about) {
  fitted_ = false;
  show(view_.scaled(factor, about.value_or(QRectF(rect()).center()) * devicePixelRatioF()));
}

void CadCanvas::pan(const QPoint& pixels) {
  fitted_ = false;
  show(view_.moved((QPointF(pixels) * devicePixelRatioF()).toPoint()));
}

void CadCanvas::setBoxing(bool on) {
  if (boxes_ == on) return;
  boxes_ = on;
  boxStart_.reset();
  band_.hide();
  setCursor(boxes_ || picking_ ? Qt::CrossCursor : Qt::ArrowCursor);
  if (boxing) boxing(on);
}

void CadCanvas::setPicking(bool picking) {
  picking_ = picking;
  setCursor(picking_ ? Qt::CrossCursor : Qt::ArrowCursor);
  followPointer();
}

void CadCanvas::setSnapping(bool snapping) {
  snapping_ = snapping;
  followPointer();
}

std::optional<ScenePoint> CadCanvas::cornerAt(const QPointF& pixel) const {
  const QRectF near(pixel.x() - snapDistance, pixel.y() - snapDistance, 2 * snapDistance, 2 * snapDistance);
  const ScenePoint low = placeOf(near.bottomLeft());
  const ScenePoint high = placeOf(near.topRight());
  const SceneBox box{low.x, low.y, high.x, high.y};
  std::vector<std::uint32_t> items;
  index_.find(scene_, box, items);
  for (std::size_t i = index_.size(); i < scene_.items.size(); ++i) items.push_back(static_cast<std::uint32_t>(i));
  const ScenePoint middle = placeOf(pixel);
  std::optional<ScenePoint> nearest;
  double least = snapDistance / scale();
  for (const std::uint32_t index : items) {
    const SceneItem& item = scene_.items[index];
    if (!scene_.layers[item.layer].visible || !item.box.meets(box)) continue;
    for (std::uint32_t i = item.first; i < item.first + item.count; ++i) {
      const double distance = std::hypot(scene_.points[i].x - middle.x, scene_.points[i].y - middle.y);
      if (!scene_.corners[i] || distance > least) continue;
      least = distance;
      nearest = scene_.points[i];
    }
  }
  return nearest;
}

void CadCanvas::point(const QPointF& pixel) {
  pointer_ = pixel;
  followPointer();
}

void CadCanvas::followPointer() {
  const auto before = snapped_;
  snapped_ = picking_ && snapping_ && pointer_ && !drag_ ? cornerAt(*pointer_) : std::nullopt;
  if (snapped_ != before) update();
  if (!pointed) return;
  pointed(snapped_ ? snapped_ : pointer_ ? std::optional{placeOf(*pointer_)} : std::nullopt);
}

void CadCanvas::paintEvent(QPaintEvent*) {
  const QSize size = (QSizeF(this->size()) * devicePixelRatioF()).toSize();
  const int time = painted_ ? firstTime : idleTime;
  painted_ = picture_.follow(view_, size, devicePixelRatioF(), CadInk{palette()}, time);
  QPainter painter(this);
  picture_.draw(painter);
  if (snapped_) {
    constexpr double half = 5;
    const QPointF at = pixelOf(*snapped_);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(QRectF(at.x() - half, at.y() - half, 2 * half, 2 * half));
  }
  if (hasFocus()) {
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
  if (!painted_) idle_.start(0);
  painter.end();
  clearVectorState();  // the logic may go on without an event between
}

void CadCanvas::resizeEvent(QResizeEvent*) {
  if (fitted_) fit();
}

void CadCanvas::mousePressEvent(QMouseEvent* event) {
  const bool left = event->button() == Qt::LeftButton;
  if (left && (boxes_ || event->modifiers().testFlag(Qt::ShiftModifier))) {
    boxStart_ = event->position().toPoint();
  } else if (left || event->button() == Qt::MiddleButton) {
    drag_ = Drag{event->position(), view_};
    setCursor(Qt::ClosedHandCursor);
  }
}

void CadCanvas::mouseMoveEvent(QMouseEvent* event) {
  if (boxStart_) {
    band_.setGeometry(QRect(*boxStart_, event->position().toPoint()).normalized());
    band_.show();
  }
  if (drag_ &&
      (!picking_ || (event->position() - drag_->start).manhattanLength() >= QApplication::startDragDistance())) {
    fitted_ = false;
    const QPointF by = (event->position() - drag_->start) * devicePixelRatioF();
    show(drag_->view.moved(by.toPoint()));
  }
  point(event->position());
}

void CadCanvas::mouseReleaseEvent(QMouseEvent* event) {
  if (boxStart_ && event->button() == Qt::LeftButton) endBox(event->position().toPoint());
  if (!drag_) return;
  const bool moved = (event->position() - drag_->start).manhattanLength() >= QApplication::startDragDistance();
  drag_.reset();
  setCursor(boxes_ || picking_ ? Qt::CrossCursor : Qt::ArrowCursor);
  point(event->position());
  const bool picks = picking_ && !moved && event->button() == Qt::LeftButton;  // a drag has panned
  if (picks && picked) picked(snapped_.value_or(placeOf(event->position())));
}

void CadCanvas::endBox(const QPoint& corner) {
  constexpr int least = 4;  // px
  const QRect box = QRect(*boxStart_, corner).normalized();
  boxStart_.reset();
  band_.hide();
  setBoxing(false);
  if (box.width() < least || box.height() < least) return;
  fitted_ = false;
  const ScenePoint low = placeOf(box.bottomLeft());
  const ScenePoint high = placeOf(box.topRight());
  show(CadView::around({low.x, low.y, high.x, high.y}, QSizeF(size()) * devicePixelRatioF()));
}

void CadCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
  event->button() == Qt::MiddleButton ? fit() : mousePressEvent(event);
}

void CadCanvas::wheelEvent(QWheelEvent* event) {
  constexpr double notch = 120;
  zoom(std::pow(wheelStep, event->angleDelta().y() / notch), event->position());
}

bool CadCanvas::event(QEvent* event) {
  // While a point is picked, a minus sign is the beginning of one.
  if (picking_ && event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->text() == "-") {
    event->accept();
    return true;
  }
  return QWidget::event(event);
}

void CadCanvas::keyPressEvent(QKeyEvent* event) {
  constexpr int part = 8;  // of the size
  static const std::map<int, QPoint> ways{
      {Qt::Key_Left, {1, 0}}, {Qt::Key_Right, {-1, 0}}, {Qt::Key_Up, {0, 1}}, {Qt::Key_Down, {0, -1}}};
  const auto way = ways.find(event->key());
  const QString words = event->text();
  if (way != ways.end()) {
    pan({way->second.x() * width() / part, way->second.y() * height() / part});
  } else if (event->key() == Qt::Key_Escape && boxes_) {
    setBoxing(false);
  } else if (picking_ && typed && beginsPoint(words)) {
    typed(words);
  } else {
    QWidget::keyPressEvent(event);
  }
}

void CadCanvas::leaveEvent(QEvent*) {
  pointer_.reset();
  followPointer();
}

}  // namespace noldarz
