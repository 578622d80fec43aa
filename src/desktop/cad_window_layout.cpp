// What the window of a drawing is made of: canvas, layers, menus, tools, the line for a point and the status bar.
#include <QAction>
#include <QDockWidget>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>

#include "desktop/cad_canvas.h"
#include "desktop/cad_layers.h"
#include "desktop/cad_window.h"
#include "desktop/elided_label.h"
#include "desktop/help.h"

namespace noldarz {

namespace {

constexpr double zoomStep = 1.5;

}  // namespace

void CadWindow::build() {
  auto* page = new QWidget(this);
  canvas_ = new CadCanvas(scene_, page);
  canvas_->setObjectName("canvas");
  canvas_->setMinimumSize(200, 150);
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(canvas_, 1);
  layout->addWidget(pickBar());
  setCentralWidget(page);

  layers_ = new CadLayers(scene_, this);
  dock_ = new QDockWidget("Layers", this);
  dock_->setObjectName("layers");
  dock_->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
  dock_->setWidget(layers_);
  addDockWidget(Qt::RightDockWidgetArea, dock_);

  buildActions();
  place_ = new QLabel(this);
  place_->setObjectName("place");
  place_->setAccessibleName("Coordinates under the pointer");
  notShown_ = new ElidedLabel(this);
  notShown_->setObjectName("notShown");
  statusBar()->addPermanentWidget(notShown_, 1);
  statusBar()->addPermanentWidget(place_);

  layers_->changed = [this] { canvas_->follow(); };
  canvas_->pointed = [this](const auto& place) { showPlace(place); };
  canvas_->picked = [this](const ScenePoint& place) { take(CadPoint{place.x, place.y, 0}); };
  canvas_->typed = [this](const QString& words) {
    typed_->setText(words);
    typed_->setFocus();
  };
}

QWidget* CadWindow::pickBar() {
  pickBar_ = new QWidget(this);
  asked_ = new QLabel(pickBar_);
  asked_->setObjectName("asked");
  asked_->setTextFormat(Qt::PlainText);
  asked_->setWordWrap(true);
  typed_ = new QLineEdit(pickBar_);
  typed_->setObjectName("coordinates");
  typed_->setPlaceholderText("X,Y");
  typed_->setAccessibleName("Coordinates of the point, X,Y");
  typed_->setToolTip("The coordinates of the point in drawing units, such as 1250.5,-40; Enter takes them");
  asked_->setBuddy(typed_);
  auto* giveUp = new QPushButton("Give &up", pickBar_);
  giveUp->setToolTip("Picks no point (Escape)");
  auto* layout = new QHBoxLayout(pickBar_);
  layout->addWidget(asked_, 2);
  layout->addWidget(typed_, 1);
  layout->addWidget(giveUp);
  QObject::connect(typed_, &QLineEdit::returnPressed, this, [this] { takeTyped(); });
  QObject::connect(giveUp, &QPushButton::clicked, this, [this] { take({}); });
  return pickBar_;
}

QAction* CadWindow::add(QMenu* menu, const char* text, const QList<QKeySequence>& keys, const char* tip,
                        std::function<void()> act) {
  QAction* action = menu->addAction(text);
  action->setShortcuts(keys);
  action->setStatusTip(tip);
  action->setToolTip(keys.isEmpty() ? QString(tip) : QString("%1 (%2)").arg(tip, keys.first().toString()));
  if (act) QObject::connect(action, &QAction::triggered, this, std::move(act));
  return action;
}

void CadWindow::buildActions() {
  QMenu* file = menuBar()->addMenu("&File");
  QAction* save =
      add(file, "&Save", {QKeySequence("Ctrl+S")}, "Saves the drawing in its file", [this] { this->save(); });
  add(file, "Save &as...", {QKeySequence("Ctrl+Shift+S")}, "Saves the drawing under another name", [this] {
    saveAs();
  });
  file->addSeparator();
  add(file, "&Close", {QKeySequence("Ctrl+W")}, "Closes the drawing", [this] { close(); });

  QMenu* view = menuBar()->addMenu("&View");
  QAction* fit = add(view, "&Fit", {Qt::Key_F, Qt::Key_Home}, "Shows the whole drawing", [this] { canvas_->fit(); });
  QAction* in = add(view,
                    "Zoom &in",
                    {Qt::Key_Plus, Qt::Key_Equal, Qt::Key_PageUp},
                    "Shows less of the drawing, larger; the wheel does so about the pointer",
                    [this] { canvas_->zoom(zoomStep); });
  QAction* out = add(view,
                     "Zoom &out",
                     {Qt::Key_Minus, Qt::Key_PageDown},
                     "Shows more of the drawing, smaller; the wheel does so about the pointer",
                     [this] { canvas_->zoom(1 / zoomStep); });
  QAction* box = add(view, "Zoom &box", {Qt::Key_B}, "Shows the box that is drawn next; so does a drag with Shift", {});
  box->setCheckable(true);
  QObject::connect(box, &QAction::toggled, canvas_, &CadCanvas::setBoxing);
  canvas_->boxing = [box](bool on) { box->setChecked(on); };
  view->addSeparator();
  QAction* layers = dock_->toggleViewAction();
  layers->setText("&Layers");
  layers->setShortcut(QKeySequence("Ctrl+L"));
  layers->setStatusTip("Shows or hides the list of the layers");
  view->addAction(layers);

  QMenu* pick = menuBar()->addMenu("&Pick");
  typeCoordinates_ = add(pick,
                         "&Type coordinates",
                         {QKeySequence("Ctrl+T")},
                         "Goes to the line where the coordinates of the point are typed",
                         [this] { typed_->setFocus(Qt::ShortcutFocusReason); });
  snap_ = add(pick, "&Snap to end points", {Qt::Key_F3}, "Picks the end or corner that is near the pointer", {});
  snap_->setCheckable(true);
  QObject::connect(snap_, &QAction::toggled, canvas_, &CadCanvas::setSnapping);
  giveUp_ = add(pick, "&Give up", {Qt::Key_Escape}, "Picks no point", [this] { giveUp(); });

  addHelp(*this, front_.whileUserWorks);
  QToolBar* tools = addToolBar("Tools");
  tools->setObjectName("tools");
  tools->setMovable(false);
  for (QAction* tool : {save, fit, in, out, box, layers, snap_}) tools->addAction(tool);
}

}  // namespace noldarz
