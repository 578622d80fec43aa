#include "desktop/canvas_widget.h"

#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <algorithm>
#include <cmath>

#include "desktop/vector_state.h"
#include "platform/canvas/stroke_clip.h"

namespace noldarz {

namespace {

constexpr double millimetresPerInch = 25.4;
constexpr double strokePixel = millimetresPerInch / 96;  // mm
constexpr double pointsPerInch = 72;

/// Paints in the pixels of a picture.
class PixelPainter : public Painter {
 public:
  PixelPainter(QPaintDevice& picture, double scale, const Canvas& canvas, const QPalette& palette)
      : painter_(&picture),
        scale_(scale),
        pixel_(1 / picture.devicePixelRatioF()),
        palette_(palette),
        box_{-margin, -margin, canvas.ScaleWidth() + margin, canvas.ScaleHeight() + margin} {
    font_.setPointSizeF(textSize * scale * pointsPerInch / picture.logicalDpiY());
  }

  void dot(Point at, Colour colour) override { painter_.fillRect(QRectF(on(at), QSizeF(pixel_, pixel_)), of(colour)); }

  void polyline(std::span<const Point> points, const Stroke& stroke) override {
    painter_.setPen(QPen(of(stroke.colour),
                         std::max(stroke.width * strokePixel * scale_, pixel_),
                         Qt::SolidLine,
                         Qt::RoundCap,
                         points.size() > denseStroke ? Qt::BevelJoin : Qt::RoundJoin));
    painter_.setBrush(Qt::NoBrush);
    painter_.setRenderHint(QPainter::Antialiasing, !isStraight(points));
    for (const auto& piece : clipped(points, box_)) {
      QPolygonF line;
      for (const Point& point : piece) line << on(point);
      painter_.drawPolyline(line);
    }
  }

  void circle(Point centre, double radius, const Stroke& stroke) override {
    polyline(circleLine(centre, radius), stroke);
  }

  void text(Point at, std::string_view line, bool bold, bool transparent) override {
    const bool legible = textSize * scale_ > leastText && at.x <= box_.right && at.y <= box_.bottom;
    if (line.empty() || !legible) return;
    font_.setBold(bold);
    const QString words = QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size()));
    const QFontMetricsF metrics(font_, painter_.device());
    const QPointF corner = on(at);
    if (!transparent) {
      const double blanks = metrics.horizontalAdvance(words.left(static_cast<qsizetype>(leadingBlanks(line))));
      const QSizeF size(metrics.horizontalAdvance(words) - blanks, textLine * scale_);
      painter_.fillRect(QRectF(corner + QPointF(blanks, 0), size), of(SystemColour::windowBackground));
    }
    painter_.setPen(of(SystemColour::windowText));
    painter_.setFont(font_);
    painter_.drawText(corner + QPointF(0, metrics.ascent()), words);
  }

 private:
  /// Lines along the edges of the paper are sharp without smoothing.
  static bool isStraight(std::span<const Point> points) {
    return points.size() == 2 && (points[0].x == points[1].x || points[0].y == points[1].y);
  }
  QPointF on(Point point) const { return {point.x * scale_, point.y * scale_}; }
  QColor of(Colour colour) const { return onScreen(colour, palette_); }

  static constexpr std::size_t denseStroke = 100;  // points, from which on no eye sees the joins
  static constexpr double margin = 10;             // mm, for the width of the strokes
  static constexpr double leastText = 3;           // px
  QPainter painter_;
  double scale_;
  double pixel_;
  const QPalette& palette_;
  Box box_;
  QFont font_;
};

}  // namespace

double dotsPerMillimetre(const QScreen& screen) {
  constexpr double least = 50;
  constexpr double most = 400;
  const double real = screen.physicalDotsPerInch();
  return (real >= least && real <= most ? real : screen.logicalDotsPerInch()) / millimetresPerInch;
}

void CanvasWidget::setCanvas(Canvas& canvas, std::vector<const Field*> overlays) {
  canvas_ = &canvas;
  overlays_ = std::move(overlays);
  if (fits()) setCursor(Qt::PointingHandCursor);
  follow();
}

double CanvasWidget::scale() const {
  if (!fits()) return dotsPerMillimetre(*screen());
  const double width = canvas_->ScaleWidth();
  const double height = canvas_->ScaleHeight();
  return width > 0 && height > 0 ? std::min(this->width() / width, this->height() / height) : 0;
}

QSizeF CanvasWidget::drawnSize() const { return QSizeF(canvas_->ScaleWidth(), canvas_->ScaleHeight()) * scale(); }

QPointF CanvasWidget::corner() const {
  const QSizeF spare = fits() ? QSizeF(size()) - drawnSize() : QSizeF(0, 0);
  return {spare.width() / 2, spare.height() / 2};
}

QPointF CanvasWidget::pixelOf(double x, double y) const { return corner() + QPointF(x, y) * scale(); }

QPointF CanvasWidget::placeOf(QPointF pixel) const {
  if (!canvas_) return {};
  const double pixels = scale();
  return pixels > 0 ? (pixel - corner()) / pixels : QPointF();
}

void CanvasWidget::follow() {
  if (!fits()) setFixedSize(drawnSize().toSize());
  if (canvas_->isOutdated() || ground_.generation != canvas_->generation() ||
      replay_.painted() != canvas_->drawing().primitives.size())
    update();
}

void CanvasWidget::begin(const Ground& ground) {
  ground_ = ground;
  picture_ = QPixmap(ground.size);
  picture_.setDevicePixelRatio(devicePixelRatioF());
  picture_.fill(onScreen(SystemColour::windowBackground, palette()));
  replay_ = Replay(std::max(visibleDistance, 0.5 / (ground.scale * devicePixelRatioF())));
  const auto& behind = canvas_->picture();
  if (!behind) return;
  const QImage image(reinterpret_cast<const uchar*>(behind->pixels.data()),
                     behind->width,
                     behind->height,
                     QImage::Format_ARGB32_Premultiplied);
  QPainter painter(&picture_);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(QRectF(QPointF(), QSizeF(image.size()) * behind->pixelSize * ground.scale), image);
}

void CanvasWidget::catchUp() {
  const Ground now{canvas_->generation(), (drawnSize() * devicePixelRatioF()).toSize(), scale(), palette().cacheKey()};
  if (now != ground_) begin(now);
  if (picture_.isNull() || replay_.painted() == canvas_->drawing().primitives.size()) return;
  PixelPainter painter(picture_, ground_.scale, *canvas_, palette());
  replay_.paint(canvas_->drawing(), painter);
}

void CanvasWidget::paintEvent(QPaintEvent*) {
  if (!canvas_) return;
  clearVectorState();
  canvas_->bringUpToDate();
  catchUp();
  QPainter painter(this);
  painter.drawPixmap(corner(), picture_);
  paintOverlays(painter);
  if (!hasFocus() || fits()) return;
  painter.setPen(palette().color(QPalette::Highlight));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void CanvasWidget::paintOverlays(QPainter& painter) const {
  constexpr double seenThrough = 0.25;
  painter.setRenderHint(QPainter::Antialiasing);
  for (const Field* shape : overlays_) {
    if (!shape->visible()) continue;
    const QPointF from = pixelOf(shape->left(), shape->top());
    const QPointF to = pixelOf(shape->left() + shape->width(), shape->top() + shape->height());
    if (shape->value() > 0) {  // a line
      painter.setPen(QPen(onScreen(SystemColour::windowText, palette()), shape->value() * strokePixel * scale()));
      painter.drawLine(from, to);
    } else {  // a band
      QColor fill = onScreen(shape->fillColour(), palette());
      fill.setAlphaF(seenThrough);
      painter.fillRect(QRectF(from, to).normalized(), fill);
    }
  }
}

}  // namespace noldarz
