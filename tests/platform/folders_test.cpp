// Where the folders of a user lie, by his environment and the list of his own folders.

#include "platform/folders.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/test_folder.h"

namespace noldarz {
namespace {

/// An environment variable for the life of a test.
class Environment {
 public:
  Environment(const char* name, const std::string& value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    setenv(name, value.c_str(), 1);
  }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;
  ~Environment() { setenv(name_, before_.c_str(), 1); }

 private:
  const char* name_;
  std::string before_;
};

TEST(Folders, areThoseOfTheUser) {
  const test::TestFolder folder;
  const std::filesystem::path home = folder / "home";
  const std::string own = (folder / "own").string();
  const struct {
    std::string configured;  // XDG_CONFIG_HOME
    const char* list;        // user-dirs.dirs; null: there is none
    std::filesystem::path configuration, documents;
  } cases[] = {
      {"", nullptr, home / ".config", home / "Documents"},
      {"",
       "# XDG_DOCUMENTS_DIR=\"/no\"\nXDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n",
       home / ".config",
       home / "Dokumente"},
      {"", "XDG_DOCUMENTS_DIR=\"/srv/papers\"\n", home / ".config", "/srv/papers"},
      {"", "XDG_DOCUMENTS_DIR=$HOME/open\n", home / ".config", home / "Documents"},
      {own, "XDG_DOCUMENTS_DIR=\"$HOME/Akten\"\n", own, home / "Akten"},
      {"relative", nullptr, home / ".config", home / "Documents"},
  };
  for (const auto& [configured, list, configuration, documents] : cases) {
    const Environment homeFolder{"HOME", home.string()};
    const Environment configFolder{"XDG_CONFIG_HOME", configured};
    std::filesystem::remove_all(configuration);
    std::filesystem::create_directories(configuration);
    if (list) test::writeFile(configuration / "user-dirs.dirs", list);
    const Folders folders = Folders::ofUser();
    EXPECT_EQ(folders.configuration, configuration) << configured;
    EXPECT_EQ(folders.documents, documents) << (list ? list : "no list");
    EXPECT_TRUE(std::filesystem::exists(folders.program));
  }
}

}  // namespace
}  // namespace noldarz
