// What of the file system the database engine gets to see of one study: the file itself, its own side files (journal,
// write-ahead log and the index of that), and unnamed temporary files. A study may come from a stranger; a journal
// beside it may name other files, which the engine would open and delete. Every other name is refused here, and so is a
// side file that is a link or no regular file, or that belongs to a change of several files.
#pragma once

#include <memory>
#include <string>
#include <utility>

struct sqlite3_file;
struct sqlite3_vfs;

namespace noldarz {

class StudyVfs {
 public:
  /// Registers itself with the engine for its life. Connections that open by name() must have closed before it goes.
  StudyVfs();
  ~StudyVfs();
  StudyVfs(const StudyVfs&) = delete;
  StudyVfs& operator=(const StudyVfs&) = delete;

  const char* name() const { return name_.c_str(); }
  /// Why it refused something to the engine since this was asked last, to follow the study's name; empty when it did
  /// not.
  std::string takeFault() { return std::exchange(fault_, {}); }

 private:
  static int open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags);
  static int remove(sqlite3_vfs* vfs, const char* name, int syncFolder);
  static int access(sqlite3_vfs* vfs, const char* name, int what, int* result);

  /// Whether the engine may touch the file; else fault() tells why not.
  bool permits(const char* name);

  sqlite3_vfs& default_;
  std::string name_;
  std::string study_;  ///< full path, once it is open
  std::string fault_;
  std::unique_ptr<sqlite3_vfs> vfs_;
};

}  // namespace noldarz
