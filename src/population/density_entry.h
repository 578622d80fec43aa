// A density that the user has typed, in a band or in the table: what is taken, and how a text is refused.
#pragma once

#include "platform/desktop.h"

namespace noldarz {

/// Whether the text of a field that was left can be stored. One that is no number, or a number below 0, gets its box,
/// the focus comes back, and the field turns pink. `ground`: its colour else.
bool acceptsDensity(Field& field, Colour ground, Desktop& desktop);

}  // namespace noldarz
