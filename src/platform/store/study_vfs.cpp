#include "platform/store/study_vfs.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace noldarz {

namespace {

constexpr std::string_view journal{"-journal"};
constexpr std::array<std::string_view, 3> sideSuffixes{journal, "-wal", "-shm"};

/// The end of a journal that is part of a change to several files: length of the name of the file that joins them, a
/// check sum, and these bytes. Numbers are big-endian.
constexpr std::string_view joinedMagic{"\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8};
constexpr std::streamoff joinedEnd = 16;

bool isJoined(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  std::array<char, joinedEnd> end{};
  if (!stream.seekg(-joinedEnd, std::ios::end) || !stream.read(end.data(), joinedEnd)) return false;
  const std::string_view bytes{end.data(), end.size()};
  return bytes.ends_with(joinedMagic) && bytes.substr(0, 4) != std::string_view{"\0\0\0\0", 4};
}

std::string faultOfSideFile(const std::string& file, std::string_view suffix) {
  struct stat status {};
  if (lstat(file.c_str(), &status) != 0) return "";
  const std::string name = std::filesystem::path{file}.filename().string();
  if (!S_ISREG(status.st_mode)) return "has a side file " + name + " that is no regular file";
  if (suffix == journal && isJoined(file)) return "has a journal " + name + " of a change to several files";
  return "";
}

}  // namespace

StudyVfs::StudyVfs() : default_(*sqlite3_vfs_find(nullptr)), vfs_(std::make_unique<sqlite3_vfs>(default_)) {
  name_ = "study " + std::to_string(reinterpret_cast<std::uintptr_t>(this));
  vfs_->zName = name_.c_str();
  vfs_->pAppData = this;
  vfs_->pNext = nullptr;
  vfs_->xOpen = open;
  vfs_->xDelete = remove;
  vfs_->xAccess = access;
  sqlite3_vfs_register(vfs_.get(), 0);
}

StudyVfs::~StudyVfs() { sqlite3_vfs_unregister(vfs_.get()); }

bool StudyVfs::permits(const char* name) {
  const std::string_view file{name};
  if (file == study_) return true;
  const auto suffix = std::find_if(sideSuffixes.begin(), sideSuffixes.end(), [&](std::string_view side) {
    return file.size() == study_.size() + side.size() && file.starts_with(study_) && file.ends_with(side);
  });
  const std::string fault =
      suffix == sideSuffixes.end() ? "names another file, " + std::string{file} : faultOfSideFile(name, *suffix);
  if (!fault.empty()) fault_ = fault;
  return fault.empty();
}

int StudyVfs::open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  auto& self = *static_cast<StudyVfs*>(vfs->pAppData);
  file->pMethods = nullptr;
  if (name && (flags & SQLITE_OPEN_MAIN_DB) != 0 && self.study_.empty()) self.study_ = name;
  if (name && !self.permits(name)) return SQLITE_CANTOPEN;
  return self.default_.xOpen(&self.default_, name, file, flags, outFlags);
}

int StudyVfs::remove(sqlite3_vfs* vfs, const char* name, int syncFolder) {
  auto& self = *static_cast<StudyVfs*>(vfs->pAppData);
  if (name == self.study_ || !self.permits(name)) return SQLITE_IOERR_DELETE;
  return self.default_.xDelete(&self.default_, name, syncFolder);
}

int StudyVfs::access(sqlite3_vfs* vfs, const char* name, int what, int* result) {
  auto& self = *static_cast<StudyVfs*>(vfs->pAppData);
  if (!self.permits(name)) return SQLITE_IOERR_ACCESS;
  return self.default_.xAccess(&self.default_, name, what, result);
}

}  // namespace noldarz
