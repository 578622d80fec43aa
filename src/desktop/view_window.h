// The window of a view: closing it closes the view, which may refuse. It comes back where the user left it.
#pragma once

#include <QMainWindow>
#include <functional>

#include "platform/settings.h"
#include "platform/view.h"

namespace noldarz {

class ViewWindow : public QMainWindow {
 public:
  /// What the window asks of the desktop.
  struct Front {
    /// The user closes the window.
    std::function<void()> close;
    std::function<void()> themeChanged;
    /// The user has come to the window.
    std::function<void()> arrived;
  };

  ViewWindow(View& view, const Settings& settings, Front front);

  View& view() const { return view_; }
  /// For the first time where it was last, or else as large as its page and the screen want; later where it is.
  void appear();
  /// Hides the window and stores its place. A place that can't be stored is told on standard error.
  void disappear();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QSize firstSize() const;

  View& view_;
  const Settings& settings_;
  Front front_;
};

}  // namespace noldarz
