// A link between fields and a row: when an edit reaches the study, and when it doesn't.

#include "platform/store/data_link.h"

#include <gtest/gtest.h>

#include "platform/view.h"
#include "support/small_store.h"

namespace noldarz {
namespace {

class DataLinkTest : public testing::Test {
 protected:
  DataLinkTest() : view(views, "v", ""), link(databases, [this](const std::string& text) { refused.push_back(text); }) {
    test::makeStore(folder.study());
    link.bind(height, "htrel");
    link.bind(terrain, "terrain", [](const std::string& t) { return t == "Moon" ? "is no terrain" : ""; });
    link.bind(label, "refNo");
    link.setDatabaseName(folder.study());
    link.setRecordSource(all);
  }
  std::string stored(const std::string& column, const std::string& refNo = "HW-1") const {
    const auto database = test::openStore(folder.study());
    return textOf(Recordset{database, "SELECT " + column + " FROM Disptbl WHERE refNo = '" + refNo + "'"}.value(0));
  }

  const std::string all = "SELECT Disptbl.refNo, Disptbl.htrel, Disptbl.htsmul, Disptbl.terrain From Disptbl";
  test::TestFolder folder;
  Databases databases{test::smallLayout()};
  Views views;
  View view;
  std::vector<std::string> refused;
  Field& height = view.text("height", "9");
  Field& terrain = view.add(FieldKind::combo, "terrain");
  Field& label = view.label("label");
  DataLink link;
};

TEST_F(DataLinkTest, showsTheRowAndStoresAnEditWithTheNextRefresh) {
  link.refresh();
  EXPECT_EQ(height.text(), "1");
  EXPECT_EQ(terrain.text(), "Level");
  EXPECT_EQ(label.caption(), "HW-1");
  height.setText("2.50");
  EXPECT_EQ(stored("htrel"), "1");
  link.refresh();
  EXPECT_EQ(stored("htrel"), "2.5");
  EXPECT_EQ(height.text(), "2.5");
}

TEST_F(DataLinkTest, storesAnEditBeforeItMoves) {
  link.refresh();
  height.setText("2.5");
  link.moveFirst();
  EXPECT_EQ(stored("htrel"), "2.5");
  EXPECT_EQ(height.text(), "2.5");
}

TEST_F(DataLinkTest, storesAnEditBeforeItRunsAnotherQuery) {
  link.refresh();
  terrain.setText("Urban");
  link.setRecordSource(all + " WHERE refNo = 'nobody'");
  link.refresh();
  EXPECT_EQ(stored("terrain"), "Urban");
  EXPECT_EQ(link.recordCount(), 0);
  EXPECT_EQ(terrain.text(), "Urban");  // no row: the field stays
  terrain.setText("Rural");
  link.refresh();
  EXPECT_EQ(stored("terrain"), "Urban");  // and is nobody's edit
}

TEST_F(DataLinkTest, storesAnEditWithAnUpdateAndAtTheEnd) {
  link.refresh();
  height.setText("3");
  EXPECT_EQ(link.recordset().isOpenForWriting(), false);
  EXPECT_THROW(link.update(), RuntimeFailure);  // nothing open
  link.edit();
  link.set("htsmul", 4.0);
  link.update();
  EXPECT_EQ(stored("htrel || ' ' || htsmul"), "3.0 4.0");
  height.setText("5");
  link.close();
  EXPECT_EQ(stored("htrel"), "5");
  EXPECT_EQ(link.database(), nullptr);
}

TEST_F(DataLinkTest, dropsAnEditThatTheColumnDoesNotTake) {
  link.refresh();
  height.setText("high");
  terrain.setText("Moon");
  label.setCaption("HW-2");
  link.refresh();
  EXPECT_EQ(stored("refNo || htrel || terrain"), "HW-11.0Level");
  EXPECT_EQ(height.text(), "1");
  EXPECT_EQ(terrain.text(), "Level");
  EXPECT_EQ(refused,
            (std::vector<std::string>{"\"high\" is no number and is not stored",
                                      "\"Moon\" is no terrain and is not stored"}));
  height.setText("");
  link.refresh();
  EXPECT_EQ(stored("htrel"), "");
}

TEST_F(DataLinkTest, startsANewRowWithEmptyFields) {
  link.refresh();
  link.addNew();
  EXPECT_EQ(height.text(), "");
  link.set("refNo", "R2");
  terrain.setText("Rural");
  link.refresh();  // stores the row
  EXPECT_EQ(link.recordCount(), 2);
  EXPECT_EQ(stored("terrain", "R2"), "Rural");
  EXPECT_EQ(stored("htrel", "R2"), "");
}

TEST_F(DataLinkTest, hasNoRowsAfterAFailedQuery) {
  link.refresh();
  for (const char* query : {"", "DELETE FROM Disptbl", "SELECT * FROM nothing"}) {
    link.setRecordSource(query);
    EXPECT_THROW(link.refresh(), RuntimeFailure) << query;
    EXPECT_THROW(link.recordCount(), RuntimeFailure);
    EXPECT_THROW(link.edit(), RuntimeFailure);
    EXPECT_THROW(link.value("htrel"), RuntimeFailure);
  }
}

TEST_F(DataLinkTest, showsTheStudyAgainWhenAnEditCannotBeStored) {
  link.refresh();
  height.setText("7");
  test::changeFromOutside(folder.study(),
                          "CREATE TRIGGER t BEFORE UPDATE ON Disptbl BEGIN SELECT RAISE(ABORT, 'x'); END");
  EXPECT_THROW(link.refresh(), RuntimeFailure);
  EXPECT_EQ(height.text(), "1");
  EXPECT_EQ(link.recordCount(), 1);
  EXPECT_EQ(refused.size(), 1U);
}

TEST_F(DataLinkTest, staysOnItsRowWhileTheFileIsHeld) {
  link.refresh();
  {
    const Database other{folder.study(), test::smallLayout()};
    other.run("BEGIN EXCLUSIVE");
    const auto wait = [&] {
      const auto before = std::chrono::steady_clock::now();
      EXPECT_THROW(link.refresh(), RuntimeFailure);
      return std::chrono::steady_clock::now() - before;
    };
    const auto first = wait();
    EXPECT_GT(first, 10 * wait()) << "the next step of an act waits again";
    EXPECT_TRUE(link.hasRow());
    EXPECT_EQ(textOf(link.value("refNo")), "HW-1");
  }
  databases.beginAct();
  height.setText("8");
  link.refresh();
  EXPECT_EQ(stored("htrel"), "8");
}

TEST_F(DataLinkTest, bindsAFieldToAnotherColumn) {
  link.refresh();
  link.bind(height, "htsmul");
  EXPECT_EQ(height.text(), "1.5");
  height.setText("2");
  link.refresh();
  EXPECT_EQ(stored("htrel || ' ' || htsmul"), "1.0 2.0");
}

}  // namespace
}  // namespace noldarz
