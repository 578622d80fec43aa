// Where the primitives of a drawing come to lie.

#include "platform/canvas/replay.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/view.h"

namespace noldarz {
namespace {

struct Told : Painter {
  void dot(Point at, Colour) override { add("dot", std::vector{at}); }
  void polyline(std::span<const Point> points, const Stroke& stroke) override {
    add("line" + std::to_string(stroke.width), points);
  }
  void circle(Point centre, double radius, const Stroke&) override {
    add("circle " + plainText(radius), std::vector{centre});
  }
  void text(Point at, std::string_view line, bool bold, bool) override {
    add(std::string{bold ? "BOLD " : ""} + std::string{line}, std::vector{at});
  }
  void add(std::string what, std::span<const Point> points) {
    for (const Point& p : points) what += " " + Format(p.x, "0.00") + "," + Format(p.y, "0.00");
    all.push_back(what);
  }
  std::vector<std::string> all;
};

struct Drawn {
  std::vector<std::string> paint(double tolerance = 0) const {
    Told told;
    Replay{tolerance}.paint(canvas.drawing(), told);
    return told.all;
  }
  Views views;
  View view{views, "v", ""};
  Canvas canvas{view.add(FieldKind::canvas, "c")};
};

using Lines = std::vector<std::string>;

TEST(Replay, followsTheCurrentPoint) {
  Drawn d;
  d.canvas.Line(0, 0, 7, 5, {});
  d.canvas.Print("end");
  d.canvas.Print("below");
  d.canvas.Circle(30, 20, 4);
  d.canvas.setFontBold(true);
  d.canvas.Print("centre\nleft");
  EXPECT_EQ(d.paint(),
            (Lines{"line1 0.00,0.00 7.00,5.00",
                   "end 7.00,5.00",
                   "below 0.00,8.39",
                   "circle 4 30.00,20.00",
                   "BOLD centre 30.00,20.00",
                   "BOLD left 0.00,23.39"}));
  EXPECT_NEAR(d.canvas.currentY(), 20 + 2 * textLine, 1e-12);
  d.canvas.Cls();  // the font stays
  d.canvas.Print("top");
  EXPECT_EQ(d.paint(), Lines{"BOLD top 0.00,0.00"});
  EXPECT_THROW(d.canvas.Circle(0, 0, -1), RuntimeFailure);
}

TEST(Replay, joinsLinesAndKeepsTheirEnds) {
  Drawn d;
  const Colour red{255, 0, 0};
  for (int i = 0; i < 10; ++i) d.canvas.Line(i * 0.01, 0, (i + 1) * 0.01, 0, red);
  d.canvas.setDrawWidth(4);
  d.canvas.Line(0.1, 0, 9, 0, red);
  d.canvas.Line(9, 0, 9, 9, {});
  EXPECT_EQ(d.paint(0.05),
            (Lines{"line1 0.00,0.00 0.05,0.00 0.10,0.00", "line4 0.10,0.00 9.00,0.00", "line4 9.00,0.00 9.00,9.00"}));
  Told told;
  Replay replay{0.05};  // goes on where it was
  replay.paint(d.canvas.drawing(), told);
  told.all.clear();
  d.canvas.Line(9, 9, 9.001, 9, {});
  replay.paint(d.canvas.drawing(), told);
  EXPECT_EQ(told.all, Lines{"line4 9.00,9.00 9.00,9.00"});
}

}  // namespace
}  // namespace noldarz
