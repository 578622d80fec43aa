// What the converter of the user is called with, and what is said of one that fails.

#include "platform/cad/dwg.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/cad/drawing.h"
#include "support/test_folder.h"

namespace noldarz::test {
namespace {

std::string failureOf(const DwgConverter& converter, const fs::path& from, const fs::path& to) {
  try {
    converter.convert(from, to);
    return {};
  } catch (const CadFailure& failure) {
    return failure.what();
  }
}

TEST(Dwg, isToldByContentAndByName) {
  const TestFolder folder;
  for (const auto& [bytes, is] :
       {std::pair{"AC1032\0\0", true}, {"AC10", false}, {"ACAD15 ", false}, {"0\nSECTION", false}}) {
    writeFile(folder / "a", bytes);
    EXPECT_EQ(isDwg(folder / "a"), is) << bytes;
  }
  EXPECT_FALSE(isDwg(folder / "none"));
  EXPECT_TRUE(isDwgName("b/A.DwG") && !isDwgName("a.dwg.dxf"));
}

TEST(Dwg, isConvertedByTheProgramOfTheUser) {
  const TestFolder folder;
  const fs::path program = folder / "my converter";
  const fs::path in = folder / "in.dxf", out = folder / "out.dxf";  // its name belies it
  writeFile(in, "AC1015 bytes");
  const struct {
    const char* script;
    const char* fault;
    int patience = 60;  // s
  } cases[] = {
      {"cat \"$1\" - >\"$2\"; echo lost; echo told >&2", ""},
      {"echo half >\"$2\"; printf 'first\\n%0300d\\n\\n' 7 >&2; exit 3", "failed with exit code 3: "},
      {"case $1 in *.dwg) ;; *) exit 9 ;; esac", "left no file"},
      {"kill -9 $$", "failed with exit code 137"},
      {"echo waiting >&2; sleep 600 & wait", "took too long and was ended: waiting", 1},
  };
  for (const auto& known : cases) {
    SCOPED_TRACE(known.script);
    writeFile(program, std::string{"#!/bin/sh\n"} + known.script + "\n");
    fs::permissions(program, fs::perms{0700});
    fs::remove(out);
    std::string fault = known.fault;
    if (fault.ends_with(": ")) fault += std::string(200, '0');
    const std::string begin = in.string() + " can't be converted. The converter " + program.string() + " ";
    EXPECT_EQ(failureOf(DwgConverter{program.string(), std::chrono::seconds{known.patience}}, in, out),
              fault.empty() ? "" : begin + fault + ".");
    EXPECT_EQ(readFile(out), fault.empty() ? "AC1015 bytes" : "");
  }
  writeFile(program, "no program");
  EXPECT_NE(failureOf(DwgConverter{program.string()}, in, out).find("can't be started: Exec format error"),
            std::string::npos);
}

TEST(Dwg, asksForAConverterWhenNoneIsInstalled) {
  const TestFolder folder;
  writeFile(folder / "in.dwg", "AC1015 bytes");
  const std::string path = getenv("PATH");
  setenv("PATH", (folder / "start").c_str(), 1);
  EXPECT_EQ(failureOf(DwgConverter{}, folder / "in.dwg", folder / "out.dxf"),
            (folder / "in.dwg").string() +
                " is a DWG, and no converter is installed. Save it as a DXF (ASCII) in your CAD, install dwg2dxf and "
                "dxf2dwg, or name a converter in the setting noldarz / drawing / dwgConverter.");
  writeFile(folder / "start/dxf2dwg", "#!/bin/sh\necho \"$@\" >\"$3\"\n");
  fs::permissions(folder / "start/dxf2dwg", fs::perms{0700});
  writeFile(folder / "in.dxf", "0\nEOF\n");
  EXPECT_EQ(failureOf(DwgConverter{}, folder / "in.dxf", folder / "out.dwg"), "");
  EXPECT_EQ(readFile(folder / "out.dwg"),
            "-y -o " + (folder / "out.dwg").string() + " " + (folder / "in.dxf").string() + "\n");
  setenv("PATH", path.c_str(), 1);
}

}  // namespace
}  // namespace noldarz::test
