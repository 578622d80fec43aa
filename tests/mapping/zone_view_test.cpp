// The zone view: dials by slider, pointer and key, the choice of levels, the scale of a drawing, the zones at a glance.

#include <gtest/gtest.h>

#include "mapping/zone_commands.h"
#include "support/test_study.h"

namespace noldarz::test {
namespace {

struct Zones : TestStudy {
  Zones() {
    run("start");
    compute(*this);
    run("choose prntprv \"Plot Hazard Zones\"");
    record.clear();
  }
};

TEST(ZoneView, mapsTheLevelsThatHaveAnEnd) {
  Zones zones;
  EXPECT_EQ(zones.state().widthIdx, 1);
  EXPECT_EQ(zones.text("zardzone.zonsplot(2)"), "TEEL3/IDLH: Dist. : 393.49 m");
  EXPECT_EQ(zones.state().zoomLevel, 5);
  zones.run("uncheck zardzone.zonsplot(5)\nuncheck zardzone.zonsplot(4)");
  EXPECT_EQ(zones.state().zoomLevel, 3);
  EXPECT_EQ(zones.field("zardzone.zonsplot(5)").foreColour(), Colour(SystemColour::disabledText));
  for (int i = 0; i < 4; ++i) zones.run("uncheck zardzone.zonsplot(" + std::to_string(i) + ")");
  EXPECT_EQ(zones.state().zoomLevel, 5);
  EXPECT_EQ(zones.state().plotLevel, -1);
  zones.run("click zardzone.clsfrm1");
  zones.field("endpt(0)").setText("N.A.");
  zones.run("choose prntprv #3");
  EXPECT_EQ(zones.field("zardzone.zonsplot(0)").value(), 0);
  EXPECT_EQ(zones.field("zardzone.zonsplot(1)").value(), 1);
}

TEST(ZoneView, keepsTheWindAndNotTheNorth) {
  Zones zones;
  zones.run(
      "click zardzone.DwgOnPic\nclick Drwfrm.FtvertB\ndblclick Drwfrm.North_wndDialPic\nslide zardzone.wndsld1 45");
  EXPECT_TRUE(zones.field("Drwfrm.Drw1").canvas()->drawing().texts.empty());
  zones.run("slide zardzone.NorthSld 30");
  EXPECT_EQ(zones.text("zardzone.wnddeg"), "45");
  EXPECT_EQ(zones.text("zardzone.rotdeg"), "30");
  EXPECT_NEAR(zones.field("zardzone.wndarm").left(), 5610 + 1100 * std::cos(-45 * 0.0175), 1e-9);
  EXPECT_NEAR(zones.field("zardzone.axs3").height(), 885 * std::sin(210 * 0.0175), 1e-9);
  EXPECT_THROW(zones.run("slide zardzone.wndsld1 361"), std::logic_error);
  zones.open();
  zones.run("start");
  compute(zones);
  zones.run("choose prntprv #3");
  EXPECT_EQ(zones.state().windDeg, 45);
  EXPECT_EQ(zones.state().northDeg, 0);
}

TEST(ZoneView, readsADialUnderThePointer) {
  const struct {
    double x, y;  // from the centre
    int degrees;
  } places[] = {{0, -500, 360},
                {500, -500, 45},
                {500, 0, 90},
                {500, 500, 135},
                {0, 500, 180},
                {-500, 500, 225},
                {-500, 0, 270},
                {-500, -500, 315}};
  for (const auto& place : places) EXPECT_EQ(dialDegrees(5610 + place.x, 1710 + place.y, 5610, 1710), place.degrees);

  Zones zones;
  const struct {
    const char* lines;
    int wind, north;
  } drags[] = {
      {"mouse down zardzone.zardzone 6200 2100\nmouse move zardzone.zardzone 6110 1210", 45, 0},
      {"mouse move zardzone.zardzone 6700 1700", 45, 0},  // outside
      {"mouse up zardzone.zardzone 6700 1700\nmouse move zardzone.zardzone 6110 2210", 45, 0},
      {"mouse down zardzone.zardzone 5610 1200\nmouse move zardzone.zardzone 6110 2210",
       45,
       135},  // on the arm of north
      {"mouse up zardzone.zardzone 0 0\nmouse down zardzone.zardzone 100 100\nmouse move zardzone.zardzone 6110 2210",
       45,
       135},
      {"key zardzone.zardzone Right\nkey zardzone.zardzone PageUp\nkey zardzone.zardzone Shift+Left", 56, 134},
      {"slide zardzone.wndsld1 5\nkey zardzone.zardzone PageDown", 355, 134},
  };
  for (const auto& [lines, wind, north] : drags) {
    zones.run(lines);
    EXPECT_EQ(zones.field("zardzone.wndsld1").value(), wind) << lines;
    EXPECT_EQ(zones.field("zardzone.NorthSld").value(), north) << lines;
  }
  zones.run("slide zardzone.wndsld1 90\nmouse move zardzone.zardzone 6600 1720");
  EXPECT_EQ(zones.field("zardzone.wndarm").value(), 6);
  EXPECT_EQ(zones.field("zardzone.NorthArm").value(), 4);
}

TEST(ZoneView, storesTheScaleOfADrawing) {
  Zones zones;
  const struct {
    const char* scale;
    double kept;
    bool refused;
  } entries[] = {
      {"2.345", 2.35, false}, {"0", 2.35, true}, {"wide", 2.35, true}, {"0.001", 2.35, true}, {"1e3", 1000, false}};
  for (const auto& [scale, kept, refused] : entries) {
    zones.record.clear();
    zones.run(std::string{"enter zardzone.sclenotxt "} + scale);
    EXPECT_EQ(zones.record.boxes(), refused ? Texts{"Enter number."} : Texts{}) << scale;
    EXPECT_EQ(zones.state().mapScale, kept) << scale;
    EXPECT_EQ(strictNumber(zones.rows("SELECT sclenotxt FROM Orgtn").front()), kept) << scale;
  }
  zones.run("set zardzone.sclenotxt 5\nclick zardzone.clsfrm1\nchoose prntprv #3");
  EXPECT_EQ(strictNumber(zones.text("zardzone.sclenotxt")), 5);  // what was typed is not lost
}

TEST(ZoneView, tellsOfASettingThatIsNoDirection) {
  Zones zones;
  for (const char* kept : {"west", "400"}) {
    zones.run("click zardzone.clsfrm1");
    zones.record.clear();
    zones.session->system().settings().set(windSetting::application, windSetting::section, windSetting::key, kept);
    zones.run("choose prntprv #3");
    EXPECT_EQ(zones.record.boxes(), Texts{"Failed to get source points./Open file again."}) << kept;
    EXPECT_EQ(zones.views(), "zardzone");
  }
}

TEST(Thumbnail, showsTheLastComputeAndChangesNothing) {
  Zones zones;
  zones.run("slide zardzone.wndsld1 90\nclick zardzone.clsfrm1");
  const auto valuesOfState = [&] {
    std::string values;
    visitAll(zones.state(), [&](std::string_view name, const auto& value) {
      if constexpr (std::is_arithmetic_v<std::remove_cvref_t<decltype(value)>>)
        values += std::string{name} + " " + plainText(static_cast<double>(value)) + "\n";
    });
    return values;
  };
  const std::string before = valuesOfState();
  Canvas& canvas = *zones.field("zonethumb").canvas();
  canvas.bringUpToDate();
  const auto& texts = canvas.drawing().texts;
  EXPECT_NE(std::find(texts.begin(), texts.end(), " 6216.94 m"), texts.end());
  EXPECT_EQ(valuesOfState(), before);
  EXPECT_TRUE(zones.field("zonethumb").visible());
  zones.run("click zonethumb");
  EXPECT_EQ(zones.views(), "zardzone");
  zones.run("click zardzone.clsfrm1\nclick redosimul");
  EXPECT_FALSE(zones.field("zonethumb").visible());
}

}  // namespace
}  // namespace noldarz::test
