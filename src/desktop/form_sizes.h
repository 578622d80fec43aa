// Sizes that a form gives in terms of the font, so that it looks the same at every resolution: dynamic properties of
// its widgets.
#pragma once

#include <optional>

class QWidget;

namespace noldarz {

/// Widgets with `fontScale` get a font larger by that factor. Once for a form.
void scaleFonts(const QWidget& form);

/// Widgets with `characters` get room for so many digits, and stretch only as far as their neighbours make their column
/// wide.
void setWidths(const QWidget& form);

/// Width of a widget with `characters`, in pixels; the style of the program asks for it.
std::optional<int> widthInCharacters(const QWidget* widget);

}  // namespace noldarz
