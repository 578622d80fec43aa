// What drawings look like from above: where the points of each kind of entity lie, what a block takes from its insert,
// and what is left out.

#include "platform/cad/scene.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/cad/scene_index.h"
#include "support/dxf.h"

namespace noldarz::test {
namespace {

std::string block(const std::string& name, const std::string& words, const std::string& base = "10 0 20 0") {
  return "0 BLOCK 8 0 2 " + name + " 70 0 " + base + " " + words + " 0 ENDBLK ";
}

Scene sceneOfWords(const std::string& entities, const std::string& blocks = "") {
  const std::string layers =
      "0 TABLE 2 LAYER 70 4 0 LAYER 2 0 62 7 70 0 0 LAYER 2 Walls 62 3 70 0 0 LAYER 2 Off 62 -1 70 0 "
      "0 LAYER 2 Frozen 62 5 70 1 0 ENDTAB";
  return sceneOf(
      DxfFile{section("TABLES", layers) + section("BLOCKS", blocks) + section("ENTITIES", entities) + tags("0 EOF"),
              "test.dxf"});
}

/// The points of an item, of a long one its first, its middle and its last point.
std::vector<ScenePoint> sketch(const Scene& scene, const SceneItem& item) {
  std::vector<ScenePoint> points(scene.points.begin() + item.first, scene.points.begin() + item.first + item.count);
  if (points.size() > 9) points = {points.front(), points[points.size() / 2], points.back()};
  return points;
}

struct Case {
  const char* name;
  std::string entities;
  std::vector<ScenePoint> points;  // of all items
  std::string blocks = "";
};

const std::string turnedInner = "0 INSERT 8 0 2 Inner 10 2 20 0 50 90 ";
const std::string innerLine = block("Inner", "0 LINE 8 0 10 1 20 1 11 2 21 1", "10 1 20 1");

// clang-format off
const std::vector<Case> cases{
    {"a half circle by its bulge", "0 LWPOLYLINE 8 0 90 2 70 0 10 0 20 0 42 1 10 2 20 0",
     {{0, 0}, {1, -1}, {2, 0}}},
    {"a bulge to the other side, closed by a straight line", "0 LWPOLYLINE 8 0 70 1 10 0 20 0 42 -1 10 2 20 0",
     {{0, 0}, {1.0349, 0.9994}, {0, 0}}},
    {"an arc over the angle 0", "0 ARC 8 0 10 5 20 5 40 2 50 270 51 90", {{5, 3}, {7, 5}, {5, 7}}},
    {"an arc seen from behind",
      "0 ARC 8 0 10 5 20 5 40 2 50 270 51 90 210 0 220 0 230 -1", {{-5, 3}, {-7, 5}, {-5, 7}}},
    {"half an ellipse, standing", "0 ELLIPSE 8 0 10 0 20 0 11 0 21 4 40 0.5 41 0 42 3.14159265358979",
     {{0, 4}, {-2, 0}, {0, -4}}},
    {"a polyline of old, with a vertex that only shaped it",
     "0 POLYLINE 8 0 66 1 70 4 0 VERTEX 8 0 10 0 20 0 70 8 0 VERTEX 8 0 10 9 20 9 70 16 0 VERTEX 8 0 10 3 20 0 70 8 "
     "0 SEQEND",
     {{0, 0}, {3, 0}}},
    {"faces of a mesh",
     "0 POLYLINE 8 0 66 1 70 64 0 VERTEX 10 0 20 0 70 192 0 VERTEX 10 1 20 0 70 192 0 VERTEX 10 1 20 1 70 192 "
     "0 VERTEX 10 0 20 0 70 128 71 1 72 -2 73 3 0 SEQEND", {{0, 0}, {1, 0}, {1, 1}, {0, 0}}},
    {"a spline by its control points",
     "0 SPLINE 8 0 71 2 40 0 40 0 40 0 40 1 40 1 40 1 10 0 20 0 10 1 20 2 10 2 20 0", {{0, 0}, {1, 1}, {2, 0}}},
    {"a quarter of a circle by its weights",
     "0 SPLINE 8 0 71 2 40 0 40 0 40 0 40 1 40 1 40 1 41 1 41 0.70710678 41 1 10 1 20 0 10 1 20 1 10 0 20 1",
     {{1, 0}, {0.70711, 0.70711}, {0, 1}}},
    {"a solid, whose third and fourth corner are swapped",
     "0 SOLID 8 0 10 0 20 0 11 2 21 0 12 0 22 1 13 2 23 1", {{0, 0}, {2, 0}, {2, 1}, {0, 1}, {0, 0}}},
    {"a hatch of a line and an arc, clockwise",
     "0 HATCH 8 0 10 0 20 0 30 0 91 1 92 1 93 2 72 1 10 0 20 0 11 2 21 0 72 2 10 1 20 0 40 1 50 0 51 180 73 0 97 0 "
     "75 1",
     {{0, 0}, {1, -1}, {0, 0}}},
    {"a hatch of a polyline", "0 HATCH 8 0 30 0 91 1 92 2 72 0 73 1 93 3 10 0 20 0 10 1 20 0 10 1 20 1 97 1 330 A",
     {{0, 0}, {1, 0}, {1, 1}, {0, 0}}},
    {"a hatch with a spline among its edges",
     "0 HATCH 8 0 30 0 91 1 92 1 93 2 72 4 94 1 73 0 74 0 95 4 96 2 40 0 40 0 40 1 40 1 10 0 20 0 10 1 20 0 97 0 "
     "72 1 10 1 20 0 11 0 21 0 97 0", {{0, 0}, {1, 0}, {0, 0}}},
    {"a block in a block, turned, then scaled unevenly, from its base point",
     "0 INSERT 8 0 2 OUTER 10 10 20 10 41 2 42 3", {{14, 10}, {14, 13}}, innerLine + block("Outer", turnedInner)},
    {"rows and columns of a block", "0 INSERT 8 0 2 Inner 10 0 20 0 50 90 70 2 71 2 44 10 45 5",
     {{0, 0}, {0, 1}, {0, 10}, {0, 11}, {-5, 0}, {-5, 1}, {-5, 10}, {-5, 11}}, innerLine},
    {"a block seen from behind", "0 INSERT 8 0 2 Inner 10 3 20 0 210 0 220 0 230 -1", {{-3, 0}, {-4, 0}}, innerLine},
    {"a block that holds itself", "0 INSERT 8 0 2 Loop 10 0 20 0", {{0, 0}, {1, 0}},
     block("Loop", "0 LINE 8 0 10 0 20 0 11 1 21 0 0 INSERT 8 0 2 Loop 10 5 20 0")},
    {"a dimension by its picture", "0 DIMENSION 8 0 2 *D1 10 99 20 99", {{0, 0}, {1, 1}},
     block("*D1", "0 LINE 8 0 10 0 20 0 11 1 21 1")},
    {"a table at its place", "0 ACAD_TABLE 8 0 2 *T1 10 5 20 5 11 0 21 1 2 other", {{5, 5}, {5, 6}},
     block("*T1", "0 LINE 8 0 10 0 20 0 11 1 21 0")},
    {"a text in the middle of its second point", "0 TEXT 8 0 1 A 40 2 10 0 20 0 11 7 21 8 72 1 73 2", {{7, 8}}},
    {"what is of paper, invisible, broken or too far", "0 LINE 8 0 67 1 10 0 20 0 11 1 21 1 0 LINE 8 0 60 1 10 0 20 "
     "0 11 1 21 1 "
     "0 LINE 8 0 10 0 20 0 11 1 0 LINE 8 0 10 x 20 0 11 1 21 1 0 LINE 8 0 10 1e13 20 0 11 1 21 1 0 POINT 8 0 10 4 20 4",
     {{4, 4}}},
};
// clang-format on

TEST(Scene, hasThePointsOfEachKindOfEntity) {
  for (const Case& known : cases) {
    const Scene scene = sceneOfWords(known.entities, known.blocks);
    std::vector<ScenePoint> points;
    for (const SceneItem& item : scene.items)
      for (const ScenePoint& point : sketch(scene, item)) points.push_back(point);
    ASSERT_EQ(points.size(), known.points.size()) << known.name;
    for (std::size_t i = 0; i < points.size(); ++i) {
      EXPECT_NEAR(points[i].x, known.points[i].x, 1e-4) << known.name << ", point " << i;
      EXPECT_NEAR(points[i].y, known.points[i].y, 1e-4) << known.name << ", point " << i;
    }
  }
}

TEST(Scene, takesLayersAndColoursAsABlockGivesThem) {
  const std::string line = "10 0 20 0 11 1 21 1 ";
  const std::string all = "0 LINE 8 0 62 0 " + line + "0 LINE 8 0 " + line + "0 LINE 8 walls 62 0 " + line +
                          "0 LINE 8 Walls 62 4 " + line + "0 LINE 8 New 420 16711680 " + line;
  const Scene scene =
      sceneOfWords("0 INSERT 8 Off 2 All 10 0 20 0 62 6 0 INSERT 8 Frozen 2 All 10 0 20 0", block("All", all));
  const auto standing = [&](std::size_t item) {
    const SceneItem& of = scene.items.at(item);
    return scene.layers[of.layer].name + " " + std::to_string(of.colour) + " " + scene.layers[of.colourLayer].name;
  };
  const std::vector<std::string> expected{"Off 6 Off",
                                          "Off 256 Off",
                                          "Walls 6 Off",
                                          "Walls 4 Walls",
                                          "New " + std::to_string(trueColour + 0xFF0000) + " New",
                                          "Frozen 256 Frozen",
                                          "Frozen 256 Frozen",
                                          "Frozen 256 Frozen",
                                          "Frozen 4 Walls",
                                          "Frozen " + std::to_string(trueColour + 0xFF0000) + " New"};
  ASSERT_EQ(scene.items.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(standing(i), expected[i]) << i;
  for (const SceneLayer& layer : scene.layers)
    EXPECT_EQ(layer.visible, layer.name != "Off" && layer.name != "Frozen") << layer.name;
  EXPECT_EQ(scene.layers.size(), 5U);
}

TEST(Scene, readsTextsWithoutTheirCodes) {
  const Scene scene = sceneOfWords(
      "0 TEXT 8 0 10 0 20 0 40 1 1 20%%d`%%p1`%%uA%%% "
      "0 MTEXT 8 0 10 0 20 0 40 2 41 0 71 5 1 {\\fArial|b1;Big}\\P\\H2x;1\\S1^2;\\~m\\\\\\{\\} "
      "0 MTEXT 8 0 10 0 20 0 40 1 41 7 71 1 3 one`two` 1 three`four 101 Embedded`Object 10 99 40 99");
  std::vector<std::string> texts;
  for (const SceneText& text : scene.texts) texts.push_back(text.text);
  EXPECT_EQ(texts, (std::vector<std::string>{"20° ±1 A%", "Big", "11/2 m\\{}", "one two", "three four"}));
  EXPECT_NEAR(scene.points[1].y, 2.6667, 1e-4);  // two lines, their middle at 0
  EXPECT_NEAR(scene.points[2].y, -0.6667, 1e-4);
  EXPECT_EQ(scene.texts[1].across, 0.5);
}

TEST(Scene, keepsAMirroredTextLegibleInItsRoom) {
  const Scene scene =
      sceneOfWords("0 INSERT 8 0 2 Note 10 0 20 0 41 -2 42 3", block("Note", "0 TEXT 8 0 10 1 20 0 40 1 1 AB"));
  ASSERT_EQ(scene.texts.size(), 1U);
  EXPECT_NEAR(scene.texts[0].angle, 0, 1e-9);
  EXPECT_EQ(scene.texts[0].across, 1);
  EXPECT_NEAR(scene.texts[0].height, 3, 1e-9);
  EXPECT_NEAR(scene.texts[0].stretch, 2. / 3, 1e-9);
  EXPECT_EQ(scene.points[0], (ScenePoint{-2, 0}));
}

TEST(Scene, countsWhatIsNotDrawnAndEndsWhereADrawingIsHostile) {
  const Scene broken = sceneOfWords("0 RAY 8 0 0 RAY 8 0 0 CIRCLE 8 0 10 0 20 0 0 INSERT 8 0 2 None 10 0 20 0");
  EXPECT_EQ(broken.notShown, (std::map<std::string, std::size_t>{{"RAY", 2}, {"CIRCLE", 1}, {"INSERT", 1}}));
  std::string blocks = block("B0", "");
  for (int i = 1; i < 30; ++i)
    blocks +=
        block("B" + std::to_string(i), "0 INSERT 8 0 2 B" + std::to_string(i - 1) + " 10 0 20 0 70 30000 71 30000");
  EXPECT_FALSE(sceneOfWords("0 INSERT 8 0 2 B29 10 0 20 0", blocks).isWhole);
}

TEST(Scene, takesWhatIsAddedAndTheColoursOfTheIndex) {
  Scene scene = sceneOfWords("0 LINE 8 0 10 0 20 0 11 1 21 0");
  setSceneLayer(scene, "Zones", 40);
  addToScene(scene, {"zones", 7, AddedCircle{{5, 5, 3}, 2}});
  addToScene(scene, {"Zones", colourByLayer, AddedText{"Tip", {9, 9, 0}, 10, 0}});
  EXPECT_EQ(scene.layers.back().name, "Zones");
  EXPECT_EQ(scene.layers.back().colour, 40);
  EXPECT_EQ(scene.items[2].layer, scene.layers.size() - 1);
  EXPECT_NEAR(scene.items[1].box.left, 3, 1e-9);
  EXPECT_NEAR(scene.items[1].box.top, 7, 1e-9);
  for (const auto& [index, colour] : {std::pair{1, 0xFF0000U},
                                      {10, 0xFF0000U},
                                      {11, 0xFF7F7FU},
                                      {40, 0xFFBF00U},
                                      {94, 0x008100U},
                                      {170, 0x0000FFU},
                                      {251, 0x505050U}})
    EXPECT_EQ(colourOfIndex(index), colour) << index;
}

TEST(SceneIndex, findsWhatALookAtAllFinds) {
  std::string lines;
  for (int i = 0; i < 3000; ++i) {
    const int x = i * 7919 % 1000;
    const int y = i * 104729 % 1000;
    const int size = i % 100 == 0 ? 700 : i % 9;
    lines += "0 LINE 8 0 10 " + std::to_string(x) + " 20 " + std::to_string(y) + " 11 " + std::to_string(x + size) +
             " 21 " + std::to_string(y + size / 2) + " ";
  }
  const Scene scene = sceneOfWords(lines);
  const SceneIndex index(scene);
  for (const SceneBox& box :
       {SceneBox{0, 0, 2000, 2000}, {100, 100, 130, 101}, {999, 0, 1001, 999}, {-5, -5, -1, -1}}) {
    std::vector<std::uint32_t> found;
    index.find(scene, box, found);
    std::sort(found.begin(), found.end());
    std::vector<std::uint32_t> expected;
    for (std::uint32_t i = 0; i < scene.items.size(); ++i)
      if (scene.items[i].box.meets(box)) expected.push_back(i);
    EXPECT_EQ(found, expected) << box.left;
  }
}

}  // namespace
}  // namespace noldarz::test
