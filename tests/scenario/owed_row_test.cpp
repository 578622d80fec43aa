// The row of a run while another program holds the file, or bears its key: what the user has chosen and typed is
// neither lost nor written into another run.

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "support/test_study.h"

namespace noldarz {
namespace {

using test::compute;
using test::TestStudy;
using test::Texts;

/// A started program that waits for another one no longer than a moment.
struct HeldStudy : TestStudy {
  HeldStudy() {
    run("start");
    sqlite3_busy_timeout(session->system().study()->handle(), 20);
  }
  void hold(const char* lock = "BEGIN IMMEDIATE") {
    other = std::make_unique<Database>(folder.study(), studyLayout());
    other->run(lock);
  }
  void letGo() { other.reset(); }
  bool tellsTheLock() { return status().find("is held by another program") != std::string::npos; }
  Texts boxes() const { return record.boxes(); }

  std::unique_ptr<Database> other;
};

const std::string air = "SELECT StblClas, wndvel, Hmudy FROM maimTbl4All ORDER BY rowid";

TEST(OwedRow, isMadeByTheNextStepThatNeedsIt) {
  const struct {
    const char* step;
    const char* row;
  } cases[] = {{"click comput", "F|3|"},
               {"enter wndveltxt 2.2", "F|2.2|"},
               {"enter hudityTxt 45", "F|3|45"},
               {"click prbtoptn", "F|3|"}};
  for (const char* lock : {"BEGIN IMMEDIATE", "BEGIN EXCLUSIVE"})
    for (const auto& [step, row] : cases) {
      SCOPED_TRACE(std::string{lock} + " " + step);
      HeldStudy study;
      study.hold(lock);
      study.run("choose stblclscbo F\nwait");
      EXPECT_TRUE(study.tellsTheLock()) << study.status();
      study.run("focus enddisttxt\nleave enddisttxt\necho later");
      EXPECT_TRUE(study.tellsTheLock()) << study.status();
      study.letGo();
      EXPECT_EQ(study.rows(air), Texts{"D|6|"});
      study.run(step);
      EXPECT_FALSE(study.tellsTheLock()) << study.status();
      EXPECT_EQ(study.rows(air), (Texts{"D|6|", row}));
    }
}

TEST(OwedRow, takesWhatWasTypedMeanwhileAndLeavesTheRowBeforeAlone) {
  HeldStudy study;
  study.hold();
  study.run("choose stblclscbo F\nwait\nenter wndveltxt 2.2\nenter hudityTxt 45");
  study.letGo();
  compute(study);
  EXPECT_EQ(study.rows("SELECT StblClas, wndvel, Hmudy, constn6 FROM maimTbl4All ORDER BY rowid"),
            (Texts{"D|6||", "F|2.2|45|0.25"}));
}

TEST(OwedRow, takesOwnConstantsAndLevelsThatWereEnteredMeanwhile) {
  HeldStudy study;
  study.run("choose stblclscbo F\nwait");
  compute(study);  // a run with levels
  study.run("click redosimul\nchoose stblclscbo D\nwait");
  study.hold("BEGIN EXCLUSIVE");
  study.run("choose stblclscbo F\nwait\nuncheck prbtoptn\nenter avalftl -9.5\nclick comput\nenter constn(5) 0.1");
  study.letGo();
  study.run("click comput");
  EXPECT_EQ(study.rows("SELECT StblClas, prbtoptn, avalftl, constn6 FROM maimTbl4All ORDER BY rowid"),
            (Texts{"D|-1|-14.33|", "F|0|-9.5|0.1"}));
  EXPECT_EQ(study.text("avalftl"), "-9.5");
}

TEST(OwedRow, ofANewNameIsRenamedOnceTheFileIsFree) {
  HeldStudy study;
  study.run("uncheck prbtoptn\nenter avalftl -9.5");
  study.hold();
  study.run("enter scnrotxtlbl Night\nwait");
  EXPECT_EQ(study.text("scnrotxtlbl"), "Night");
  EXPECT_EQ(study.text("avalftl"), "-9.5");
  EXPECT_EQ(study.field("prbtoptn").value(), 0);
  study.letGo();
  compute(study);
  EXPECT_EQ(study.rows("SELECT scenariotxtUser, avalftl, prbtoptn, constn6 FROM maimTbl4All"),
            Texts{"Night|-9.5|0|0.25"});
}

TEST(OwedRow, thatCanNotBeMadeBringsTheChoiceOfTheRowInForceBack) {
  HeldStudy study;
  study.run("uncheck prbtoptn\nenter avalftl -9.5\nclose");
  // Another program asks for a run by a name that none has; the key of a new one is that of the row that is there.
  study.execute("UPDATE scenr1 SET scenariotxtTmp = 'Somewhere'");
  study.open();
  study.run("start");
  EXPECT_EQ(study.field("prbtoptn").value(), 0);
  EXPECT_EQ(study.text("avalftl"), "-9.5");
  EXPECT_EQ(study.text("stblclscbo"), "D");
  compute(study);
  EXPECT_EQ(study.rows("SELECT avalftl, prbtoptn, constn6 FROM maimTbl4All"), Texts{"-9.5|0|0.25"});
}

TEST(OwedRow, ofASelectedRunChangesNothing) {
  HeldStudy study;
  study.run("choose stblclscbo F\nenter wndveltxt 2.2\nfocus hudityTxt");
  study.hold("BEGIN EXCLUSIVE");
  study.run("choose dspScnorlst_1 #1\ndblclick dspScnorlst_1\nwait");
  EXPECT_EQ(study.text("stblclscbo"), "F");
  EXPECT_TRUE(study.tellsTheLock()) << study.status();
  study.letGo();
  compute(study);
  EXPECT_EQ(study.rows("SELECT StblClas, constn6 FROM maimTbl4All ORDER BY rowid"), (Texts{"D|", "F|0.25"}));
}

TEST(Closing, asksWhetherToTryAgainWhatCouldNotBeStored) {
  HeldStudy study;
  study.hold();
  study.run("set htreltxt 7\nset hudityTxt 45");
  study.record.clear();
  study.run("answer yes\nclose");
  const std::string file = study.folder.study().string();
  const std::string cause = ".\n" + file + " is held by another program\nTry again?";
  EXPECT_EQ(study.boxes(),
            (Texts{"Not stored: relative humidity 45 %" + cause,
                   "Not stored: relative humidity 45 %" + cause,
                   "Not stored: height of release 7 m" + cause}));
  EXPECT_TRUE(study.session->ended());
  study.letGo();
  study.open();
  study.run("start\nset htreltxt 7\nclose");
  EXPECT_EQ(study.rows("SELECT htrel FROM Disptbl"), Texts{"7"});
}

TEST(Closing, storesNoRefusedTextEmptyOrNot) {
  for (const char* field : {"htreltxt", "hudityTxt", "wndveltxt", "scnrotxtlbl"})
    for (const char* text : {"", "x'"}) {
      TestStudy study;
      study.run("start\nenter hudityTxt 45");
      const std::string everything =
          "SELECT htrel, htsmul, Hmudy, wndvel, scenariotxtUser FROM Disptbl, maimTbl4All WHERE Disptbl.refNo = 'HW-1'";
      const Texts before = study.rows(everything);
      study.run("enter " + std::string{field} + " \"" + text + "\"\nclose");
      EXPECT_EQ(study.rows(everything), before) << field << ' ' << text;
    }
}

}  // namespace
}  // namespace noldarz
