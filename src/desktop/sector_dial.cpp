#include "desktop/sector_dial.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <optional>

#include "desktop/theme.h"

namespace noldarz {

namespace {

constexpr double fullTurn = 360;
constexpr double north = 90;  // degrees of the painter: counterclockwise from the right

/// What the view has shaded the part with.
std::optional<QColor> fillOf(const Field& part) {
  const Colour fill = part.fillColour();
  if (fill == Colour{} || fill.system != SystemColour::none) return std::nullopt;
  return QColor::fromRgb(fill.rgb);
}

QColor saturated(const QColor& colour, float times) {
  const QColor hsv = colour.toHsv();
  return QColor::fromHsvF(hsv.hueF(), std::min(1.F, hsv.saturationF() * times), hsv.valueF()).toRgb();
}

/// As strong as the text over it allows. The colours of a view are light, as paper is.
QColor shadeOf(std::optional<QColor> one, std::optional<QColor> other, const QPalette& palette) {
  constexpr double faint = 0.3;
  constexpr double strong = 0.45;
  constexpr int darker = 115;  // percent
  const bool meet = one && other;
  const QColor colour = meet ? mixed(*one, *other, 1. / 2) : one.value_or(other.value_or(QColor()));
  if (isDark(palette)) return mixed(saturated(colour, 2), palette.color(QPalette::Base), meet ? strong : faint);
  return meet ? saturated(colour, 2).darker(darker) : colour;
}

/// A piece of a ring; the hole of the innermost ring is a point.
QPainterPath cell(const QRectF& ring, const QRectF& hole, double from, double width) {
  QPainterPath path;
  path.arcMoveTo(ring, from);
  path.arcTo(ring, from, width);
  if (hole.isEmpty())
    path.lineTo(ring.center());
  else
    path.arcTo(hole, from + width, -width);
  path.closeSubpath();
  return path;
}

QPointF onRim(const QRectF& ring, double angle) {
  QPainterPath path;
  path.arcMoveTo(ring, angle);
  return path.currentPosition();
}

}  // namespace

QRectF SectorDial::seen() const {
  constexpr double roomForCaption = 150;  // twips; it stands on the outermost ring
  QRectF rings;
  for (const Field* part : parts())
    if (isCircle(*part)) rings |= QRectF(part->left(), part->top(), part->width(), part->height());
  return rings.adjusted(-roomForCaption, -roomForCaption, roomForCaption, roomForCaption);
}

void SectorDial::paintCircles(QPainter& painter) const {
  std::vector<const Field*> rings;
  std::vector<const Field*> sectors;
  for (const Field* part : parts())
    if (isCircle(*part)) (part->width() > 0 ? rings : sectors).push_back(part);
  std::sort(
      rings.begin(), rings.end(), [](const Field* one, const Field* other) { return one->width() < other->width(); });
  if (rings.empty()) return;
  shade(painter, rings, sectors);
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(Qt::NoBrush);
  for (const Field* ring : rings) painter.drawEllipse(pixelsOf(*ring));
  const QRectF rim = pixelsOf(*rings.back());
  const double width = fullTurn / static_cast<double>(std::max<std::size_t>(sectors.size(), 1));
  for (std::size_t i = 0; i < sectors.size(); ++i)
    painter.drawLine(rim.center(), onRim(rim, north + (width / 2) - (width * static_cast<double>(i))));
}

void SectorDial::shade(QPainter& painter, const std::vector<const Field*>& rings,
                       const std::vector<const Field*>& sectors) const {
  const double width = fullTurn / static_cast<double>(std::max<std::size_t>(sectors.size(), 1));
  painter.setPen(Qt::NoPen);
  QRectF hole;
  for (const Field* ring : rings) {
    double from = north + (width / 2);
    for (const Field* sector : sectors) {
      if (fillOf(*ring) || fillOf(*sector)) {
        painter.setBrush(shadeOf(fillOf(*ring), fillOf(*sector), palette()));
        painter.drawPath(cell(pixelsOf(*ring), hole, from, -width));
      }
      from -= width;
    }
    hole = pixelsOf(*ring);
  }
}

void SectorDial::paintLetter(QPainter& painter, const Field& letter) const {
  if (letter.name() == "wndlbl") return DialWidget::paintLetter(painter, letter);
  const QString text = QString::fromStdString(letter.caption());
  QRectF place(QPointF(), fontMetrics().size(Qt::TextSingleLine, text));
  place.moveCenter(pixelOf(letter.left(), letter.top()));
  QColor paper = palette().color(QPalette::Base);
  constexpr double opacity = 0.75;  // rings and shade shine through
  paper.setAlphaF(opacity);
  painter.setPen(Qt::NoPen);
  painter.setBrush(paper);
  painter.drawRoundedRect(place.adjusted(-2, 1, 2, -1), 3, 3);
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(place, Qt::AlignCenter, text);
}

}  // namespace noldarz
