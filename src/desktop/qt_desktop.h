// The desktop port on Qt: a window a view, real boxes and dialogs, the focus of the screen kept in step with the focus
// of the logic.
#pragma once

#include <QElapsedTimer>
#include <QSet>
#include <QTimer>
#include <map>
#include <memory>

#include "desktop/binder/binder.h"
#include "desktop/view_window.h"
#include "platform/desktop.h"
#include "platform/focus.h"
#include "platform/timers.h"

class QComboBox;
class QMessageBox;

namespace noldarz {

struct Form;

class QtDesktop : public Desktop {
 public:
  QtDesktop();

  /// A view that has a form gets its window when it first shows, where `settings` say that it was last.
  void attach(Views& views, const Settings& settings);

  Reply messageBox(const MessageBox& box) override;
  std::filesystem::path fileDialog(const FileDialog& dialog) override;
  void printerDialog() override;
  void setFocus(Field& field) override;
  void openDropDown(Field& field) override;
  void refresh(Field& field) override;
  void setPointer(Pointer pointer) override;
  ScreenSize screenSize(const View& view) override;
  void clearClipboard() override;
  void setClipboard(const std::string& text) override;
  std::string clipboard() override;
  std::uint64_t activateWindow(const std::string& title) override;
  void runProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments) override;
  std::shared_ptr<const Image> loadPicture(const std::filesystem::path& file) override;
  void saveDrawing(const std::filesystem::path& file, const DrawingFile& what) override;

  /// Lets the user work in a window that is no view's: the screen follows the views first, and nothing of the logic
  /// happens until `wait` has returned. Fails as `wait` does.
  void whileUserWorks(const std::function<void()>& wait);
  /// Brings the view in front back to the front of the screen, once the window of something else has come up.
  void returnToFront();
  /// Asks what is to be asked before the program ends.
  void beforeEnd(std::function<void()> ask) { beforeEnd_ = std::move(ask); }
  /// Null before a system is attached.
  const Settings* settings() const { return settings_; }

  /// Runs a piece of the logic; the screen then follows what it has changed.
  void deliver(const std::function<void()>& work);
  ViewWindow* windowOf(const View& view) const;
  QWidget* widgetOf(const Field& field) const;
  /// What the forms and the views do not have in common.
  QStringList faults();

 private:
  struct Bound {
    std::unique_ptr<ViewWindow> window;
    std::unique_ptr<Binder> binder;
    const Form* form = nullptr;
  };

  /// Whether a piece of the logic runs, or waits in a box.
  bool busy() const { return boxOpen_ || depth_ > 0; }
  Reply show(QMessageBox& message, const MessageBox& box);
  /// Runs what waits for the user: the pointer is his, and nothing of the logic happens meanwhile.
  void waitForUser(const std::function<void()>& wait);
  /// The last view has closed.
  void end();
  /// The user acts: what his last step has asked for is done before.
  void settle();
  /// Waits for the timer that falls due next.
  void followTimers();
  /// The user has come to the field on the screen; false when the field that he left keeps the focus.
  bool focusArrived(Field& field);
  /// The focus of the screen goes where that of the logic is; the text there is selected.
  void followFocus() const;
  /// The text of the field that has the focus.
  void selectText() const;
  /// The window of a view that has a form and none yet.
  void makeWindow(View& view);
  void followViews();
  void showWindow(ViewWindow& window, bool visible);
  /// The user begins at the button that is down of the group that a form names as `initialFocus`.
  void beginIn(const ViewWindow& window);
  /// The view that has come to the front gets the focus of the screen.
  void followFront();
  /// The user has gone to the window.
  void windowArrived(View& view);
  /// The window in front that the user works in; null when there is none.
  ViewWindow* frontWindow() const;

  Views* views_ = nullptr;
  const Settings* settings_ = nullptr;
  std::function<void()> beforeEnd_;
  std::map<const View*, Bound> bound_;
  Focus focus_;
  QElapsedTimer clock_;
  Timers timers_;
  QTimer nextTimer_;
  int depth_ = 0;  // of pieces of the logic
  bool boxOpen_ = false;
  const ViewWindow* front_ = nullptr;  // when the screen was last made to follow
  QTimer later_;                       // what waits for the end of the screen's event: the focus, a list that opens
  QComboBox* dropDown_ = nullptr;
  bool refused_ = false;  // the user's last move, until the screen has followed
  QSet<QString> seen_;    // texts of boxes, since the piece of the logic began
  QSet<QString> muted_;   // of those the ones that the user wants no more
  Pointer pointer_ = Pointer::standard;
  QString folder_;            // of the file that was chosen last; empty: none was
  QElapsedTimer sincePaint_;  // or since the piece of the logic began
};

}  // namespace noldarz
