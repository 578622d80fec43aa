#include "platform/durable_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <system_error>

namespace noldarz {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void failed(const char* action, const fs::path& path) {
  throw fs::filesystem_error(action, path, std::error_code{errno, std::generic_category()});
}

fs::path folderOf(const fs::path& file) { return file.has_parent_path() ? file.parent_path() : fs::path{"."}; }

/// Waits until a file or folder has reached the disk.
void bringToDisk(const fs::path& path) {
  const int handle = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (handle < 0) failed("can't be opened", path);
  const int result = fsync(handle);
  close(handle);
  if (result != 0) failed("can't be written", path);
}

}  // namespace

NewFile::NewFile(fs::path target) : target_(std::move(target)) {
  std::string name = target_.string() + ".XXXXXX";
  const int handle = mkstemp(name.data());
  if (handle < 0) failed("can't be made", target_);
  path_ = name;
  struct stat old {};
  const mode_t mask = umask(0);
  umask(mask);
  const mode_t mode = stat(target_.c_str(), &old) == 0 ? old.st_mode & 0777U : 0666U & ~mask;
  const int result = fchmod(handle, mode);
  close(handle);
  if (result != 0) failed("can't be made", target_);
}

NewFile::~NewFile() {
  std::error_code error;
  if (!path_.empty()) fs::remove(path_, error);
}

void NewFile::putInPlace(Existing existing) {
  bringToDisk(path_);
  if (existing == Existing::keep) {
    int result = renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE);
    // A file system that can't do both at once: look first.
    if (result != 0 && errno == EINVAL && !fs::exists(target_)) result = rename(path_.c_str(), target_.c_str());
    if (result != 0) failed("can't be made", target_);
  } else if (rename(path_.c_str(), target_.c_str()) != 0) {
    failed("can't be replaced", target_);
  }
  path_.clear();
  bringToDisk(folderOf(target_));
}

void replaceFile(const fs::path& target, std::string_view bytes) {
  NewFile file{target};
  errno = 0;
  std::ofstream stream(file.path(), std::ios::binary | std::ios::trunc);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  stream.close();
  if (!stream) {
    if (errno == 0) errno = EIO;
    failed("can't be written", target);
  }
  file.putInPlace(NewFile::Existing::replace);
}

}  // namespace noldarz
