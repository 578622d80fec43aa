#include "desktop/cad_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QTimer>

#include "desktop/cad_canvas.h"
#include "desktop/cad_layers.h"
#include "desktop/elided_label.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr const char* boxTitle = "QUENDARIS";
constexpr const char* pickPrompt = "Pick the point, or type its coordinates X,Y and press Enter; Escape gives up.";
constexpr const char* dxfFilter = "Drawing exchange format (*.dxf)";
constexpr const char* dwgFilter = "Drawing (*.dwg)";

void prepare(QMessageBox& box, QMessageBox::Icon icon, const QString& text) {
  box.setWindowTitle(boxTitle);
  box.setTextFormat(Qt::PlainText);
  box.setIcon(icon);
  box.setText(text);
}

}  // namespace

CadWindow::CadWindow(std::shared_ptr<DxfDrawing> drawing, Front front)
    : drawing_(std::move(drawing)),
      front_(std::move(front)),
      scene_(sceneOf(drawing_->content())),
      items_(scene_.items.size()),
      points_(scene_.points.size()),
      texts_(scene_.texts.size()) {
  build();
  showNotShown();
  showPlace({});
  resize(QSize(1100, 750));
  canvas_->setFocus();
  setPicking(false);
  showAdded();
  constexpr int interval = 100;      // ms
  auto* changes = new QTimer(this);  // of who drives the drawing, also while he waits in a box
  QObject::connect(changes, &QTimer::timeout, this, [this] {
    if (revision_ != drawing_->revision()) follow();
  });
  changes->start(interval);
}

void CadWindow::follow() {
  if (revision_ != drawing_->revision()) showAdded();
  const QString name = QString::fromStdString(drawing_->name()).replace("[*]", "[*][*]");
  setWindowTitle(name + "[*] - NOLDA-RZ drawing");
  setWindowModified(drawing_->modified());
}

void CadWindow::showAdded() {
  revision_ = drawing_->revision();
  scene_.items.resize(items_);
  scene_.points.resize(points_);
  scene_.corners.resize(points_);
  scene_.texts.resize(texts_);
  for (const ChangedLayer& layer : drawing_->changedLayers()) setSceneLayer(scene_, layer.name, layer.colour);
  for (const AddedEntity& entity : drawing_->added()) addToScene(scene_, entity);
  layers_->follow();
  canvas_->follow();
  follow();
}

void CadWindow::pick(Picked picked) {
  picked_ = std::move(picked);
  typed_->clear();
  asked_->setText(pickPrompt);
  setPicking(true);
  canvas_->setFocus();
}

void CadWindow::endPick() {
  picked_ = nullptr;
  setPicking(false);
}

void CadWindow::setPicking(bool picking) {
  if (!picking && focusWidget() && pickBar_->isAncestorOf(focusWidget())) canvas_->setFocus();  // the bar goes
  pickBar_->setVisible(picking);
  canvas_->setPicking(picking);
  typeCoordinates_->setEnabled(picking);
  giveUp_->setEnabled(picking);
}

void CadWindow::giveUp() { canvas_->isBoxing() ? canvas_->setBoxing(false) : take({}); }

void CadWindow::take(const std::optional<CadPoint>& point) {
  if (const Picked picked = std::exchange(picked_, nullptr)) picked(point);
  setPicking(false);
}

void CadWindow::takeTyped() {
  const QString text = typed_->text();
  if (const auto point = parsePoint(text.toStdString())) return take(CadPoint{(*point)[0], (*point)[1], 0});
  asked_->setText("\"" + text + "\" is no point. Type X,Y with \".\" as the decimal sign, such as 1250.5,-40.");
  typed_->selectAll();
}

bool CadWindow::saving(const std::function<void()>& work) {
  QString fault;
  {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto pointer = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
    try {
      work();
    } catch (const std::exception& error) {  // nothing is lost: the drawing stays as it is
      fault = QString::fromUtf8(error.what());
    }
  }
  follow();
  if (fault.isEmpty()) return true;
  front_.whileUserWorks([&] {
    QMessageBox box(this);
    prepare(box, QMessageBox::Critical, fault);
    box.exec();
  });
  return false;
}

bool CadWindow::save() {
  return saving([this] { drawing_->save(); });
}

bool CadWindow::saveAs() {
  QString file;
  front_.whileUserWorks([&] {
    QFileDialog dialog(this, "Save the drawing as");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters({dxfFilter, dwgFilter});
    dialog.setDefaultSuffix("dxf");
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
      dialog.setDefaultSuffix(filter == dwgFilter ? "dwg" : "dxf");
    });
    dialog.setDirectory(QString::fromStdString(drawing_->file().parent_path().string()));
    dialog.selectFile(QString::fromStdString(drawing_->name()));
    if (dialog.exec() == QDialog::Accepted) file = dialog.selectedFiles().value(0);
  });
  return !file.isEmpty() && saving([&] { drawing_->saveAs(file.toStdString()); });
}

bool CadWindow::mayClose(bool mayCancel) {
  while (drawing_->modified()) {
    int reply = QMessageBox::Cancel;
    QAbstractButton* discards = nullptr;
    const QAbstractButton* chosen = nullptr;
    front_.whileUserWorks([&] {
      QMessageBox box(this);
      prepare(box, QMessageBox::Question, QString("Save the changes to \"%1\"?").arg(drawing_->name().c_str()));
      box.addButton(QMessageBox::Save);
      discards = box.addButton("&Don't save", QMessageBox::DestructiveRole);
      if (mayCancel) box.addButton(QMessageBox::Cancel);
      box.setDefaultButton(QMessageBox::Save);
      reply = box.exec();
      chosen = box.clickedButton();
    });
    if (chosen && chosen == discards) return true;
    if (reply == QMessageBox::Save)
      save() || (!drawing_->isCurrent() && saveAs());
    else if (mayCancel)
      return false;
  }
  return true;
}

void CadWindow::closeForGood() {
  closesForGood_ = true;
  close();
}

void CadWindow::closeEvent(QCloseEvent* event) {
  take({});
  const bool closes = mayClose(!closesForGood_);
  event->setAccepted(closes);
  if (closes) front_.closed();
}

void CadWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && layers_) layers_->follow();
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) follow();
}

void CadWindow::showPlace(const std::optional<ScenePoint>& place) {
  constexpr double most = 1e15;
  const auto text = [](double value) { return std::abs(value) < most ? Format(value, "0.00") : std::string{"-"}; };
  place_->setText(place ? QString::fromStdString(text(place->x) + ", " + text(place->y)) : QString());
}

void CadWindow::showNotShown() {
  QStringList kinds;
  for (const auto& [kind, count] : scene_.notShown) kinds << QString("%1 %2").arg(count).arg(kind.c_str());
  QString text = kinds.isEmpty() ? QString() : "Not shown: " + kinds.join(", ");
  if (!scene_.isWhole) text = "The drawing is too large to be shown whole. " + text;
  notShown_->setText(text);
}

}  // namespace noldarz
