// What lies under the pointer, from the list of a drawing: no screen is asked.
#pragma once

#include <optional>

#include "platform/canvas/canvas.h"

namespace noldarz {

/// Colour of the line, circle or dot that was drawn last over the point (mm); nothing where there is none. Texts do not
/// count.
std::optional<Colour> colourAt(const Drawing& drawing, double x, double y);

}  // namespace noldarz
