// Sizes, places and the order of the window, without a screen.

#include <gtest/gtest.h>

#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include "support/mouse_user.h"

namespace noldarz::test {
namespace {

using User = MouseUser;

TEST(DesktopLayout, letsEveryFieldBeReachedOnASmallScreen) {
  const User user;
  QFont large = QApplication::font();
  large.setPointSizeF(large.pointSizeF() * 120 / 96);
  const auto& page = *user.main().findChild<QScrollArea*>();
  for (const auto& [size, font] : {std::pair{QSize(1016, 660), QApplication::font()},
                                   {QSize(1358, 728), large},
                                   {QSize(675, 344), QApplication::font()}}) {
    user.main().setFont(font);
    QTest::qWait(50);
    user.main().resize(size);
    QTest::qWait(50);
    EXPECT_EQ(user.main().size(), size);
    for (const Field& field : user.view().fields()) {
      QWidget* widget = user.desktop.widgetOf(field);
      if (!widget || !field.takesFocus() || !field.visible() || field.locked()) continue;
      widget->setFocus();
      QApplication::processEvents();
      const QWidget& area = page.isAncestorOf(widget) ? *page.viewport() : user.main();
      const QRect place{widget->mapTo(&area, QPoint()), widget->size()};
      const QRect seen = place & area.rect();
      EXPECT_TRUE(seen == place || field.kind() == FieldKind::list) << field.name() << " at " << size.width();
    }
  }
}

TEST(DesktopLayout, scrollsNothingThatFits) {
  const User user;
  user.click("comput");
  user.main().resize(1220, 700);
  QTest::qWait(50);
  const auto& page = *user.main().findChild<QScrollArea*>();
  EXPECT_FALSE(page.verticalScrollBar()->isVisible());
  EXPECT_FALSE(page.horizontalScrollBar()->isVisible());
  EXPECT_GT(user.widget("dspScnorlst_1").mapTo(&page, QPoint()).x(),
            user.widget("isoparea(0)").mapTo(&page, QPoint()).x());
}

TEST(DesktopLayout, givesTheRoomOfALargeScreenToTheListOfRuns) {
  const User user;
  const auto widths = [&] {
    std::map<std::string, int> all;
    for (const Field& field : user.view().fields())
      if (const QWidget* widget = user.desktop.widgetOf(field); widget && field.visible() && field.takesFocus())
        all[field.name()] = widget->width();
    return all;
  };
  user.main().resize(1220, 700);
  QTest::qWait(50);
  auto before = widths();
  user.main().resize(2560, 1400);
  QTest::qWait(50);
  auto after = widths();
  EXPECT_GT(after.extract("dspScnorlst_1").mapped(), 1400);
  before.erase("dspScnorlst_1");
  EXPECT_EQ(after, before);
}

TEST(DesktopLayout, goesThroughTheInputsInTheOrderOfTheWork) {
  const User user;
  user.click("comput");
  user.click("prbtoptn");
  user.widget("scnrotxtlbl").setFocus();
  Texts road;
  for (int i = 0; i < 60 && (road.empty() || user.focus() != &user.widget("scnrotxtlbl")); ++i) {
    road.push_back(user.focus()->objectName().toStdString());
    QTest::keyClick(user.focus(), Qt::Key_Tab);
  }
  Texts expected{"scnrotxtlbl", "enddisttxt"};
  for (int i = 0; i < 8; ++i) expected.push_back("Givnwnd_" + std::to_string(i));
  for (const char* toxicity : {"prbtoptn", "avalftl", "nvalftl", "avalinj", "nvalinj", "hudityTxt", "MaxFtlyDstOptn"})
    expected.emplace_back(toxicity);
  expected.emplace_back("getconclvl");
  for (int i = 0; i < 6; ++i) {
    expected.push_back("conclbl_" + std::to_string(i));
    expected.push_back("constn_" + std::to_string(i));
  }
  for (const char* last : {"comput", "helpVinf", "clsfrm1", "dspScnorlst_1", "redosimul"}) expected.emplace_back(last);
  EXPECT_EQ(road, expected);
}

TEST(DesktopLayout, comesBackWhereItWas) {
  const User user;
  user.main().setGeometry(60, 80, 1100, 610);
  QTest::qWait(50);
  const QRect place = user.main().geometry();
  user.click("clsfrm1");
  ASSERT_TRUE(user.ended());
  fs::current_path(user.folder / "start");
  QtDesktop later;
  CadWindows drawings{later};
  DxfCad cad{drawings, [] { return std::string{}; }};
  System system{later, cad, user.folder.folders()};
  later.attach(system.views(), system.settings());
  later.deliver([&] { system.start(); });
  EXPECT_EQ(later.windowOf(system.mainView().view)->geometry(), place);
}

TEST(DesktopLayout, endsWhereItsPlaceCantBeStored) {
  const User user;
  writeFile(user.folder / "config/noldarz", "in the way of the settings");
  testing::internal::CaptureStderr();
  user.click("clsfrm1");
  EXPECT_NE(testing::internal::GetCapturedStderr().find("The place of the window is not kept: "), std::string::npos);
  EXPECT_TRUE(user.ended());
}

}  // namespace
}  // namespace noldarz::test
