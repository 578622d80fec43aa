// Which files open as a study, and what is said of those that don't.

#include "platform/store/database.h"

#include <gtest/gtest.h>

#include "platform/store/store_failure.h"
#include "support/small_store.h"

namespace noldarz {
namespace {

/// "NUMBER: what is said", the path left out; empty when the file opens.
std::string faultOf(const std::filesystem::path& file) {
  try {
    Database{file, test::smallLayout()};
    return {};
  } catch (const StoreFailure& failure) {
    std::string text = failure.what();
    if (text.starts_with(file.string() + " ")) text.erase(0, file.string().size() + 1);
    return std::to_string(failure.number()) + ": " + text;
  }
}

TEST(Database, tellsByContentWhatIsNoStudy) {
  const test::TestFolder folder;
  test::makeStore(folder.study());
  const std::string study = test::readFile(folder.study());
  std::string newer = study;
  newer[63] = 2;  // user version
  const auto changed = [&](const std::string& statements) {
    test::makeStore(folder.study());
    test::changeFromOutside(folder.study(), statements);
    return test::readFile(folder.study());
  };
  const std::string foreign = changed("DROP TABLE scenr1");
  const std::string column = changed("ALTER TABLE scenr1 RENAME COLUMN TemprturTemp TO Temperature");
  const struct {
    std::string bytes;
    const char* fault;
  } cases[] = {
      {study, ""},
      {"", "3343: is empty, no study"},
      {"OrgName;refNo\nAcme;R1\n", "3343: is a text, no study"},
      {"[[scenr1]]\nrefno = \"Gr\xc3\xb6\xc3\x9f"
       "e\"\n",
       "3343: is a text, no study"},
      {std::string("\0\1\0\0Standard Jet DB\0\1", 21) + std::string(2000, '\0'),
       "3343: is an original Jet database, no study of this program; create one from its tables"},
      {std::string("\0\1\0\0Standard ACE DB\0\2", 21),
       "3343: is an original Jet database, no study of this program; create one from its tables"},
      {std::string(4096, '\0'), "3343: is no study"},
      {"PK\3\4", "3343: is no study"},
      {study.substr(0, 12), "3343: is a truncated study"},
      {study.substr(0, 99), "3343: is a truncated study"},
      {study.substr(0, study.size() - 1), "3343: is a truncated study"},
      {study.substr(0, 4096), "3343: is a truncated study"},
      {newer, "3343: comes from a newer version of the program"},
      {foreign, "3343: is a database but no study: it has no table scenr1"},
      {column, "3343: is a database but no study: its table scenr1 has no column TemprturTemp"},
  };
  const auto file = folder / "data/file.mdb";
  for (const auto& [bytes, fault] : cases) {
    test::writeFile(file, bytes);
    EXPECT_EQ(faultOf(file), fault);
    EXPECT_EQ(test::readFile(file), bytes) << fault;
  }
  EXPECT_EQ(faultOf(folder / "data/none.mdb"), "3024: is not there");
  EXPECT_FALSE(std::filesystem::exists(folder / "data/none.mdb"));
  EXPECT_EQ(faultOf(folder / "data"), "3343: is no file");
}

TEST(Database, looksIntoEveryPageBeforeAnythingIsRead) {
  const test::TestFolder folder;
  test::makeStore(folder.study());
  const std::string sound = test::readFile(folder.study());
  constexpr std::size_t page = 4096;
  for (std::size_t begin = page; begin < sound.size(); begin += page) {
    std::string bytes = sound;
    bytes.replace(begin, 8, 8, '\xAA');
    test::writeFile(folder.study(), bytes);
    EXPECT_TRUE(faultOf(folder.study()).starts_with("3049: ")) << begin / page << ": " << faultOf(folder.study());
    EXPECT_EQ(test::readFile(folder.study()), bytes);
  }
}

TEST(Database, takesTablesAndColumnsOfOtherModules) {
  const test::TestFolder folder;
  test::makeStore(folder.study());
  test::changeFromOutside(
      folder.study(),
      "CREATE TABLE FireTbl (OrgName TEXT); ALTER TABLE maimTbl4All ADD COLUMN Remark TEXT; PRAGMA user_version = 0");
  EXPECT_EQ(faultOf(folder.study()), "");
}

TEST(Database, rollsAFailedChangeBack) {
  const test::TestFolder folder;
  test::makeStore(folder.study());
  const Database database{folder.study(), test::smallLayout()};
  EXPECT_THROW(database.transact([&] {
    database.run("DELETE FROM scenr1");
    fail(FailureNumber::typeMismatch);
  }),
               RuntimeFailure);
  Statement count{database, "SELECT count(*) FROM scenr1"};
  count.step();
  EXPECT_EQ(textOf(count.cell(0)), "1");
}

}  // namespace
}  // namespace noldarz
