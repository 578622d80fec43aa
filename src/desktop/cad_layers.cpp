#include "desktop/cad_layers.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>

#include "desktop/cad_ink.h"
#include "desktop/theme.h"

namespace noldarz {

namespace {

QIcon swatch(QRgb colour, const QWidget& widget) {
  const int size = widget.fontMetrics().height();
  QPixmap picture(size, size);
  picture.fill(QColor(colour));
  QPainter painter(&picture);
  painter.setPen(widget.palette().color(QPalette::Mid));
  painter.drawRect(0, 0, size - 1, size - 1);
  return QIcon(picture);
}

}  // namespace

CadLayers::CadLayers(Scene& scene, QWidget* parent)
    : QWidget(parent), scene_(scene), words_(new QLineEdit(this)), list_(new QListWidget(this)) {
  auto* all = new QPushButton("Show &all", this);
  auto* none = new QPushButton("&Hide all", this);
  words_->setObjectName("layerFilter");
  words_->setPlaceholderText("Part of a layer's name");
  words_->setClearButtonEnabled(true);
  words_->setToolTip("Lists only the layers whose names hold this text");
  words_->setAccessibleName("Part of a layer's name");
  list_->setObjectName("layerList");
  list_->setAccessibleName("Layers");
  list_->setToolTip("Space or a click on its box shows or hides a layer here; the file stays as it is");
  all->setToolTip("Shows the listed layers");
  none->setToolTip("Hides the listed layers");
  auto* layout = new QGridLayout(this);
  layout->addWidget(words_, 0, 0, 1, 2);
  layout->addWidget(list_, 1, 0, 1, 2);
  layout->addWidget(all, 2, 0);
  layout->addWidget(none, 2, 1);
  QObject::connect(words_, &QLineEdit::textChanged, this, [this] { filter(); });
  QObject::connect(all, &QPushButton::clicked, this, [this] { showAll(true); });
  QObject::connect(none, &QPushButton::clicked, this, [this] { showAll(false); });
  QObject::connect(list_, &QListWidget::itemChanged, this, [this](const QListWidgetItem* item) {
    scene_.layers[static_cast<std::size_t>(list_->row(item))].visible = item->checkState() == Qt::Checked;
    if (changed) changed();
  });
  follow();
}

void CadLayers::follow() {
  const QSignalBlocker blocker(list_);
  const CadInk ink{palette()};
  for (std::size_t i = 0; i < scene_.layers.size(); ++i) {
    const SceneLayer& layer = scene_.layers[i];
    const int row = static_cast<int>(i);
    if (row == list_->count()) {
      list_->addItem(QString::fromStdString(layer.name));
      list_->item(row)->setToolTip(plainTip(QString::fromStdString(layer.name)));
    }
    QListWidgetItem& item = *list_->item(row);
    item.setCheckState(layer.visible ? Qt::Checked : Qt::Unchecked);
    item.setIcon(swatch(ink.ofIndex(layer.colour), *list_));
  }
  filter();
}

QSize CadLayers::sizeHint() const {
  constexpr int characters = 24;
  return {characters * fontMetrics().averageCharWidth(), QWidget::sizeHint().height()};
}

void CadLayers::filter() {
  for (int row = 0; row < list_->count(); ++row)
    list_->item(row)->setHidden(!list_->item(row)->text().contains(words_->text(), Qt::CaseInsensitive));
}

void CadLayers::showAll(bool visible) {
  for (int row = 0; row < list_->count(); ++row)
    if (!list_->item(row)->isHidden()) scene_.layers[static_cast<std::size_t>(row)].visible = visible;
  follow();
  if (changed) changed();
}

}  // namespace noldarz
