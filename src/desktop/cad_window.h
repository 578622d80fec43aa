// The window of a drawing: what is in its file and what was added, layers to show or hide, points to pick. It saves the
// drawing, and asks before changes are lost.
#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <optional>

#include "platform/cad/dxf_drawing.h"
#include "platform/cad/scene.h"

class QDockWidget;
class QLabel;
class QLineEdit;

namespace noldarz {

class CadCanvas;
class CadLayers;

class CadWindow : public QMainWindow {
 public:
  /// What the window asks of the desktop.
  struct Front {
    /// Runs what waits for the user; nothing else of the program happens meanwhile.
    std::function<void(const std::function<void()>&)> whileUserWorks;
    /// The user has closed the window.
    std::function<void()> closed;
  };
  using Picked = std::function<void(std::optional<CadPoint>)>;

  CadWindow(std::shared_ptr<DxfDrawing> drawing, Front front);

  DxfDrawing& drawing() const { return *drawing_; }
  /// Shows the drawing as it is now.
  void follow();
  /// Lets the user pick a point; nothing when he gives up.
  void pick(Picked picked);
  /// Nobody waits for a point any more.
  void endPick();
  /// Closes it without a way back: changes are saved or not.
  void closeForGood();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  // cad_window_layout.cpp
  void build();
  QWidget* pickBar();
  void buildActions();
  QAction* add(QMenu* menu, const char* text, const QList<QKeySequence>& keys, const char* tip,
               std::function<void()> act);

  void showAdded();
  void setPicking(bool picking);
  void giveUp();
  void take(const std::optional<CadPoint>& point);
  void takeTyped();
  bool save();
  bool saveAs();
  bool saving(const std::function<void()>& work);
  /// Whether the changes are saved, or need not be.
  bool mayClose(bool mayCancel);
  void showPlace(const std::optional<ScenePoint>& place);
  void showNotShown();

  std::shared_ptr<DxfDrawing> drawing_;
  Front front_;
  Scene scene_;
  // What comes from the file; what was added lies behind.
  std::size_t items_;
  std::size_t points_;
  std::size_t texts_;
  std::uint64_t revision_ = 0;
  Picked picked_;
  bool closesForGood_ = false;

  CadCanvas* canvas_ = nullptr;
  CadLayers* layers_ = nullptr;
  QDockWidget* dock_ = nullptr;
  QWidget* pickBar_ = nullptr;
  QLabel* asked_ = nullptr;
  QLineEdit* typed_ = nullptr;
  QLabel* place_ = nullptr;
  QLabel* notShown_ = nullptr;
  QAction* typeCoordinates_ = nullptr;
  QAction* giveUp_ = nullptr;
  QAction* snap_ = nullptr;
};

}  // namespace noldarz
