#include "platform/settings.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>

#include "support/process.h"
#include "support/test_folder.h"

namespace noldarz {
namespace {

TEST(Settings, keepTextsByApplicationSectionAndKey) {
  const test::TestFolder folder;
  const Settings settings{folder / "config/deeper"};
  EXPECT_EQ(settings.get("noldarz", "wnddegstr", "wnddegstr1"), std::nullopt);
  settings.set("noldarz", "wnddegstr", "wnddegstr1", "45");
  settings.set("noldarz", "other", "wnddegstr1", "a \"b\"\n'c' = ü");
  settings.set("noldarz.LnWidth", "wnddegstr", "wnddegstr1", "");
  settings.set("noldarz", "wnddegstr", "wnddegstr1", "90");
  const Settings reader{folder / "config/deeper"};
  EXPECT_EQ(reader.get("noldarz", "wnddegstr", "wnddegstr1"), "90");
  EXPECT_EQ(reader.get("noldarz", "other", "wnddegstr1"), "a \"b\"\n'c' = ü");
  EXPECT_EQ(reader.get("noldarz.LnWidth", "wnddegstr", "wnddegstr1"), "");
}

TEST(Settings, leaveAFileThatTheyCannotReadAlone) {
  const test::TestFolder folder;
  const Settings settings{folder / "config"};
  settings.set("a", "b", "c", "d");
  test::writeFile(settings.file(), "a = [1,\nb");
  EXPECT_EQ(settings.get("a", "b", "c"), std::nullopt);
  try {
    settings.set("a", "b", "c", "e");
    FAIL() << "overwrote the file";
  } catch (const std::runtime_error& error) {
    EXPECT_TRUE(std::string{error.what()}.starts_with(settings.file().string() + ":2: ")) << error.what();
  }
  EXPECT_EQ(test::readFile(settings.file()), "a = [1,\nb");
}

TEST(Settings, ofTwoProcessesDoNotUndoEachOther) {
  const test::TestFolder folder;
  constexpr int changes = 30;
  std::vector<pid_t> writers;
  for (const char* name : {"a", "b"}) {
    writers.push_back(test::inProcess([&] {
      for (int i = 0; i < changes; ++i) Settings{folder / "config"}.set(name, "s", std::to_string(i), "x");
      return 0;
    }));
  }
  for (const pid_t writer : writers) EXPECT_EQ(test::statusOf(writer), 0);
  for (const char* name : {"a", "b"})
    for (int i = 0; i < changes; ++i)
      EXPECT_EQ(Settings{folder / "config"}.get(name, "s", std::to_string(i)), "x") << name << i;
}

TEST(Settings, doNotWaitForEver) {
  const test::TestFolder folder;
  const Settings settings{folder / "config"};
  settings.set("a", "b", "c", "d");
  const int held = open((folder / "config/noldarz/settings.lock").c_str(), O_RDWR);
  ASSERT_EQ(flock(held, LOCK_EX), 0);
  try {
    settings.set("a", "b", "c", "e");
    FAIL() << "wrote without the lock";
  } catch (const std::runtime_error& error) {
    EXPECT_TRUE(std::string{error.what()}.ends_with("settings.lock is held by another program")) << error.what();
  }
  close(held);
}

}  // namespace
}  // namespace noldarz
