// The drawings on the screen: a window each, kept until the user closes it. The mapping shows drawings and has points
// picked through it.
#pragma once

#include <memory>
#include <vector>

#include "desktop/cad_window.h"
#include "desktop/qt_desktop.h"

namespace noldarz {

class CadWindows final : public CadScreen {
 public:
  /// Asks for unsaved changes before the desktop ends the program. The desktop outlives it.
  explicit CadWindows(QtDesktop& desktop);
  ~CadWindows() override;

  void show(const std::shared_ptr<DxfDrawing>& drawing) override;
  CadPoint pickPoint(DxfDrawing& drawing) override;
  void redraw(DxfDrawing& drawing) override;
  void drop(DxfDrawing& drawing) override;
  void quit() override;

  /// Null for a drawing that is not on the screen.
  CadWindow* windowOf(const DxfDrawing& drawing) const;

 private:
  /// A window may close itself in the middle of its own work.
  struct Later {
    void operator()(CadWindow* window) const {
      window->hide();
      window->deleteLater();
    }
  };

  /// The window of the drawing, in front of all.
  CadWindow& raised(const std::shared_ptr<DxfDrawing>& drawing);
  void closed(DxfDrawing& drawing);
  /// Tells each window, of which it may close itself.
  void each(void (*tell)(CadWindow&));

  QtDesktop& desktop_;
  std::vector<std::unique_ptr<CadWindow, Later>> windows_;
};

}  // namespace noldarz
