// Metafiles (wmf) as pixels. The player of libwmf walks the records; place and size are reckoned here, and what it
// plays is painted through Cairo, so that the only bytes it sees are records whose sizes have been checked.
#pragma once

#include <memory>
#include <string_view>

#include "platform/canvas/canvas.h"

namespace noldarz {

/// Whether the bytes begin as a metafile does, placeable or plain.
bool isMetafile(std::string_view bytes);

/// The picture at its own size, at 96 dpi; where nothing is painted it is transparent. A plain metafile, which has no
/// size of its own, has that of its window, a unit of which is a pixel unless its mapping mode says otherwise. Null
/// when a record is damaged or cut off, when there is nothing to see, and when it would have more than `mostPixels` or
/// would take unreasonably long to paint.
std::shared_ptr<const Image> metafilePicture(std::string_view bytes, double mostPixels);

}  // namespace noldarz
