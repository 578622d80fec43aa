#include "desktop/cad_windows.h"

#include <QApplication>
#include <QEventLoop>
#include <QPointer>
#include <QScopeGuard>
#include <algorithm>

#include "desktop/window_place.h"

namespace noldarz {

namespace {

constexpr const char* placeName = "drawing";

/// The other windows of the program take no input while this lives.
class OnlyWindow {
 public:
  explicit OnlyWindow(const QWidget& window) {
    for (QWidget* other : QApplication::topLevelWidgets()) {
      if (other == &window || !other->isVisible() || !other->isEnabled()) continue;
      other->setEnabled(false);
      others_.emplace_back(other);
    }
  }
  OnlyWindow(const OnlyWindow&) = delete;
  OnlyWindow& operator=(const OnlyWindow&) = delete;
  ~OnlyWindow() {
    for (const auto& other : others_)
      if (other) other->setEnabled(true);
  }

 private:
  std::vector<QPointer<QWidget>> others_;
};

}  // namespace

CadWindows::CadWindows(QtDesktop& desktop) : desktop_(desktop) {
  desktop_.beforeEnd([this] { each([](CadWindow& window) { window.closeForGood(); }); });
}

CadWindows::~CadWindows() {
  desktop_.beforeEnd(nullptr);
  for (auto& window : windows_) {
    window->hide();  // what leaves it is told while it is whole
    delete window.release();
  }
}

CadWindow* CadWindows::windowOf(const DxfDrawing& drawing) const {
  const auto found = std::find_if(
      windows_.begin(), windows_.end(), [&](const auto& window) { return &window->drawing() == &drawing; });
  return found == windows_.end() ? nullptr : found->get();
}

void CadWindows::show(const std::shared_ptr<DxfDrawing>& drawing) {
  raised(drawing);
  desktop_.returnToFront();  // whoever drives the drawing goes on there
}

CadWindow& CadWindows::raised(const std::shared_ptr<DxfDrawing>& drawing) {
  CadWindow* window = windowOf(*drawing);
  if (!window) {
    const auto wait = [this](const auto& work) { desktop_.whileUserWorks(work); };
    const auto close = [this, shown = drawing.get()] { closed(*shown); };
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto pointer = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
    windows_.emplace_back(new CadWindow(drawing, {wait, close}));
    window = windows_.back().get();
    if (desktop_.settings()) restorePlace(*window, *desktop_.settings(), placeName);
  }
  window->follow();
  window->isMinimized() ? window->showNormal() : window->show();
  window->raise();
  window->activateWindow();
  return *window;
}

CadPoint CadWindows::pickPoint(DxfDrawing& drawing) {
  std::optional<CadPoint> picked;
  desktop_.whileUserWorks([&] {
    CadWindow& window = raised(drawing.shared_from_this());
    const OnlyWindow only(window);
    QEventLoop loop;
    window.pick([&](const std::optional<CadPoint>& point) {
      picked = point;
      loop.quit();
    });
    loop.exec();
    if (CadWindow* left = windowOf(drawing)) left->endPick();
  });
  if (!picked) throw CadFailure("No point was picked.", FailureNumber::cancelled);
  return *picked;
}

void CadWindows::redraw(DxfDrawing& drawing) {
  CadWindow* window = windowOf(drawing);
  if (!window) return;
  window->follow();
  window->repaint();
}

void CadWindows::drop(DxfDrawing& drawing) {
  std::erase_if(windows_, [&](const auto& window) { return &window->drawing() == &drawing; });
}

void CadWindows::quit() {
  each([](CadWindow& window) { window.close(); });
}

void CadWindows::each(void (*tell)(CadWindow&)) {
  std::vector<QPointer<CadWindow>> windows;
  for (const auto& window : windows_) windows.emplace_back(window.get());
  for (const auto& window : windows)
    if (window) tell(*window);
}

void CadWindows::closed(DxfDrawing& drawing) {
  drawing.close();
  if (const CadWindow* window = windowOf(drawing); window && desktop_.settings())
    keepPlace(*window, *desktop_.settings(), placeName);
  std::erase_if(windows_, [&](const auto& window) { return &window->drawing() == &drawing; });
}

}  // namespace noldarz
