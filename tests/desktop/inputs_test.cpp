// Keys, clicks and marks of the inputs, without a screen.

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "desktop/entry_delegate.h"
#include "desktop/fault_frame.h"
#include "support/mouse_user.h"

namespace noldarz::test {
namespace {

using User = MouseUser;

/// The fields that wear the frame of a fault.
Texts framed(const User& user) {
  Texts names;
  for (const Field& field : user.view().fields()) {
    const QWidget* widget = user.desktop.widgetOf(field);
    for (const QObject* sibling : widget ? widget->parentWidget()->children() : QObjectList())
      if (const auto* frame = dynamic_cast<const FaultFrame*>(sibling);
          frame && frame->isVisible() && frame->geometry().contains(widget->geometry()))
        names.push_back(field.name());
  }
  return names;
}

TEST(DesktopMarks, standAtTheFieldAtFaultUntilItsTextIsAnotherOne) {
  User user;
  user.watchBoxes();
  const QRect neighbour = user.widget("htsmul").geometry();
  user.type("htreltxt", "high");
  user.tab();
  QTest::qWait(100);
  EXPECT_EQ(framed(user), Texts{"htreltxt"});
  EXPECT_EQ(user.widget("htsmul").geometry(), neighbour);
  EXPECT_EQ(user.widget<QLineEdit>("htreltxt").selectedText(), "high");
  QTest::keyClicks(user.focus(), "2");
  EXPECT_EQ(user.text("htreltxt"), "2");
  EXPECT_EQ(framed(user), Texts{});

  user.type("stblclscbo", "G");
  user.tab();
  QTest::qWait(100);
  EXPECT_EQ(framed(user), Texts{"stblclscbo"});
  EXPECT_EQ(user.widget<QComboBox>("stblclscbo").lineEdit()->selectedText(), "G");
  QTest::keyClicks(user.focus(), "F");
  user.tab();
  EXPECT_EQ(framed(user), Texts{});
}

TEST(DesktopMarks, standAtAllSharesOfAWindThatIsMoreThanWhole) {
  User user;
  user.watchBoxes();
  user.type("Givnwnd(0)", "40");
  user.tab();
  user.click("comput");
  Texts shares;
  for (int i = 0; i < 8; ++i) shares.push_back("Givnwnd(" + std::to_string(i) + ")");
  EXPECT_EQ(framed(user), shares);
  user.type("Givnwnd(0)", "12.5");
  user.tab();
  EXPECT_EQ(framed(user), Texts{});
}

TEST(DesktopMarks, standAtALevelThatIsNoNumber) {
  User user;
  user.watchBoxes();
  user.click("comput");
  user.click("getconclvl");
  user.desktop.deliver([&] { user.field("constn(3)").setText("many"); });
  user.click("comput");
  EXPECT_EQ(framed(user), Texts{"constn(3)"});
}

TEST(DesktopKeys, typeADecimalPointForAComma) {
  const User user;
  user.type("htreltxt", "2,5");
  EXPECT_EQ(user.text("htreltxt"), "2.5");
  user.type("scnrotxtlbl", "Hose, torn");
  EXPECT_EQ(user.text("scnrotxtlbl"), "Hose, torn");
  QApplication::clipboard()->setText("1,5");
  user.type("wndveltxt", "");
  QTest::keyClick(user.focus(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(user.text("wndveltxt"), "1,5");  // what another program wrote is not guessed at
}

TEST(DesktopKeys, leaveAnInputByEnter) {
  const User user;
  user.type("htreltxt", "2");
  for (const auto& [key, next] :
       {std::pair{Qt::Key_Return, "htsmul"}, {Qt::Key_Enter, "enddisttxt"}, {Qt::Key_Return, "roghwndoptcbo"}}) {
    QTest::keyClick(user.focus(), key);
    EXPECT_EQ(user.focus(), &user.widget(next));
  }
  EXPECT_EQ(user.text("statuslbl"), "Stored: height of release 2 m.");
}

TEST(DesktopKeys, openAClosedListInsteadOfChoosingInIt) {
  const User user;
  auto& combo = user.widget<QComboBox>("stblclscbo");
  for (const auto key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown}) {
    combo.setFocus();
    QTest::keyClick(&combo, key);
    EXPECT_TRUE(combo.view()->isVisible()) << key;
    EXPECT_EQ(user.text("stblclscbo"), "F");
    combo.hidePopup();
  }
}

TEST(DesktopKeys, takeAClassTypedWholeAsAChosenOne) {
  const User user;
  user.type("stblclscbo", "EF");
  user.tab();
  EXPECT_EQ(user.focus(), &user.widget("wndveltxt"));
  EXPECT_EQ(user.widget<QListWidget>("dspScnorlst_1").count(), 2);
  EXPECT_EQ(user.text("wndveltxt"), "5");
}

TEST(DesktopKeys, giveTheEditorOfACaptionUpByEscape) {
  const User user;
  user.click("conclbl(2)");
  user.type("conctxt1", "Own level:");
  QTest::keyClick(user.focus(), Qt::Key_Escape);
  EXPECT_FALSE(user.widget("conctxt1").isVisible());
  EXPECT_EQ(user.text("conclbl(2)"), "TEEL3/IDLH:");
  EXPECT_FALSE(user.widget<QCheckBox>("conclbl(2)").isChecked());
  EXPECT_EQ(user.focus(), &user.widget("conclbl(2)"));
  user.tab();
  EXPECT_EQ(user.text("conclbl(2)"), "TEEL3/IDLH:");
  EXPECT_EQ(user.focus(), &user.widget("constn(2)"));
}

TEST(DesktopButtons, takeADoubleClickAsOnePress) {
  const User user;
  QTest::mouseClick(&user.widget("comput"), Qt::LeftButton);
  QTest::mouseDClick(&user.widget("comput"), Qt::LeftButton);
  EXPECT_EQ(user.text("comput"), "&Compute at given concentration");
  EXPECT_EQ(user.text("endpt(0)"), "0");
}

TEST(DesktopList, tellsRunsApart) {
  User user;
  user.watchBoxes();
  user.choose("stblclscbo", "D");
  QTest::qWait(300);
  const auto& list = user.widget<QListWidget>("dspScnorlst_1");
  ASSERT_EQ(list.count(), 2);
  EXPECT_EQ(list.item(0)->data(EntryDelegate::detailRole), "D, 6 m/s");
  EXPECT_EQ(list.item(1)->data(EntryDelegate::detailRole), "F, 3 m/s");
  EXPECT_TRUE(list.item(0)->font().bold());
  EXPECT_FALSE(list.item(1)->font().bold());
  EXPECT_EQ(list.item(0)->toolTip(), "Not computed yet");
  // Markup in a text of the user is text.
  user.field("dspScnorlst_1").setDetails({{"", "<b>UEL:</b> 7 ppm"}, {"", ""}});
  EXPECT_TRUE(list.item(0)->toolTip().contains("&lt;b&gt;"));
  // What turns the direction of writing is told, not done.
  user.field("dspScnorlst_1").setEntries({"Tank \u202e1", ""});
  EXPECT_EQ(list.item(0)->text(), "Tank \\u{202E}1");
}

TEST(DesktopList, doesANewNameBeforeADoubleClick) {
  User user;
  user.watchBoxes();
  user.choose("stblclscbo", "D");
  QTest::qWait(300);
  auto& list = user.widget<QListWidget>("dspScnorlst_1");
  const QPoint entry = list.visualItemRect(list.item(1)).center();
  user.type("scnrotxtlbl", "Calm night");
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, entry);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, entry);
  EXPECT_EQ(list.item(0)->text(), "Calm night");
  EXPECT_EQ(list.item(1)->text(), "Pool under the loading arm");
  EXPECT_EQ(user.text("scnrotxtlbl"), "Pool under the loading arm");
  EXPECT_EQ(user.text("stblclscbo"), "F");
}

TEST(DesktopFigures, tellTheWindOfTheModelWithTwoDecimals) {
  const User user;
  user.click("comput");
  const auto& wind = user.widget<QLabel>("wndvel");
  EXPECT_EQ(user.text("wndvel"), "1.74898568425727");
  EXPECT_EQ(wind.text(), "1.75");
  EXPECT_TRUE(wind.toolTip().startsWith("1.74898568425727"));
}

TEST(DesktopFigures, greyWhatIsOutOfDate) {
  const User user;
  const auto textColour = [&](const char* name, QPalette::ColorRole role) {
    return user.widget(name).palette().color(QPalette::Active, role);
  };
  const QColor plain = QApplication::palette().color(QPalette::Active, QPalette::Text);
  EXPECT_NE(textColour("FatatyDistDsplyLbl", QPalette::WindowText), plain);
  user.click("comput");
  user.click("getconclvl");
  EXPECT_EQ(user.text("resultnotelbl"), "Not computed yet: set the levels and press again.");
  EXPECT_NE(textColour("FatatyDistDsplyLbl", QPalette::WindowText), plain);
  user.click("comput");
  EXPECT_EQ(textColour("FatatyDistDsplyLbl", QPalette::WindowText), plain);
  EXPECT_EQ(textColour("endpt(5)", QPalette::Text), plain);
  user.type("enddisttxt", "9000");
  EXPECT_NE(textColour("FatatyDistDsplyLbl", QPalette::WindowText), plain);
  EXPECT_NE(textColour("endpt(5)", QPalette::Text), plain);
}

}  // namespace
}  // namespace noldarz::test
