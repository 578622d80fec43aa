// The window on a real X11 screen under a window manager, worked with real keys and mouse clicks.
// tests/desktop/on_screen makes the screen.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QProcess>

#include "support/window.h"

namespace noldarz::test {
namespace {

const QString otherWindow = "--other-window";

void xdotool(const QStringList& words) {
  if (QProcess::execute("xdotool", words) != 0) throw std::runtime_error("xdotool failed");
}

QString activeTitle() {
  QProcess process;
  process.start("xdotool", {"getactivewindow", "getwindowname"});
  process.waitForFinished();
  return process.readAllStandardOutput().trimmed();
}

/// Types the text and Return into what comes up next.
void typeLater(const std::string& text) {
  QTimer::singleShot(800, [text] {
    xdotool({"type", "--delay", "10", "--", QString::fromStdString(text)});
    xdotool({"key", "Return"});
  });
}

/// A user whose keys and clicks go through the screen.
struct User : Window {
  explicit User(const std::string& study = exampleStudy("lpg")) : Window(study) {
    start();
    watchBoxes([](QMessageBox&) { xdotool({"key", "Return"}); });
    EXPECT_TRUE(QTest::qWaitForWindowActive(&main()));
  }
  void press(const QStringList& keys) const {
    xdotool(QStringList{"key", "--delay", "20"} + keys);
    settle();
  }
  void settle() const { QTest::qWait(120); }
  void clickOn(QWidget& target, QPoint place, int times = 1) const {
    const QPoint at = target.mapToGlobal(place);
    xdotool({"mousemove",
             QString::number(at.x()),
             QString::number(at.y()),
             "click",
             "--repeat",
             QString::number(times),
             "--delay",
             "60",
             "1"});
    settle();
  }
  void clickOn(const std::string& name) const {
    QWidget& target = widget(name);
    const bool check = field(name).kind() == FieldKind::check;
    clickOn(target, check ? QPoint(9, target.height() / 2) : QPoint(target.width() / 3, target.height() / 2));
  }
  /// Clicks into the field, puts the text in place of what it holds, and goes on with the Tab key.
  void enter(const std::string& name, const std::string& text) const {
    clickOn(name);
    press({"ctrl+a", "Delete"});
    if (!text.empty()) xdotool({"type", "--delay", "10", "--", QString::fromStdString(text)});
    press({"Tab"});
  }
  /// Both presses of Compute, by key, until the program opens the list of outputs.
  void compute() const {
    const auto shows = [&](const char* caption) { return waitFor([&] { return text("comput") == caption; }); };
    press({"alt+c"});
    EXPECT_TRUE(shows("&Compute at given concentration"));
    press({"alt+g", "alt+c"});
    EXPECT_TRUE(shows("Concentration distances computed."));
    EXPECT_TRUE(waitFor([&] { return widget<QComboBox>("prntprv").view()->isVisible(); }));
  }
  bool isFront(const char* name) const {
    return waitFor([&] {
      const ViewWindow* shown = desktop.windowOf(*system->views().find(name));
      return shown && shown->isActiveWindow();
    });
  }
  bool waitFor(const std::function<bool()>& condition) const { return QTest::qWaitFor(condition, 5000); }
};

TEST(Screen, computesByKeyboardAloneAndCloses) {
  const User user;
  user.compute();
  EXPECT_EQ(user.text("endpt(5)"), "1074.51");
  user.press({"Down", "Return"});
  EXPECT_NE(user.text("statuslbl").find("is not part of this version."), std::string::npos);
  user.press({"alt+e"});
  EXPECT_TRUE(user.waitFor([&] { return user.ended(); }));
  EXPECT_EQ(user.boxes, Texts{});
}

TEST(Screen, drawsAndSavesAPlotByKeysAndClicks) {
  const User user;
  const auto isFront = [&](const char* name) { return user.isFront(name); };
  user.compute();
  user.press({"Down", "Down", "Down", "Down", "Return"});
  ASSERT_TRUE(isFront("zardzone"));
  EXPECT_FALSE(user.main().isVisible());
  user.press({"alt+p"});
  ASSERT_TRUE(isFront("Drwfrm"));

  const auto& drawing = user.field("Drwfrm.Drw1").canvas()->drawing();
  QWidget& canvas = user.widget("Drwfrm.Drw1");
  user.press({"F10", "Right", "Up", "Up", "Right", "Return"});  // a scale of the user's
  user.clickOn(canvas, {200, 200});
  user.clickOn(canvas, {400, 300});
  xdotool({"type", "--delay", "10", "500"});
  user.press({"Return", "space"});
  EXPECT_EQ(user.text("Drwfrm.mousetxt"), " Select Source point");
  user.clickOn(canvas, {350, 250});
  EXPECT_GT(drawing.primitives.size(), 500U);
  EXPECT_FALSE(drawing.texts.empty());

  const fs::path file = user.folder / "plot.bmp";
  typeLater(file.string());
  user.press({"F10", "Down", "Return"});
  EXPECT_TRUE(user.waitFor([&] { return fs::exists(file); }));
  EXPECT_TRUE(user.waitFor([&] { return user.text("Drwfrm.statuslbl") == "Saved: " + file.string(); }));
  user.press({"alt+F4"});
  ASSERT_TRUE(isFront("zardzone"));
  user.press({"alt+F4"});
  EXPECT_TRUE(isFront("dspmnfrm"));
  EXPECT_EQ(user.boxes, Texts{});
}

TEST(Screen, mapsIntoADrawingByKeys) {
  const User user;
  user.folder.provideTemplate();
  user.compute();
  user.press({"Down", "Down", "Down", "Down", "Return"});
  ASSERT_TRUE(user.isFront("zardzone"));
  const fs::path file = user.folder / "plan.dxf";
  typeLater(file.string());
  user.press({"alt+b"});
  ASSERT_TRUE(user.waitFor([&] { return user.text("zardzone.actdoctxt") == "plan.dxf"; }));
  ASSERT_TRUE(user.isFront("zardzone"));  // and not the drawing, which has come up meanwhile
  QTest::qWait(300);
  ASSERT_TRUE(user.isFront("zardzone"));
  const auto blank = fs::file_size(file);

  typeLater("100,50");
  user.press({"alt+s", "space"});
  EXPECT_TRUE(user.waitFor([&] { return user.text("zardzone.sveflnote").starts_with("Mapping completed"); }));
  EXPECT_EQ(user.text("zardzone.coordx"), "100");
  EXPECT_GT(user.system->state().splinePts[0], 100);
  ASSERT_TRUE(user.isFront("zardzone"));
  user.press({"alt+F4"});
  EXPECT_TRUE(user.isFront("dspmnfrm"));
  EXPECT_EQ(user.boxes, Texts{"Save the changes to \"plan.dxf\"?"});
  EXPECT_GT(fs::file_size(file), blank);
}

TEST(Screen, fillsAPopulationGridByKeys) {
  const User user{exampleStudy("chlorine")};
  const auto bands = [&] {
    const Recordset row{std::make_shared<Database>(user.folder.study(), studyLayout()),
                        "SELECT populatndnsty_3_0, populatndnsty_3_1 FROM poplatndnstytbl"};
    return textOf(row.value(0)) + "|" + textOf(row.value(1));
  };
  user.press({"F10", "Down", "p"});
  ASSERT_TRUE(user.waitFor([&] { return user.isFront("absltftlyfrm"); }));
  user.press({"Right", "Down", "Tab", "8", "Tab", "x", "Tab"});
  EXPECT_TRUE(user.waitFor([&] { return user.boxes == Texts{"Enter the value in numeric"}; }));
  QTest::qWait(300);
  user.press({"ctrl+a", "4", "alt+a", "Down"});
  ASSERT_TRUE(user.waitFor([&] { return user.widget<QComboBox>("absltftlyfrm.popdnstycbo").view()->isVisible(); }));
  QTest::qWait(300);
  user.press({"Down", "Return"});
  EXPECT_TRUE(user.waitFor([&] { return user.text("absltftlyfrm.popdnstycbo") == "Urban"; }));
  EXPECT_EQ(user.text("absltftlyfrm.zonenumlbl"), "Population density/Ha. for sector 3");
  EXPECT_EQ(bands(), "8|50");  // the class went to the band left last
  user.press({"alt+v"});
  EXPECT_TRUE(user.waitFor([&] { return user.field("absltftlyfrm.denUnitListCbo").enabled(); }));
  user.press({"alt+d", "9", "0", "0", "Tab", "alt+v"});
  EXPECT_TRUE(user.waitFor([&] { return user.boxes.back() == "Wish to convert values?"; }));
  EXPECT_EQ(bands(), "900|50");  // No is its default
  user.press({"alt+l"});
  EXPECT_TRUE(user.isFront("dspmnfrm"));
  user.press({"F10", "Down", "p"});
  ASSERT_TRUE(user.waitFor([&] { return user.isFront("absltftlyfrm"); }));
  // The user begins at the sector that is shown.
  EXPECT_TRUE(
      user.waitFor([&] { return user.text("absltftlyfrm.zonenumlbl") == "Population density/Ha for sector 3"; }));
  user.press({"alt+F4"});
  EXPECT_TRUE(user.isFront("dspmnfrm"));
}

TEST(Screen, refusesAWrongTextInEveryInput) {
  struct Case {
    std::string field;
    std::string wrong;
    Texts boxes;
    std::string right;
  };
  std::vector<Case> cases{{"htreltxt", "high", {"Height of release should be Numeric"}, "2"},
                          {"htreltxt", "0.05", {"Height of release should be > or = 0.1 m"}, "2"},
                          {"enddisttxt", "1;5", {"Variable should be Numeric"}, "10000"},
                          {"enddisttxt", "50001", {"Max. Distance for simulation (m) should be < 50000 m"}, "10000"},
                          {"roghwndoptcbo", "Sea", {"Please select from List"}, "Rural"},
                          {"hudityTxt", "wet", {"Percent humidity should be Numeric"}, "20"}};
  cases.push_back({"avalftl", "x", {"Should be Numeric"}, "2"});
  cases.push_back({"constn(5)", "-1", {"ppm should be > 0"}, "7"});
  cases.push_back({"Givnwnd(7)", "N", {"Variable error.", "Variable required."}, "12.5"});
  cases.push_back({"scnrotxtlbl", "", {"Please enter scenario text"}, "Night shift"});
  cases.push_back({"stblclscbo", "G", {"Please select from List"}, "D"});  // another run, which closes the constants
  cases.push_back({"wndveltxt", "", {"Input Variable error"}, "4"});

  User user;
  user.clickOn("prbtoptn");
  for (const auto& [field, wrong, boxes, right] : cases) {
    user.boxes.clear();
    user.enter(field, wrong);
    user.waitFor(
        [&, count = boxes.size()] { return user.boxes.size() == count && !QApplication::activeModalWidget(); });
    EXPECT_EQ(user.boxes, boxes) << field;
    user.settle();
    if (QApplication::activePopupWidget()) user.press({"Escape"});  // the list of a combo field
    EXPECT_TRUE(user.widget(field).hasFocus())
        << field << " is left for " << (user.focus() ? user.focus()->objectName().toStdString() : "nothing");
    // A text that the rule has replaced by a legal one has no fault.
    const bool told = user.widget(field).toolTip().startsWith(QString::fromStdString(boxes.front()));
    EXPECT_EQ(told, user.text(field) == wrong) << field;
    user.enter(field, right);
    EXPECT_EQ(user.text(field), right);
    EXPECT_EQ(user.boxes, boxes) << field;
    EXPECT_FALSE(user.widget(field).hasFocus()) << field;
    EXPECT_FALSE(user.widget(field).toolTip().startsWith(QString::fromStdString(boxes.front()))) << field;
  }
  // A height that is no number is not stored; the field shows what is.
  user.enter("htsmul", "high");
  EXPECT_EQ(user.text("htsmul"), "1");
  user.boxes.clear();
  user.clickOn("conclbl(3)");
  user.enter("conctxt1", "");
  EXPECT_EQ(user.boxes, Texts{"Variable required"});
}

TEST(Screen, keepsARefusedFieldWhicheverWayItIsLeft) {
  User user;
  const std::vector<std::pair<std::string, std::function<void()>>> ways{
      {"click into another input", [&] { user.clickOn("enddisttxt"); }},
      {"click into the run list",
       [&] {
         user.clickOn(*user.widget<QListWidget>("dspScnorlst_1").viewport(), {20, 8});
       }},
      {"click on a check field", [&] { user.clickOn("prbtoptn"); }},
      {"click on Compute", [&] { user.clickOn("comput"); }},
      {"key of Compute", [&] { user.press({"alt+c"}); }},
      {"key of Get Concentration", [&] { user.press({"alt+g"}); }},
      {"key of another input", [&] { user.press({"alt+d"}); }}};
  user.clickOn("htreltxt");
  for (const auto& [name, leave] : ways) {
    user.boxes.clear();
    user.press({"ctrl+a", "x"});
    leave();
    EXPECT_TRUE(user.waitFor([&] { return !user.boxes.empty() && !QApplication::activeModalWidget(); })) << name;
    user.settle();
    EXPECT_EQ(user.boxes, Texts{"Height of release should be Numeric"}) << name;
    EXPECT_TRUE(user.widget("htreltxt").hasFocus()) << name;
    EXPECT_EQ(user.text("comput"), "&Compute maximum concentration") << name;
    EXPECT_EQ(user.text("constn(1)"), "5") << name;
    EXPECT_EQ(user.widget<QCheckBox>("prbtoptn").checkState(), Qt::Checked) << name;
  }
}

TEST(Screen, picksAClassByKeysAndLeavesItAtOnce) {
  User user;
  user.clickOn("wndveltxt");
  const QPoint middle = user.widget("stblclscbo").rect().center();
  const QPoint at = user.widget("stblclscbo").mapToGlobal(middle);
  xdotool({"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "5"});  // the wheel
  user.settle();
  EXPECT_EQ(user.text("stblclscbo"), "F");
  user.press({"alt+s", "Up"});
  user.press({"Up", "Return"});
  user.press({"Tab"});
  EXPECT_TRUE(user.waitFor([&] { return user.text("stblclscbo") == "EF"; }));
  EXPECT_TRUE(user.waitFor([&] { return user.text("wndveltxt") == "5"; })) << user.text("wndveltxt");
  EXPECT_TRUE(user.widget("wndveltxt").hasFocus()) << QApplication::focusWidget()->objectName().toStdString();
  EXPECT_EQ(user.boxes, Texts{});
}

TEST(Screen, opensTheMenusByKey) {
  const User user;
  EXPECT_EQ(user.field("no2").value(), 1);
  user.press({"F10", "Down", "Right", "Down", "Return"});
  EXPECT_TRUE(user.waitFor([&] { return user.system->state().lineWidth == 4; }));
  EXPECT_EQ(user.field("no2").value(), 0);
}

TEST(Screen, closesUnderARefusedFieldAndGoesBackToTheMainModule) {
  User user;
  QProcess module;
  module.start(QApplication::applicationFilePath(), {otherWindow, "VELKORDA"});
  ASSERT_TRUE(user.waitFor([] { return activeTitle() == "VELKORDA"; }));
  user.clickOn("htreltxt");
  user.press({"ctrl+a", "x"});
  user.press({"alt+F4"});
  EXPECT_TRUE(user.waitFor([&] { return user.ended(); }));
  EXPECT_TRUE(user.waitFor([] { return activeTitle() == "VELKORDA"; })) << activeTitle().toStdString();
  module.kill();
  module.waitForFinished();
}

TEST(Screen, restoresAStoredRunByADoubleClick) {
  User user;
  Texts events;
  user.view().on(user.field("dspScnorlst_1"), Event::click, [&] { events.emplace_back("click"); });
  user.view().on(user.field("dspScnorlst_1"), Event::dblClick, [&] { events.emplace_back("double click"); });
  auto& list = user.widget<QListWidget>("dspScnorlst_1");
  user.field("stblclscbo").setText("A");
  user.clickOn(*list.viewport(), list.visualItemRect(list.item(0)).center(), 2);
  EXPECT_EQ(events, (Texts{"click", "double click"}));
  EXPECT_EQ(user.text("stblclscbo"), "F");
}

}  // namespace
}  // namespace noldarz::test

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (QApplication::arguments().value(1) == noldarz::test::otherWindow) {
    QWidget window;
    window.setWindowTitle(QApplication::arguments().value(2));
    window.resize(200, 100);
    window.show();
    return QApplication::exec();
  }
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
