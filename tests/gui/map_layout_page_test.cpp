#include "app/main_dialog.h"
#include "app/ui_common.h"
#include "tests/gui/map_layout_fixture.h"

#include <QComboBox>
#include <QGroupBox>
#include <QTabBar>

namespace velko::test::map_layout {
namespace {

// What is shown

TEST_F(MapLayoutPageTest, FixedTextsAreToTheLetter)
{
    const auto text = [this](const char* name) { return page->findChild<QLabel*>(name)->text(); };
    EXPECT_EQ(text("heightLabel"), "Map Height:");
    EXPECT_EQ(text("widthLabel"), "Map Width:");
    EXPECT_EQ(text("moveLabel"), "Move Map:");
    EXPECT_EQ(text("synchronisedRoomsLabel"), "Synchronized Room Id's:");
    EXPECT_EQ(text("screenListLabel"), "Map Allocation List:");
    EXPECT_EQ(page->findChild<QGroupBox*>("mapPointGroup")->title(), " Map point ");
    for (const int button : {kHeightGrow, kWidthGrow})
        EXPECT_EQ(control<QAbstractButton>(button).text(), "+");
    for (const int button : {kHeightShrink, kWidthShrink})
        EXPECT_EQ(control<QAbstractButton>(button).text(), "-");
}

TEST_F(MapLayoutPageTest, RoomIsShown)
{
    EXPECT_EQ(heightText(), "2");
    EXPECT_EQ(widthText(), "3");
    EXPECT_EQ(roomsText(), "2, 1a");
    EXPECT_TRUE(control<QLineEdit>(1209).isReadOnly());
    EXPECT_TRUE(changingButtonsAre(true));
    EXPECT_EQ(grid().picture().width(), 384U);
    EXPECT_EQ(grid().picture().height(), 240U);
    EXPECT_EQ(cellPixel(0, 0), TestRom::colour(16));
    EXPECT_EQ(cellPixel(0, 1), TestRom::colour(1));
    EXPECT_EQ(cellPixel(0, 2), TestRom::colour(2));
    EXPECT_EQ(cellPixel(1, 0), TestRom::colour(3));
    EXPECT_EQ(cellPixel(1, 1), TestRom::colour(5));
    EXPECT_EQ(cellPixel(1, 2), 0x988898U);
    expectSelected(0, 0, 0, TestRom::colour(16));
}

TEST_F(MapLayoutPageTest, ListTellsTheRoomsScreens)
{
    EXPECT_EQ(list().model()->rowCount(), 5);
    EXPECT_EQ(list().model()->index(0, 0).data().toString(), "0: -- 8600 -- (index 0)");
    EXPECT_EQ(list().model()->index(4, 0).data().toString(), "4: -- 8700 -- (index 4)");
}

TEST_F(MapLayoutPageTest, SizesAreShownInHexadecimal)
{
    setStoredSize(0, 28, 16);
    page->refresh();
    EXPECT_EQ(widthText(), "1a");
    EXPECT_EQ(heightText(), "10");
}

TEST_F(MapLayoutPageTest, LookingWritesNothing)
{
    const Bytes before = image();
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 3; ++column) {
            clickCell(row, column);
            list().setFocus();
            grid().setFocus();
        }
    }
    for (const std::uint8_t room : Bytes{1, 2, 3, 4, 0})
        changeRoom(room);
    page->resize(700, 500);
    EXPECT_EQ(image(), before);
}

TEST_F(MapLayoutPageTest, RoomChangeShowsTheOtherRoom)
{
    clickCell(1, 2);
    changeRoom(1);
    EXPECT_EQ(heightText(), "1");
    EXPECT_EQ(widthText(), "1");
    EXPECT_EQ(roomsText(), "");
    EXPECT_EQ(list().model()->rowCount(), 1);
    EXPECT_EQ(grid().picture().width(), 128U);
    EXPECT_EQ(grid().picture().height(), 120U);
    expectSelected(0, 0, -1, 0x988898); // 7 of one screen
    changeRoom(3);                      // room 0's map and screens, one row
    EXPECT_EQ(roomsText(), "");
    EXPECT_EQ(heightText(), "1");
    EXPECT_EQ(list().model()->rowCount(), 5);
    EXPECT_EQ(cellPixel(0, 2), TestRom::colour(2));
}

// The selected cell

TEST_F(MapLayoutPageTest, ClickSelectsACell)
{
    clickCell(1, 1);
    expectSelected(1, 1, 4, TestRom::colour(5));
    EXPECT_FALSE(cellIsFramed(0, 0));
    EXPECT_TRUE(grid().hasFocus());
}

TEST_F(MapLayoutPageTest, InvalidCellSelectsNoLine)
{
    clickCell(1, 2);
    expectSelected(1, 2, -1, 0x988898);
}

TEST_F(MapLayoutPageTest, DragSelectsTheCellsItPasses)
{
    pressPicture(grid(), {10, 10});
    expectSelected(0, 0, 0, TestRom::colour(16));
    moveHolding(127, 119, Qt::LeftButton);
    expectSelected(0, 0, 0, TestRom::colour(16));
    moveHolding(128, 119, Qt::LeftButton);
    expectSelected(0, 1, 1, TestRom::colour(1));
    moveHolding(255, 120, Qt::LeftButton);
    expectSelected(1, 1, 4, TestRom::colour(5));
    for (const QPoint outside : {QPoint(-1, 0), QPoint(384, 0), QPoint(0, -1), QPoint(0, 240)}) {
        moveHolding(outside.x(), outside.y(), Qt::LeftButton);
        expectSelected(1, 1, 4, TestRom::colour(5));
    }
    moveHolding(383, 0, Qt::LeftButton);
    expectSelected(0, 2, 2, TestRom::colour(2));
    EXPECT_EQ(block(0, 10), kRows);
}

TEST_F(MapLayoutPageTest, OnlyTheLeftButtonSelects)
{
    clickPicture(grid(), {200, 60}, Qt::RightButton);
    moveHolding(200, 60, Qt::RightButton);
    moveHolding(200, 60, Qt::NoButton);
    expectSelected(0, 0, 0, TestRom::colour(16));
}

TEST_F(MapLayoutPageTest, ArrowKeysMoveTheSelectionWithinTheMap)
{
    grid().setFocus();
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up})
        QTest::keyClick(&grid(), key);
    expectSelected(0, 0, 0, TestRom::colour(16));
    QTest::keyClick(&grid(), Qt::Key_Right);
    expectSelected(0, 1, 1, TestRom::colour(1));
    QTest::keyClick(&grid(), Qt::Key_Down);
    expectSelected(1, 1, 4, TestRom::colour(5));
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&grid(), Qt::Key_Right);
    QTest::keyClick(&grid(), Qt::Key_Down);
    expectSelected(1, 2, -1, 0x988898);
    QTest::keyClick(&grid(), Qt::Key_Left);
    QTest::keyClick(&grid(), Qt::Key_Left);
    QTest::keyClick(&grid(), Qt::Key_Up);
    expectSelected(0, 0, 0, TestRom::colour(16));
    EXPECT_EQ(block(0, 10), kRows);
}

// Choosing a screen

TEST_F(MapLayoutPageTest, ChosenLineIsWrittenIntoTheCell)
{
    Bytes expected = image();
    const std::uint32_t start = layouts().dataFileOffset(layouts().pointerOf());
    clickCell(1, 0);
    chooseLine(2);
    expected[start + 6] = 2;
    EXPECT_EQ(image(), expected);
    expectSelected(1, 0, 2, TestRom::colour(2));
    EXPECT_EQ(cellPixel(1, 0), TestRom::colour(2));
}

TEST_F(MapLayoutPageTest, InvalidCellTakesAnyLine)
{
    clickCell(1, 2);
    chooseLine(0);
    EXPECT_EQ(block(0, 10), (Bytes{0xEE, 0, 1, 2, 0xEE, 0xEE, 3, 4, 0, 0xEE}));
    expectSelected(1, 2, 0, TestRom::colour(16));
}

TEST_F(MapLayoutPageTest, KeysChooseFromTheListToo)
{
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(block(0, 10), (Bytes{0xEE, 1, 1, 2, 0xEE, 0xEE, 3, 4, 5, 0xEE}));
    expectSelected(0, 0, 1, TestRom::colour(1));
}

TEST_F(MapLayoutPageTest, CellCannotBeEmptied)
{
    const QModelIndex line = list().model()->index(0, 0);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::ControlModifier,
                      list().visualRect(line).center());
    EXPECT_EQ(block(0, 10), kRows);
    expectSelected(0, 0, 0, TestRom::colour(16));
}

TEST_F(MapLayoutPageTest, LinesThatNoByteCanTellAreNotTaken)
{
    game.setScreenList(0, std::vector<std::uint16_t>(300, 0x8640));
    start();
    page->refresh();
    const Bytes before = image();
    EXPECT_EQ(list().model()->rowCount(), 300);
    chooseLine(256);
    EXPECT_EQ(image(), before);
    EXPECT_EQ(chosenLine(), 0);
    chooseLine(255);
    EXPECT_EQ(block(0, 3), (Bytes{0xEE, 0xFF, 1}));
}

// Maps larger than their space

class LargeMapTest : public MapLayoutPageTest {
protected:
    LargeMapTest()
    {
        game.setLayout(1, 32, 32, Bytes(32 * 32, 1));
        game.setScreenList(1, {0x8600, 0x8640});
        start();
        changeRoom(1);
    }
    QScrollBar& horizontalBar() const { return bar("gridHorizontalBar"); }
    QScrollBar& verticalBar() const { return bar("gridVerticalBar"); }
};

TEST_F(LargeMapTest, BarsReachTheWholeMap)
{
    EXPECT_TRUE(horizontalBar().isVisible());
    EXPECT_TRUE(verticalBar().isVisible());
    EXPECT_EQ(horizontalBar().maximum() + static_cast<int>(grid().picture().width()), 32 * 48);
    EXPECT_EQ(verticalBar().maximum() + static_cast<int>(grid().picture().height()), 32 * 45);
    changeRoom(0);
    EXPECT_FALSE(horizontalBar().isVisible());
    EXPECT_FALSE(verticalBar().isVisible());
}

TEST_F(LargeMapTest, ClickSelectsWhatShowsThere)
{
    horizontalBar().triggerAction(QAbstractSlider::SliderSingleStepAdd); // 16
    verticalBar().triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(horizontalBar().value(), 16);
    clickPicture(grid(), {100, 100}); // 116, 116 of the map
    chooseLine(0);
    EXPECT_EQ(layouts().dataByte(2 * 34 + 2 + 1), 0);
    EXPECT_EQ(horizontalBar().value(), 16);
}

TEST_F(LargeMapTest, KeysBringTheSelectedCellIntoView)
{
    grid().setFocus();
    for (int i = 0; i < 40; ++i)
        QTest::keyClick(&grid(), Qt::Key_Right);
    EXPECT_EQ(horizontalBar().value(), horizontalBar().maximum());
    EXPECT_EQ(verticalBar().value(), 0);
    const PixelImage& picture = grid().picture();
    EXPECT_EQ(picture.at(picture.width() - 1, 44), 0x000000U); // the frame's corner
    EXPECT_EQ(picture.at(picture.width() - 2, 43), 0xFFFFFFU);
}

TEST_F(LargeMapTest, WheelOverTheGridScrollsIt)
{
    turnWheel(grid(), *page, {0, -120});
    EXPECT_GT(verticalBar().value(), 0);
    turnWheel(grid(), *page, {-120, 0});
    EXPECT_GT(horizontalBar().value(), 0);
    const int before = verticalBar().value();
    turnWheel(preview(), *page, {0, -120});
    EXPECT_EQ(verticalBar().value(), before);
}

// The mouse goes over all the cells that show, and the grid is drawn for each. Screens are not
// rendered again meanwhile: they would have the colours that the palette has by then.
TEST_F(LargeMapTest, DraggingRendersNoScreenAgain)
{
    const auto inside = [this] { return grid().picture().at(48 * 5 + 40, 45 * 5 + 40); };
    const int width = static_cast<int>(grid().picture().width());
    const int height = static_cast<int>(grid().picture().height());
    const Pixel before = inside();
    for (std::uint32_t i = 0; i < 32; ++i)
        state.store.pahPal.setDataByte(i, 30);
    pressPicture(grid(), {0, 0});
    for (int y = 22; y < height; y += 45) {
        for (int x = 24; x < width; x += 48)
            moveHolding(x, y, Qt::LeftButton);
    }
    EXPECT_EQ(inside(), before);
    page->refresh();
    EXPECT_EQ(inside(), TestRom::colour(30));
}

TEST_F(LargeMapTest, DamagedSizesAreDrawnInTheViewsSizeOnly)
{
    setStoredSize(1, 255, 255);
    page->refresh();
    EXPECT_EQ(widthText(), "fd");
    EXPECT_LT(grid().picture().pixels().size(), 900U * 640U);
}

// The keyboard reaches everything

TEST_F(MapLayoutPageTest, TabGoesThroughTheControlsInTheirOrder)
{
    control(kHeightGrow).setFocus();
    for (const int id : {1090, 1032, 1091, 1136, 1071, 1033, 1137, 1209, 1084, 1086, 1089}) {
        QTest::keyClick(page->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(page->focusWidget()->property(kControlId).toInt(), id);
    }
}

TEST_F(MapLayoutPageTest, EveryControlTellsWhatItIsFor)
{
    for (const int id :
         {1032, 1033, 1071, 1084, 1085, 1086, 1087, 1088, 1089, 1090, 1091, 1136, 1137, 1209})
        EXPECT_FALSE(control(id).toolTip().isEmpty()) << id;
}

TEST_F(MapLayoutPageTest, PageWithoutARomShowsSomething)
{
    EditorState empty;
    MapLayoutPage other(empty, prompt);
    other.setup();
    other.refresh();
    other.show();
    EXPECT_EQ(other.findChild<QLabel*>("heightValue")->text(), "55");
}

TEST_F(MapLayoutPageTest, TabOfTheMainWindowShowsThePage)
{
    MainDialog window(state, prompt);
    window.show();
    window.findChild<QTabBar*>()->setCurrentIndex(1);
    auto* label = window.findChild<QLabel*>("heightValue");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), "2");
    QTest::keyClick(window.findChild<QComboBox*>("roomCombo"), Qt::Key_Down);
    EXPECT_EQ(label->text(), "1");
}

} // namespace
} // namespace velko::test::map_layout
