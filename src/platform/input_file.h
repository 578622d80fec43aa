// A file that the user chose, open for reading. It may come from anybody and be anything: nothing is read before who
// asks knows what it is and how large.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace noldarz {

class InputFile {
 public:
  /// Opens it; a pipe opens at once and is no regular file then.
  explicit InputFile(const std::filesystem::path& file);
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile();

  /// Why the system doesn't open it or didn't read it (errno); 0 when it does.
  int error() const { return error_; }
  bool isRegular() const { return regular_; }
  std::uintmax_t size() const { return size_; }
  /// From its beginning, so many at most, fewer when it ends before; nothing when it can't be read.
  std::optional<std::string> bytes(std::uintmax_t most);

 private:
  int handle_ = -1;
  int error_ = 0;
  bool regular_ = false;
  std::uintmax_t size_ = 0;
};

}  // namespace noldarz
