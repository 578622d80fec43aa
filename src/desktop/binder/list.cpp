// A list of entries with details. By keyboard the space bar is a click on the entry, Enter a double click.

#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>

#include "desktop/binder/kinds.h"
#include "desktop/entry_delegate.h"
#include "desktop/theme.h"

namespace noldarz {

namespace {

class ListAdapter : public Adapter {
 public:
  ListAdapter(Field& field, QListWidget& list, const UserActs& acts) : Adapter(field, list, acts), list_(list) {
    list.setItemDelegate(new EntryDelegate(&list));
    connect(&list, &QListWidget::itemClicked, this, [this] { pick(); });
    connect(&list, &QListWidget::itemDoubleClicked, this, [this] {
      field_.select(list_.currentRow());
      acts_.send(field_, Event::dblClick);
    });
  }
  std::vector<QWidget*> parts() const override { return {&list_, list_.viewport()}; }
  bool takeKey(QWidget& at, const QKeyEvent& key) override {
    if (&at != &list_ || key.isAutoRepeat()) return false;
    acts_.settle();
    const bool enter = isEnter(key.key());
    if ((enter || key.key() == Qt::Key_Space) && pick() && enter) acts_.send(field_, Event::dblClick);
    return false;
  }
  bool isAimStill(const QEvent& event) const override {
    const auto entry = [&] {
      const QListWidgetItem* item = list_.itemAt(static_cast<const QMouseEvent&>(event).position().toPoint());
      return item ? item->text() : QString{};
    };
    const QString aimedAt = entry();
    acts_.settle();
    return entry() == aimedAt;
  }

 private:
  bool pick() {
    if (list_.currentRow() < 0) return false;
    field_.select(list_.currentRow());
    acts_.send(field_, Event::click);
    return true;
  }
  void showText() override { list_.setCurrentRow(field_.listIndex()); }
  /// In place: an entry that is under a double click stays.
  void showEntries() override {
    const int count = static_cast<int>(field_.entries().size());
    while (list_.count() > count) delete list_.takeItem(list_.count() - 1);
    while (list_.count() < count) list_.addItem("");
    for (int i = 0; i < count; ++i) list_.item(i)->setText(shown(field_.entries()[static_cast<std::size_t>(i)]));
    list_.setCurrentRow(field_.listIndex());
  }
  void showDetails() override {
    for (int i = 0; i < list_.count(); ++i) {
      QListWidgetItem& item = *list_.item(i);
      const auto position = static_cast<std::size_t>(i);
      const EntryDetail detail = position < field_.details().size() ? field_.details()[position] : EntryDetail{};
      item.setData(EntryDelegate::detailRole, shown(detail.text));
      item.setToolTip(plainTip(shown(detail.toolTip)));
      QFont font = list_.font();
      font.setBold(i == field_.current());
      item.setFont(font);
    }
  }

  QListWidget& list_;
};

}  // namespace

std::unique_ptr<Adapter> listAdapter(Field& field, QWidget& widget, const UserActs& acts) {
  auto* list = qobject_cast<QListWidget*>(&widget);
  return list ? std::make_unique<ListAdapter>(field, *list, acts) : nullptr;
}

}  // namespace noldarz
