#include "platform/settings.h"

#include <fcntl.h>
#include <sys/file.h>
#include <toml++/toml.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "platform/durable_file.h"
#include "platform/toml_scanner.h"

namespace noldarz {

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t largestFile = 1'000'000;  // bytes
constexpr std::chrono::seconds longestWait{5};     // for another process that writes

/// The settings. Throws std::runtime_error, with file and line, for a file that holds none.
toml::table read(const fs::path& file) try {
  std::error_code error;
  if (!fs::exists(file, error)) return {};
  if (!fs::is_regular_file(file, error) || fs::file_size(file, error) > largestFile)
    throw std::runtime_error(file.string() + ": no file of settings");
  std::ifstream stream(file, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(stream), {}};
  if (isTomlTooDeep(text)) throw std::runtime_error(file.string() + ": nests too deeply");
  return toml::parse(text);
} catch (const toml::parse_error& fault) {
  throw std::runtime_error(file.string() + ":" + std::to_string(fault.source().begin.line) + ": " +
                           std::string{fault.description()});
}

/// Holds the settings against other processes for its life.
class Lock {
 public:
  explicit Lock(const fs::path& file) : handle_(open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600)) {
    if (handle_ < 0) throw std::runtime_error(file.string() + ": can't be written");
    constexpr std::chrono::milliseconds pause{10};
    const auto end = std::chrono::steady_clock::now() + longestWait;
    while (flock(handle_, LOCK_EX | LOCK_NB) != 0) {
      if (std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(pause);
        continue;
      }
      close(handle_);
      throw std::runtime_error(file.string() + " is held by another program");
    }
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
  if (const auto known = presets_.find({application, section, key}); known != presets_.end()) return known->second;
  try {
    return read(file_)[application][section][key].value<std::string>();
  } catch (const std::runtime_error&) {
    return {};  // a reader takes the default; a writer reports the file
  }
}

void Settings::set(const std::string& application, const std::string& section, const std::string& key,
                   const std::string& value) const {
  if (const auto known = presets_.find({application, section, key}); known != presets_.end()) {
    known->second = value;
    return;
  }
  fs::create_directories(file_.parent_path());
  const Lock lock{file_.parent_path() / "settings.lock"};
  toml::table settings = read(file_);
  tableIn(tableIn(settings, application), section).insert_or_assign(key, value);
  std::ostringstream text;
  text << settings << '\n';
  replaceFile(file_, text.str());
}

}  // namespace noldarz
