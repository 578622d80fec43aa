// The windows of the plots, without a screen: clicks give the drawings that a script gives, and the canvas shows them.

#include <gtest/gtest.h>

#include <QAction>
#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

#include "desktop/dial_widget.h"
#include "support/mouse_user.h"

namespace noldarz::test {
namespace {

constexpr const char* toZones =
    "click comput\nclick getconclvl\nclick comput\nwait\nchoose prntprv \"Plot Hazard Zones\"\n";
// As large on every screen.
constexpr const char* toPlot = "click zardzone.DwgOnPic\nset Drwfrm.Drw1 width 9000\nset Drwfrm.Drw1 height 7000\n";

struct User : MouseUser {
  explicit User(const std::string& lines = std::string{toZones} + toPlot) {
    watchBoxes();
    follow(lines);
  }
  void follow(const std::string& lines) {
    std::istringstream stream(lines);
    for (std::string line; std::getline(stream, line);) carryOut(splitWords(line));
  }
  const Drawing& drawing() const { return field("Drwfrm.Drw1").canvas()->drawing(); }
  CanvasWidget& canvas() const { return dynamic_cast<CanvasWidget&>(widget("Drwfrm.Drw1")); }
};

int countOf(const QImage& image, QColor colour) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == colour ? 1 : 0;
  return count;
}

class PlotScript : public testing::TestWithParam<const char*> {};

TEST_P(PlotScript, givesInTheWindowTheListThatAScriptGives) {
  const std::string lines = std::string{toZones} + toPlot + GetParam();
  TestStudy scripted(exampleStudy("lpg"));
  scripted.run("start\n" + lines);
  User user(lines);
  const Field& drawn = *scripted.session->system().views().find("Drwfrm")->find("Drw1");
  const Drawing& expected = drawn.canvas()->drawing();
  EXPECT_GT(expected.primitives.size(), 500U);
  EXPECT_EQ(user.drawing().texts, expected.texts);
  ASSERT_EQ(user.drawing().primitives.size(), expected.primitives.size());
  for (std::size_t i = 0; i < expected.primitives.size(); ++i) {
    const Primitive& one = user.drawing().primitives[i];
    const Primitive& other = expected.primitives[i];
    EXPECT_TRUE(one.kind == other.kind && one.colour == other.colour) << i;
    for (const auto member : {&Primitive::x1, &Primitive::y1, &Primitive::x2, &Primitive::y2})
      ASSERT_NEAR(one.*member, other.*member, 1e-6) << i;
  }
  for (const Field& field : drawn.view().fields()) {
    if (field.kind() != FieldKind::menu) continue;
    EXPECT_EQ(user.field(field.fullName()).enabled(), field.enabled()) << field.name();
  }
  EXPECT_EQ(user.boxes, Texts{});
}

// Places on the canvas are whole pixels at 100 dots an inch, which this screen has.
INSTANTIATE_TEST_SUITE_P(Plots, PlotScript,
                         testing::Values("click Drwfrm.Ftvert\nclick Drwfrm.zoomin1\n",
                                         "click Drwfrm.no4\nclick Drwfrm.fthiznt\n", "click Drwfrm.isoelvat\n",
                                         "click Drwfrm.FtvertB\n",
                                         "click Drwfrm.usrdef\n"
                                         "mouse move Drwfrm.Drw1 25.4 25.4\n"
                                         "mouse down Drwfrm.Drw1 25.4 25.4\nmouse up Drwfrm.Drw1 25.4 25.4\n"
                                         "mouse move Drwfrm.Drw1 76.2 50.8\n"
                                         "mouse down Drwfrm.Drw1 76.2 50.8\nmouse up Drwfrm.Drw1 76.2 50.8\n"
                                         "enter Drwfrm.eqlvalu 500\nclick Drwfrm.clssetbox\n"
                                         "mouse down Drwfrm.Drw1 76.2 101.6\nmouse up Drwfrm.Drw1 76.2 101.6\n"));

TEST(PlotWindow, asksForTheScaleUntilItHasOne) {
  User user;
  user.follow("click Drwfrm.usrdef\nmouse down Drwfrm.Drw1 20 20\nmouse move Drwfrm.Drw1 60 20\n");
  const QWidget& box = user.widget("Drwfrm.scleset");
  EXPECT_TRUE(box.isVisible());
  EXPECT_TRUE(user.canvas().rect().contains(box.geometry()));
  EXPECT_FALSE(box.geometry().contains(user.canvas().pixelOf(60, 20).toPoint()));
  EXPECT_EQ(user.canvas().cursor().shape(), Qt::CrossCursor);
  EXPECT_EQ(user.canvas().childAt(box.geometry().center()), nullptr);  // in nobody's way
  user.follow("mouse down Drwfrm.Drw1 60 20\n");
  auto& units = user.widget<QLineEdit>("Drwfrm.eqlvalu");
  EXPECT_EQ(user.window("Drwfrm").focusWidget(), &units);
  EXPECT_EQ(units.selectedText(), "0");
  EXPECT_NE(user.canvas().childAt(box.geometry().center()), nullptr);
  for (const auto& [typed, told] : {std::pair{"wide", "Units Required"}, {"-3", "Units should be >0"}}) {
    user.boxes.clear();
    user.type("Drwfrm.eqlvalu", typed);
    user.point("down", "Drwfrm.Drw1", {100, 100});  // void: the field keeps the focus
    QTest::qWait(100);
    EXPECT_EQ(user.boxes, Texts{told});
    EXPECT_EQ(user.window("Drwfrm").focusWidget(), &units);
    QApplication::setActiveWindow(&user.window("Drwfrm"));
  }
  user.type("Drwfrm.eqlvalu", "400");
  QTest::keyClick(&units, Qt::Key_Return);
  EXPECT_EQ(user.window("Drwfrm").focusWidget(), &user.widget("Drwfrm.clssetbox"));
  QTest::keyClick(user.window("Drwfrm").focusWidget(), Qt::Key_Space);
  EXPECT_FALSE(box.isVisible());
  EXPECT_TRUE(user.widget("Drwfrm.mousetxt").isVisible());
  user.point("down", "Drwfrm.Drw1", {80, 100});
  EXPECT_FALSE(user.widget("Drwfrm.mousetxt").isVisible());
  EXPECT_GT(user.drawing().primitives.size(), 500U);
}

TEST(PlotWindow, laysDialAndLegendOverALargeCanvas) {
  User user;
  user.follow("click Drwfrm.Expscrn\n");
  for (const char* name : {"Drwfrm.lndFRme", "Drwfrm.North_wndDialPic"}) {
    EXPECT_EQ(user.widget(name).parentWidget(), &user.canvas()) << name;
    EXPECT_TRUE(user.widget(name).isVisible()) << name;
    EXPECT_TRUE(user.canvas().rect().contains(user.widget(name).geometry().topLeft())) << name;
  }
  EXPECT_FALSE(user.widget("Drwfrm.dt").isVisible());
  EXPECT_TRUE(user.window("Drwfrm").isMaximized());
  user.follow("click Drwfrm.Expscrn\n");
  EXPECT_NE(user.widget("Drwfrm.lndFRme").parentWidget(), &user.canvas());
  EXPECT_TRUE(user.widget("Drwfrm.dt").isVisible());
  user.follow("click Drwfrm.hideDsply\n");
  EXPECT_FALSE(user.widget("Drwfrm.lndFRme").isVisible());
}

TEST(PlotWindow, paintsWhatIsAddedAsAllAtOnce) {
  User user;
  user.follow("click Drwfrm.Ftvert\n");
  const QImage once = user.canvas().grab().toImage();
  EXPECT_GT(countOf(once, QColor(0, 128, 0)), 50);
  EXPECT_GT(countOf(once, QColor(128, 0, 0)), 10);

  Views views;
  View view(views, "view", "");
  Field& field = view.add(FieldKind::canvas, "canvas");
  field.setWidth(user.field("Drwfrm.Drw1").width());
  field.setHeight(user.field("Drwfrm.Drw1").height());
  Canvas canvas(field);
  CanvasWidget widget;
  widget.setCanvas(canvas, {});
  const Drawing& drawing = user.drawing();
  for (const Primitive& next : drawing.primitives) {
    switch (next.kind) {
      case Primitive::Kind::Cls: canvas.Cls(); break;
      case Primitive::Kind::PSet: canvas.PSet(next.x1, next.y1, next.colour); break;
      case Primitive::Kind::Line: canvas.Line(next.x1, next.y1, next.x2, next.y2, next.colour); break;
      case Primitive::Kind::Circle: canvas.Circle(next.x1, next.y1, next.x2, next.colour); break;
      case Primitive::Kind::Print: canvas.Print(drawing.textOf(next)); break;
      case Primitive::Kind::DrawWidth: canvas.setDrawWidth(static_cast<int>(next.x1)); break;
      case Primitive::Kind::FontBold: canvas.setFontBold(next.x1 != 0); break;
      case Primitive::Kind::FontTransparent: canvas.setFontTransparent(next.x1 != 0); break;
    }
    if (next.kind == Primitive::Kind::Print) widget.grab();
  }
  const QRect inside = user.canvas().rect().adjusted(1, 1, -1, -1);  // without the mark of the focus
  const QImage inSteps = widget.grab().toImage().convertToFormat(once.format());
  EXPECT_EQ(inSteps.copy(inside), once.copy(inside));

  QPalette dark;
  dark.setColor(QPalette::Base, Qt::black);
  dark.setColor(QPalette::Window, Qt::black);
  for (const auto role : {QPalette::Text, QPalette::WindowText}) dark.setColor(role, Qt::white);
  widget.setPalette(dark);
  const QImage night = widget.grab().toImage();
  EXPECT_GT(countOf(once, QColor(224, 224, 224)), 1000);  // the grid
  EXPECT_LT(countOf(night, QColor(224, 224, 224)), 100);
  EXPECT_GT(countOf(night, Qt::black), night.width() * night.height() / 2);
  EXPECT_GT(countOf(night, QColor(0, 128, 0)), 50);

  CanvasWidget small;
  small.setProperty("fits", true);
  small.resize(120, 400);
  small.setCanvas(canvas, {});
  const QImage whole = small.grab().toImage();
  EXPECT_GT(countOf(whole.copy(0, 150, 120, 100), Qt::white), 3000);
  EXPECT_EQ(countOf(whole.copy(0, 0, 120, 140), Qt::white), 0);  // keeps its proportions
}

TEST(ZoneWindow, turnsTheDialsByMouseKeysAndSliders) {
  User user(toZones);
  const Field& wind = user.field("zardzone.wndsld1");
  const Field& north = user.field("zardzone.NorthSld");
  QWidget& dial = user.widget("zardzone.zardzone");
  const QPoint centre = dial.rect().center();
  const int reach = dial.width() / 4;
  QTest::mousePress(&dial, Qt::LeftButton, Qt::NoModifier, centre + QPoint(reach, reach));
  for (const auto& [to, degrees] :
       {std::pair{QPoint(reach, 0), 90}, {QPoint(0, reach), 180}, {QPoint(-reach, 0), 270}}) {
    QTest::mouseMove(&dial, centre + to);
    EXPECT_NEAR(wind.value(), degrees, 3);
  }
  QTest::mouseRelease(&dial, Qt::LeftButton, Qt::NoModifier, centre);
  QTest::mouseMove(&dial, centre + QPoint(reach, 0));
  EXPECT_NEAR(wind.value(), 270, 3);

  const int before = wind.value();
  dial.setFocus(Qt::TabFocusReason);
  const struct {
    Qt::Key key;
    Qt::KeyboardModifiers held;
    int wind;
    int north;
  } keys[]{{Qt::Key_Right, {}, 1, 0},
           {Qt::Key_PageUp, {}, 11, 0},
           {Qt::Key_Left, {}, 10, 0},
           {Qt::Key_PageUp, Qt::ShiftModifier, 10, 10},
           {Qt::Key_Down, Qt::ShiftModifier, 10, 9}};
  for (const auto& [key, held, windTurned, northTurned] : keys) {
    QTest::keyClick(&dial, key, held);
    EXPECT_EQ(wind.value(), before + windTurned) << key;
    EXPECT_EQ(north.value(), northTurned) << key;
  }
  EXPECT_EQ(user.window("zardzone").focusWidget(), &dial);
  EXPECT_EQ(dial.accessibleDescription(), QString("Wind %1°, north 9°").arg(wind.value()));
  auto& slider = user.widget<QSlider>("zardzone.wndsld1");
  EXPECT_EQ(slider.value(), wind.value());
  QTest::keyClick(&slider, Qt::Key_Home);
  EXPECT_EQ(user.widget<QLabel>("zardzone.wnddeg").text(), "0");
  EXPECT_GT(countOf(dial.grab().toImage(), QColor(0, 192, 0)), 50);
}

TEST(ZoneWindow, goesThroughItsFieldsInTheOrderOfTheWork) {
  User user(toZones);
  auto& window = user.window("zardzone");
  Texts road;
  user.widget("zardzone.zonsplot(0)").setFocus();
  do {
    road.push_back(window.focusWidget()->objectName().toStdString());
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
  } while (road.size() < 20 && road.front() != window.focusWidget()->objectName().toStdString());
  EXPECT_EQ(road,
            (Texts{"zonsplot_0",
                   "zonsplot_1",
                   "zonsplot_2",
                   "zonsplot_3",
                   "zonsplot_4",
                   "zonsplot_5",
                   "PlotFtlyInjryLmt",
                   "zardzone",
                   "wndsld1",
                   "NorthSld",
                   "sclenotxt",
                   "opndwg2",
                   "nwdrg",
                   "Drw1",
                   "DwgOnPic",
                   "clsfrm1"}));
  EXPECT_FALSE(user.widget("zardzone.getcoords").isEnabled());
}

TEST(ZoneWindow, leadsToThePlotAndBackToTheMainWindow) {
  User user(toZones);
  const auto seen = [&] {
    Texts names;
    for (const char* name : {"dspmnfrm", "zardzone", "Drwfrm"})
      if (const ViewWindow* window = user.desktop.windowOf(*user.system->views().find(name));
          window && window->isVisible())
        names.emplace_back(name);
    return names;
  };
  EXPECT_EQ(seen(), Texts{"zardzone"});
  QTest::mouseDClick(&user.widget("zardzone.Image1"), Qt::LeftButton);
  EXPECT_EQ(seen(), Texts{"Drwfrm"});
  auto& dial = user.widget("Drwfrm.North_wndDialPic");
  for (const bool byKey : {false, true}) {  // both ways to the dials, which lie over the plot then
    if (byKey) dial.setFocus(Qt::TabFocusReason);
    byKey ? QTest::keyClick(&dial, Qt::Key_Return) : QTest::mouseDClick(&dial, Qt::LeftButton);
    EXPECT_EQ(seen(), (Texts{"zardzone", "Drwfrm"})) << byKey;
    EXPECT_TRUE(QTest::qWaitForWindowActive(&user.window("zardzone")));
    user.click("zardzone.clsfrm1");
    EXPECT_EQ(seen(), Texts{"Drwfrm"}) << byKey;
  }
  user.window("Drwfrm").close();
  EXPECT_EQ(seen(), Texts{"zardzone"});
  user.window("zardzone").close();
  EXPECT_EQ(seen(), Texts{"dspmnfrm"});
  EXPECT_TRUE(QTest::qWaitForWindowActive(&user.main()));
  user.click("clsfrm1");
  EXPECT_TRUE(user.ended());
}

}  // namespace
}  // namespace noldarz::test
