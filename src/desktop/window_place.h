// Where a window was on the screen when it was last seen, kept among the settings of the user.
#pragma once

#include <string>

class QWidget;

namespace noldarz {

class Settings;

/// Puts the window there; false when nothing is known of it.
bool restorePlace(QWidget& window, const Settings& settings, const std::string& name);
/// A place that can't be stored is told on standard error.
void keepPlace(const QWidget& window, const Settings& settings, const std::string& name);

}  // namespace noldarz
