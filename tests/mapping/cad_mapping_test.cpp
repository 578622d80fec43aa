// Zones in a CAD drawing: the commands of the zone view, what they do when the drawing or the user fails them, and the
// command `map`. The entities of whole runs are held to a second way to them in reference/map_test.py.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/map.h"
#include "support/test_study.h"

namespace noldarz::test {
namespace {

constexpr const char* failedNote = "After mapping you must save the AutoCad file before closing this dialog box";

/// The zone view on a computed run; the template lies where it is installed.
struct Mapping : TestStudy {
  Mapping() {
    folder.provideTemplate();
    run("start");
    compute(*this);
    run("choose prntprv \"Plot Hazard Zones\"");
    record.clear();
  }
  std::string path(const char* name) const { return (folder / name).string(); }
  void openBlank(const char* name = "plan.dxf") { run("answer " + path(name) + "\nclick zardzone.nwdrg"); }
  std::string note() { return field("zardzone.sveflnote").caption(); }
  bool picks() { return field("zardzone.getcoords").enabled() && field("zardzone.getcoords_1").enabled(); }
  /// Kinds of the entities that were added: "Line Text Circle".
  std::string kinds() {
    std::string kinds;
    run("drawing zardzone.cad");
    const auto printed = nlohmann::json::parse(record.printed());
    for (const auto& entity : printed["entities"]) kinds += (kinds.empty() ? "" : " ") + entity[0].get<std::string>();
    return kinds;
  }
  void onlyLevel(int level) {
    for (int i = 0; i < levelCount; ++i)
      if (i != level) run("uncheck zardzone.zonsplot(" + std::to_string(i) + ")");
  }
};

TEST(CadMapping, mapsWhereTheUserPicksAndSavesOnRequest) {
  Mapping mapping;
  EXPECT_EQ(mapping.note(), std::string{failedNote} + ".");
  EXPECT_FALSE(mapping.picks());
  mapping.openBlank();
  EXPECT_TRUE(mapping.picks());
  EXPECT_EQ(mapping.field("zardzone.actdoctxt").caption(), "plan.dxf");
  const std::string blank = readFile(mapping.folder / "plan.dxf");
  mapping.onlyLevel(2);
  mapping.run("answer 100.126,50\nclick zardzone.getcoords");
  EXPECT_EQ(mapping.record.boxes(), Texts{});
  EXPECT_EQ(mapping.note(), "Mapping completed, save the AutoCad file plan.dxf before closing this dialog box");
  EXPECT_EQ(mapping.kinds(), "Line Text Circle Circle Text Spline");
  EXPECT_EQ(mapping.state().sourceX, 100.13);
  EXPECT_EQ(mapping.field("zardzone.coordx").caption(), "100.126");
  EXPECT_EQ(mapping.views(), "zardzone");
  EXPECT_EQ(readFile(mapping.folder / "plan.dxf"), blank);

  mapping.run("save zardzone.cad " + mapping.path("kept.dxf"));
  const std::string kept = readFile(mapping.folder / "kept.dxf");
  EXPECT_NE(kept.find("Conc Zones1 Text"), std::string::npos);
  mapping.run("click zardzone.clsfrm1");  // nothing is left to save
  EXPECT_EQ(mapping.record.boxes(), Texts{});
  EXPECT_EQ(readFile(mapping.folder / "plan.dxf"), blank);
  EXPECT_EQ(readFile(mapping.folder / "kept.dxf"), kept);
}

TEST(CadMapping, asksBeforeADrawingIsClosed) {
  for (const char* answer : {"no", "yes"}) {
    Mapping mapping;
    mapping.openBlank();
    const std::string blank = readFile(mapping.folder / "plan.dxf");
    mapping.run("answer 0,0\nclick zardzone.getcoords\nanswer " + std::string{answer} + "\nclick zardzone.clsfrm1");
    EXPECT_EQ(mapping.record.boxes(), Texts{"Save the changes to \"plan.dxf\"?"});
    EXPECT_EQ(readFile(mapping.folder / "plan.dxf") == blank, answer == std::string{"no"});
    mapping.run("choose prntprv #3");
    EXPECT_FALSE(mapping.picks());
    EXPECT_EQ(mapping.note(), std::string{failedNote} + ".");
  }
}

TEST(CadMapping, marksPlacesFromOneSource) {
  Mapping mapping;
  mapping.openBlank();
  mapping.run(
      "enter zardzone.sclenotxt 0.5\nanswer 10,10\nanswer ok\nanswer 60,10\nanswer yes\nanswer 10,110\nanswer no\n"
      "click zardzone.getcoords_1");
  EXPECT_EQ(mapping.record.boxes(),
            (Texts{"Select Location points for Concentration",
                   "Select another Location points for Concentration",
                   "Select another Location points for Concentration"}));
  EXPECT_EQ(mapping.kinds(), "Circle Line Text Circle Text Text Text Circle Text Text Text");
  EXPECT_EQ(mapping.state().distAt, 200);
  mapping.record.clear();
  mapping.run("answer 35,10\nclick zardzone.getcoords_1");  // the source stays, and No is the default
  EXPECT_EQ(mapping.record.boxes(), Texts{"Select another Location points for Concentration"});
  EXPECT_EQ(mapping.state().distAt, 50);
  mapping.record.clear();
  mapping.openBlank("other.dxf");  // a source in another drawing is none in this one
  mapping.run("answer 0,0\nanswer ok\nanswer 50,0\nclick zardzone.getcoords_1");
  EXPECT_EQ(mapping.record.boxes().size(), 2U);
  EXPECT_EQ(mapping.kinds().substr(0, 16), "Circle Line Text");

  // Zones after places still have their width.
  mapping.onlyLevel(2);
  mapping.run("answer 0,0\nclick zardzone.getcoords");
  EXPECT_GT(mapping.field("isoparea(2)").number(), 0);
}

TEST(CadMapping, tellsWhatFails) {
  const std::string open = "answer PLAN\nclick zardzone.nwdrg\n";
  const struct {
    std::string lines;
    Texts boxes;
    std::string note;
    bool picks;
  } cases[] = {
      {"click zardzone.opndwg2", {}, std::string{failedNote} + ".", false},
      {"answer cancel\nclick zardzone.nwdrg",
       {"information: Failed to open AutoCAD drawing."},
       std::string{failedNote} + ".",
       false},
      {open + "click zardzone.opndwg2", {}, std::string{failedNote} + ".", false},
      {"answer /etc/passwd\nclick zardzone.opndwg2",
       {"none: /etc/passwd is no drawing. Choose an ASCII DXF."},
       std::string{failedNote} + ".",
       false},
      {"click zardzone.Drw1", {"critical: Failed to map hazard zones. Check AUTOCAD version."}, failedNote, false},
      {open + "click zardzone.Drw1",
       {"critical: Failed to map hazard zones. Check AUTOCAD version."},
       failedNote,
       true},
      {open + "answer cancel\nclick zardzone.getcoords",
       {"critical: Failed to get source points./Open file again."},
       failedNote,
       false},
      {open + "answer 0,0\nclick zardzone.getcoords_1",
       {"information: Select Location points for Concentration",
        "critical: Failed to get source points./Open file again."},
       failedNote,
       false},
      // a level that is mapped without an end
      {open + "set endpt(3) N.A.\nanswer 0,0\nclick zardzone.getcoords",
       {"critical: Failed to map hazard zones. Check AUTOCAD version."},
       failedNote,
       true},
      // thirty points
      {open + "set bgnpt(5) 1\nset endpt(5) 1.014\nset isoplngt(5) 0.014\nanswer 0,0\nclick zardzone.getcoords",
       {"information: Unable to plot Hazard Zones."},
       std::string{failedNote} + ".",
       true},
      // once there is a zone, a level that fails is left
      {open + "set isoplngt(2) N.A.\nanswer 0,0\nclick zardzone.getcoords",
       {},
       "Mapping completed, save the AutoCad file plan.dxf before closing this dialog box",
       true},
  };
  for (const auto& c : cases) {
    Mapping mapping;
    std::string lines = c.lines;
    if (const auto at = lines.find("PLAN"); at != std::string::npos) lines.replace(at, 4, mapping.path("plan.dxf"));
    mapping.run(lines);
    EXPECT_EQ(mapping.record.boxesWithIcons(), c.boxes) << c.lines;
    EXPECT_EQ(mapping.note(), c.note) << c.lines;
    EXPECT_EQ(mapping.picks(), c.picks) << c.lines;
    EXPECT_EQ(mapping.views(), "zardzone") << c.lines;
  }
}

TEST(CadMapping, namesALevelThatIsLeftOut) {
  Mapping mapping;
  mapping.openBlank();
  mapping.run("set isoplngt(2) N.A.\nset isoplngt(1) x\nanswer 0,0\nclick zardzone.getcoords");
  const std::string status = mapping.field("zardzone.statuslbl").caption();
  for (const char* level : {"Not mapped: TEEL3/IDLH: the text is no number.", "Not mapped: Conc. 1 "})
    EXPECT_NE(status.find(level), std::string::npos) << status;
}

TEST(CadMapping, drawsNoOutlineOfALevelThatHasNone) {
  const struct {
    std::string lines;
    std::string kinds;
  } cases[] = {{"uncheck zardzone.zonsplot(2)", "Line Text Circle"},
               {"set bgnpt(2) 0", "Line Text Circle Circle"},
               {"set bgnpt(2) N.A.", "Line Text Circle Circle"},
               {"set bgnpt(2) >10000\nset enddisttxt 10000", "Line Text Circle Circle"}};
  for (const auto& c : cases) {
    Mapping mapping;
    mapping.openBlank();
    mapping.onlyLevel(2);
    mapping.run(c.lines + "\nanswer 0,0\nclick zardzone.getcoords");
    EXPECT_EQ(mapping.kinds(), c.kinds) << c.lines;
    EXPECT_EQ(mapping.record.boxes(), Texts{}) << c.lines;
  }
}

TEST(CadMapping, keepsOffALayerThatIsFrozenOrLocked) {
  const std::string layer = "0\nLAYER\n2\nconc zones1\n70\nFLAG\n62\n3\n6\nCONTINUOUS\n";
  for (const auto& [flag, word] : {std::pair{"1", "frozen"}, {"4", "locked"}}) {
    Mapping mapping;
    std::string text = "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n" + layer +
                       "0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n";
    text.replace(text.find("FLAG"), 4, flag);
    writeFile(mapping.folder / "plant.dxf", text);
    mapping.run("answer " + mapping.path("plant.dxf") +
                "\nclick zardzone.opndwg2\nanswer 0,0\nclick zardzone.getcoords");
    EXPECT_EQ(mapping.record.boxes(), Texts{"Failed to map hazard zones. Check AUTOCAD version."});
    EXPECT_NE(mapping.field("zardzone.statuslbl").caption().find(word), std::string::npos);
    mapping.run("answer no\nclick zardzone.clsfrm1");
    EXPECT_EQ(readFile(mapping.folder / "plant.dxf"), text);
  }
}

struct MapCommand : Mapping, testing::Test {
  std::string map(MapRequest request) {
    session.reset();
    request.target = folder / "start";
    if (request.drawing.empty()) request.drawing = folder / "programs/bin/AutoCadVBA/AutocadDwg1.dwg";
    if (request.file.empty()) request.file = folder / "zones.dxf";
    std::ostringstream errors;
    status = mapIntoDrawing(request, errors, folder.folders());
    return errors.str();
  }
  ExitStatus status = ExitStatus::done;
};

TEST_F(MapCommand, writesWhatTheUserOfTheWindowSaves) {
  openBlank();
  run("slide zardzone.wndsld1 45\nenter zardzone.sclenotxt 2\nanswer 100,50\nclick zardzone.getcoords\n"
      "save zardzone.cad " +
      path("window.dxf"));
  MapRequest request;
  request.at = "100,50";
  request.wind = 45;
  request.scale = "2";
  EXPECT_EQ(map(request), "");
  EXPECT_EQ(status, ExitStatus::done);
  EXPECT_EQ(readFile(folder / "zones.dxf"), readFile(folder / "window.dxf"));

  writeFile(folder / "places.csv", "# places\n300,50\r\n100,450\n");
  request.locations = path("places.csv");
  EXPECT_EQ(map(request), "");
  for (const char* text : {"  Distance : 100 m", "  Distance : 200 m", "  Hazard LvL: "})
    EXPECT_NE(readFile(folder / "zones.dxf").find(text), std::string::npos) << text;
}

TEST_F(MapCommand, refusesWhatItCantTake) {
  writeFile(folder / "places.csv", "1,2\ngate\n");
  const struct {
    const char* at;
    const char* scale;
    const char* drawing;
    const char* locations;
    const char* file;
    ExitStatus status;
    const char* error;
  } cases[] = {
      {"5", "1", "", "", "", ExitStatus::refused, "--at: \"5\" is no point"},
      {"0,0", "0.004", "", "", "", ExitStatus::refused, "--scale: \"0.004\" is no number of drawing units"},
      {"0,0", "1,5", "", "", "", ExitStatus::refused, "--scale: \"1,5\""},
      {"0,0", "1", "", "places.csv", "", ExitStatus::refused, ":2: \"gate\" is no point"},
      {"0,0", "1", "none.dxf", "", "", ExitStatus::failed, "none.dxf. Check its name"},
      {"0,0", "1", "", "", "nowhere/zones.dxf", ExitStatus::failed, "nowhere/zones.dxf"},
      {"0,0", "1", "", "", "zones.dwg", ExitStatus::failed, "no converter is installed"},
  };
  for (const auto& c : cases) {
    MapRequest request;
    request.at = c.at;
    request.scale = c.scale;
    if (*c.drawing != 0) request.drawing = folder / c.drawing;
    if (*c.locations != 0) request.locations = path(c.locations);
    if (*c.file != 0) request.file = folder / c.file;
    const std::string told = map(request);
    EXPECT_NE(told.find(c.error), std::string::npos) << told;
    EXPECT_EQ(status, c.status) << told;
  }
  EXPECT_FALSE(fs::exists(folder / "zones.dxf"));
}

}  // namespace
}  // namespace noldarz::test
