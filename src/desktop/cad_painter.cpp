#include "desktop/cad_painter.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "desktop/theme.h"
#include "platform/canvas/stroke_clip.h"

namespace noldarz {

namespace {

constexpr double leastStep = 0.5;     // px between points of a chain
constexpr double leastText = 3;       // px
constexpr double mostText = 20'000;   // px
constexpr double farOutside = 8'000;  // px, beyond which lines are cut before they are painted

/// Such lines are sharp without smoothing.
bool isAlongAxes(const std::vector<QPointF>& line) {
  constexpr double level = 1e-3;  // px
  return std::adjacent_find(line.begin(), line.end(), [](const QPointF& a, const QPointF& b) {
           return std::fabs(a.x() - b.x()) > level && std::fabs(a.y() - b.y()) > level;
         }) == line.end();
}

}  // namespace

CadPainter::CadPainter(QImage& image, const Scene& scene, const CadView& view, const CadInk& ink, const Look& look)
    : scene_(scene),
      view_(view),
      ink_(ink),
      pixels_(reinterpret_cast<QRgb*>(image.bits())),
      pixelsPerLine_(image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb))),
      part_(image.rect()),
      pixel_(look.pixel),
      smooth_(look.smooth),
      painter_(&image) {
  constexpr int measured = 100;
  font_.setHintingPreference(QFont::PreferNoHinting);
  font_.setPixelSize(measured);
  const double capital = QFontMetricsF(font_).capHeight();
  capital_ = (capital > 0 ? capital : 0.7 * measured) / measured;
  painter_.setRenderHint(QPainter::TextAntialiasing);
  painter_.setBrush(Qt::NoBrush);
}

void CadPainter::clear(const QRect& part) {
  part_ = part;
  painter_.setClipRect(part);
  painter_.fillRect(part, QColor(ink_.ground()));
}

void CadPainter::paint(const SceneItem& item) {
  if (!scene_.layers[item.layer].visible) return;
  const QRgb colour = ink_.of(scene_, item);
  const double size = std::max(item.box.right - item.box.left, item.box.top - item.box.bottom) * view_.scale;
  if (item.kind == SceneItem::Kind::point) {
    const QPointF at = view_.pixelOf(scene_.points[item.first]);
    painter_.fillRect(QRectF(at.x() - pixel_, at.y() - pixel_, 2 * pixel_, 2 * pixel_), QColor(colour));
  } else if (size < 1) {
    dot(view_.pixelOf({item.box.left, item.box.top}), colour);
  } else if (item.kind == SceneItem::Kind::text) {
    text(item, colour);
  } else {
    chain(item, colour);
  }
}

void CadPainter::dot(const QPointF& at, QRgb colour) {
  if (!QRectF(part_).contains(at)) return;
  const auto x = static_cast<qsizetype>(at.x());
  const auto y = static_cast<qsizetype>(at.y());
  if (part_.contains(static_cast<int>(x), static_cast<int>(y))) pixels_[y * pixelsPerLine_ + x] = colour;
}

void CadPainter::use(QRgb colour) {
  if (pen_ == colour) return;
  pen_ = colour;
  QPen pen(QColor(colour), pixel_ > 1 ? pixel_ : 0);
  pen.setCosmetic(true);
  painter_.setPen(pen);
}

void CadPainter::chain(const SceneItem& item, QRgb colour) {
  use(colour);
  const auto* points = scene_.points.data() + item.first;
  line_.clear();
  for (std::uint32_t i = 0; i < item.count; ++i) {
    const QPointF at = view_.pixelOf(points[i]);
    const bool near = !line_.empty() && i + 1 < item.count && std::fabs(at.x() - line_.back().x()) < leastStep &&
                      std::fabs(at.y() - line_.back().y()) < leastStep;
    if (!near) line_.push_back(at);
  }
  const SceneBox seen = view_.boxOf(QRectF(part_).adjusted(-farOutside, -farOutside, farOutside, farOutside));
  const bool whole = item.box.left >= seen.left && item.box.right <= seen.right && item.box.bottom >= seen.bottom &&
                     item.box.top <= seen.top;
  if (whole) return drawLine();
  std::vector<Point> line;
  for (const QPointF& at : line_) line.push_back({at.x(), at.y()});
  constexpr double margin = 4;
  const QRectF box = QRectF(part_).adjusted(-margin, -margin, margin, margin);
  for (const auto& piece : clipped(line, {box.left(), box.top(), box.right(), box.bottom()})) {
    line_.clear();
    for (const Point& at : piece) line_.emplace_back(at.x, at.y);
    drawLine();
  }
}

void CadPainter::drawLine() {
  if (smooth_) painter_.setRenderHint(QPainter::Antialiasing, !isAlongAxes(line_));
  if (line_.size() == 2)
    painter_.drawLine(line_[0], line_[1]);
  else
    painter_.drawPolyline(line_.data(), static_cast<int>(line_.size()));
}

void CadPainter::text(const SceneItem& item, QRgb colour) {
  const SceneText& text = scene_.texts[item.text];
  const double height = text.height * view_.scale;  // px
  if (height > mostText) return;
  const QPointF at = view_.pixelOf(scene_.points[item.first]);
  const bool legible = height >= leastText * pixel_;
  const int size = std::clamp(static_cast<int>(std::lround(height / capital_)), 1, 400);
  painter_.save();
  painter_.translate(at);
  painter_.rotate(-text.angle * 180 / M_PI);
  if (legible) {
    const double factor = height / (capital_ * size);
    painter_.scale(factor * text.stretch, factor);
    if (font_.pixelSize() != size) font_.setPixelSize(size);
    const QString words = QString::fromStdString(text.text);
    painter_.setFont(font_);
    painter_.setPen(QColor(colour));
    const double width = text.across > 0 ? QFontMetricsF(font_).horizontalAdvance(words) : 0;
    painter_.drawText(QPointF(-text.across * width, text.up * capital_ * size), words);
  } else {
    const double width = height * text.stretch * 0.8 * static_cast<double>(text.text.size());
    painter_.setPen(mixed(QColor(colour), QColor(ink_.ground()), 0.5));
    painter_.drawLine(QPointF(-text.across * width, 0), QPointF((1 - text.across) * width, 0));
  }
  painter_.restore();
}

}  // namespace noldarz
