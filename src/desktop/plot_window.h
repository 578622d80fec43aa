// What the form of the plot view can't say: a canvas as large as the screen takes the whole window, and dial and legend
// lie over it.
#pragma once

#include "desktop/view_window.h"

namespace noldarz {

/// Lays the window out as its view has the canvas now.
void followExpansion(ViewWindow& window);

}  // namespace noldarz
