#include "platform/settings.h"

#include <fcntl.h>
#include <sys/file.h>
#include <toml++/toml.h>
#include <unistd.h>

#include <cerrno>
#include <sstream>
#include <stdexcept>

#include "platform/durable_file.h"

namespace noldarz {

namespace {

namespace fs = std::filesystem;

toml::table read(const fs::path& file) {
  std::error_code error;
  return fs::exists(file, error) ? toml::parse_file(file.string()) : toml::table{};
}

/// Holds the settings against other processes for its life.
class Lock {
 public:
  explicit Lock(const fs::path& file) : handle_(open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
    int result = -1;
    do result = handle_ < 0 ? -1 : flock(handle_, LOCK_EX);
    while (result != 0 && handle_ >= 0 && errno == EINTR);
    if (result == 0) return;
    if (handle_ >= 0) close(handle_);
    throw std::runtime_error(file.string() + ": can't be written");
  }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;
  ~Lock() { close(handle_); }

 private:
  int handle_;
};

toml::table& tableIn(toml::table& parent, const std::string& name) {
  if (!parent[name].is_table()) parent.insert_or_assign(name, toml::table{});
  return *parent[name].as_table();
}

}  // namespace

std::optional<std::string> Settings::get(const std::string& application, const std::string& section,
                                         const std::string& key) const {
  try {
    return read(file_)[application][section][key].value<std::string>();
  } catch (const toml::parse_error&) {
    return {};  // a reader takes the default; a writer reports the file
  }
}

void Settings::set(const std::string& application, const std::string& section, const std::string& key,
                   const std::string& value) const try {
  fs::create_directories(file_.parent_path());
  const Lock lock{file_.parent_path() / "settings.lock"};
  toml::table settings = read(file_);
  tableIn(tableIn(settings, application), section).insert_or_assign(key, value);
  std::ostringstream text;
  text << settings << '\n';
  replaceFile(file_, text.str());
} catch (const toml::parse_error& error) {
  throw std::runtime_error(file_.string() + ":" + std::to_string(error.source().begin.line) + ": " +
                           std::string{error.description()});
}

}  // namespace noldarz
