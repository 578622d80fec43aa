// The forms of the views, one `.ui` file each in desktop/forms, as a table by the name of the view.
#pragma once

#include <string_view>

class QMainWindow;

namespace noldarz {

class ViewWindow;

struct Form {
  std::string_view view;
  void (*setUp)(QMainWindow&);
  bool tellsProgress = false;             ///< it lies over the window in front and takes no focus
  void (*follow)(ViewWindow&) = nullptr;  ///< lays out what no form can say, after each piece of the logic
};

/// Null for a view without a window.
const Form* formOf(std::string_view view);

}  // namespace noldarz
