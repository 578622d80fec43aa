// A folder of its own with a place for a study, a start folder and the folders of a user.
#pragma once

#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/folders.h"

namespace noldarz::test {

namespace fs = std::filesystem;

inline std::string readFile(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

inline void writeFile(const fs::path& file, std::string_view bytes) {
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

class TestFolder {
 public:
  TestFolder() {
    std::string name = (fs::temp_directory_path() / "noldarz-XXXXXX").string();
    path_ = mkdtemp(name.data());
    for (const char* folder : {"start", "data", "programs/bin", "documents", "config"})
      fs::create_directories(path_ / folder);
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;
  ~TestFolder() {
    std::error_code error;
    fs::current_path("/", error);
    fs::remove_all(path_, error);
  }

  fs::path operator/(const char* name) const { return path_ / name; }
  fs::path study() const { return path_ / "data" / "orgtn.mdb"; }
  /// Lays the empty drawing down where it is installed.
  void provideTemplate() const {
    fs::create_directories(path_ / "programs/bin/AutoCadVBA");
    fs::copy_file(NOLDARZ_SOURCE_DIR "/share/AutoCadVBA/AutocadDwg1.dwg",
                  path_ / "programs/bin/AutoCadVBA/AutocadDwg1.dwg");
  }
  Folders folders() const { return {path_ / "programs/bin", path_ / "documents", path_ / "config"}; }

 private:
  fs::path path_;
};

/// What another program does to a study: by the stock engine, without the program's own rules.
inline void changeFromOutside(const fs::path& file, const std::string& statements) {
  sqlite3* handle = nullptr;
  sqlite3_open(file.c_str(), &handle);
  const std::unique_ptr<sqlite3, int (*)(sqlite3*)> owner{handle, sqlite3_close};
  if (sqlite3_exec(handle, statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    throw std::logic_error(sqlite3_errmsg(handle));
}

}  // namespace noldarz::test
