// Draws the entries of a list: their text, in bold for the entry in force, and below it in small what tells them apart.
#pragma once

#include <QStyledItemDelegate>

namespace noldarz {

class EntryDelegate : public QStyledItemDelegate {
 public:
  static constexpr int detailRole = Qt::UserRole;  ///< text of the second line; none when it is empty

  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace noldarz
