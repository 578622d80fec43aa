// The form of the population grid on its fields alone, without a screen: what its dial paints, and what mouse and keys
// tell the fields.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QLineEdit>
#include <QMainWindow>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <memory>

#include "desktop/binder/binder.h"
#include "desktop/form_sizes.h"
#include "desktop/forms.h"
#include "desktop/theme.h"
#include "population/grid_view.h"

namespace noldarz::test {
namespace {

class GridForm : public testing::Test {
 protected:
  GridForm() {
    followTheme();
    formOf(grid.view.name())->setUp(window);
    scaleFonts(window);
    setWidths(window);
    const auto run = [](const std::function<void()>& work) { work(); };
    binder = std::make_unique<Binder>(
        grid.view, window, Binder::Front{[this](Field& field) { return arrive(field); }, run, [] {}});
    grid.view.show();
    window.resize(1358, 728);
    window.show();
    for (int i = 0; i < gridSectors; ++i)
      grid.view.on(grid.znePopdnsty[i], Event::click, [this, i] {
        clicked.push_back(i);
        for (int k = 0; k < gridSectors; ++k) grid.znePopdnsty[k].setValue(k == i ? 1 : 0);
      });
  }
  bool arrive(Field& field) {
    if (arrived != &field) field.fire(Event::gotFocus);
    arrived = &field;
    return true;
  }
  template <class Widget = QWidget>
  Widget& widget(const Field& field) const {
    return *qobject_cast<Widget*>(binder->widgetOf(field));
  }
  QWidget* focus() const { return window.focusWidget(); }
  /// Where a place on the dial is: km from the source, degrees from north.
  QPoint onDial(double kilometres, double degrees) const {
    const QWidget& dial = widget(grid.PopdnstySector);
    const double pixels = std::min(dial.width(), dial.height()) / (2 * (1800 + 150.)) * 180 * kilometres;
    const double angle = degrees / 180 * M_PI;
    return dial.rect().center() + QPointF(pixels * std::sin(angle), -pixels * std::cos(angle)).toPoint();
  }

  Views views;
  GridView grid{views};
  QMainWindow window;
  std::unique_ptr<Binder> binder;
  std::vector<int> clicked;
  const Field* arrived = nullptr;
};

QPalette palette(const QColor& ground, const QColor& text) {
  QPalette palette;
  for (const auto role : {QPalette::Base, QPalette::Window}) palette.setColor(role, ground);
  for (const auto role : {QPalette::Text, QPalette::WindowText}) palette.setColor(role, text);
  return palette;
}

double contrast(const QColor& one, const QColor& other) {
  const auto light = [](const QColor& colour) {
    const auto part = [](double value) {
      return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return (0.2126 * part(colour.redF())) + (0.7152 * part(colour.greenF())) + (0.0722 * part(colour.blueF())) + 0.05;
  };
  return std::max(light(one), light(other)) / std::min(light(one), light(other));
}

TEST_F(GridForm, shadesTheSectorAndTheBandSoThatTextStaysLegible) {
  grid.sectorshp[2].setFillColour({0xcf, 0xe2, 0xf6});
  grid.ringshp[3].setFillColour({192, 255, 192});
  QWidget& dial = widget(grid.PopdnstySector);
  for (const bool dark : {false, true}) {
    dial.setPalette(dark ? palette(QColor(27, 30, 32), Qt::white) : palette(Qt::white, Qt::black));
    const QColor base = dial.palette().color(QPalette::Base);
    const QColor text = dial.palette().color(QPalette::Text);
    const QImage image = dial.grab().toImage();
    const auto at = [&](double kilometres, double degrees) { return image.pixelColor(onDial(kilometres, degrees)); };
    const QColor sector = at(5, 80);
    const QColor band = at(7, 200);
    const QColor both = at(7, 100);
    EXPECT_EQ(sector, at(9, 108));
    EXPECT_EQ(band, at(7, 310));
    for (const auto& [kilometres, degrees] : {std::pair{9., 200.}, {5., 60.}, {5., 120.}, {3., 350.}})
      EXPECT_EQ(at(kilometres, degrees), base) << kilometres << ' ' << degrees;
    EXPECT_GT(sector.blueF() / sector.redF(), 1.05 * base.blueF() / base.redF()) << dark;
    EXPECT_GT(band.greenF() / band.redF(), 1.05 * base.greenF() / base.redF()) << dark;
    for (const QColor& plain : {sector, band}) EXPECT_GT(contrast(base, both), 1.1 * contrast(base, plain)) << dark;
    for (const QColor& shade : {sector, band, both}) EXPECT_GT(contrast(text, shade), 4.5) << dark;
  }
}

TEST_F(GridForm, tellsThePlaceOfThePointerInTwipsAndTheWindInWords) {
  std::vector<PointerEvent> told;
  grid.view.onPointer(grid.PopdnstySector, [&](const PointerEvent& event) { told.push_back(event); });
  QWidget& dial = widget(grid.PopdnstySector);
  for (int i = 0; i < gridSectors; ++i)
    QTest::mousePress(&dial, Qt::LeftButton, Qt::NoModifier, onDial(4, 360. / gridSectors * i));
  ASSERT_EQ(told.size(), static_cast<std::size_t>(gridSectors));
  EXPECT_NEAR(told[0].x, 2100, 10);
  EXPECT_NEAR(told[0].y, 2100 - 720, 10);
  for (int i = 0; i < gridSectors; ++i)
    EXPECT_EQ(sectorAt(grid, told.at(static_cast<std::size_t>(i)).x, told.at(static_cast<std::size_t>(i)).y), i);
  QTest::mousePress(&dial, Qt::LeftButton, Qt::NoModifier, {3, 3});
  EXPECT_EQ(sectorAt(grid, told.back().x, told.back().y), -1);
  grid.wndsld1.setValue(30);
  grid.wind.showWind(30);
  EXPECT_EQ(dial.accessibleDescription(), "Wind 30°");
}

TEST_F(GridForm, choosesSectorsByArrowKeysAsByTheMouse) {
  QTest::mouseClick(&widget(grid.znePopdnsty[0]), Qt::LeftButton);
  const struct {
    Qt::Key key;
    int sector;
  } steps[]{{Qt::Key_Right, 1},
            {Qt::Key_Down, 2},
            {Qt::Key_Down, 3},
            {Qt::Key_Left, 4},
            {Qt::Key_Left, 5},
            {Qt::Key_Left, 5},
            {Qt::Key_Up, 6},
            {Qt::Key_Up, 7},
            {Qt::Key_Up, 7}};
  std::vector<int> expected{0};
  for (const auto& [key, sector] : steps) {
    if (sector != expected.back()) expected.push_back(sector);
    QTest::keyClick(focus(), key);
    EXPECT_EQ(focus(), &widget(grid.znePopdnsty[sector]));
    EXPECT_EQ(arrived, &grid.znePopdnsty[sector]);
    for (int i = 0; i < gridSectors; ++i)
      EXPECT_EQ(widget<QAbstractButton>(grid.znePopdnsty[i]).isChecked(), i == sector) << i;
  }
  EXPECT_EQ(clicked, expected);
  QTest::mouseClick(&widget(grid.znePopdnsty[7]), Qt::LeftButton);  // which is down
  EXPECT_TRUE(widget<QAbstractButton>(grid.znePopdnsty[7]).isChecked());
  const auto ground = [&](int i) { return widget(grid.znePopdnsty[i]).palette().color(QPalette::Button); };
  EXPECT_GT(contrast(ground(7), ground(6)), 1.5);
}

TEST_F(GridForm, leadsTheTabKeyThroughTheOrderOfTheWork) {
  QTest::mouseClick(&widget(grid.znePopdnsty[5]), Qt::LeftButton);
  std::vector<const Field*> expected;
  for (int band = 0; band < gridBands; ++band) expected.push_back(&grid.populatndnsty[band]);
  for (const Field* field :
       {&grid.popdnstycbo, &grid.convrtPBtn, &grid.denUnitListCbo, &grid.getfrPre, &grid.impotBtn, &grid.wndsld1})
    expected.push_back(field);
  for (int cell = 0; cell < grid.gridcell.size(); ++cell) expected.push_back(&grid.gridcell[cell]);
  for (const Field* field : {&grid.copygrd, &grid.pastegrd, &grid.prvrpt1, &grid.clsfrm1, &grid.znePopdnsty[5]})
    expected.push_back(field);
  for (const Field* field : expected) {
    QTest::keyClick(focus(), Qt::Key_Tab);
    EXPECT_EQ(focus(), &widget(*field)) << field->name();
  }
  QTest::keyClick(focus(), Qt::Key_Backtab);
  EXPECT_EQ(focus(), &widget(grid.clsfrm1));
}

TEST_F(GridForm, walksTheRowsOfTheTableAndPastesSeveralCells) {
  int pasted = 0;
  grid.view.on(grid.pastegrd, Event::click, [&] { ++pasted; });
  widget(grid.gridcell[7]).setFocus();
  for (const auto& [key, cell] :
       {std::pair{Qt::Key_Down, 12}, {Qt::Key_Up, 7}, {Qt::Key_Up, 2}, {Qt::Key_Up, 2}, {Qt::Key_Return, 3}}) {
    QTest::keyClick(focus(), key);
    EXPECT_EQ(focus(), &widget(grid.gridcell[cell]));
  }
  for (const auto& [clipboard, presses, text] : {std::tuple{"1\t2", 1, "0"}, {"1\n2\n", 2, "0"}, {"15", 2, "15"}}) {
    QApplication::clipboard()->setText(clipboard);
    widget<QLineEdit>(grid.gridcell[3]).selectAll();
    QTest::keyClick(focus(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(pasted, presses) << clipboard;
    EXPECT_EQ(grid.gridcell[3].text(), text) << clipboard;
  }
}

TEST_F(GridForm, fitsItsScreensWithoutScrolling) {
  grid.zonenumlbl.setCaption(
      "Enter units in Density/Sq.mile To Density/Ha, to convert release the toggle button [convert]");
  for (Field* total : {&grid.totlbl[0], &grid.totlbl[4]}) total->setCaption("2513272");
  const auto& page = *window.findChild<QScrollArea*>();
  for (const QSize size : {QSize(1016, 560), QSize(1358, 728), QSize(2552, 1400)}) {
    window.resize(size);
    QTest::qWait(50);
    EXPECT_EQ(window.size(), size);
    EXPECT_FALSE(page.verticalScrollBar()->isVisible()) << size.width();
    EXPECT_FALSE(page.horizontalScrollBar()->isVisible()) << size.width();
    EXPECT_GE(widget(grid.clsfrm1).mapTo(&window, QPoint()).y(), size.height() - 90);
  }
}

}  // namespace
}  // namespace noldarz::test
