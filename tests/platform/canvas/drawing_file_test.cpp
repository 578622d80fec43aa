// What a drawing is in a file, and what happens when it can't become one.

#include "platform/canvas/drawing_file.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/canvas/stroke_clip.h"
#include "platform/view.h"
#include "support/test_folder.h"

/// The fonts that a process has looked up stay in memory until it ends.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }

namespace noldarz::test {
namespace {

struct DrawingFileTest : testing::Test {
  std::string written(const char* name) {
    writeDrawing(folder / name, file);
    return readFile(folder / name);
  }
  /// Pixel of a BMP (0xRRGGBB).
  static std::uint32_t pixel(const std::string& bmp, int x, int y) {
    const auto number = [&](std::size_t at) {
      std::uint32_t value = 0;
      for (std::size_t i = 4; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bmp[at + i]);
      return value;
    };
    const std::size_t row = (number(18) * std::size_t{3} + 3) / 4 * 4;
    return number(54 + row * (number(22) - 1 - static_cast<std::size_t>(y)) + 3 * static_cast<std::size_t>(x)) &
           0xFFFFFF;
  }

  TestFolder folder;
  Views views;
  View view{views, "v", ""};
  Canvas canvas{view.add(FieldKind::canvas, "c")};
  DrawingFile file{
      .drawing = canvas.drawing(), .width = 50, .height = 40, .picture = nullptr, .legend = {}, .foot = {}};
};

TEST_F(DrawingFileTest, isOfTheKindOfItsExtension) {
  canvas.Line(0, 10, 50, 10, Colour(255, 0, 0));
  const struct {
    const char* name;
    std::string begin;
  } kinds[] = {{"a.png", "\x89PNG"}, {"a.BMP", "BM"}, {"a.pdf", "%PDF-"}, {"a.Svg", "<?xml"}};
  for (const auto& [name, begin] : kinds) EXPECT_TRUE(written(name).starts_with(begin)) << name;
  EXPECT_EQ(written("a.svg"), written("b.svg"));
  writeFile(folder / "old.jpg", "as it was");
  EXPECT_THROW(writeDrawing(folder / "old.jpg", file), std::invalid_argument);
  EXPECT_EQ(readFile(folder / "old.jpg"), "as it was");
  EXPECT_THROW(writeDrawing(folder / "none/a.svg", file), fs::filesystem_error);
  file.dotsPerInch = 1e5;
  EXPECT_THROW(writeDrawing(folder / "a.png", file), std::invalid_argument);
  file.width = 0;
  EXPECT_THROW(writeDrawing(folder / "a.svg", file), std::invalid_argument);
}

TEST_F(DrawingFileTest, hasItsPixelsWhereTheMillimetresAre) {
  file.dotsPerInch = 254;  // ten a millimetre
  canvas.Print("x");
  canvas.setDrawWidth(4);  // 1.06 mm
  canvas.Line(0, 10, 50, 10, Colour(255, 0, 0));
  canvas.Circle(25, 25, 5, Colour(0, 0, 255));
  auto picture = std::make_shared<Image>(Image{3, 1, {0xFF00FF00, 0xFF123456, 0}, 10});
  file.picture = picture;
  file.legend = {{Colour(0, 128, 0), "UEL"}};
  const std::string bmp = written("a.bmp");
  EXPECT_EQ(pixel(bmp, 250, 100), 0xFF0000U);
  EXPECT_EQ(pixel(bmp, 300, 250), 0x0000FFU);
  EXPECT_EQ(pixel(bmp, 250, 250), 0xFFFFFFU);
  EXPECT_EQ(pixel(bmp, 50, 50), 0x00FF00U);
  EXPECT_EQ(pixel(bmp, 7, 63), 0x00FF00U);  // no line from the text to the next one
  EXPECT_EQ(pixel(bmp, 150, 50), 0x123456U);
  EXPECT_EQ(pixel(bmp, 280, 50), 0xFFFFFFU);                                    // seen through
  EXPECT_EQ(pixel(bmp, 70, 400 + static_cast<int>(10 * textLine)), 0x008000U);  // the line of the legend
}

TEST_F(DrawingFileTest, keepsTextsAndLinesInSvg) {
  canvas.PSet(3, 4, Colour(255, 255, 255));
  canvas.setFontBold(true);
  canvas.Print("a < b & \"c\"");
  for (int i = 0; i < 100'000; ++i) canvas.Line(i * 1e-5, 20, (i + 1) * 1e-5, 20, basicPalette[12]);
  canvas.Line(-1e9, 30, 1e9, 30, basicPalette[2]);
  canvas.Line(-1e9, -5e8, -1e9, 1e9, basicPalette[2]);
  canvas.Circle(1e8, 20, 1e8 - 25);
  file.lineStyles = true;
  file.foot = {"Scale"};
  const std::string svg = written("a.svg");
  EXPECT_LT(svg.size(), 6000U);
  EXPECT_NE(svg.find("font-weight=\"bold\">a &lt; b &amp; \"c\"</text>"), std::string::npos);
  EXPECT_NE(svg.find("points=\"-10.00,30.00 60.00,30.00\""), std::string::npos);
  EXPECT_NE(svg.find("stroke-dasharray=\"4 1.5\""), std::string::npos);
  EXPECT_NE(svg.find(">Scale</text>"), std::string::npos);
  std::size_t strokes = 0;
  for (std::size_t at = 0; (at = svg.find("<polyline", at)) != std::string::npos; ++at) ++strokes;
  EXPECT_EQ(strokes, 4U);  // the line above the foot among them
}

TEST(Clipped, keepsThePiecesInTheBox) {
  const Box box{0, 0, 10, 10};
  using Pieces = std::vector<std::vector<Point>>;
  const struct {
    std::vector<Point> line;
    Pieces pieces;
  } cases[] = {{{{1, 1}, {9, 1}, {9, 9}}, {{{1, 1}, {9, 1}, {9, 9}}}},
               {{{-5, 5}, {15, 5}}, {{{0, 5}, {10, 5}}}},
               {{{5, 5}, {15, 5}, {15, 8}, {5, 8}}, {{{5, 5}, {10, 5}}, {{10, 8}, {5, 8}}}},
               {{{-5, -5}, {-5, 15}, {15, 15}}, {}},
               {{{-1, 10}, {11, 10}}, {{{0, 10}, {10, 10}}}},
               {{{5, 5}}, {}}};
  for (const auto& [line, pieces] : cases) EXPECT_EQ(clipped(line, box), pieces) << line.front().x;
}

TEST(CircleLine, isNowhereFarFromTheCircle) {
  for (const double radius : {0.0, 0.5, 20.0, 5000.0}) {
    const auto line = circleLine({3, 4}, radius);
    EXPECT_EQ(line.front(), line.back());
    for (std::size_t i = 1; i < line.size(); ++i) {
      const double x = (line[i].x + line[i - 1].x) / 2 - 3;
      const double y = (line[i].y + line[i - 1].y) / 2 - 4;
      EXPECT_NEAR(std::hypot(x, y), radius, 0.0101);
    }
  }
}

}  // namespace
}  // namespace noldarz::test
