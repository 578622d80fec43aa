#include "cli/at.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/test_study.h"

namespace noldarz::test {
namespace {

struct At : testing::Test {
  At() { makeStudy(folder.study(), exampleStudy("lpg")); }
  std::string tell(AtRequest request, const std::string& input = "") {
    request.target = folder / "start";
    std::istringstream in{input};
    std::ostringstream out;
    std::ostringstream errors;
    status = tellPlaces(request, in, out, errors, folder.folders());
    return out.str() + errors.str();
  }
  TestFolder folder;
  ExitStatus status = ExitStatus::done;
};

TEST_F(At, tellsWhatArrivesAtPlaces) {
  AtRequest request;
  request.places = {"100", "-60,80", "0"};
  EXPECT_EQ(tell(request),
            "       x (m)        y (m)  distance (m)    conc. (ppm)  hazard\n"
            "         100            0           100       44416.64  Fatel Hazard\n"
            "         -60           80           100       44416.64  Fatel Hazard\n"
            "           0            0             0              -  \n");
  request.format = ReportFormat::csv;
  request.file = "-";
  request.places.clear();
  EXPECT_EQ(tell(request, "# the gate\n100\r\n\n3,4\n"),
            "x,y,distance,concentration,hazard\n100,0,100,44416.64,Fatel Hazard\n3,4,5,"
            "17239646.48,Fatel Hazard\n");
  request.format = ReportFormat::json;
  EXPECT_EQ(tell(request, "0\n"),
            "{\"places\":[{\"x\":0,\"y\":0,\"distance\":0,\"concentration\":null,\"hazard\":\"\"}]}\n");
}

TEST_F(At, refusesWhatIsNoPlace) {
  const struct {
    std::vector<std::string> places;
    const char* file;
    const char* error;
  } cases[] = {{{"12;5"}, "", "\"12;5\" is no place: X or X,Y in metres\n"},
               {{}, "", "no place is given\n"},
               {{}, "/", "/: can't be read\n"},
               {{}, "/dev/null", "/dev/null: holds no place\n"},
               {{}, "/nowhere.csv", "/nowhere.csv: can't be read\n"},
               {{"1"}, "-", "-:2: \"gate\" is no place: X or X,Y in metres\n"}};
  for (const auto& c : cases) {
    AtRequest request;
    request.places = c.places;
    request.file = c.file;
    EXPECT_EQ(tell(request, "1,2\ngate\n"), c.error);
    EXPECT_EQ(status, ExitStatus::refused);
  }
}

}  // namespace
}  // namespace noldarz::test
