// What the window adds to the views for the user who wants to know more: the menu Help.
#pragma once

#include <functional>

class QMainWindow;

namespace noldarz {

/// Adds the menu Help to a window that has a menu: explanations of the fields on a click, and what program this is. F10
/// opens the menus. `withBox` runs what shows a box: nothing else of the program happens meanwhile.
void addHelp(QMainWindow& window, const std::function<void(const std::function<void()>&)>& withBox);

}  // namespace noldarz
