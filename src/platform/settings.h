// The per-user settings: texts by application, section and key, in one TOML file that all fronts share. Every change
// replaces the file in one step, and changes of two processes don't undo each other.
#pragma once

#include <array>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace noldarz {

class Settings {
 public:
  /// The settings in `folder`, which need not be there yet.
  explicit Settings(const std::filesystem::path& folder) : file_(folder / "noldarz" / "settings.toml") {}

  /// The setting; nothing when there is none or the file can't be read.
  std::optional<std::string> get(const std::string& application, const std::string& section,
                                 const std::string& key) const;
  /// Gives the setting a value for the life of this object: it is read in place of the stored one, and set here only.
  void preset(const std::string& application, const std::string& section, const std::string& key, std::string value) {
    presets_[{application, section, key}] = std::move(value);
  }
  /// Stores the setting. Throws std::runtime_error, with the file as it was, when the file can't be read as settings or
  /// not be written.
  void set(const std::string& application, const std::string& section, const std::string& key,
           const std::string& value) const;

  const std::filesystem::path& file() const { return file_; }

 private:
  std::filesystem::path file_;
  mutable std::map<std::array<std::string, 3>, std::string> presets_;
};

}  // namespace noldarz
