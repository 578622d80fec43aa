// The window of a drawing without a screen: what is seen of it, points picked in it, and its changes saved or asked
// for.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>

#include "desktop/cad_canvas.h"
#include "desktop/cad_windows.h"
#include "platform/view.h"
#include "support/test_folder.h"

namespace noldarz::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* site =
    "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n70\n2\n0\nLAYER\n2\n0\n62\n7\n70\n0\n6\nCONTINUOUS\n"
    "0\nLAYER\n2\nWalls\n62\n1\n70\n0\n6\nCONTINUOUS\n0\nENDTAB\n0\nENDSEC\n"
    "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nWalls\n10\n0.0\n20\n0.0\n11\n100.0\n21\n0.0\n"
    "0\nLINE\n8\n0\n10\n100.0\n20\n0.0\n11\n100.0\n21\n60.0\n0\nCIRCLE\n8\n0\n10\n50.0\n20\n30.0\n40\n20.0\n"
    "0\nTEXT\n8\n0\n10\n10.0\n20\n40.0\n40\n6.0\n1\nStore\n0\nRAY\n8\n0\n0\nENDSEC\n0\nEOF\n";

/// A drawing in its window, and a user who answers the boxes.
struct User {
  explicit User() {
    writeFile(file, site);
    drawing = std::dynamic_pointer_cast<DxfDrawing>(cad.getObject(file));
    drawing->setVisible();
    QTest::qWait(50);
    QObject::connect(&watch, &QTimer::timeout, [this] { answer(); });
    watch.start(20);
  }
  CadWindow& window() const { return *windows.windowOf(*drawing); }
  CadCanvas& canvas() const { return dynamic_cast<CadCanvas&>(*window().findChild<QWidget*>("canvas")); }
  template <class Widget>
  Widget& part(const char* name) const {
    return *window().findChild<Widget*>(name);
  }
  QImage seen() const { return canvas().grab().toImage(); }
  QColor at(double x, double y) const { return seen().pixelColor(canvas().pixelOf({x, y}).toPoint()); }
  QPoint pixelOf(double x, double y) const { return canvas().pixelOf({x, y}).toPoint(); }
  /// Does it when the program waits for the user.
  void then(const std::function<void()>& act) const { QTimer::singleShot(60, act); }
  /// "x,y", or why there is none.
  std::string pick(const std::function<void()>& act) {
    then(act);
    try {
      const CadPoint point = drawing->getPoint();
      return plainText(rounded(point.x, 1)) + "," + plainText(rounded(point.y, 1));
    } catch (const CadFailure& failure) {
      return std::to_string(failure.number());
    }
  }
  void answer() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box || box->property("answered").toBool()) return;
    box->setProperty("answered", true);
    boxes.push_back(box->windowTitle().toStdString() + ": " + box->text().toStdString());
    buttons = static_cast<int>(box->buttons().size());
    for (QAbstractButton* button : box->buttons())
      if (button->text().remove('&') == reply) return button->click();
    box->reject();
  }
  std::size_t added() const { return readFile(file).find("\nadded\n"); }

  TestFolder folder;
  std::filesystem::path file = folder / "site.dxf";
  QtDesktop desktop;
  CadWindows windows{desktop};
  DxfCad cad{windows, [] { return std::string{}; }};
  std::shared_ptr<DxfDrawing> drawing;
  QTimer watch;
  QString reply;
  Texts boxes;
  int buttons = 0;
};

/// Apart from the shades of smooth edges.
bool isSame(const QImage& one, const QImage& other) {
  constexpr int shade = 100;
  for (int y = 0; y < one.height(); ++y)
    for (int x = 0; x < one.width(); ++x)
      if (std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > shade) return false;
  return one.size() == other.size();
}

TEST(CadWindow, showsTheDrawingAndHidesLayers) {
  User user;
  EXPECT_EQ(user.window().windowTitle(), "site.dxf[*] - NOLDA-RZ drawing");
  EXPECT_EQ(user.part<QLabel>("notShown").text(), "Not shown: 1 RAY");
  const QColor ground = user.at(25, 10);
  EXPECT_EQ(user.at(30, 0), QColor(Qt::red));
  EXPECT_NE(user.at(70, 30), ground);
  auto& list = user.part<QListWidget>("layerList");
  list.setCurrentRow(1);
  QTest::keyClick(&list, Qt::Key_Space);
  EXPECT_EQ(user.at(30, 0), ground);
  EXPECT_NE(user.at(70, 30), ground);
  QTest::keyClicks(&user.part<QLineEdit>("layerFilter"), "wall");
  EXPECT_TRUE(list.item(0)->isHidden());
  EXPECT_FALSE(list.item(1)->isHidden());
  user.drawing->addCircle({20, 20, 0}, 5);
  user.drawing->regen();
  EXPECT_NE(user.at(25, 20), ground);
  EXPECT_EQ(user.at(30, 0), ground);
  EXPECT_TRUE(user.window().isWindowModified());
}

TEST(CadWindow, paintsAPannedDrawingAsOneThatIsPaintedAnew) {
  const User user;
  user.seen();
  for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Down}) {
    const ScenePoint before = user.canvas().placeOf({200, 200});
    QTest::keyClick(&user.canvas(), key);
    EXPECT_NE(user.canvas().placeOf({200, 200}), before);
    const QImage moved = user.seen();
    user.canvas().follow();
    EXPECT_TRUE(isSame(moved, user.seen())) << key;
  }
  QTest::mousePress(&user.canvas(), Qt::LeftButton, Qt::NoModifier, {200, 200});
  QTest::mouseMove(&user.canvas(), {150, 263});
  QTest::mouseRelease(&user.canvas(), Qt::LeftButton, Qt::NoModifier, {150, 263});
  const QImage dragged = user.seen();
  user.canvas().follow();
  EXPECT_TRUE(isSame(dragged, user.seen()));
}

TEST(CadWindow, zoomsAboutThePointerToABoxAndToTheWhole) {
  const User user;
  CadCanvas& canvas = user.canvas();
  const double whole = canvas.scale();
  const QPointF pointer(120, 90);
  const ScenePoint place = canvas.placeOf(pointer);
  QWheelEvent wheel(
      pointer, canvas.mapToGlobal(pointer), {}, {0, 240}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&canvas, &wheel);
  EXPECT_NEAR(canvas.scale(), whole * 1.5625, whole * 1e-9);
  EXPECT_NEAR(canvas.placeOf(pointer).x, place.x, 1e-9);
  QTest::keyClick(&canvas, Qt::Key_Plus);
  EXPECT_GT(canvas.scale(), whole * 2);
  QTest::keyClick(&canvas, Qt::Key_F);
  EXPECT_NEAR(canvas.scale(), whole, whole * 1e-9);
  QTest::keyClick(&canvas, Qt::Key_B);
  QTest::mousePress(&canvas, Qt::LeftButton, Qt::NoModifier, user.pixelOf(40, 30));
  QTest::mouseMove(&canvas, user.pixelOf(60, 20));
  QTest::mouseRelease(&canvas, Qt::LeftButton, Qt::NoModifier, user.pixelOf(60, 20));
  EXPECT_NEAR(canvas.placeOf(QRectF(canvas.rect()).center()).x, 50, 0.5);
  EXPECT_GT(canvas.scale(), whole * 2);
  EXPECT_FALSE(canvas.isBoxing());
}

TEST(CadWindow, givesThePointThatTheUserPicks) {
  User user;
  auto& line = user.part<QLineEdit>("coordinates");
  const auto click = [&](double x, double y) {
    QTest::mouseClick(&user.canvas(), Qt::LeftButton, Qt::NoModifier, user.pixelOf(x, y));
  };
  const auto type = [&](const char* text) {
    line.selectAll();
    QTest::keyClicks(&line, text);
    QTest::keyClick(&line, Qt::Key_Return);
  };
  QWidget other;
  other.show();
  user.desktop.setPointer(Pointer::hourglass);
  EXPECT_EQ(user.pick([&] {
    EXPECT_FALSE(other.isEnabled());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(user.canvas().cursor().shape(), Qt::CrossCursor);
    QTest::keyClick(&user.canvas(), Qt::Key_F3);
    click(99.5, 0.3);
  }),
            "100,0");
  EXPECT_TRUE(other.isEnabled());
  EXPECT_NE(QApplication::overrideCursor(), nullptr);
  user.desktop.setPointer(Pointer::standard);
  EXPECT_EQ(user.pick([&] {
                  QTest::keyClick(&user.canvas(), Qt::Key_F3);
                  click(99, 1);
                })
                .substr(0, 2),
            "99");
  EXPECT_EQ(user.pick([&] {
    for (const char* wrong : {"", "12", "1,5,2", "x,3", "inf,0"}) {
      type(wrong);
      EXPECT_NE(user.part<QLabel>("asked").text().indexOf("is no point"), -1) << wrong;
      EXPECT_TRUE(line.isVisible());
    }
    type(" 12.5, -3e1");
  }),
            "12.5,-30");
  const std::string cancelled = std::to_string(static_cast<int>(FailureNumber::cancelled));
  EXPECT_EQ(user.pick([&] { QTest::keyClick(&user.canvas(), Qt::Key_Escape); }), cancelled);
  EXPECT_FALSE(line.isVisible());
  EXPECT_EQ(user.pick([&] { user.window().close(); }), cancelled);
  EXPECT_EQ(user.windows.windowOf(*user.drawing), nullptr);
  EXPECT_THROW(user.drawing->setVisible(), CadFailure);
}

TEST(CadWindow, savesAndTellsWhatGoesWrong) {
  User user;
  user.drawing->addText("added", {0, 0, 0}, 5);
  user.drawing->regen();
  EXPECT_TRUE(user.window().isWindowModified());
  QTest::keyClick(&user.window(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_FALSE(user.window().isWindowModified());
  EXPECT_NE(user.added(), std::string::npos);
  user.drawing->addText("more", {0, 0, 0}, 5);
  writeFile(user.file, "of another program");
  QTest::keyClick(&user.window(), Qt::Key_S, Qt::ControlModifier);
  ASSERT_EQ(user.boxes.size(), 1U);
  EXPECT_EQ(user.boxes[0].rfind("QUENDARIS: ", 0), 0U);
  EXPECT_NE(user.boxes[0].find("another program"), std::string::npos);
  EXPECT_TRUE(user.window().isWindowModified());
}

TEST(CadWindow, asksBeforeChangesAreLost) {
  const std::string question = "QUENDARIS: Save the changes to \"site.dxf\"?";
  User user;
  user.drawing->addText("added", {0, 0, 0}, 5);
  user.reply = "Cancel";
  user.windows.quit();
  EXPECT_EQ(user.boxes, Texts{question});
  EXPECT_EQ(user.buttons, 3);
  EXPECT_NE(user.windows.windowOf(*user.drawing), nullptr);
  // The program ends: there is no way back.
  Views views;
  const Settings settings(user.folder / "config");
  user.desktop.attach(views, settings);
  user.reply = "Don't save";
  user.desktop.deliver([] {});
  EXPECT_EQ(user.boxes, (Texts{question, question}));
  EXPECT_EQ(user.buttons, 2);
  EXPECT_EQ(user.windows.windowOf(*user.drawing), nullptr);
  EXPECT_EQ(user.added(), std::string::npos);
}

TEST(CadWindow, savesWhenItIsAskedTo) {
  User saver;
  saver.drawing->addText("added", {0, 0, 0}, 5);
  saver.reply = "Save";
  saver.window().close();
  EXPECT_EQ(saver.boxes, Texts{"QUENDARIS: Save the changes to \"site.dxf\"?"});
  EXPECT_EQ(saver.windows.windowOf(*saver.drawing), nullptr);
  EXPECT_NE(saver.added(), std::string::npos);
}

}  // namespace
}  // namespace noldarz::test
