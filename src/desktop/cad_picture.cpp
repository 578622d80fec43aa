#include "desktop/cad_picture.h"

#include <QElapsedTimer>
#include <cmath>
#include <cstring>
#include <utility>

namespace noldarz {

namespace {

constexpr std::size_t mostSmooth = 20'000;  // items that are painted smooth
constexpr double overlap = 2;               // px that a line may reach beyond its box

/// Moves what is painted; what comes into sight keeps what was there.
void scroll(QImage& image, const QPoint& by) {
  const int rows = image.height() - std::abs(by.y());
  const auto bytes = static_cast<std::size_t>(image.width() - std::abs(by.x())) * sizeof(QRgb);
  const auto from = static_cast<std::ptrdiff_t>(std::max(-by.x(), 0) * static_cast<int>(sizeof(QRgb)));
  const auto to = static_cast<std::ptrdiff_t>(std::max(by.x(), 0) * static_cast<int>(sizeof(QRgb)));
  for (int i = 0; i < rows; ++i) {
    const int row = by.y() > 0 ? image.height() - 1 - i : i;
    std::memmove(image.scanLine(row) + to, image.constScanLine(row - by.y()) + from, bytes);
  }
}

}  // namespace

void CadPicture::outdate() {
  current_ = false;
  coming_.reset();
}

std::vector<std::uint32_t> CadPicture::itemsIn(const SceneBox& box) const {
  std::vector<std::uint32_t> items;
  index_.find(scene_, box, items);
  for (std::size_t i = index_.size(); i < scene_.items.size(); ++i)  // what was added lies on top
    if (scene_.items[i].box.meets(box)) items.push_back(static_cast<std::uint32_t>(i));
  return items;
}

std::optional<QPoint> CadPicture::moveBetween(const Painting& painting, const CadView& view) {
  constexpr double whole = 0.02;  // px
  if (painting.image.isNull() || painting.view.scale != view.scale) return {};
  const QPointF by = view.pixelOf({painting.view.left, painting.view.top});
  const double farthest = 4. * std::max(painting.image.width(), painting.image.height());
  if (std::fabs(by.x()) > farthest || std::fabs(by.y()) > farthest) return {};
  const QPoint pixels = by.toPoint();
  if (std::fabs(by.x() - pixels.x()) > whole || std::fabs(by.y() - pixels.y()) > whole) return {};
  return pixels;
}

bool CadPicture::moveTo(const CadView& view) {
  const auto by = moveBetween(shown_, view);
  QImage& image = shown_.image;
  if (!by || std::abs(by->x()) >= image.width() || std::abs(by->y()) >= image.height()) return false;
  shown_.view = view;
  if (by->isNull()) return true;
  scroll(image, *by);
  const QRect kept = image.rect().intersected(image.rect().translated(*by));
  if (by->x() != 0)
    paintPart(
        shown_,
        by->x() > 0 ? QRect(0, 0, by->x(), image.height()) : QRect(kept.right() + 1, 0, -by->x(), image.height()));
  if (by->y() != 0)
    paintPart(shown_,
              by->y() > 0 ? QRect(kept.left(), 0, kept.width(), by->y())
                          : QRect(kept.left(), kept.bottom() + 1, kept.width(), -by->y()));
  return true;
}

void CadPicture::paintPart(Painting& painting, const QRect& part) const {
  CadPainter painter(painting.image, scene_, painting.view, *ink_, {ratio_, painting.smooth});
  painter.clear(part);
  for (const std::uint32_t item :
       itemsIn(painting.view.boxOf(QRectF(part).adjusted(-overlap, -overlap, overlap, overlap))))
    painter.paint(scene_.items[item]);
}

bool CadPicture::follow(const CadView& view, const QSize& size, double devicePixelRatio, const CadInk& ink,
                        int milliseconds) {
  if (ink_ != ink || ratio_ != devicePixelRatio) outdate();
  ink_ = ink;
  ratio_ = devicePixelRatio;
  view_ = view;
  if (size.isEmpty()) return true;
  if (current_ && shown_.image.size() == size && moveTo(view)) {
    coming_.reset();
    return true;
  }
  const auto off = coming_ ? moveBetween(*coming_, view) : std::nullopt;
  const bool serves = off && coming_->image.size() == size && std::abs(off->x()) < size.width() / 2 &&
                      std::abs(off->y()) < size.height() / 2;
  if (!serves) begin(view, size);
  if (!goOn(milliseconds)) return false;
  shown_ = std::move(*coming_);
  coming_.reset();
  current_ = true;
  return moveTo(view);
}

void CadPicture::begin(const CadView& view, const QSize& size) {
  coming_ = Painting{QImage(size, QImage::Format_RGB32), view, false, {}, 0};
  coming_->image.fill(ink_->ground());
  coming_->items = itemsIn(view.boxOf(QRectF(QPointF(), size).adjusted(-overlap, -overlap, overlap, overlap)));
  coming_->smooth = coming_->items.size() <= mostSmooth;
}

bool CadPicture::goOn(int milliseconds) {
  constexpr std::size_t betweenLooks = 128;  // items
  QElapsedTimer timer;
  timer.start();
  CadPainter painter(coming_->image, scene_, coming_->view, *ink_, {ratio_, coming_->smooth});
  while (coming_->painted < coming_->items.size()) {
    painter.paint(scene_.items[coming_->items[coming_->painted++]]);
    if (coming_->painted % betweenLooks == 0 && timer.elapsed() >= milliseconds) return false;
  }
  return true;
}

void CadPicture::draw(QPainter& painter) const {
  const Painting& best = shown_.image.isNull() && coming_ ? *coming_ : shown_;
  if (best.image.isNull()) return;
  const double factor = view_.scale / best.view.scale;
  const QPointF corner = view_.pixelOf({best.view.left, best.view.top});
  const QRectF place(corner / ratio_, QSizeF(best.image.size()) * factor / ratio_);
  if (ink_) painter.fillRect(painter.viewport(), QColor(ink_->ground()));
  if (place.isValid() && place.intersects(painter.viewport())) painter.drawImage(place, best.image);
}

}  // namespace noldarz
