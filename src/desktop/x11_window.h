// The window of another program, found by its title on an X11 screen and brought to the front.
#pragma once

#include <cstdint>
#include <string>

namespace noldarz {

/// Asks the window manager to activate the top-level window with exactly this title. Its handle; 0 when there is none,
/// or on a screen that is no X11 one.
std::uint64_t activateTopLevel(const std::string& title);

}  // namespace noldarz
