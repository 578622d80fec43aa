// A folder for what lives as long as one piece of work: made empty in the folder of temporary files, open to nobody
// else, and removed with all that lies in it.
#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace noldarz {

class ScratchFolder {
 public:
  /// Throws std::filesystem::filesystem_error when there is no room for it.
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "noldarz-XXXXXX").string();
    if (!mkdtemp(name.data()))
      throw std::filesystem::filesystem_error("can't be made", name, {errno, std::generic_category()});
    path_ = name;
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace noldarz
