#include "platform/canvas/picture_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "platform/canvas/bitmap_file.h"
#include "platform/canvas/metafile.h"
#include "platform/failure.h"

namespace noldarz {

namespace {

constexpr double mostPixels = 50e6;
constexpr off_t mostBytes = off_t{256} << 20;

class OpenFile {
 public:
  /// A pipe opens at once and is then refused.
  explicit OpenFile(const std::filesystem::path& file)
      : handle_(open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)) {
    if (handle_ < 0) fail(errno == ENXIO ? FailureNumber::invalidPicture : FailureNumber::noSuchFile);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { close(handle_); }

  std::string bytes() const {
    struct stat about {};
    if (fstat(handle_, &about) != 0 || !S_ISREG(about.st_mode) || about.st_size > mostBytes)
      fail(FailureNumber::invalidPicture);
    std::string all(static_cast<std::size_t>(about.st_size), '\0');
    std::size_t done = 0;
    while (done < all.size()) {
      const ssize_t count = read(handle_, all.data() + done, all.size() - done);
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) fail(FailureNumber::noSuchFile);
      if (count == 0) break;
      done += static_cast<std::size_t>(count);
    }
    all.resize(done);
    return all;
  }

 private:
  int handle_;
};

}  // namespace

std::shared_ptr<const Image> readPicture(const std::filesystem::path& file) {
  const std::string bytes = OpenFile{file}.bytes();
  auto image = isMetafile(bytes) ? metafilePicture(bytes, mostPixels) : bitmapPicture(bytes, mostPixels);
  if (!image) fail(FailureNumber::invalidPicture);
  return image;
}

}  // namespace noldarz
