#include "toxic/distance_limits.h"

#include <gtest/gtest.h>

#include "support/test_study.h"

namespace noldarz::test {
namespace {

const std::string noLimitColour = "#4fdf11";
const std::string toBeComputed = "TO BE COMPUTED";

/// A started program on a release (kg/s) of a chemical that kills as its constants say, and disperses like chlorine.
struct Study : TestStudy {
  explicit Study(const std::string& rate, const std::string& chemical = "Methyl isocyanate")
      : TestStudy(
            exampleStudy("chlorine", {{"QntyRels = \"0.3\"", "QntyRels = \"" + rate + "\""},
                                      {"Flamblechemcl = \"Chlorine\"", "Flamblechemcl = \"" + chemical + "\""}})) {
    run("start");
  }
  void compute(const Texts& levels = {"20000", "5000", "1000", "200", "50", "20"}) {
    run("click comput");
    for (int i = 0; i < levelCount; ++i) {
      const auto level = static_cast<std::size_t>(i);
      run("enter constn(" + std::to_string(i) + ") " + levels.at(level));
    }
    run("click comput");
  }
  Texts labels() { return {text("FatatyDistDsplyLbl"), text("InjuryDistDsplyLbl")}; }
  std::string colour() { return colourText(field("FatatyDistDsplyLbl").backColour()); }
  std::string row() { return rows("SELECT FtlyXcord, InjXcord FROM maimTbl4All").at(0); }
  std::string stored() { return plainText(state().ftlLimitStored) + "|" + plainText(state().injLimitStored); }
};

TEST(DistanceLimits, areShownAndStoredByTheProbitEquation) {
  Study study{"30"};
  study.compute();
  const double ftl = study.state().ftlLimitRaw - 1;
  const double inj = study.state().injLimitRaw - 1;
  EXPECT_GT(ftl, 100);
  EXPECT_GT(inj, ftl);
  EXPECT_EQ(study.labels(),
            (Texts{"Fatality dist. limit: " + plainText(ftl) + " m", "Injury dist. limit : " + plainText(inj) + " m"}));
  EXPECT_EQ(study.colour(), "buttonFace");
  EXPECT_EQ(study.row(), plainText(ftl) + "|" + plainText(inj));
  EXPECT_EQ(study.stored(), study.row());
  EXPECT_EQ(study.text("MaxFtlyDstOptn"), limitChoice::byProbit);
  EXPECT_EQ(study.text("maxdstprtxt"), plainText(study.field("endpt(5)").number()));
}

TEST(DistanceLimits, ofARunInWhichNobodyDiesStandApartAndKeepANumberInTheRow) {
  Study study{"0.3", "Chlorine"};
  study.compute({"1000", "100", "20", "2", "0.5", "0.25"});
  EXPECT_EQ(study.text("FatatyDistDsplyLbl"), "Fatality dist. limit: 0 m");
  EXPECT_EQ(study.colour(), noLimitColour);
  EXPECT_EQ(study.row(), "0.05|93.45");
  EXPECT_EQ(study.stored(), "0.05|93.45");
  study.run("uncheck MaxFtlyDstOptn\ncheck MaxFtlyDstOptn");
  EXPECT_EQ(study.labels(), (Texts{"Fatality dist. limit: 0 m", "Injury dist. limit : 93.45 m"}));
  EXPECT_EQ(study.colour(), noLimitColour);
  EXPECT_EQ(study.row(), "0|93.45");
  EXPECT_EQ(study.stored(), "0|93.45");
}

TEST(DistanceLimits, areEndPointsByLethalConcentration) {
  Study study{"30"};
  study.run("uncheck MaxFtlyDstOptn");
  EXPECT_EQ(study.text("MaxFtlyDstOptn"), limitChoice::byConcentration);
  EXPECT_EQ(study.text("FatatyDistDsplyLbl"), "Fatality dist. limit : " + toBeComputed);
  study.compute();
  const std::string fatality = study.text("endpt(2)");
  const std::string injury = study.text("endpt(4)");
  EXPECT_EQ(study.labels(),
            (Texts{"Fatality dist. limit : " + fatality + " m", "Injury dist. limit : " + injury + " m"}));
  EXPECT_EQ(study.field("MaxFtlyDstOptn").value(), 0);
  EXPECT_EQ(study.colour(), "buttonFace");
  EXPECT_EQ(study.row(), plainText(strictNumber(fatality)) + "|" + plainText(strictNumber(injury)));
  EXPECT_EQ(study.stored(), study.row());
  EXPECT_GT(study.state().ftlLimit, 0);  // the search has run with the option on
  study.run("setting noldarz FatltyInjryDistOptnStr FatltyInjryDistOptnStr1");
  EXPECT_TRUE(study.record.printed().ends_with(R"("value":"0"})"));

  study.run("check MaxFtlyDstOptn\nsetting noldarz FatltyInjryDistOptnStr FatltyInjryDistOptnStr1");
  EXPECT_TRUE(study.record.printed().ends_with(R"("value":"1"})"));
  EXPECT_EQ(study.text("FatatyDistDsplyLbl"), "Fatality dist. limit: " + plainText(study.state().ftlLimit) + " m");
  EXPECT_EQ(study.row(), plainText(study.state().ftlLimit) + "|" + plainText(study.state().injLimit));
}

TEST(DistanceLimits, ofOneRunNeverReachTheRowOfAnother) {
  Study study{"30"};
  study.compute();
  const std::string row = study.row();
  study.run("enter scnrotxtlbl Other\nwait\nchoose dspScnorlst_1 #0\nclick redosimul");
  study.execute("UPDATE maimTbl4All SET FtlyXcord = NULL, InjXcord = NULL");
  study.run("uncheck MaxFtlyDstOptn\ncheck MaxFtlyDstOptn\nclick redosimul\nuncheck MaxFtlyDstOptn");
  EXPECT_EQ(study.row(), "|");
  EXPECT_NE(row, "|");
}

TEST(DistanceLimits, stayToBeComputedWithoutAWholeSetOfLevels) {
  Study study{"0.3"};
  study.run("uncheck MaxFtlyDstOptn\nenter enddisttxt 5000");
  study.compute(
      {"1000", "100", "20", "2", "0.5", "0.25"});  // the last one reaches past 5000 m; the default reply is No
  EXPECT_EQ(study.text("endpt(5)"), ">5000");
  EXPECT_EQ(study.labels(), (Texts{"Fatality dist. limit : " + toBeComputed, "Injury dist. limit : " + toBeComputed}));
  EXPECT_EQ(study.state().injLimitRaw, 0);   // the search has no end
  EXPECT_EQ(study.row(), "393.49|3950.81");  // level 2 is complete, so the run is stored
  EXPECT_EQ(study.stored(), study.row());
}

TEST(DistanceLimits, goBackToTheChosenWayWhenTheSearchFails) {
  Study study{"30"};
  study.execute("UPDATE maimTbl4All SET prbtoptn = 0, nvalinj = 'high'");
  study.run("close\nstart\nuncheck MaxFtlyDstOptn");
  study.compute();
  EXPECT_EQ(study.field("MaxFtlyDstOptn").value(), 0);
  EXPECT_EQ(study.text("FatatyDistDsplyLbl"), "Fatality dist. limit : " + study.text("endpt(2)") + " m");
  EXPECT_EQ(study.state().injLimit, 0);
  EXPECT_TRUE(study.field("prntprv").enabled());
  study.run("setting noldarz FatltyInjryDistOptnStr FatltyInjryDistOptnStr1");
  EXPECT_TRUE(study.record.printed().ends_with(R"("value":"0"})"));
}

TEST(DistanceLimits, areSearchedForAtEveryPressBehindTheWaitView) {
  Study study{"30"};
  std::vector<std::string> shown;
  View& wait = *study.session->system().views().find("aniwait1");
  wait.observe([&](Field& field, Property property) {
    if (field.name() == "waitlbl1" || field.name() == "pctdsp") shown.push_back(field.caption());
    if (field.name() == "plumepic1" && property == Property::visible && !field.visible()) shown.push_back("hidden");
  });
  study.compute();
  const auto begin = std::find(shown.rbegin(), shown.rend(), "Now Computing maximum fatality and Injury distance");
  ASSERT_NE(begin, shown.rend());
  EXPECT_EQ(*(begin + 1), "hidden");
  EXPECT_EQ(shown.back(), "100 %");
  EXPECT_EQ(std::count(shown.begin(), shown.end(), "hidden"), 2);  // once a press
  EXPECT_FALSE(wait.visible());
  for (const TableCell& cell : study.state().prbtTable) EXPECT_EQ(cellText(cell), "0");
}

}  // namespace
}  // namespace noldarz::test
