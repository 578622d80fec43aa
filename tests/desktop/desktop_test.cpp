// The window without a screen: every field has its widget, every widget its field, and what a user does on the
// screen is what a script does by name. All of it in a locale with a decimal comma.

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QListWidget>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <clocale>
#include <cstdlib>

#include "platform/failure.h"
#include "support/mouse_user.h"

namespace noldarz::test {
namespace {

using User = MouseUser;

/// Whether the view only carries texts.
bool isNeverSeen(View& view) {
  return std::all_of(view.fields().begin(), view.fields().end(), [](const Field& field) { return !field.visible(); });
}

TEST(DesktopForms, haveAWidgetForEveryFieldAndAFieldForEveryWidget) {
  User user;
  EXPECT_EQ(user.desktop.faults().join("\n").toStdString(), "");
  for (View* view : user.system->views().all())
    EXPECT_TRUE(user.desktop.windowOf(*view) || isNeverSeen(*view)) << view->name();
}

TEST(DesktopWindow, computesAStoredScenarioByHand) {
  const User user;
  EXPECT_TRUE(user.main().isVisible());
  user.click("comput");
  user.click("getconclvl");
  EXPECT_EQ(user.widget<QLineEdit>("constn(1)").text(), "21000");
  user.click("comput");
  EXPECT_EQ(user.widget<QPushButton>("comput").text(), "Concentration distances computed.");
  EXPECT_EQ(user.widget<QLineEdit>("endpt(5)").text(), "1074.51");
  EXPECT_TRUE(user.widget("prntprv").isEnabled());
  EXPECT_FALSE(user.widget("htreltxt").isEnabled());
  EXPECT_FALSE(user.system->views().find("aniwait1")->loaded());
  user.click("redosimul");
  EXPECT_EQ(user.widget<QLineEdit>("endpt(5)").text(), "0");
  user.click("clsfrm1");
  EXPECT_TRUE(user.ended());
}

class DesktopScript : public testing::TestWithParam<const char*> {};

TEST_P(DesktopScript, givesTheTextsThatItGivesWithoutAScreen) {
  std::istringstream lines(readFile(std::string{NOLDARZ_SOURCE_DIR "/examples/"} + GetParam()));
  TestStudy scripted;
  User user{exampleStudy("chlorine"), nullptr, false};
  user.watchBoxes();
  user.desktop.deliver([&] { user.view().show(); });
  for (std::string line; std::getline(lines, line);) {
    const auto words = splitWords(line);
    if (words == Texts{"close"}) continue;
    scripted.run(line);
    user.carryOut(words);
  }
  int numbers = 0;
  for (const Field& field : scripted.session->system().mainView().view.fields()) {
    if (field.name() == "conctxt1") continue;  // the Tab key goes through the captions, which each take the editor
    EXPECT_EQ(user.text(field.name()), field.text()) << field.name();
    EXPECT_EQ(user.field(field.name()).enabled(), field.enabled()) << field.name();
    if (field.locked() && field.isNumeric() && field.number() > 0) ++numbers;
  }
  EXPECT_GT(numbers, 20);
  EXPECT_EQ(user.boxes, scripted.record.boxes());
}

INSTANTIATE_TEST_SUITE_P(Examples, DesktopScript,
                         testing::Values("study.script", "lpg-pool.script", "ammonia-puff.script"));

TEST(DesktopWindow, givesTheFocusBackToARefusedFieldWithOneBox) {
  User user;
  user.watchBoxes();
  user.type("htreltxt", "high");
  user.tab();
  QTest::qWait(100);
  EXPECT_EQ(user.boxes, Texts{"Height of release should be Numeric"});
  EXPECT_EQ(user.focus(), &user.widget("htreltxt"));
  EXPECT_TRUE(user.widget("htreltxt").toolTip().startsWith("Height of release should be Numeric"));
  user.type("htreltxt", "2.5");
  EXPECT_FALSE(user.widget("htreltxt").toolTip().contains("Numeric"));
  user.tab();
  QTest::qWait(100);
  EXPECT_EQ(user.boxes.size(), 1U);
  EXPECT_NE(user.focus(), &user.widget("htreltxt"));
  EXPECT_EQ(user.text("htreltxt"), "2.5");
  // A refused field does not hold the program.
  user.type("hudityTxt", "wet");
  user.click("clsfrm1");
  EXPECT_TRUE(user.ended());
}

TEST(DesktopWindow, letsATimerWaitWhileABoxIsOpen) {
  User user;
  bool fired = false;
  user.view().on(user.field("tmr_1"), Event::timer, [&] { fired = true; });
  QTimer::singleShot(400, [&] {  // longer than the timer's interval
    EXPECT_FALSE(fired);
    qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->accept();
  });
  user.desktop.deliver([&] {
    user.field("tmr_1").enable();
    user.desktop.messageBox(information("Wait"));
  });
  QTest::qWait(400);
  EXPECT_TRUE(fired);
}

TEST(DesktopWindow, showsWhatTheLogicSetsAndTellsWhatTheUserDoes) {
  const User user;
  user.field("constn(3)").setText("77");
  user.field("MaxFtlyDstOptn").setCaption("another");
  user.field("getconclvl").setToolTip("tip");
  user.field("constn(2)").setBackColour(attentionColour);
  EXPECT_EQ(user.widget<QLineEdit>("constn(3)").text(), "77");
  EXPECT_EQ(user.widget<QCheckBox>("MaxFtlyDstOptn").text(), "another");
  EXPECT_EQ(user.widget("getconclvl").toolTip(), "tip");
  EXPECT_EQ(user.widget<QPushButton>("getconclvl").shortcut(), QKeySequence("Alt+G"));
  EXPECT_NE(user.widget("constn(2)").styleSheet(), "");
  user.type("mgctxt", "7");
  EXPECT_EQ(user.text("mgctxt"), "0");
  user.click("prbtoptn");
  EXPECT_EQ(user.field("prbtoptn").value(), 0);
  EXPECT_TRUE(user.widget("avalftl").isEnabled());
}

TEST(DesktopWindow, laysTheEditorOfACaptionOverIt) {
  const User user;
  user.click("conclbl(2)");
  const auto& editor = user.widget<QLineEdit>("conctxt1");
  EXPECT_TRUE(editor.isVisible());
  EXPECT_TRUE(editor.geometry().contains(user.widget("conclbl(2)").geometry().center()));
  EXPECT_EQ(user.focus(), &editor);
  user.main().resize(1300, 760);
  QTest::qWait(50);
  EXPECT_TRUE(editor.geometry().contains(user.widget("conclbl(2)").geometry().center()));
  user.type("conctxt1", "R&D:");
  user.tab();
  EXPECT_FALSE(editor.isVisible());
  EXPECT_EQ(user.text("conclbl(2)"), "R&D:");
  EXPECT_EQ(user.widget<QCheckBox>("conclbl(2)").text(), "R&&D:");  // no key
  EXPECT_EQ(user.focus(), &user.widget("constn(2)"));
}

TEST(DesktopWindow, restoresAStoredRunByMouseAndByKeyboard) {
  const User user;
  int clicks = 0;
  int doubleClicks = 0;
  user.view().on(user.field("dspScnorlst_1"), Event::click, [&] { ++clicks; });
  user.view().on(user.field("dspScnorlst_1"), Event::dblClick, [&] { ++doubleClicks; });
  auto& list = user.widget<QListWidget>("dspScnorlst_1");
  const QPoint entry = list.visualItemRect(list.item(0)).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, entry);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, entry);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(doubleClicks, 1);
  user.field("stblclscbo").setText("A");
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(doubleClicks, 2);
  EXPECT_EQ(user.text("stblclscbo"), "F");
}

TEST(DesktopWindow, showsTheWaitViewWhileAPressTakesLong) {
  /// Takes its time in the limit search, as a slow machine would, and looks at the screen.
  struct Slow : ToxicEffects, RunStore {
    void takeProbitConstants(const Trap&) override {}
    void prepareSearch(const Trap&) override {}
    void searchLimits(const Trap&) override {
      QTest::qSleep(100);
      Field& line = *user->system->views().find("aniwait1")->find("waitlbl1");
      user->desktop.refresh(line);
      const QWidget& label = *user->desktop.widgetOf(line);
      seen = label.isVisible() && user->main().isVisible() && !user->main().grab().isNull();
      shape = qobject_cast<QProgressBar*>(user->desktop.widgetOf(*line.view().find("plumepic1")))->value();
      pointer = QApplication::overrideCursor() ? QApplication::overrideCursor()->shape() : Qt::ArrowCursor;
    }
    void storeFlammableMass(double) override {}
    void storeRun() override {}
    User* user = nullptr;
    bool seen = false;
    int shape = 0;
    Qt::CursorShape pointer = Qt::ArrowCursor;
  } slow;
  const PressPorts effects{&slow, &slow};
  User user{exampleStudy("lpg"), &effects};
  slow.user = &user;
  user.click("comput");
  EXPECT_TRUE(slow.seen);
  EXPECT_GT(slow.shape, 210);
  EXPECT_EQ(slow.pointer, Qt::WaitCursor);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_FALSE(user.desktop.windowOf(*user.system->views().find("aniwait1"))->isVisible());
}

TEST(DesktopDialogs, letTheUserOutOfABoxThatComesAgainAndAgain) {
  User user;
  user.watchBoxes([](QMessageBox& box) {
    if (box.checkBox()) box.checkBox()->setChecked(true);
    box.accept();
  });
  user.desktop.deliver([&] {
    for (int i = 0; i < 20; ++i) user.desktop.messageBox(information("Again"));
    user.desktop.messageBox(information("Another"));
  });
  user.desktop.deliver([&] { user.desktop.messageBox(information("Again")); });
  EXPECT_EQ(user.boxes, (Texts{"Again", "Again", "Another", "Again"}));
}

TEST(DesktopDialogs, answerAsTheUserDoes) {
  User user;
  user.watchBoxes([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  MessageBox question = critical("Sure?");
  question.buttons = Buttons::yesNo;
  question.defaultReply = Reply::no;
  EXPECT_EQ(user.desktop.messageBox(question), Reply::no);
  const FileDialog dialog{FileDialog::Kind::save, "Save As", "Pictures (*.bmp)|*.bmp", "Picture", "bmp"};
  const auto close = [](int result) {
    QTimer::singleShot(200, [result] { qobject_cast<QDialog*>(QApplication::activeModalWidget())->done(result); });
  };
  close(QDialog::Accepted);
  EXPECT_EQ(user.desktop.fileDialog(dialog).filename(), "Picture.bmp");
  close(QDialog::Rejected);
  EXPECT_THROW(user.desktop.fileDialog(dialog), RuntimeFailure);
}

TEST(DesktopHelp, tellsVersionAndModelRevision) {
  User user;
  user.watchBoxes();
  QMenu* help = user.main().menuBar()->actions().last()->menu();
  help->actions().last()->trigger();
  ASSERT_EQ(user.boxes.size(), 1U);
  EXPECT_NE(user.boxes[0].find("Model revision 1"), std::string::npos);
}

/// A locale with a decimal comma for all that follows.
void speakGerman(const std::string& folder) {
  const std::string make = "localedef -i de_DE -f UTF-8 " + folder + "/de_DE.UTF-8";
  if (std::system(make.c_str()) != 0) throw std::runtime_error("no locale");
  qputenv("LOCPATH", folder.c_str());
  qputenv("LC_ALL", "de_DE.UTF-8");
}

TEST(DesktopLocale, hasADecimalComma) { EXPECT_STREQ(std::localeconv()->decimal_point, ","); }

}  // namespace
}  // namespace noldarz::test

int main(int argc, char** argv) {
  const noldarz::test::TestFolder locales;
  noldarz::test::speakGerman((locales / "config").string());
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
