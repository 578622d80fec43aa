#include "platform/durable_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <system_error>
#include <vector>

namespace noldarz {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view mark{".new-"};  // after the name of the target, in front of random letters
constexpr std::size_t randomLetters = 6;

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
  sweep();
  make();
  struct stat old {};
  const mode_t mask = umask(0);
  umask(mask);
  const mode_t mode = stat(target_.c_str(), &old) == 0 ? old.st_mode & 0777U : 0666U & ~mask;
  fchmod(handle_, mode);  // a file system that has no modes gives each file its own
}

NewFile::~NewFile() {
  std::error_code error;
  if (!path_.empty()) fs::remove(path_, error);
  close(handle_);
}

void NewFile::make() {
  for (;;) {
    std::string name = target_.string() + std::string{mark} + std::string(randomLetters, 'X');
    handle_ = mkostemp(name.data(), O_CLOEXEC);
    if (handle_ < 0) failed("can't be made", target_);
    flock(handle_, LOCK_EX);  // tells others that somebody works on it
    struct stat status {};
    path_ = name;
    if (fstat(handle_, &status) == 0 && status.st_nlink > 0) return;
    close(handle_);  // another process has swept it before it was locked
  }
}

void NewFile::sweep() const {
  const std::string beginning = target_.filename().string() + std::string{mark};
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folderOf(target_), error)) {
    const std::string name = entry.path().filename().string();
    if (name.size() != beginning.size() + randomLetters || !name.starts_with(beginning)) continue;
    const int handle = open(entry.path().c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (handle < 0) continue;
    struct stat status {};
    const bool abandoned =
        fstat(handle, &status) == 0 && S_ISREG(status.st_mode) && flock(handle, LOCK_EX | LOCK_NB) == 0;
    if (abandoned) fs::remove(entry.path(), error);
    close(handle);
  }
}

void NewFile::write(std::span<const std::string_view> pieces) {
  constexpr std::size_t mostAtOnce = 1024;  // of the system call
  std::vector<iovec> parts;
  for (; !pieces.empty(); pieces = pieces.subspan(parts.size())) {
    parts.clear();
    for (const auto piece : pieces.first(std::min(pieces.size(), mostAtOnce)))
      parts.push_back({const_cast<char*>(piece.data()), piece.size()});  // it is only read
    for (std::span<iovec> left{parts}; !left.empty();) {
      const ssize_t count = writev(handle_, left.data(), static_cast<int>(left.size()));
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) failed("can't be written", target_);
      auto done = static_cast<std::size_t>(count);
      for (; !left.empty() && done >= left.front().iov_len; left = left.subspan(1)) done -= left.front().iov_len;
      if (left.empty()) break;
      left.front().iov_base = static_cast<char*>(left.front().iov_base) + done;
      left.front().iov_len -= done;
    }
  }
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

void replaceFile(const fs::path& target, std::span<const std::string_view> pieces) {
  NewFile file{target};
  file.write(pieces);
  file.putInPlace(NewFile::Existing::replace);
}

}  // namespace noldarz
