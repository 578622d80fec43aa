// Bitmaps and photos (gif, jpg, bmp, png) as pixels, through gdk-pixbuf.
#pragma once

#include <memory>
#include <string_view>

#include "platform/canvas/canvas.h"

namespace noldarz {

/// The picture that the bytes hold; of a GIF its first frame. Null when they are no such picture, when some are
/// missing, and when it would have more than `mostPixels`.
std::shared_ptr<const Image> bitmapPicture(std::string_view bytes, double mostPixels);

}  // namespace noldarz
