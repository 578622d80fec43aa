// The frame of a press: what it disables and shows, its wait view, its trap. Figures stand in reference_runs_test.cpp.

#include "engine/compute.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "support/test_system.h"

namespace noldarz::test {
namespace {

TEST(Compute, firstPressClosesTheInputsAndLeavesTheLevelsOpen) {
  TestSystem system;
  system.setRelease();
  system.field("comput").setBackColour({1, 2, 3});
  system.press();
  for (const char* name : {"htreltxt", "stblclscbo", "htsmul", "roghwndoptcbo", "wndveltxt", "prntprv"})
    EXPECT_FALSE(system.field(name).enabled()) << name;
  for (const char* name : {"constn(0)", "getconclvl", "enddisttxt", "hudityTxt", "prbtoptn"})
    EXPECT_TRUE(system.field(name).enabled()) << name;
  EXPECT_EQ(system.text("comput"), "&Compute at given concentration");
  EXPECT_EQ(colourText(system.field("comput").backColour()), "#80ffff");
  EXPECT_EQ(system.text("nodfdwndlbl"), "Modified wind velocity - 4.00 m/s");
  EXPECT_EQ(system.state().firstPass, 1);
  EXPECT_EQ(system.state().mgcPass, 0);
}

TEST(Compute, secondPressClosesTheLevelsForGood) {
  TestSystem system;
  system.setRelease();
  system.press();
  system.setLevels({"1000", "500", "200", "100", "50", "20"});
  system.press();
  for (const char* name : {"constn(0)", "constn(5)", "getconclvl", "prbtoptn", "avalftl", "nvalinj", "hudityTxt"})
    EXPECT_FALSE(system.field(name).enabled()) << name;
  EXPECT_TRUE(system.field("prntprv").enabled());
  EXPECT_EQ(system.text("comput"), "Concentration distances computed.");
  // The list of outputs takes the focus and opens, in this order.
  EXPECT_EQ(system.record.lines(), (Texts{"focus dspmnfrm.prntprv", "dropDown dspmnfrm.prntprv"}));
}

TEST(Compute, waitViewLivesAsLongAsThePress) {
  TestSystem system;
  system.setRelease();
  View& wait = *system.session.system().views().find("aniwait1");
  int loads = 0;
  wait.onLoad([&] {
    ++loads;
    EXPECT_EQ(system.session.desktop().pointer(), Pointer::hourglass);
    EXPECT_EQ(system.state().waitShown, 1);
  });
  system.press();
  EXPECT_EQ(loads, 1);
  EXPECT_FALSE(wait.loaded());
  EXPECT_EQ(system.state().waitShown, 0);
  EXPECT_EQ(system.session.desktop().pointer(), Pointer::standard);
}

TEST(Compute, trapClosesTheWaitViewAndGoesOn) {
  TestSystem system;
  system.setRelease();
  system.press();
  system.setLevels({"1000", "500", "200", "100", "50", "0"});  // level 5 does not apply: its fields hold "N.A."
  View& wait = *system.session.system().views().find("aniwait1");
  int closes = 0;
  wait.onClose([&] {
    ++closes;
    EXPECT_EQ(system.text("isopwdth(0)"), "0");  // before the widths, on the first failure
  });
  system.press();
  EXPECT_EQ(closes, 1);
  EXPECT_TRUE(system.takeBoxes().empty());
  for (const char* name : {"bgnpt(5)", "endpt(5)", "isoplngt(5)", "isopwdth(5)", "isopang(5)", "isoparea(5)"})
    EXPECT_EQ(system.text(name), "N.A.") << name;
  EXPECT_TRUE(system.field("isopwdth(4)").isNumeric());
  EXPECT_EQ(system.text("tmestbltxt"), "0.00");  // no end point to work it out from
}

TEST(Compute, inputThatIsNoNumberKeepsItsVariable) {
  TestSystem system;
  system.setRelease();
  system.set({{"htsmul", "high"}, {"htreltxt", "2"}});
  system.press();
  EXPECT_EQ(system.state().htRelease, 2);
  EXPECT_EQ(system.state().htSimul, 0);
  EXPECT_EQ(system.state().mgcDone, 1);
}

/// Rooms above the engine that write down when they are asked, and fail if told so.
class RecordingEffects : public ToxicEffects, public RunStore {
 public:
  void takeProbitConstants(const Trap&) override { note("constants"); }
  void storeFlammableMass(double mass) override { note("mass " + Format(mass, "0.00")); }
  void prepareSearch(const Trap&) override { note("table"); }
  void searchLimits(const Trap&) override { note("limits"); }
  void storeRun() override { note("row"); }

  std::vector<std::string> asked;
  bool failing = false;

 private:
  void note(const std::string& what) {
    asked.push_back(what);
    if (failing) fail(FailureNumber::typeMismatch);
  }
};

TEST(Compute, asksTheRoomsAboveInOrderAlsoWhenTheyFail) {
  for (const bool failing : {false, true}) {
    RecordingEffects effects;
    effects.failing = failing;
    ScriptedDesktop desktop{[](const RecordEntry&) {}};
    const PressPorts rooms{&effects, &effects};
    DxfCad cad{desktop, [] { return std::string{}; }};
    System system{desktop, cad, Folders{}, &rooms};
    MainView& main = system.mainView();
    main.view.show();
    const auto press = [&] {
      effects.asked.clear();
      main.command.comput.fire(Event::click);
      return effects.asked;
    };
    for (const auto& [name, text] : std::map<std::string, std::string>{{"scnrotypetxt", "PLUME"},
                                                                       {"QntyRelstxt", "5"},
                                                                       {"molwttxt", "29"},
                                                                       {"vapordnstytxt", "1"},
                                                                       {"wndveltxt", "6"}})
      main.view.find(name)->setText(text);
    EXPECT_EQ(press(),
              (std::vector<std::string>{"constants", "mass 0.00", "table", "limits"}));  // no level is complete
    main.level.constn[1].setText("50");
    EXPECT_EQ(press(), std::vector<std::string>{"constants"});  // refused: no close-out
    const char* levels[] = {"1000", "500", "200", "100", "50", "20"};
    for (int i = 0; i < levelCount; ++i) main.level.constn[i].setText(levels[i]);
    const auto asked = press();
    const std::string mass = "mass " + Format(main.result.expmass.text(), "0.00");
    EXPECT_EQ(asked, (std::vector<std::string>{"constants", mass, "table", "limits", "row"}));
    EXPECT_EQ(main.command.comput.caption(), "Concentration distances computed.");
  }
}

TEST(Compute, goesToTheCloseOutWhenOneResultIsMissing) {
  TestSystem system;
  system.setRelease();
  system.set({{"htreltxt", "40"}, {"enddisttxt", "600"}, {"stblclscbo", "E"}, {"htsmul", "40"}});
  system.press();  // the peak is near the source, the ground maximum farther than 600 m
  ASSERT_EQ(system.state().maxConcDone, 1);
  ASSERT_EQ(system.state().mgcDone, 0);
  const auto steps = system.session.system().engine().progress.stepCount();
  system.takeBoxes();
  system.press();
  EXPECT_EQ(system.session.system().engine().progress.stepCount(), steps);
  EXPECT_EQ(system.text("expmass"), "Mass = 0");
  EXPECT_TRUE(system.takeBoxes().empty());
}

TEST(Compute, takesNoMaximumOfAnEarlierRelease) {
  const struct {
    const char* field;
    const char* text;
    const char* mgc;
  } cases[] = {{"QntyRelstxt", "", "0"}, {"tempStore", "warm", "0"}, {"scnrotypetxt", "JET", "0.00"}};
  for (const auto& [field, text, mgc] : cases) {
    TestSystem system;
    system.setRelease();
    system.press();
    EXPECT_EQ(system.state().mgcDone, 1);
    system.field("redosimul").fire(Event::click);
    system.field(field).setText(text);
    system.field("enddisttxt").setText("1000");
    system.press();
    EXPECT_EQ(system.text("mgctxt"), mgc) << field;
  }
}

}  // namespace
}  // namespace noldarz::test
