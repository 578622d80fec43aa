#include "toxic/probit_constants.h"

#include <gtest/gtest.h>

#include "support/test_study.h"

namespace noldarz::test {
namespace {

TEST(ProbitConstants, areThoseOfTheLastRowWhoseWordsStandInTheName) {
  const ProbitValues fallback{"a", "b", "c", "d"};
  const struct {
    const char* chemical;
    ProbitValues values;
  } cases[] = {
      {"Ammonia", {"-15.85", "2.0", "-8.48", "2.0"}},
      {": Chlorine", {"-14.33", "2.3", "-5.84", "2.3"}},
      {"Ethylene Oxide", {"-6.80", "1.0", "-3.11", "1.0"}},
      {"Monoxide of Carbon", {"-7.36", "1.0", "-3.69", "1.0"}},
      {"Hydrogen sulphide", {"-11.5", "1.9", "-4.49", "1.9"}},
      {"hydrogen sulphide", fallback},
      {"Hydrogen Sulphide", fallback},
      {"Sulphur Dioxide", {"-19.19", "2.4", "-10.34", "2.4"}},
      {"Sulphur dioxide", fallback},
      {"Nitrogen dioxide", {"-18.6", "3.7", "-4.96", "3.7"}},
      {"Nitrogen Dioxide", fallback},
      {"Methyl isocyanate", {"-1.23", "0.7", "1.35", "0.7"}},
      {"Acrolein", {"-4.12", "1.0", "-0.43", "1.0"}},
      {"Acrylonitirile", {"-8.59", "1.3", "-3.79", "1.3"}},
      {"Bromine", {"-12.36", "2.0", "-4.98", "2.0"}},
      {"Hydrochloric acid", {"-9.77", "1.0", "-2.99", "1.0"}},
      {"Hydrogen cyanide", {"-9.77", "2.4", "-0.91", "2.4"}},
      {"Hydrogen fluoride", {"-8.43", "1.5", "-2.9", "1.5"}},
      {"Methyl bromide", {"-7.26", "1.1", "-3.2", "1.1"}},
      {"Parathion", {"-2.48", "1.0", "1.21", "1.0"}},
      {"Phosphene", {"-2.61", "1.0", "1.08", "1.0"}},
      {"Carbon Dioxide", fallback},
      {"Phosgene and Ammonia", {"-0.78", "0.9", "2.54", "0.9"}},
      {"Chlorine, Sulphur Dioxide", {"-19.19", "2.4", "-10.34", "2.4"}},
      {"", fallback},
  };
  for (const auto& [chemical, values] : cases) EXPECT_EQ(probitConstantsOf(chemical, fallback), values) << chemical;
}

/// A started program on a study of the chemical.
struct Study : TestStudy {
  explicit Study(const std::string& chemical)
      : TestStudy(
            exampleStudy("chlorine", {{"Flamblechemcl = \"Chlorine\"", "Flamblechemcl = \"" + chemical + "\""}})) {
    run("start");
  }
  Texts shown() { return {text("avalftl"), text("nvalftl"), text("avalinj"), text("nvalinj")}; }
  Texts base() {
    const RunState& s = state();
    return {plainText(s.prbtAFtl), plainText(s.prbtBFtl), plainText(s.prbtAInj), plainText(s.prbtBInj)};
  }
  std::string stored() { return rows("SELECT prbtoptn, avalftl, nvalftl, avalinj, nvalinj FROM maimTbl4All").at(0); }
  /// Texts of the boxes, and the fields to which the program moved the focus, since the last call.
  Texts told() {
    const Texts lines = record.lines();
    record.clear();
    return lines;
  }
};

TEST(ProbitConstants, ofAChemicalThatIsNotInTheTableDifferInTheStateAndTheFields) {
  Study study{"Propane"};
  EXPECT_EQ(study.base(), (Texts{"-10", "2", "-5", "2"}));
  EXPECT_EQ(study.shown(), (Texts{"-10.0", "2.0", "-6.0", "2.0"}));
  study.run("click comput");  // the click of the choice takes the fields
  EXPECT_EQ(study.base(), (Texts{"-10", "2", "-6", "2"}));
}

TEST(ProbitConstants, standInTheEquationsThatTheViewShows) {
  Study study{"Ammonia"};
  Texts captions;
  for (int i = 0; i < 6; ++i) captions.push_back(study.text("prbteqnlbl(" + std::to_string(i) + ")"));
  EXPECT_EQ(captions,
            (Texts{"Probit Equations :",
                   "Fatality Probit (y)",
                   "Injury Probit (y)",
                   "+1(Ln(Conc",
                   " x T)",
                   " T= time 30 min of exposure"}));
}

TEST(ProbitConstants, areClosedOrOpenToTheUserByHisChoice) {
  Study study{"Ammonia"};
  EXPECT_FALSE(study.field("avalftl").enabled());
  study.run("uncheck prbtoptn");
  EXPECT_EQ(study.text("prbtoptn"), "User input");
  EXPECT_TRUE(study.field("avalftl").enabled());
  EXPECT_EQ(study.stored(), "0|-15.85|2.0|-8.48|2.0");
  study.run("enter avalftl -9.5\nenter nvalinj 1.5");
  EXPECT_EQ(study.stored(), "0|-9.5|2.0|-8.48|1.5");
  EXPECT_EQ(study.base(), (Texts{"-9.5", "2", "-8.48", "1.5"}));
  study.run("check prbtoptn");
  EXPECT_EQ(study.text("prbtoptn"), "Use software default");
  EXPECT_FALSE(study.field("nvalinj").enabled());
  EXPECT_EQ(study.stored(), "-1|-15.85|2.0|-8.48|2.0");
  EXPECT_EQ(study.base(), (Texts{"-15.85", "2", "-8.48", "2"}));
}

TEST(ProbitConstants, ofTheUserComeFromTheRowAtAPress) {
  Study study{"Ammonia"};
  study.run("uncheck prbtoptn\nenter avalftl -9.5");
  study.run("close");
  study.execute("UPDATE maimTbl4All SET avalinj = '-3.25', nvalinj = NULL");
  study.run("start\nset avalftl 7\nset nvalinj 8\nclick comput");
  EXPECT_EQ(study.shown(), (Texts{"-9.5", "2.0", "-3.25", "8"}));
}

TEST(ProbitConstants, ofTheUserAreTheBaseOfHumidityInALaterLife) {
  Study study{"Ammonia"};
  study.run("uncheck prbtoptn\nenter avalftl -9.5\nclose\nstart\nenter hudityTxt 10");
  EXPECT_EQ(study.shown(), (Texts{"-9.5", "2", "-8.48", "2"}));
  EXPECT_EQ(study.stored(), "0|-9.5|2|-8.48|2");
  // Another run has the constants of the software.
  study.run("choose stblclscbo F\nwait\nenter hudityTxt 10");
  EXPECT_EQ(study.shown(), (Texts{"-15.85", "2", "-8.48", "2"}));
}

TEST(ProbitConstants, ofTheSoftwareThatTheProgramChoosesAreTheBaseAsBehindAClick) {
  // A chemical that is not in the table: the base at the start differs from the fields.
  const Texts humid{"-10.25", "1.95", "-6.15", "1.95"};
  for (const char* choice : {"choose stblclscbo F\nwait",                           // a new row
                             "choose dspScnorlst_1 #0\ndblclick dspScnorlst_1"}) {  // a restored one
    Study study{"Propylene"};
    EXPECT_EQ(study.base().at(2), "-5");
    study.run("choose stblclscbo E\nwait\nchoose stblclscbo D\nwait\nuncheck prbtoptn\nenter avalftl -9.5");
    study.run(choice);
    EXPECT_EQ(study.base(), (Texts{"-10", "2", "-6", "2"})) << choice;
    study.run("enter hudityTxt 45");
    EXPECT_EQ(study.shown(), humid) << choice;
  }
}

TEST(ProbitConstants, letTheUserPassAHumidityThatIsNotThere) {
  Study study{"Ammonia"};
  study.told();
  study.run("focus hudityTxt\nleave hudityTxt");  // a new run has none
  EXPECT_EQ(study.told(), Texts{});
  study.run("enter hudityTxt wet");
  EXPECT_EQ(study.told().size(), 2U);
  study.run("enter hudityTxt \"\"");  // as it was
  EXPECT_EQ(study.told(), Texts{});
  study.run("enter hudityTxt 45\nenter hudityTxt \"\"");
  EXPECT_EQ(study.told().size(), 2U);
  study.run("leave hudityTxt");  // a text that was there is refused again
  EXPECT_EQ(study.told().size(), 2U);
}

TEST(ProbitConstants, refuseATextThatIsNoNumberAtTheFieldThatWasLeft) {
  Study study{"Ammonia"};
  study.run("uncheck prbtoptn\nset avalftl x\nset nvalftl y");
  study.told();
  study.run("enter nvalinj 1.5");
  const std::string box = "critical: Should be Numeric";
  EXPECT_EQ(study.told(), (Texts{box, "focus dspmnfrm.nvalinj", box, "focus dspmnfrm.nvalinj"}));
  for (const char* field : {"avalftl", "nvalftl"}) EXPECT_EQ(study.field(field).fault(), "Should be Numeric");
  EXPECT_EQ(study.field("nvalinj").fault(), "");
  EXPECT_EQ(study.base(), (Texts{"-15.85", "2", "-8.48", "1.5"}));
  EXPECT_EQ(study.stored(), "0|x|y|-8.48|1.5");  // the row keeps texts
}

TEST(ProbitConstants, shiftWithHumidityFromTheirBase) {
  const struct {
    const char* humidity;
    const char* shown;
    Texts constants;
  } cases[] = {
      {"0.1", "0.1", {"-15.85", "2", "-8.48", "2"}},
      {"10", "10", {"-15.85", "2", "-8.48", "2"}},
      {"10.004", "10", {"-15.85", "2", "-8.48", "2"}},
      {"10.01", "10.01", {"-15.94", "1.99", "-8.53", "1.99"}},
      {"45", "45", {"-16.25", "1.95", "-8.69", "1.95"}},
      {"79.99", "79.99", {"-16.55", "1.91", "-8.86", "1.91"}},
      {"80", "80", {"-16.55", "1.91", "-8.86", "1.91"}},
      {"100", "100", {"-16.55", "1.91", "-8.86", "1.91"}},
  };
  Study study{"Ammonia"};
  for (const auto& [humidity, shown, constants] : cases)
    for (int i = 0; i < 2; ++i) {  // leaving the field again gives the same
      study.run(std::string{"enter hudityTxt "} + (i == 0 ? humidity : shown));
      EXPECT_EQ(study.shown(), constants) << humidity;
      EXPECT_EQ(study.text("hudityTxt"), shown);
      EXPECT_EQ(study.rows("SELECT Hmudy, avalftl, nvalinj FROM maimTbl4All"),
                Texts{shown + std::string{"|"} + constants[0] + "|" + constants[3]});
    }
  EXPECT_EQ(study.base(), (Texts{"-15.85", "2", "-8.48", "2"}));
}

TEST(ProbitConstants, refuseAHumidityThatIsNone) {
  const struct {
    const char* entered;
    const char* box;
    const char* left;
  } cases[] = {{"wet", "critical: Percent humidity should be Numeric", "wet"},
               {"\"\"", "critical: Percent humidity should be Numeric", ""},
               {"0.09", "critical: Percent humidity should be  between 0.1% to 100%", "0.1"},
               {"100.01", "critical: Percent humidity should be  between 0.1% to 100%", "0.1"}};
  Study study{"Ammonia"};
  study.run("enter hudityTxt 45");
  for (const auto& [entered, box, left] : cases) {
    study.told();
    study.run(std::string{"enter hudityTxt "} + entered);
    EXPECT_EQ(study.told(), (Texts{box, "focus dspmnfrm.hudityTxt"})) << entered;
    EXPECT_EQ(study.text("hudityTxt"), left);
    EXPECT_EQ(study.text("avalftl"), "-16.25");
    EXPECT_EQ(study.rows("SELECT Hmudy FROM maimTbl4All"), Texts{"45"});
  }
}

TEST(ProbitConstants, tellAFailureOfTheStoreAndOpenTheCommandsAgain) {
  Study study{"Ammonia"};
  study.run("uncheck prbtoptn");
  study.told();
  study.field("redosimul").disable();
  study.execute("DELETE FROM maimTbl4All");
  study.run("enter avalftl -9.5");
  const Texts told = study.told();
  ASSERT_FALSE(told.empty());
  for (const auto& line : told) EXPECT_EQ(line, "information: Check Variable entered.");
  EXPECT_TRUE(study.field("comput").enabled());
  EXPECT_TRUE(study.field("redosimul").enabled());
  EXPECT_EQ(study.base().at(0), "-9.5");
}

TEST(ProbitConstants, fillTheFieldsAgainWhenAStepFails) {
  for (const bool lasting : {false, true}) {
    Study study{"Ammonia"};
    study.run("uncheck prbtoptn\nset avalftl 1\nset nvalftl 9");
    study.told();
    int failures = 0;
    study.session->system().mainView().view.observe([&](Field& field, Property property) {
      if (field.name() != "prbtoptn" || property != Property::text || (failures > 0 && !lasting)) return;
      ++failures;
      fail(FailureNumber::invalidArgument);
    });
    study.run("check prbtoptn");
    const Texts told = study.told();
    EXPECT_EQ(told.size(), lasting ? 2U : 1U);
    EXPECT_EQ(told.at(0), "information: Msg. No.5\n3. Please check Probit Equation input variables or try again.");
    EXPECT_EQ(study.shown(), (Texts{"-15.85", "2.0", "-8.48", "2.0"}));
    EXPECT_EQ(study.field("prbtoptn").value(), 1);
  }
}

}  // namespace
}  // namespace noldarz::test
