// Which files become pictures, which are refused, and that no damaged one is shown half.

#include "platform/canvas/picture_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cmath>

#include "cli/picture_module.h"
#include "platform/failure.h"
#include "support/chance.h"
#include "support/test_folder.h"

namespace noldarz::test {
namespace {

const fs::path pictures = NOLDARZ_SOURCE_DIR "/tests/reference/pictures";

/// What reading ends with; 0 for a picture.
int failureOf(const fs::path& file) {
  try {
    readPicture(file);
    return 0;
  } catch (const RuntimeFailure& failure) {
    return failure.number();
  }
}

/// The colours at the point, of which a compressed photo keeps about 16 levels.
std::uint32_t roughly(const Image& image, int x, int y) {
  const auto index = static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width) + static_cast<std::size_t>(x);
  return image.pixels.at(index) & 0xF0F0F0F0;
}

TEST(PictureFile, isReadWithItsSizeAndColours) {
  constexpr std::uint32_t red = 0xF0F00000, green = 0xF000F000, blue = 0xF00000F0, white = 0xF0F0F0F0, none = 0;
  const struct {
    const char* name;
    int width, height;
    double dotsPerInch;
    struct {
      int x, y;
      std::uint32_t colour;
    } points[3];
  } cases[] = {
      {"map.bmp", 4, 3, 300, {{1, 2, blue}, {1, 1, red}, {0, 2, red}}},
      {"packed.bmp", 8, 3, 300, {{1, 2, blue}, {1, 1, red}, {7, 2, red}}},
      {"map.png", 4, 3, 96, {{1, 2, blue}, {1, 1, red}, {0, 2, red}}},
      {"photo.jpg", 4, 3, 200, {{1, 2, blue}, {3, 2, red}, {0, 0, red}}},
      {"progressive.jpg", 16, 12, 200, {{13, 5, blue}, {3, 5, red}, {3, 10, red}}},
      {"two-frames.gif", 4, 3, 96, {{0, 0, red}, {1, 2, blue}, {3, 2, none}}},
      {"placeable.wmf", 40, 30, 96, {{5, 10, red}, {28, 22, blue}, {5, 22, green}}},
      {"plain.wmf", 40, 20, 96, {{5, 15, red}, {5, 5, none}, {25, 15, none}}},
  };
  for (const auto& known : cases) {
    SCOPED_TRACE(known.name);
    const auto image = readPicture(pictures / known.name);
    ASSERT_EQ(image->width, known.width);
    ASSERT_EQ(image->height, known.height);
    EXPECT_NEAR(25.4 / image->pixelSize, known.dotsPerInch, 0.01);
    for (const auto& [x, y, colour] : known.points) EXPECT_EQ(roughly(*image, x, y), colour) << x << ", " << y;
  }
  const auto drawn = readPicture(pictures / "placeable.wmf");  // a bitmap of four colours in it, too
  EXPECT_EQ(roughly(*drawn, 29, 4), blue);
  EXPECT_EQ(roughly(*drawn, 35, 10), green);
  EXPECT_EQ(roughly(*drawn, 35, 4), white);
}

TEST(PictureFile, isRefusedWholeWhenCutOff) {
  const TestFolder folder;
  for (const auto& entry : fs::directory_iterator(pictures)) {
    const std::string bytes = readFile(entry.path());
    const bool gif = entry.path().extension() == ".gif";  // what comes after its first frame does no harm
    for (std::size_t size = 0; size < (gif ? bytes.size() / 2 : bytes.size()); ++size) {
      writeFile(folder / "cut", std::string_view{bytes}.substr(0, size));
      EXPECT_EQ(failureOf(folder / "cut"), 481) << entry.path() << " cut to " << size;
    }
  }
}

TEST(PictureFile, isRefusedWhenItIsNone) {
  const TestFolder folder;
  const std::string bmp = readFile(pictures / "map.bmp");
  const auto changed = [](std::string bytes, std::size_t at, std::string_view other) {
    return bytes.replace(at, other.size(), other);
  };
  const std::string vast{"\xff\x7f\0\0\xff\x7f\0\0", 8};  // 32767 both ways
  const struct {
    const char* what;
    std::string bytes;
  } files[] = {
      {"empty", ""},
      {"text", "GIF is how this text begins, but it is none"},
      {"vast bmp", changed(bmp, 18, vast)},
      {"vast packed bmp", changed(readFile(pictures / "packed.bmp"), 18, vast)},
      {"bmp with a vast head", changed(bmp, 16, "\xfc\xff")},
      {"bmp with a vast palette", changed(bmp, 46, "\x02\xff\xff\xff")},
      {"vast gif", changed(readFile(pictures / "two-frames.gif"), 6, "\xff\x7f\xff\x7f")},
      {"vast jpg",
       changed(readFile(pictures / "photo.jpg"),
               readFile(pictures / "photo.jpg").find("\xff\xc0") + 5,
               "\x7f\xff\x7f\xff")},
      {"vast png", changed(readFile(pictures / "map.png"), 16, std::string{"\0\0\x7f\xff\0\0\x7f\xff", 8})},
      {"vast wmf", changed(readFile(pictures / "placeable.wmf"), 14, std::string{"\1\0", 2})},
      {"wmf without a size", changed(readFile(pictures / "placeable.wmf"), 14, std::string{"\0\0", 2})},
      {"wmf whose record is too long", changed(readFile(pictures / "plain.wmf"), 18, "\xff\xff\xff\x7f")},
      {"drawing", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4\" height=\"4\"/>"},
  };
  for (const auto& [what, bytes] : files) {
    writeFile(folder / "file", bytes);
    EXPECT_EQ(failureOf(folder / "file"), 481) << what;
  }
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(failureOf(folder / "pipe"), 481);
  EXPECT_EQ(failureOf(folder / "data"), 481);
  EXPECT_EQ(failureOf("/dev/zero"), 481);
  EXPECT_EQ(failureOf(folder / "nothing"), 3024);
}

TEST(PictureFile, survivesDamage) {
  const TestFolder folder;
  Chance chance{7};
  for (const auto& entry : fs::directory_iterator(pictures)) {
    const std::string bytes = readFile(entry.path());
    for (int i = 0; i < 50; ++i) {
      std::string damaged = bytes;
      for (int k = 0; k < 3; ++k) damaged[chance.below(damaged.size())] = static_cast<char>(chance.below(256));
      writeFile(folder / "damaged", damaged);
      const int failure = failureOf(folder / "damaged");
      EXPECT_TRUE(failure == 0 || failure == 481) << entry.path();
    }
  }
}

TEST(PictureModule, readsAndWritesAsTheLibraryDoes) {
  const TestFolder folder;
  const auto image = pictureModule().read(pictures / "map.bmp");
  EXPECT_EQ(image->pixels, readPicture(pictures / "map.bmp")->pixels);
  EXPECT_THROW(pictureModule().read(folder / "nothing"), RuntimeFailure);
  const Drawing drawing;
  DrawingFile what{.drawing = drawing, .width = 20, .height = 10, .picture = image, .legend = {}, .foot = {}};
  pictureModule().write(folder / "a.svg", what);
  EXPECT_NE(readFile(folder / "a.svg").find("data:image/png"), std::string::npos);
  EXPECT_THROW(pictureModule().write(folder / "a.txt", what), std::invalid_argument);
}

}  // namespace
}  // namespace noldarz::test
