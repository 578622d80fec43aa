// Pictures from files that the user chose, for the ground behind a drawing. A file may come from anybody and be
// anything.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/canvas/canvas.h"

namespace noldarz {

/// Reads a gif (its first frame), jpg, bmp, png or wmf, told by what it holds, not by its name. A pixel is as large as
/// the file says where that is plausible, else 1/96 inch; a wmf is at its own size. Fails with noSuchFile for a file
/// that can't be opened, with invalidPicture for anything but a file, for one of more than 256 MB or 50 million pixels,
/// which is asked before they are decoded, and for one that is damaged, cut off or no such picture.
std::shared_ptr<const Image> readPicture(const std::filesystem::path& file);

}  // namespace noldarz
