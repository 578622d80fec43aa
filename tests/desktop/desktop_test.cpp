// The window on the offscreen platform: every field has its widget, every widget its field, and what a user does on the
// screen is what a script does by name.

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "desktop/qt_desktop.h"
#include "support/test_study.h"

namespace noldarz::test {
namespace {

/// The program with its windows on a study of its own, started.
struct Window {
  explicit Window(const std::string& text = exampleStudy("lpg")) {
    makeStudy(folder.study(), text);
    fs::current_path(folder / "start");
    system = std::make_unique<System>(desktop, folder.folders());
    desktop.attach(system->views());
    desktop.deliver([this] { system->start(); });
    QTest::qWait(1000);  // the timers of the start-up
  }
  Field& field(const std::string& name) { return *system->mainView().view.find(name); }
  template <class Widget>
  Widget& widget(const std::string& name) {
    return *qobject_cast<Widget*>(desktop.widgetOf(field(name)));
  }
  void type(const std::string& name, const char* text) {
    auto& edit = widget<QLineEdit>(name);
    QTest::mouseClick(&edit, Qt::LeftButton);
    edit.selectAll();
    QTest::keyClicks(&edit, text);
  }
  /// Where the focus is in the main window, also while another window is active.
  QWidget* focus() const { return desktop.windowOf(system->mainView().view)->focusWidget(); }
  void tab() const { QTest::keyClick(focus(), Qt::Key_Tab); }
  void click(const std::string& name) { QTest::mouseClick(&widget<QPushButton>(name), Qt::LeftButton); }

  /// Presses OK on every box that comes, and writes its text down.
  void watchBoxes() {
    QObject::connect(&watch, &QTimer::timeout, [this] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!box) return;
      boxes.push_back(box->text().toStdString());
      box->accept();
    });
    watch.start(20);
  }

  TestFolder folder;
  QtDesktop desktop;
  std::unique_ptr<System> system;
  QTimer watch;
  Texts boxes;
};

TEST(DesktopForms, haveAWidgetForEveryFieldAndAFieldForEveryWidget) {
  Window window;
  EXPECT_EQ(window.desktop.faults().join("\n").toStdString(), "");
  for (View* view : window.system->views().all())
    EXPECT_TRUE(view->fields().empty() || window.desktop.windowOf(*view)) << view->name();
}

TEST(DesktopWindow, computesAStoredScenarioByHand) {
  Window window;
  EXPECT_TRUE(window.desktop.windowOf(window.system->mainView().view)->isVisible());
  window.click("comput");
  window.click("getconclvl");
  EXPECT_EQ(window.widget<QLineEdit>("constn(1)").text(), "21000");
  window.click("comput");
  EXPECT_EQ(window.widget<QPushButton>("comput").text(), "Concentration distances computed.");
  EXPECT_EQ(window.widget<QLineEdit>("endpt(5)").text(), "1074.51");
  EXPECT_TRUE(window.widget<QComboBox>("prntprv").isEnabled());
  EXPECT_FALSE(window.widget<QLineEdit>("htreltxt").isEnabled());
  EXPECT_FALSE(window.system->views().find("aniwait1")->loaded());
  window.click("redosimul");
  EXPECT_EQ(window.widget<QLineEdit>("endpt(5)").text(), "0");
  window.click("clsfrm1");
  EXPECT_TRUE(window.system->views().open().empty());
}

TEST(DesktopWindow, givesTheFocusBackToARefusedFieldWithOneBox) {
  Window window;
  window.watchBoxes();
  window.type("htreltxt", "high");
  window.tab();
  QTest::qWait(100);
  EXPECT_EQ(window.boxes, Texts{"Height of release should be Numeric"});
  EXPECT_EQ(window.focus(), &window.widget<QLineEdit>("htreltxt"));
  window.type("htreltxt", "2.5");
  window.tab();
  QTest::qWait(100);
  EXPECT_EQ(window.boxes.size(), 1U);
  EXPECT_NE(window.focus(), &window.widget<QLineEdit>("htreltxt"));
  EXPECT_EQ(window.field("htreltxt").text(), "2.5");
  // A refused field does not hold the program.
  window.type("hudityTxt", "wet");
  window.click("clsfrm1");
  EXPECT_TRUE(window.system->views().open().empty());
}

TEST(DesktopWindow, letsATimerWaitWhileABoxIsOpen) {
  Window window;
  bool fired = false;
  window.system->mainView().view.on(window.field("tmr_1"), Event::timer, [&] { fired = true; });
  QTimer::singleShot(400, [&] {  // longer than the timer's interval
    EXPECT_FALSE(fired);
    qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->accept();
  });
  window.desktop.deliver([&] {
    window.field("tmr_1").enable();
    window.desktop.messageBox(information("Wait"));
  });
  QTest::qWait(400);
  EXPECT_TRUE(fired);
}

TEST(DesktopWindow, showsWhatTheLogicSetsAndTellsWhatTheUserDoes) {
  Window window;
  window.field("constn(3)").setText("77");
  window.field("MaxFtlyDstOptn").setCaption("another");
  window.field("getconclvl").setToolTip("tip");
  window.field("constn(2)").setBackColour(attentionColour);
  EXPECT_EQ(window.widget<QLineEdit>("constn(3)").text(), "77");
  EXPECT_EQ(window.widget<QCheckBox>("MaxFtlyDstOptn").text(), "another");
  EXPECT_EQ(window.widget<QPushButton>("getconclvl").toolTip(), "tip");
  EXPECT_NE(window.widget<QLineEdit>("constn(2)").styleSheet(), "");
  QTest::mouseClick(&window.widget<QCheckBox>("prbtoptn"), Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
  EXPECT_EQ(window.field("prbtoptn").value(), 0);
  EXPECT_TRUE(window.widget<QLineEdit>("avalftl").isEnabled());
  EXPECT_EQ(window.widget<QListWidget>("dspScnorlst_1").count(), 1);
}

}  // namespace
}  // namespace noldarz::test

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
