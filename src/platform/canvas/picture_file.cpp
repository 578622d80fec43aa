#include "platform/canvas/picture_file.h"

#include <cerrno>
#include <string>

#include "platform/canvas/bitmap_file.h"
#include "platform/canvas/metafile.h"
#include "platform/failure.h"
#include "platform/input_file.h"

namespace noldarz {

namespace {

constexpr double mostPixels = 50e6;
constexpr std::uintmax_t mostBytes = std::uintmax_t{256} << 20U;

std::string bytesOf(const std::filesystem::path& path) {
  InputFile file{path};
  if (file.error() != 0) fail(file.error() == ENXIO ? FailureNumber::invalidPicture : FailureNumber::noSuchFile);
  if (!file.isRegular() || file.size() > mostBytes) fail(FailureNumber::invalidPicture);
  auto bytes = file.bytes(mostBytes);
  if (!bytes) fail(FailureNumber::noSuchFile);
  return std::move(*bytes);
}

}  // namespace

std::shared_ptr<const Image> readPicture(const std::filesystem::path& file) {
  const std::string bytes = bytesOf(file);
  auto image = isMetafile(bytes) ? metafilePicture(bytes, mostPixels) : bitmapPicture(bytes, mostPixels);
  if (!image) fail(FailureNumber::invalidPicture);
  return image;
}

}  // namespace noldarz
