// Recordsets on a real study file: what a query may be, what comes back, what is written.

#include "platform/store/recordset.h"

#include <gtest/gtest.h>

#include "platform/store/data_link.h"
#include "platform/store/store_failure.h"
#include "support/small_store.h"

namespace noldarz {
namespace {

using Texts = std::vector<std::string>;

class RecordsetTest : public testing::Test {
 protected:
  RecordsetTest() {
    test::makeStore(folder.study());
    database = test::openStore(folder.study());
  }
  Recordset query(const std::string& text) const { return {database, text}; }
  int count(const std::string& text) const { return query(text).recordCount(); }
  void addRuns(const std::vector<std::string>& keys) const {
    Recordset runs = query("SELECT * FROM maimTbl4All");
    for (const auto& key : keys) {
      runs.addNew();
      runs.set("OrgName", "Acme");
      runs.set("refNo", "R1");
      runs.set("scenariotxt", key);
      runs.update();
    }
  }

  test::TestFolder folder;
  std::shared_ptr<Database> database;
};

/// Number of the failure that the statement meets; 0 for none.
template <class Statement>
int failureOf(Statement&& statement) {
  try {
    statement();
  } catch (const RuntimeFailure& failure) {
    return failure.number();
  }
  return 0;
}

TEST_F(RecordsetTest, takesSingleReadingStatementsOnly) {
  for (const char* text : {"SELECT * FROM scenr1", " select refNo from Disptbl ; ", "SELECT 1 WHERE 0"})
    EXPECT_EQ(failureOf([&] { query(text); }), 0) << text;
  const std::string before = test::readFile(folder.study());
  for (const char* text : {"",
                           ";",
                           "DELETE FROM scenr1",
                           "UPDATE scenr1 SET refno = 'x'",
                           "INSERT INTO Orgtn (OrgName) VALUES ('x') RETURNING OrgName",
                           "SELECT 1; DELETE FROM scenr1",
                           "PRAGMA journal_mode = WAL",
                           "ATTACH 'x.mdb' AS x",
                           "BEGIN",
                           "DROP TABLE scenr1",
                           "SELECT * FROM nothing",
                           "SELECT * FROM Disptbl WHERE refNo = 'O'Brien'",
                           "SELECTED",
                           "SELEC"})
    EXPECT_EQ(failureOf([&] { query(text); }), 3075) << text;
  EXPECT_EQ(test::readFile(folder.study()), before);
}

TEST_F(RecordsetTest, comparesKeysWithoutRegardToCaseInAnyScript) {
  addRuns({"Größe Ä"});
  for (const char* key : {"Größe Ä", "GRÖßE ä", "größe ä", "GRÖSSE Ä"})
    EXPECT_EQ(count("SELECT scenariotxt FROM maimTbl4All WHERE scenariotxt = '" + std::string{key} + "'"), 1) << key;
  EXPECT_EQ(count("SELECT scenariotxt FROM maimTbl4All WHERE scenariotxt = 'Grosse A'"), 0);
  EXPECT_EQ(count("SELECT OrgName FROM Orgtn WHERE OrgName = 'HARBOUR water works'"), 1);
}

TEST_F(RecordsetTest, walksForwardAndTellsItsPlace) {
  Recordset none = query("SELECT * FROM maimTbl4All");
  EXPECT_EQ(none.recordCount(), 0);
  EXPECT_TRUE(none.eof());
  EXPECT_EQ(none.absolutePosition(), -1);
  EXPECT_EQ(failureOf([&] { none.moveFirst(); }), 3021);
  EXPECT_EQ(failureOf([&] { none.value("OrgName"); }), 3021);
  EXPECT_EQ(failureOf([&] { none.edit(); }), 3021);

  addRuns({"a", "b", "c"});
  Recordset runs = query("SELECT scenariotxt FROM maimTbl4All");
  EXPECT_EQ(runs.recordCount(), 3);
  Texts keys;
  for (; !runs.eof(); runs.moveNext()) keys.push_back(textOf(runs.value(0)));
  EXPECT_EQ(keys, (Texts{"a", "b", "c"}));
  EXPECT_EQ(failureOf([&] { runs.moveNext(); }), 3021);
  runs.moveFirst();
  EXPECT_EQ(runs.absolutePosition(), 0);
  EXPECT_EQ(failureOf([&] { runs.value("nothing"); }), 3265);
  EXPECT_EQ(failureOf([&] { runs.value(1); }), 3265);
}

TEST_F(RecordsetTest, storesNumbersAsNumbersAndMarksAsTexts) {
  const struct {
    const char* column;
    Cell written;
    const char* stored;
  } cases[] = {
      {"endptn5", "6216.94", "real|6216.94"},
      {"endptn5", ">10000", "text|>10000"},
      {"endptn5", "N.A.", "text|N.A."},
      {"endptn5", "", "null|"},
      {"endptn5", 12.5, "real|12.5"},
      {"TemptureTmp", "-34", "text|-34"},
      {"TemptureTmp", "007", "text|007"},
      {"scenariotxtUser", "O'Brien", "text|O'Brien"},
      {"qntystor", "007", "text|007"},
      {"qntystor", std::int64_t{7}, "integer|7"},
      {"prbtoptn", truth(true), "integer|-1"},
  };
  addRuns({"a"});
  for (const auto& [column, written, stored] : cases) {
    Recordset run = query("SELECT * FROM maimTbl4All");
    run.edit();
    run.set(column, written);
    run.update();
    const std::string name{column};
    Recordset read = query("SELECT typeof(" + name + "), " + name + " FROM maimTbl4All");
    EXPECT_EQ(textOf(read.value(0)) + "|" + textOf(read.value(1)), stored) << column;
    EXPECT_EQ(textOf(run.value(column)), textOf(read.value(1))) << column;
  }
}

TEST_F(RecordsetTest, writesOnlyWhatWasSetAndOnlyWhenOpen) {
  addRuns({"a"});
  Recordset run = query("SELECT * FROM maimTbl4All");
  EXPECT_EQ(failureOf([&] { run.set("Causes", "x"); }), 3020);
  EXPECT_EQ(failureOf([&] { run.update(); }), 3020);
  run.edit();
  EXPECT_EQ(failureOf([&] { run.set("nothing", "x"); }), 3265);
  run.set("wndvel", 6.0);
  database->run("UPDATE maimTbl4All SET Causes = 'of the main module'");  // meanwhile
  run.update();
  EXPECT_EQ(textOf(query("SELECT Causes FROM maimTbl4All").value(0)), "of the main module");
  EXPECT_EQ(textOf(query("SELECT wndvel FROM maimTbl4All").value(0)), "6");

  run.edit();
  run.set("wndvel", 7.0);
  run.cancelUpdate();
  EXPECT_EQ(textOf(run.value("wndvel")), "6");
}

TEST_F(RecordsetTest, writesThroughAJoinButNotThroughAGroup) {
  Recordset chemical = query(
      "SELECT [dsptbl-1].refNo, [dsptbl-1].givnwnd1 FROM Orgtn INNER JOIN [dsptbl-1] ON Orgtn.OrgName = "
      "[dsptbl-1].OrgName WHERE ((([dsptbl-1].OrgName)='Harbour Water Works'));");
  chemical.edit();
  chemical.set("givnwnd1", 11.0);
  chemical.update();
  EXPECT_EQ(textOf(query("SELECT givnwnd1 FROM [dsptbl-1]").value(0)), "11");
  for (const char* text : {"SELECT refNo FROM [dsptbl-1] GROUP BY refNo",
                           "SELECT DISTINCT refNo FROM [dsptbl-1]",
                           "SELECT count(*) FROM Orgtn",
                           "SELECT Orgtn.OrgName, [dsptbl-1].refNo FROM Orgtn, [dsptbl-1]"})
    EXPECT_EQ(failureOf([&] { query(text).edit(); }), 3027) << text;
}

TEST_F(RecordsetTest, readsWhatCannotBeWritten) {
  Recordset outer = query(
      "SELECT Disptbl.htrel FROM Orgtn LEFT JOIN Disptbl ON Orgtn.OrgName = Disptbl.refNo");  // finds no row of Disptbl
  EXPECT_EQ(outer.recordCount(), 1);
  EXPECT_EQ(failureOf([&] { outer.edit(); }), 3027);
  addRuns({"b", "c", "a"});
  Recordset sorted{database, "SELECT scenariotxt FROM maimTbl4All ORDER BY 1 DESC LIMIT 1", Recordset::Access::read};
  EXPECT_EQ(textOf(sorted.value(0)), "c");
  EXPECT_EQ(failureOf([&] { sorted.edit(); }), 3027);
}

TEST_F(RecordsetTest, tellsAGroupFromANameThatSoundsLikeOne) {
  addRuns({"Pump group by pass"});
  query("SELECT scenariotxt FROM maimTbl4All WHERE scenariotxt = 'pump group by pass'").edit();
  EXPECT_EQ(failureOf([&] { query("SELECT scenariotxt FROM maimTbl4All GROUP \n by scenariotxt").edit(); }), 3027);
}

TEST_F(RecordsetTest, refusesASecondRowWithTheKey) {
  addRuns({"a"});
  EXPECT_EQ(failureOf([&] { addRuns({"A"}); }), 3022);
  addRuns({"b"});
  Recordset second = query("SELECT * FROM maimTbl4All WHERE scenariotxt = 'b'");
  second.edit();
  second.set("scenariotxt", "a");
  EXPECT_EQ(failureOf([&] { second.update(); }), 3022);
  EXPECT_EQ(count("SELECT * FROM maimTbl4All WHERE scenariotxt = 'b'"), 1);
}

TEST_F(RecordsetTest, looksForTheKeyItselfInAFileWithoutGuards) {
  addRuns({"Größe"});
  test::changeFromOutside(folder.study(), "DROP TRIGGER \"maimTbl4All key INSERT\"");
  EXPECT_EQ(failureOf([&] { addRuns({"grÖße"}); }), static_cast<int>(FailureNumber::duplicateKey));
  EXPECT_EQ(count("SELECT * FROM maimTbl4All"), 1);
}

TEST_F(RecordsetTest, writesNoOtherRowOrFileThanItRead) {
  addRuns({"a"});
  Recordset gone = query("SELECT * FROM maimTbl4All");
  gone.edit();
  gone.set("wndvel", 6.0);
  database->run("DELETE FROM maimTbl4All");
  addRuns({"b"});  // takes the place of the deleted row
  EXPECT_EQ(failureOf([&] { gone.update(); }), 3021);
  EXPECT_EQ(textOf(query("SELECT wndvel FROM maimTbl4All").value(0)), "");

  Recordset stale = query("SELECT * FROM maimTbl4All");
  test::makeStore(folder.study());
  stale.edit();
  stale.set("wndvel", 6.0);
  EXPECT_THROW(stale.update(), StoreFailure);
  EXPECT_FALSE(database->isCurrent());
}

}  // namespace
}  // namespace noldarz
