#include "platform/input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace noldarz {

InputFile::InputFile(const std::filesystem::path& file)
    : handle_(open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)) {
  struct stat about {};
  if (handle_ < 0 || fstat(handle_, &about) != 0) {
    error_ = errno;
    return;
  }
  regular_ = S_ISREG(about.st_mode);
  size_ = regular_ ? static_cast<std::uintmax_t>(about.st_size) : 0;
}

InputFile::~InputFile() {
  if (handle_ >= 0) close(handle_);
}

std::optional<std::string> InputFile::bytes(std::uintmax_t most) {
  std::string all(static_cast<std::size_t>(std::min(most, size_)), '\0');
  std::size_t done = 0;
  while (done < all.size()) {
    const ssize_t count = pread(handle_, all.data() + done, all.size() - done, static_cast<off_t>(done));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) {
      error_ = errno;
      return {};
    }
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  all.resize(done);
  return all;
}

}  // namespace noldarz
