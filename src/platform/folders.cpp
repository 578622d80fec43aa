#include "platform/folders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>

#include "platform/failure.h"

namespace noldarz {

namespace {

namespace fs = std::filesystem;

std::string environment(const char* name) {
  const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): one thread
  return value ? value : "";
}

/// The documents folder of user-dirs.dirs, whose lines read XDG_DOCUMENTS_DIR="$HOME/Documents".
fs::path documentsFolder(const fs::path& configuration, const std::string& home) {
  constexpr std::string_view key{"XDG_DOCUMENTS_DIR=\""};
  constexpr std::string_view homeName{"$HOME"};
  std::ifstream lines(configuration / "user-dirs.dirs");
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with(key) || !line.ends_with('"')) continue;
    const std::string folder = line.substr(key.size(), line.size() - key.size() - 1);
    return folder.starts_with(homeName) ? home + folder.substr(homeName.size()) : folder;
  }
  return fs::path(home) / "Documents";
}

std::string homeFolder() {
  std::string home = environment("HOME");
  if (fs::path(home).is_absolute()) return home;
  const passwd* user = getpwuid(getuid());  // NOLINT(concurrency-mt-unsafe): one thread
  return user ? user->pw_dir : "/";
}

}  // namespace

void enterFolder(const fs::path& folder) {
  std::error_code error;
  fs::current_path(folder, error);
  if (error) fail(FailureNumber::noSuchFolder);
}

Folders Folders::ofUser() {
  const std::string home = homeFolder();
  const std::string configured = environment("XDG_CONFIG_HOME");
  Folders folders;
  std::error_code error;
  folders.program = fs::read_symlink("/proc/self/exe", error).parent_path();
  folders.configuration = fs::path(configured).is_absolute() ? fs::path(configured) : fs::path(home) / ".config";
  folders.documents = documentsFolder(folders.configuration, home);
  return folders;
}

}  // namespace noldarz
