// What the window adds to the views for the user who wants to know more: the menu Help.
#pragma once

class QMainWindow;

namespace noldarz {

/// Adds the menu Help to a window that has a menu: explanations of the fields on a click, and what program this is.
void addHelp(QMainWindow& window);

}  // namespace noldarz
