#include "desktop/dial_widget.h"

#include <QPainter>
#include <algorithm>

namespace noldarz {

namespace {

constexpr double roomForLetters = 440;  // twips around a circle

}  // namespace

bool isCircle(const Field& part) { return part.kind() == FieldKind::shape && part.value() == 0; }

void DialWidget::setParts(const Field& ground, std::vector<const Field*> parts) {
  ground_ = &ground;
  parts_ = std::move(parts);
}

QRectF DialWidget::seen() const {
  const auto circle = std::find_if(parts_.begin(), parts_.end(), [](const Field* part) { return isCircle(*part); });
  if (circle == parts_.end()) return {0, 0, ground_->width(), ground_->height()};
  const QRectF around((*circle)->left(), (*circle)->top(), (*circle)->width(), (*circle)->height());
  return around.adjusted(-roomForLetters, -roomForLetters, roomForLetters, roomForLetters);
}

double DialWidget::scale() const {
  const QRectF part = seen();
  return part.isEmpty() ? 0 : std::min(width() / part.width(), height() / part.height());
}

QPointF DialWidget::pixelOf(double x, double y) const {
  return (QPointF(x, y) - seen().center()) * scale() + QRectF(rect()).center();
}

QRectF DialWidget::pixelsOf(const Field& part) const {
  return {pixelOf(part.left(), part.top()), pixelOf(part.left() + part.width(), part.top() + part.height())};
}

QPointF DialWidget::placeOf(QPointF pixel) const {
  if (!ground_) return {};
  const double pixels = scale();
  return pixels > 0 ? (pixel - QRectF(rect()).center()) / pixels + seen().center() : QPointF();
}

void DialWidget::paintEvent(QPaintEvent*) {
  if (!ground_) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  paintGround(painter);
  paintCircles(painter);
  for (const Field* part : parts_)
    if (part->visible() && part->kind() == FieldKind::shape && !isCircle(*part)) paintArm(painter, *part);
  for (const Field* part : parts_)
    if (part->visible() && part->kind() == FieldKind::label) paintLetter(painter, *part);
}

void DialWidget::paintGround(QPainter& painter) const {
  constexpr double focusLine = 2;
  constexpr double corner = 4;
  const QColor edge = palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid);
  painter.setPen(QPen(edge, hasFocus() ? focusLine : 1));
  painter.setBrush(palette().color(QPalette::Base));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), corner, corner);
}

void DialWidget::paintCircles(QPainter& painter) const {
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(Qt::NoBrush);
  for (const Field* part : parts_)
    if (isCircle(*part)) painter.drawEllipse(pixelsOf(*part));
}

void DialWidget::paintArm(QPainter& painter, const Field& arm) const {
  painter.setPen(QPen(onScreen(arm.foreColour(), palette()), arm.value(), Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(pixelOf(arm.left(), arm.top()), pixelOf(arm.left() + arm.width(), arm.top() + arm.height()));
}

void DialWidget::paintLetter(QPainter& painter, const Field& letter) const {
  const QString text = QString::fromStdString(letter.caption());
  QRectF place(QPointF(), fontMetrics().size(Qt::TextSingleLine, text));
  // The place is an end of an arm: the letter stands beyond it, and beside it.
  QLineF outwards(pixelOf(seen().center().x(), seen().center().y()), pixelOf(letter.left(), letter.top()));
  const double gap = place.height() * 2 / 3;
  outwards.setLength(outwards.length() + gap);
  const QLineF beside = outwards.normalVector().unitVector();  // so that no other arm covers it
  place.moveCenter(outwards.p2() - gap * (beside.p2() - beside.p1()));
  const QRectF room = QRectF(rect()).adjusted(4, 4, -4, -4);
  place.moveLeft(std::clamp(place.left(), room.left(), std::max(room.left(), room.right() - place.width())));
  place.moveTop(std::clamp(place.top(), room.top(), std::max(room.top(), room.bottom() - place.height())));
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(place, Qt::AlignCenter, text);
}

}  // namespace noldarz
