// Conversion, import and the table of the population view, and what of them survives an answer of no, a lock, another
// program and a kill.

#include <gtest/gtest.h>

#include <random>
#include <thread>

#include "support/population_study.h"
#include "support/process.h"

namespace noldarz::test {
namespace {

constexpr const char* instruction = ", to convert release the toggle button [convert]";

void typeBands(PopulationStudy& study, const std::vector<std::string>& numbers) {
  for (std::size_t i = 0; i < numbers.size(); ++i)
    study.run("enter absltftlyfrm.populatndnsty(" + std::to_string(i) + ") \"" + numbers[i] + "\"");
}

TEST(Conversion, turnsEveryUnitIntoPersonsPerHectare) {
  const struct {
    const char* unit;
    std::vector<std::string> typed;
    const char* densities;
    const char* told;
  } cases[] = {
      {"Enter population To Density/Ha",
       {"600", "12345", "5000000", "0", "3e6"},
       "0 3 796 0 265",
       "Converted and stored. Less than half a person/Ha, so 0: 0 To 2 km."},
      {"Density/km2 To Density/Ha",
       {"12345", "49", "51", "0", "1e5"},
       "123 0 1 0 1000",
       "Converted and stored. Less than half a person/Ha, so 0: >2 To 4 km."},
      {"Density/m2 To Density/Ha",
       {"0.001", "0.5", "1", "0.00004", "2"},
       "10 5000 10000 0 20000",
       "Converted and stored. Less than half a person/Ha, so 0: >6 To 8 km."},
      {"Density/Sq.mile To Density/Ha",
       {"1000", "5000", "130", "129", "64766"},
       "4 19 1 0 250",
       "Converted and stored. Less than half a person/Ha, so 0: >6 To 8 km."},
      {"Density/Acre To Density/Ha",
       {"10", "0.2", "0.3", "20", "0.25"},
       "25 0 1 49 1",
       "Converted and stored. Less than half a person/Ha, so 0: >2 To 4 km."},
  };
  for (const auto& [unit, typed, densities, told] : cases) {
    PopulationStudy study{"", "4"};
    study.run("check absltftlyfrm.convrtPBtn\nchoose absltftlyfrm.denUnitListCbo \"" + std::string{unit} + "\"");
    typeBands(study, typed);
    study.run("answer yes\nuncheck absltftlyfrm.convrtPBtn");
    EXPECT_EQ(study.bands(), densities) << unit;
    EXPECT_EQ(study.text("absltftlyfrm.statuslbl"), told) << unit;
    study.run("click absltftlyfrm.clsfrm1\nclick popdnsty");
    EXPECT_EQ(study.bands(), densities) << unit;  // stored
  }
}

TEST(Conversion, tellsWhatToEnterAndAsksFirst) {
  PopulationStudy study{"populatndnsty_1_0 = 3"};
  const auto told = [&] {
    return study.viewNamed("absltftlyfrm")->title() + "|" + study.text("absltftlyfrm.zonenumlbl") + "|" +
           study.field("absltftlyfrm.populatndnsty(4)").toolTip();
  };
  EXPECT_FALSE(study.field("absltftlyfrm.denUnitListCbo").enabled());
  study.run("check absltftlyfrm.convrtPBtn");
  EXPECT_TRUE(study.field("absltftlyfrm.denUnitListCbo").enabled());
  const std::string heads = "Enter population in 0 to 2km, 2 to 4km...so on" + std::string{instruction};
  EXPECT_EQ(told(), "NOLDA-RZ : Convertion option selected|" + heads + "|Enter population density/Ha");
  study.run("choose absltftlyfrm.denUnitListCbo #4");
  EXPECT_EQ(told(),
            "NOLDA-RZ : Convertion option selected|Enter units in Density/Acre To Density/Ha" +
                std::string{instruction} + "|Enter units in Density/Acre To Density/Ha");
  study.run("choose absltftlyfrm.denUnitListCbo #0");
  EXPECT_EQ(told(), "NOLDA-RZ : Convertion option selected|" + heads + "|Enter population in 0 to 2km");
  study.run("enter absltftlyfrm.populatndnsty(0) 600\nuncheck absltftlyfrm.convrtPBtn");
  EXPECT_EQ(study.record.boxesWithIcons(), Texts{"information: Wish to convert values?"});  // No is its default
  EXPECT_EQ(study.bands(), "600 0 0 0 0");
  EXPECT_EQ(told(), "NOLDA-RZ : population density|Population density/Ha. for sector 1|Enter population in 0 to 2km");
  study.run("check absltftlyfrm.getfrPre\ncheck absltftlyfrm.convrtPBtn");
  EXPECT_EQ(study.viewNamed("absltftlyfrm")->title(), "NOLDA-RZ : Multiple option selected");
}

/// A second reference number with a grid, and a third whose grid is empty.
struct ImportStudy : PopulationStudy {
  explicit ImportStudy(const std::string& cells = "populatndnsty_1_0 = 7\npopulatndnsty_8_4 = 9")
      : PopulationStudy(cells) {
    execute(
        "INSERT INTO poplatndnstytbl (refNo, populatndnsty_1_0, populatndnsty_1_1, populatndnsty_3_2, "
        "populatndnsty_8_3)"
        " VALUES ('HW-2', 4, 2.5, 3.5, 80); INSERT INTO poplatndnstytbl (refNo) VALUES ('HW-3')");
  }
};

TEST(Import, copiesTheGridOfAnotherReference) {
  ImportStudy study;
  study.run("check absltftlyfrm.getfrPre");
  EXPECT_EQ(study.field("absltftlyfrm.popdnstycbo").entries(), (Texts{"HW-1", "HW-2", "HW-3"}));
  EXPECT_EQ(study.record.lines(), (Texts{"focus absltftlyfrm.popdnstycbo", "dropDown absltftlyfrm.popdnstycbo"}));
  EXPECT_EQ(study.viewNamed("absltftlyfrm")->title(), "NOLDA-RZ : Getting from previous Ref.No. HW-1");
  EXPECT_FALSE(study.field("absltftlyfrm.populatndnsty(0)").enabled());
  study.run("choose absltftlyfrm.popdnstycbo HW-2");
  EXPECT_EQ(study.viewNamed("absltftlyfrm")->title(), "NOLDA-RZ : Getting from previous Ref.No. HW-2");
  EXPECT_EQ(study.bands(), "4 2.5 0 0 0");      // looked at
  EXPECT_EQ(study.state().popImportBuf[1], 2);  // half to even
  EXPECT_EQ(study.state().popImportBuf[12], 4);
  EXPECT_EQ(study.state().popImportBuf[38], 80);
  study.run("click absltftlyfrm.impotBtn");
  EXPECT_EQ(study.record.boxes(), Texts{"Wish to import population density from selected Ref.No.?"});
  EXPECT_EQ(study.nonEmptyCells(), "populatndnsty_1_0=7 populatndnsty_8_4=9");  // No is its default
  EXPECT_EQ(study.field("absltftlyfrm.getfrPre").value(), 1);
  study.run("answer yes\nclick absltftlyfrm.impotBtn");
  EXPECT_EQ(study.text("absltftlyfrm.statuslbl"), "Imported from HW-2; fractions of densities are lost.");
  EXPECT_EQ(study.bands(), "4 2 0 0 0");
  EXPECT_EQ(study.cell("populatndnsty_8_3"), "80");
  EXPECT_EQ(study.cell("populatndnsty_8_4"), "0");
  EXPECT_EQ(study.viewNamed("absltftlyfrm")->title(), "NOLDA-RZ : population density");
  EXPECT_FALSE(study.field("absltftlyfrm.impotBtn").enabled());
  EXPECT_EQ(study.field("absltftlyfrm.popdnstycbo").entries().size(), 9);
  study.run(
      "check absltftlyfrm.getfrPre\nchoose absltftlyfrm.popdnstycbo HW-3\nanswer yes\nclick absltftlyfrm.impotBtn");
  EXPECT_EQ(study.text("absltftlyfrm.statuslbl"), "Imported from HW-3.");
  EXPECT_EQ(study.cell("populatndnsty_8_3"), "0");  // from an empty grid
  EXPECT_EQ(study.nonEmptyCells("HW-3"), "");
}

TEST(Import, neverChangesTheOtherGrid) {
  ImportStudy study;
  study.run(R"(
check absltftlyfrm.getfrPre
choose absltftlyfrm.popdnstycbo HW-2
check absltftlyfrm.convrtPBtn
answer yes
uncheck absltftlyfrm.convrtPBtn
)");
  EXPECT_EQ(study.bands(), "0 0 0 0 0");  // shown converted
  study.run("check absltftlyfrm.znePopdnsty(2)\nset absltftlyfrm.populatndnsty(0) 5\nuncheck absltftlyfrm.getfrPre");
  EXPECT_EQ(study.nonEmptyCells("HW-2"),
            "populatndnsty_1_0=4 populatndnsty_1_1=2.5 populatndnsty_3_2=3.5 populatndnsty_8_3=80");
  EXPECT_EQ(study.nonEmptyCells(), "populatndnsty_1_0=7 populatndnsty_8_4=9");
  study.run(
      "check absltftlyfrm.getfrPre\nchoose absltftlyfrm.popdnstycbo HW-2\nset absltftlyfrm.populatndnsty(0) 6\nclick "
      "absltftlyfrm.clsfrm1\nclick popdnsty");
  EXPECT_EQ(study.nonEmptyCells(), "populatndnsty_1_0=7 populatndnsty_8_4=9");
  EXPECT_EQ(study.field("absltftlyfrm.getfrPre").value(), 0);  // the modes end with the view
  // Nor the own one, while it is looked at, or imported into itself.
  study.execute("UPDATE poplatndnstytbl SET populatndnsty_1_1 = 2.5 WHERE refNo = 'HW-1'");
  study.run(R"(
check absltftlyfrm.getfrPre
check absltftlyfrm.convrtPBtn
answer yes
uncheck absltftlyfrm.convrtPBtn
check absltftlyfrm.znePopdnsty(2)
answer yes
click absltftlyfrm.impotBtn
)");
  EXPECT_EQ(study.text("absltftlyfrm.statuslbl"), "HW-1 is the own reference number: its grid stays as it is.");
  EXPECT_EQ(study.nonEmptyCells(), "populatndnsty_1_0=7 populatndnsty_1_1=2.5 populatndnsty_8_4=9");
}

TEST(Import, refusesWhatTheBufferCannotHold) {
  const struct {
    const char* value;
    const char* refused;  // empty: it is taken
  } cases[] = {{"32767.4", ""},
               {"32768", "sector 3 (east), >4 To 6 km"},
               {"-1", "sector 3 (east), >4 To 6 km"},
               {"'many'", "sector 3 (east), >4 To 6 km"}};
  for (const auto& [value, refused] : cases) {
    ImportStudy study;
    study.execute("UPDATE poplatndnstytbl SET populatndnsty_3_2 = " + std::string{value} + " WHERE refNo = 'HW-2'");
    study.run("check absltftlyfrm.getfrPre\nchoose absltftlyfrm.popdnstycbo HW-2");
    const bool taken = std::string{refused}.empty();
    EXPECT_EQ(study.field("absltftlyfrm.impotBtn").enabled(), taken) << value;
    EXPECT_EQ(
        study.text("absltftlyfrm.statuslbl"),
        taken ? ""
              : "The grid of HW-2 can't be imported: " + std::string{refused} + " holds no number from 0 to 32767.");
    study.run("choose absltftlyfrm.popdnstycbo HW-3");
    EXPECT_TRUE(study.field("absltftlyfrm.impotBtn").enabled());
  }
}

TEST(GridTable, isCopiedAndPasted) {
  ImportStudy study{"populatndnsty_1_0 = 7\npopulatndnsty_2_1 = 0.5"};
  study.run("click absltftlyfrm.copygrd");
  const std::string copied = study.session->desktop().clipboard();
  EXPECT_EQ(copied.substr(0, 20), "7\t0\t0\t0\t0\n0\t0.5\t0\t0\t");
  const std::string before = study.table();
  const struct {
    const char* cell;
    const char* text;
    const char* told;
    const char* column;
    const char* value;
  } cases[] = {
      {"7", "1\\t2\\n3\\t", "4 densities pasted and stored.", "populatndnsty_3_2", "3"},
      {"7", "1\\t\\n3\\t4", "4 densities pasted and stored.", "populatndnsty_2_3", "0"},
      {"0", "1,2,3,4,5", "5 densities pasted and stored.", "populatndnsty_1_4", "5"},
      {"9", "8\\n9\\n10.25\\n", "3 densities pasted and stored.", "populatndnsty_4_4", "10.25"},
      {"0", "", "Nothing is pasted: the clipboard holds no text.", "populatndnsty_1_0", "1"},
      {"0",
       "2\\t1,5",
       "Nothing is pasted: \"1,5\" for sector 1 (north), >2 To 4 km is no number.",
       "populatndnsty_1_0",
       "1"},
      {"0",
       "2\\t-3",
       "Nothing is pasted: \"-3\" for sector 1 (north), >2 To 4 km is below 0.",
       "populatndnsty_1_0",
       "1"},
      {"0", "2\\t3\\n4", "Nothing is pasted: row 2 has 1 cells, not 2.", "populatndnsty_1_0", "1"},
      {"4",
       "2\\t3",
       "Nothing is pasted: 1 x 2 cells do not fit into the table from sector 1 (north), >8 To 10 km on.",
       "populatndnsty_1_4",
       "5"},
  };
  for (const auto& [cell, text, told, column, value] : cases) {
    study.run(std::string{"focus absltftlyfrm.gridcell("} + cell + ")\nclipboard \"" + text +
              "\"\nclick absltftlyfrm.pastegrd");
    EXPECT_EQ(study.text("absltftlyfrm.statuslbl"), told) << text;
    EXPECT_EQ(study.cell(column), value) << text;
  }
  EXPECT_NE(study.table(), before);
  study.session->desktop().takeClipboard(copied);
  study.run("focus absltftlyfrm.gridcell(39)\nclick absltftlyfrm.pastegrd");  // a whole table goes into its place
  EXPECT_EQ(study.table(), before);
  EXPECT_EQ(study.bands(), "7 0 0 0 0");
}

TEST(GridTable, isNotPastedIntoWhileTheStudyIsLocked) {
  ImportStudy study;
  const auto other = std::make_shared<Database>(study.folder.study(), studyLayout());
  other->run("BEGIN IMMEDIATE");
  study.run("focus absltftlyfrm.gridcell(0)\nclipboard \"1\\t2\"\nclick absltftlyfrm.pastegrd");
  EXPECT_NE(study.text("absltftlyfrm.statuslbl").find("another program"), std::string::npos)
      << study.text("absltftlyfrm.statuslbl");
  EXPECT_EQ(study.bands(), "7 0 0 0 0");  // what the study holds
  study.run("click absltftlyfrm.clsfrm1");
  EXPECT_NE(study.status().find("another program"), std::string::npos);  // still told where the user is now
  study.run("click popdnsty");
  other->run("ROLLBACK");
  study.run("enter absltftlyfrm.populatndnsty(0) 8");
  EXPECT_EQ(study.cell("populatndnsty_1_0"), "8");
}

TEST(GridTable, takesNothingWithoutItsRow) {
  PopulationStudy study{""};
  study.run("click absltftlyfrm.clsfrm1");
  study.execute("DELETE FROM poplatndnstytbl");
  const auto other = std::make_shared<Database>(study.folder.study(), studyLayout());
  other->run("BEGIN IMMEDIATE");
  study.run("click popdnsty");  // the row can't be made
  EXPECT_NE(study.text("absltftlyfrm.statuslbl").find("another program"), std::string::npos);
  EXPECT_FALSE(study.field("absltftlyfrm.populatndnsty(0)").enabled());
  EXPECT_FALSE(study.field("absltftlyfrm.gridcell(0)").enabled());
  EXPECT_EQ(study.text("absltftlyfrm.totlbl(0)"), "N.A.");
  other->run("ROLLBACK");
  study.run("check absltftlyfrm.znePopdnsty(1)\nenter absltftlyfrm.populatndnsty(0) 6");  // tried again
  EXPECT_EQ(study.nonEmptyCells(), "populatndnsty_2_0=6");
}

TEST(GridTable, leavesWhatAnotherProgramChanged) {
  ImportStudy study;
  study.execute("UPDATE poplatndnstytbl SET populatndnsty_1_1 = 33 WHERE refNo = 'HW-1'");
  study.run("enter absltftlyfrm.populatndnsty(0) 8\nfocus absltftlyfrm.populatndnsty(1)\nfocus absltftlyfrm.clsfrm1");
  EXPECT_EQ(study.nonEmptyCells(), "populatndnsty_1_0=8 populatndnsty_1_1=33 populatndnsty_8_4=9");
}

TEST(GridTable, takesAPasteInPlaceOfWhatIsBeingTyped) {
  ImportStudy study;
  study.run("focus absltftlyfrm.gridcell(0)\nset absltftlyfrm.gridcell(0) 99\nclipboard \"1\\t2\\n3\\t4\"");
  study.field("absltftlyfrm.pastegrd").fire(Event::click);  // by a key, which leaves the focus in the cell
  EXPECT_EQ(study.cell("populatndnsty_1_0"), "1");
  EXPECT_EQ(study.cell("populatndnsty_2_1"), "4");
}

TEST(GridTable, showsAStudyThatHoldsNoDensities) {
  PopulationStudy study{""};
  study.run("click absltftlyfrm.clsfrm1");
  study.execute("UPDATE poplatndnstytbl SET populatndnsty_1_0 = -2, populatndnsty_1_1 = 'many'");
  study.run("click popdnsty");
  EXPECT_EQ(study.bands(), "-2 many 0 0 0");
  EXPECT_EQ(study.text("absltftlyfrm.totlbl(0)"), "N.A.");
}

TEST(GridTable, isWhollyBeforeOrAfterAKill) {
  ImportStudy study;
  std::string whole;
  for (int i = 0; i < static_cast<int>(gridCells); ++i) whole += "{}" + std::string{i % gridBands == 4 ? "\n" : "\t"};
  const auto grid = [&](int density) {
    std::string text = whole;
    for (std::size_t at = 0; (at = text.find("{}")) != std::string::npos;) text.replace(at, 2, std::to_string(density));
    return text;
  };
  study.session->desktop().takeClipboard(grid(1));
  study.run("click absltftlyfrm.pastegrd\nclose");
  std::mt19937 random{3};
  int highest = 1;
  for (int kills = 0; kills < 20; ++kills) {
    int told[2];
    ASSERT_EQ(pipe(told), 0);
    const pid_t writer = inProcess([&] {
      study.open();
      study.run("start\nclick popdnsty");
      for (int density = highest + 1;; ++density) {
        study.session->desktop().takeClipboard(grid(density));
        study.run("click absltftlyfrm.pastegrd");
        if (write(told[1], &density, sizeof density) != sizeof density) return 1;
      }
      return 0;
    });
    close(told[1]);
    int first = 0;
    ASSERT_EQ(read(told[0], &first, sizeof first), ssize_t{sizeof first});  // it is storing
    std::this_thread::sleep_for(std::chrono::microseconds(std::uniform_int_distribution{0, 15000}(random)));
    kill(writer, SIGKILL);
    ASSERT_EQ(statusOf(writer), -SIGKILL);
    close(told[0]);
    const std::string found = study.cell("populatndnsty_1_0");
    for (int i = 0; i < static_cast<int>(gridCells); ++i) ASSERT_EQ(study.cell(columnOf(i)), found) << i;
    highest = std::stoi(found);
    ASSERT_GE(highest, first);
  }
}

}  // namespace
}  // namespace noldarz::test
