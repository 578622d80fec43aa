// What is spliced into a drawing, byte for byte, and what its file goes through.

#include "platform/cad/dxf_writer.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "support/dxf.h"
#include "support/process.h"
#include "support/test_folder.h"

namespace noldarz::test {
namespace {

const AddedEntity circle{"Walls", 256, AddedCircle{{1, 2.5, 0}, 1.0 / 3}};

std::string joined(const std::string& bytes, const std::vector<ChangedLayer>& layers,
                   const std::deque<AddedEntity>& entities) {
  return DxfPieces{DxfFile{bytes, "a.dxf"}, layers, entities}.joined();
}

/// A drawing with marks where something is spliced in: "@H", "@L" and "@E".
struct Spliced {
  std::string marked;
  std::string header, layer, entity;

  std::string before() const { return with("C7", "", ""); }
  std::string after() const { return with(header, layer, entity); }

 private:
  std::string with(const std::string& h, const std::string& l, const std::string& e) const {
    std::string text = marked;
    for (const auto& [mark, what] :
         std::initializer_list<std::pair<std::string, std::string>>{{"@H\n", h + "\n"}, {"@L\n", l}, {"@E\n", e}})
      if (const auto at = text.find(mark); at != std::string::npos) text.replace(at, mark.size(), what);
    return text;
  }
};

/// Codes have three places where they are written.
std::string written(const std::string& words) {
  std::istringstream stream(tags(words));
  std::string lines, code, value;
  while (std::getline(stream, code) && std::getline(stream, value))
    lines += std::string(code.size() < 3 ? 3 - code.size() : 0, ' ') + code + "\n" + value + "\n";
  return lines;
}

std::string drawing(const std::string& version, const std::string& layer, const std::string& entity) {
  return section("HEADER", "9 $ACADVER 1 " + version + " 9 $HANDSEED 5 @H") +
         section("TABLES",
                 "0 TABLE 2 LAYER 5 2 70 1 0 LAYER " + layer +
                     " 2 Walls 70 0 62 1 390 F 347 4B @L 0 ENDTAB "
                     "0 TABLE 2 BLOCK_RECORD 5 1 0 BLOCK_RECORD 5 1F 2 *Model_Space 0 ENDTAB") +
         section("ENTITIES", "0 POINT " + entity + " 8 0 @E") + tags("0 EOF");
}

TEST(DxfWriter, splicesAsTheFormatAsks) {
  const std::string data = "10 1.0 20 2.5 30 0.0 40 0.3333333333333333";
  const Spliced cases[] = {
      {drawing("AC1009", "", ""),
       "C7",
       written("0 LAYER 2 Z\\U+00F6 70 0 62 3 6 CONTINUOUS"),
       written("0 CIRCLE 8 Walls " + data)},
      {drawing("AC1009", "", "5 D0"),
       "D2",
       written("0 LAYER 2 Z\\U+00F6 70 0 62 3 6 CONTINUOUS"),
       written("0 CIRCLE 5 D1 8 Walls " + data)},
      {drawing("AC1009", "5 E0", "5 D0"),
       "E3",
       written("0 LAYER 5 E1 2 Z\\U+00F6 70 0 62 3 6 CONTINUOUS"),
       written("0 CIRCLE 5 E2 8 Walls " + data)},
      {drawing("AC1014", "5 A", "5 B"),
       "C9",
       written("0 LAYER 5 C7 100 AcDbSymbolTableRecord 100 AcDbLayerTableRecord 2 Z\\U+00F6 70 0 62 3 6 Continuous"),
       written("0 CIRCLE 5 C8 100 AcDbEntity 8 Walls 100 AcDbCircle " + data)},
      {drawing("AC1032", "5 A", "5 1FF"),
       "202",
       written(
           "0 LAYER 5 200 330 2 100 AcDbSymbolTableRecord 100 AcDbLayerTableRecord 2 Z\xC3\xB6 70 0 62 3 6 Continuous "
           "390 F 347 4B"),
       written("0 CIRCLE 5 201 330 1F 100 AcDbEntity 8 Walls 100 AcDbCircle " + data)},
  };
  for (const Spliced& known : cases) {
    SCOPED_TRACE(known.before());
    EXPECT_EQ(joined(known.before(), {{"Zö", 3}}, {circle}), known.after());
    EXPECT_EQ(joined(known.before(), {{"WALLS", 1}}, {}), known.before()) << "no change";
  }
}

TEST(DxfWriter, writesEachEntity) {
  const std::vector<CadPoint> ring{{0, 0, 5}, {4, 0, 5}, {4, 4, 5}, {0, 0, 5}};
  const std::vector<CadPoint> rising{{0, 0, 0}, {4, 0, 1}};
  const struct {
    AddedEntity entity;
    const char* version;
    std::string begins;
  } cases[] = {
      {{"0", 3, AddedLine{{1e-7, 1e20, -1}, {0, 123456.789, 2}}},
       "AC1009",
       "0 LINE 8 0 62 3 10 1e-07 20 1e+20 30 -1.0 11 0.0 21 123456.789 31 2.0"},
      {{"0", 256, AddedText{"≥\n^\\U+0041😀", {}, 2, 0.5}},
       "AC1015",
       "0 TEXT 5 1 100 AcDbEntity 8 0 100 AcDbText 10 0.0 20 0.0 30 0.0 40 2.0 1 "
       "\\U+2265`^`\\U+005CU+0041\\U+D83D\\U+DE00 50 28.64788975654116 100 AcDbText"},
      {{"0", 256, AddedSpline{Spline{ring}, ring, 0}},
       "AC1009",
       "0 POLYLINE 8 0 66 1 10 0.0 20 0.0 30 5.0 70 1 0 VERTEX 8 0 10 0.0 20 0.0 30 5.0 0 VERTEX"},
      {{"0", 256, AddedSpline{Spline{rising}, rising, 0}},
       "AC1009",
       "0 POLYLINE 8 0 66 1 10 0.0 20 0.0 30 0.0 70 8 0 VERTEX"},
      {{"0", 256, AddedSpline{Spline{ring}, ring, 0}},
       "AC1015",
       "0 SPLINE 5 1 100 AcDbEntity 8 0 100 AcDbSpline 210 0.0 220 0.0 230 1.0 70 8 71 3 72 10 73 6 74 0 40 0.0 40"},
  };
  for (const auto& known : cases) {
    const std::string bytes = section("HEADER", std::string{"9 $ACADVER 1 "} + known.version) + tags("0 EOF");
    const std::string result = joined(bytes, {}, {known.entity});
    const DxfFile again{result, "a.dxf"};
    EXPECT_EQ(again.bytes().substr(again.entities().begin, written(known.begins).size()), written(known.begins));
  }
  const AddedEntity endless{"0", 256, AddedCircle{{1, 2, 0}, std::numeric_limits<double>::infinity()}};
  EXPECT_THROW(joined(tags("0 EOF"), {}, {endless}), CadFailure);
  EXPECT_THROW(joined(section("HEADER", "9 $ACADVER 1 AC1015 9 $HANDSEED 5 FFFFFFFFFFFFFFFF") + tags("0 EOF"),
                      {},
                      {circle, circle}),
               CadFailure);
}

TEST(DxfWriter, recoloursLayersAndNothingElse) {
  const auto layers = [](const std::string& words) {
    return section("TABLES", "0 TABLE 2 LAYER 70 9 0 LAYER 2 A " + words + " 0 ENDTAB") + tags("0 EOF");
  };
  const struct {
    const char* before;
    const char* after;
  } cases[] = {
      {"62 ```7``", "62 ```5``"},
      {"62 -7 6 X", "62 -5 6 X"},
      {"70 0 420 123 430 NAME 62 7 440 1", "70 0 62 5 440 1"},
      {"420 123", " "},
  };
  for (const auto& known : cases) {
    std::string after = layers(known.after);
    if (std::string_view{known.after} == " ") after.insert(after.find("A\n") + 2, " 62\n5\n");
    EXPECT_EQ(joined(layers(known.before), {{"a", 1}, {"A", 5}}, {}), after);
  }
}

TEST(DxfWriter, addsWhatADrawingLacks) {
  const std::string head = tags("999 remark 0 SECTION 2 HEADER 9 $ACADVER 1 AC1015 0 ENDSEC", "\r\n");
  const std::string objects = tags("0 SECTION 2 OBJECTS 0 ENDSEC", "\r\n");
  const std::string end = tags("0 EOF", "\r\n");
  for (const std::string& bytes : {head + objects + end,
                                   head + end,
                                   end,
                                   "\xEF\xBB\xBF" + end,
                                   tags("0 SECTION 2 TABLES 0 ENDSEC 0 SECTION 2 ENTITIES 0 ENDSEC 0 EOF", "\r\n")}) {
    SCOPED_TRACE(bytes);
    const std::string result = joined(bytes, {{"Walls", 3}, {"Zö", 4}}, {circle, circle});
    EXPECT_EQ(std::count(result.begin(), result.end(), '\r'), std::count(result.begin(), result.end(), '\n'));
    const DxfFile again{result, "a.dxf"};
    EXPECT_TRUE(again.layer("Walls")->colour == 3 && again.layer("Zö")->colour == 4);
    EXPECT_EQ(result.find("TABLES"), result.rfind("TABLES"));
    EXPECT_LT(result.find("TABLES"), result.find("ENTITIES"));
    EXPECT_LT(result.find("CIRCLE"), std::min(result.find("OBJECTS"), result.find("EOF")));
    EXPECT_EQ(result.find("$HANDSEED") != std::string::npos, bytes.starts_with(head));
  }
}

TEST(DxfWriter, replacesTheFileInOneStep) {
  const TestFolder folder;
  const std::string bytes = section("ENTITIES", "") + tags("0 EOF");
  const DxfFile file{bytes, "a.dxf"};
  const fs::path target = folder / "a.dxf";
  writeFile(target, bytes);
  fs::permissions(target, fs::perms{0640});
  fs::create_symlink("a.dxf", folder / "link.dxf");
  fs::create_symlink("link.dxf", folder / "second.dxf");
  const DxfPieces pieces{file, {}, {circle}};
  pieces.write(folder / "second.dxf");
  EXPECT_TRUE(fs::is_symlink(folder / "second.dxf") && fs::is_symlink(folder / "link.dxf"));
  EXPECT_EQ(readFile(target), pieces.joined());
  EXPECT_EQ(fs::status(target).permissions(), fs::perms{0640});
  EXPECT_TRUE(DxfFile::read(target).places().entitiesEnd.has_value());
}

TEST(DxfWriter, refusesWhatMayNotBeReplaced) {
  const TestFolder folder;
  const DxfFile file{section("ENTITIES", "") + tags("0 EOF"), "a.dxf"};
  writeFile(folder / "locked.dxf", "old");
  fs::permissions(folder / "locked.dxf", fs::perms{0444});
  const auto failure = [&](const fs::path& target) -> std::string {
    try {
      DxfPieces{file, {}, {circle}}.write(target);
    } catch (const CadFailure& refused) {
      return refused.what();
    }
    return {};
  };
  EXPECT_EQ(failure(folder / "locked.dxf"),
            (folder / "locked.dxf").string() + " is read-only; save under another name.");
  EXPECT_EQ(failure("/dev/full"), "/dev/full is a folder, a device or a pipe; save under another name.");
  EXPECT_EQ(failure(folder / "none/a.dxf"),
            (folder / "none/a.dxf").string() + " can't be saved: No such file or directory. Save under another name.");
  EXPECT_EQ(readFile(folder / "locked.dxf"), "old");
}

TEST(DxfWriter, leavesTheOldFileWhenTheDiskIsFull) {
  const TestFolder folder;
  const DxfFile file{section("ENTITIES", "") + tags("0 EOF"), "a.dxf"};
  writeFile(folder / "data/a.dxf", "old");
  const pid_t writer = inProcess([&] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{64, 64};
    setrlimit(RLIMIT_FSIZE, &limit);
    try {
      DxfPieces{file, {}, {circle}}.write(folder / "data/a.dxf");
    } catch (const CadFailure& failure) {
      return std::string_view{failure.what()}.find("can't be saved: File too large") != std::string_view::npos ? 0 : 1;
    }
    return 2;
  });
  EXPECT_EQ(statusOf(writer), 0);
  EXPECT_EQ(readFile(folder / "data/a.dxf"), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder / "data"), {}), 1);
}

}  // namespace
}  // namespace noldarz::test
