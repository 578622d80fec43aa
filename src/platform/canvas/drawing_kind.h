// Which files a drawing can be written to, and how much of a page lies under its canvas; needed before one is written.
#pragma once

#include <filesystem>
#include <string>

#include "platform/canvas/drawing_file.h"

namespace noldarz {

/// ".png", ".bmp", ".svg" or ".pdf", by the extension of the name in any case; empty for another one.
std::string drawingKind(const std::filesystem::path& file);

/// Height of legend and foot (mm).
double footHeight(const DrawingFile& what);

}  // namespace noldarz
