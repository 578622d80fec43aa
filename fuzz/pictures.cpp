#include <fstream>

#include "platform/canvas/picture_file.h"
#include "platform/failure.h"
#include "targets.h"

/// The fonts that a process has looked up stay in memory until it ends.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }

namespace noldarz::fuzz {

void readPicture(Chance& chance) {
  static const fs::path file = scratch() / "picture";
  std::ofstream(file, std::ios::binary | std::ios::trunc) << chance.rest();
  try {
    const auto image = noldarz::readPicture(file);
    demand(image->width > 0 && image->height > 0 && image->pixelSize > 0, "a picture without size");
    demand(image->pixels.size() == static_cast<std::size_t>(image->width) * static_cast<std::size_t>(image->height),
           "not all pixels");
  } catch (const RuntimeFailure&) {  // told to the user
  }
}

}  // namespace noldarz::fuzz
