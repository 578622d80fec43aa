#include "desktop/entry_delegate.h"

#include <QApplication>
#include <QPainter>

#include "desktop/theme.h"

namespace noldarz {

namespace {

constexpr int margin = 3;

QFont smaller(QFont font) {
  font.setBold(false);
  font.setPointSizeF(font.pointSizeF() * 0.88);
  return font;
}

}  // namespace

QSize EntryDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyleOptionViewItem entry = option;
  initStyleOption(&entry, index);
  const bool hasDetail = !index.data(detailRole).toString().isEmpty();
  const int detail = hasDetail ? QFontMetrics(smaller(entry.font)).height() : 0;
  return {0, QFontMetrics(entry.font).height() + detail + (2 * margin)};
}

void EntryDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyleOptionViewItem entry = option;
  initStyleOption(&entry, index);
  const QString text = entry.text;
  entry.text.clear();
  const QStyle& style = entry.widget ? *entry.widget->style() : *QApplication::style();
  style.drawControl(QStyle::CE_ItemViewItem, &entry, painter, entry.widget);

  const bool selected = (entry.state & QStyle::State_Selected) != 0;
  const QColor plain = entry.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
  QRect place = entry.rect.adjusted(margin, margin, -margin, -margin);
  const auto line = [&](const QString& words, const QFont& font, const QColor& colour) {
    const QFontMetrics metrics(font);
    painter->setFont(font);
    painter->setPen(colour);
    painter->drawText(place,
                      static_cast<int>(Qt::AlignLeft | Qt::AlignTop) | Qt::TextSingleLine,
                      metrics.elidedText(words, Qt::ElideRight, place.width()));
    place.setTop(place.top() + metrics.height());
  };
  painter->save();
  line(text, entry.font, plain);
  line(index.data(detailRole).toString(), smaller(entry.font), selected ? plain : fadedText(entry.palette));
  painter->restore();
}

}  // namespace noldarz
