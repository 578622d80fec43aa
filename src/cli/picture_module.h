// The picture libraries of noldarz-pictures.so, which lies beside the program and is loaded when a picture is first
// read or written, for ever.
#pragma once

#include "platform/canvas/picture_table.h"

namespace noldarz {

/// Throws std::runtime_error that names the file when the module is missing, can't be loaded or belongs to another
/// version.
const PictureTable& pictureModule();

}  // namespace noldarz
