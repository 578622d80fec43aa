// What is read of a drawing, and the sentence for each file that is none, is damaged or is not read here.

#include "platform/cad/dxf_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/chance.h"
#include "support/dxf.h"
#include "support/test_folder.h"

namespace noldarz::test {
namespace {

std::string header(const std::string& version, const std::string& more = "") {
  return section("HEADER", "9 $ACADVER 1 " + version + " " + more);
}

/// The text of the failure; empty when there is none.
template <class Reading>
std::string failureOf(Reading&& reading) {
  try {
    reading();
    return {};
  } catch (const CadFailure& failure) {
    return failure.what();
  }
}

TEST(DxfFile, refusesWhatItCantReadInASentence) {
  const std::string end = tags("0 EOF");
  const std::string binary{"AutoCAD Binary DXF\r\n\x1A\0", 22};
  const struct {
    std::string bytes;
    const char* text;
  } cases[] = {
      {"", "a.dxf is empty. Choose a drawing."},
      {binary, "a.dxf is a binary DXF. Save it as an ASCII DXF in your CAD."},
      {"AC1015" + std::string(40, '\0'), "a.dxf is a DWG. Save it as an ASCII DXF in your CAD."},
      {"A shopping list\n12 eggs\n", "a.dxf is no drawing. Choose an ASCII DXF."},
      {"12 eggs\n", "a.dxf is no drawing. Choose an ASCII DXF."},
      {tags("0 LINE 8 0"), "a.dxf is no drawing. Choose an ASCII DXF."},
      {header("AC1099") + end,
       "a.dxf is of the version AC1099, which is not known here. Save it as a DXF of 2018 or older in your CAD."},
      {header("AC1015"), "a.dxf is cut off at line 10, before its EOF. Get a whole copy of it."},
      {tags("0 SECTION 2 ENTITIES 0 LINE 8"), "a.dxf is cut off at line 7, within a tag. Get a whole copy of it."},
      {tags("0 SECTION 2 ENTITIES 0 LINE 8 0"),
       "a.dxf is cut off at line 8, within the section ENTITIES. Get a whole copy of it."},
      {tags("0 SECTION 2 ENTITIES 0 SECTION 2 OBJECTS 0 ENDSEC 0 EOF"),
       "a.dxf is cut off at line 5, within the section ENTITIES. Get a whole copy of it."},
      {tags("0 SECTION 2 ENTITIES 0 LINE 1x\x1B 0 0 ENDSEC") + end,
       "a.dxf is damaged: line 7 should hold a group code and holds \"1x?\". Get another copy of it, or save it again "
       "in your CAD."},
  };
  for (const auto& known : cases)
    EXPECT_EQ(failureOf([&] { DxfFile(known.bytes, "a.dxf"); }), known.text) << known.bytes;
}

TEST(DxfFile, refusesFilesBeforeTheyAreReadWhole) {
  const TestFolder folder;
  const std::string name = (folder / "a.dxf").string();
  EXPECT_EQ(failureOf([&] { DxfFile::read(name); }), "There is no drawing " + name + ". Check its name and folder.");
  writeFile(name, tags("0 SECTION"));
  fs::resize_file(name, DxfFile::mostBytes + 1);
  EXPECT_EQ(failureOf([&] { DxfFile::read(name); }),
            name + " is larger than 1 GiB, the most that is read here. Split it in your CAD.");
  writeFile(name, "");
  fs::resize_file(name, std::uintmax_t{1} << 40U);  // zeros
  EXPECT_EQ(failureOf([&] { DxfFile::read(name); }), name + " is no drawing. Choose an ASCII DXF.");
  const std::string pipe = (folder / "pipe").string();
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& other : {pipe, (folder / "start").string(), std::string{"/dev/zero"}})
    EXPECT_EQ(failureOf([&] { DxfFile::read(other); }),
              other + " is a folder, a device or a pipe, not a drawing. Choose a file.");
}

TEST(DxfFile, findsLayersBlocksEntitiesAndHandles) {
  const std::string tables =
      "0 TABLE 2 LAYER 5 2 70 3 0 LAYER 5 A0 2 Walls 70 5 62 3 6 X 999 remark 0 LAYER 5 A1 2 Off 62 -300 62 -4 0 LAYER "
      "5 "
      "A2 2 Plain 0 ENDTAB 0 TABLE 2 DIMSTYLE 5 A 0 DIMSTYLE 105 B0 5 FFFF 0 ENDTAB 0 TABLE 2 BLOCK_RECORD 5 1 0 "
      "BLOCK_RECORD 5 1F 2 *MODEL_SPACE 0 ENDTAB";
  const DxfFile file{header("AC1021", "9 $HANDSEED 5 C7") + section("TABLES", tables) +
                         section("BLOCKS",
                                 "0 BLOCK 5 C6 8 0 2 Gr\xC3\xB6\xC3\x9F\x65 10 1.5 20 -2 30 0 0 LINE 5 E0 0 "
                                 "ENDBLK 0 BLOCK 2 Empty 0 ENDBLK") +
                         section("ENTITIES",
                                 "0 CIRCLE 5 D0 5 FFFFF 40 1 0 POINT 1005 FFFF"
                                 " 40 nan 5 zz") +
                         tags("0 EOF"),
                     "a.dxf"};
  EXPECT_EQ(file.version(), DxfVersion::R2007);
  ASSERT_EQ(file.layers().size(), 3U);
  const DxfLayer& walls = *file.layer("WALLS");
  EXPECT_TRUE(walls.colour == 3 && !walls.off && walls.frozen && walls.locked);
  EXPECT_TRUE(file.layer("off")->colour == 4 && file.layer("off")->off);
  EXPECT_EQ(file.layer("plain")->colour, 7);
  EXPECT_EQ(file.layer("wall"), nullptr);
  const auto textOf = [&](DxfRange range) { return file.bytes().substr(range.begin, range.end - range.begin); };
  EXPECT_EQ(textOf(walls.tags), tags("0 LAYER 5 A0 2 Walls 70 5 62 3 6 X 999 remark"));
  const DxfBlock& block = file.blocks().at("gr\xC3\xB6\xC3\x9F\x65");
  EXPECT_EQ(block.base, (CadPoint{1.5, -2, 0}));
  EXPECT_EQ(textOf(block.entities), tags("0 LINE 5 E0"));
  EXPECT_EQ(textOf(file.blocks().at("empty").entities), "");
  EXPECT_TRUE(textOf(file.entities()).starts_with("0\nCIRCLE") && textOf(file.entities()).ends_with("zz\n"));
  EXPECT_EQ(file.places().nextHandle, 0xE1U);
  EXPECT_EQ(file.places().layerTable, "2");
  EXPECT_EQ(file.places().modelSpace, "1F");
}

TEST(DxfFile, decodesTexts) {
  const struct {
    const char* version;
    const char* page;
    const char* bytes;
    const char* text;
  } cases[] = {
      {"AC1015", "ANSI_1252", "Gr\xF6\xDF\x65 \x80", "Größe €"},
      {"AC1015", "ansi_1251", "\xCF\xEB\xE0\xED", "План"},
      {"AC1009", "dos850", "\x84", "ä"},
      {"AC1015", "ANSI_932", "\x90\x7D\x96\xCA\xB1 \x83\x5C\xFF", "図面ｱ ソ\uFFFD"},
      {"AC1015", "ANSI_936", "\xCD\xBC", "图"},
      {"AC1015", "ANSI_1258", "\xD2", "\u0309"},
      {"AC1015", "nonsense", "\xE4", "ä"},
      {"AC1015", "UTF-8", "\xC3\xA4", "ä"},
      {"AC1032", "ANSI_1252", "ä \xE4 \xF0\x9F\x98\x80 \xED\xA0\x80", "ä \uFFFD \U0001F600 \uFFFD\uFFFD\uFFFD"},
      {"AC1015", "ANSI_1252", "\\U+03a9 \\U+D83D\\U+DE00 \\U+D83D \\U+12 \\u+00E4", "Ω \U0001F600 \uFFFD \\U+12 ä"},
      {"AC1015", "ANSI_1252", "a^Jb^Ic^ d^x^", "a\nb\tc^d^x^"},
  };
  for (const auto& known : cases) {
    const DxfFile file{header(known.version, std::string{"9 $DWGCODEPAGE 3 "} + known.page) + tags("0 EOF"), "a.dxf"};
    EXPECT_EQ(file.decoded(known.bytes), known.text) << known.page;
  }
}

TEST(DxfFile, enduresDamage) {
  const std::string bytes = readFile(NOLDARZ_SOURCE_DIR "/share/AutoCadVBA/AutocadDwg1.dwg");
  EXPECT_EQ(DxfFile(bytes, "a.dxf").layers().size(), 1U);
  for (unsigned seed = 0; seed < 500; ++seed) {
    Chance chance{seed};
    const std::string harmed = damaged(bytes, chance);
    failureOf([&] { EXPECT_EQ(DxfFile(harmed, "a.dxf").bytes(), harmed); });
  }
}

}  // namespace
}  // namespace noldarz::test
