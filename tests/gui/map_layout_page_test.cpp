#include "pages/map_layout_page.h"

#include "app/main_dialog.h"
#include "app/picture_view.h"
#include "app/ui_common.h"
#include "tests/pages/map_layout_rom.h"
#include "tests/support/scripted_prompt.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace velko {
namespace {

using test::Bytes;
using test::ColouredMapTest;
using test::ScriptedPrompt;
using test::TestRom;

constexpr std::uint8_t kInside = 0x6E;
constexpr std::uint8_t kPartner = 0x48;

const std::string kNoMap =
    "This Room has no Map Layout data. (Height and Width are both 0). If you want to use this Room "
    "Id, please go to Data Management and use the \"Allocate unique data\" function under the "
    "\"Map layout\" category.";
const std::string kPartnerQuestion =
    "This Room Id points to the same data as \"Id 48: Area 2 Indoor\", but has different Height "
    "and Width, so changing those here will corrupt that Room's layout data. Do you want to fix "
    "the Room size to be synchronized with Id 48? (Once you do, this message won't appear "
    "anymore).";

// The template's numbers of the controls.
enum Control {
    kHeightGrow = 1089,
    kHeightShrink = 1090,
    kWidthGrow = 1032,
    kWidthShrink = 1091,
    kMoveUp = 1136,
    kMoveDown = 1033,
    kMoveLeft = 1071,
    kMoveRight = 1137,
};
constexpr int kChangingButtons[] = {kHeightGrow, kHeightShrink, kWidthGrow, kWidthShrink,
                                    kMoveUp,     kMoveDown,     kMoveLeft,  kMoveRight};

// A page of 900 x 640 on room 0, which shows its six cells in the largest size, 128 x 120. Rooms 2
// and 0x1A are of one map and size with it, room 3 has its map in another size.
class MapLayoutPageTest : public ColouredMapTest {
protected:
    MapLayoutPageTest() : ColouredMapTest(0x70)
    {
        for (const std::uint32_t room : {0x02U, 0x03U, 0x1AU})
            game.shareAll(room, 0);
        game.setStoredSize(3, 5, 1);
        start();
        state.config.setValue(MiscField::rooms, 0x70);
        page = std::make_unique<MapLayoutPage>(state, prompt);
        page->setup();
        page->refresh();
        page->resize(900, 640);
        page->show();
        page->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(page.get()));
    }

    template <typename Widget = QWidget> Widget& control(int id) const
    {
        for (Widget* widget : page->findChildren<Widget*>()) {
            if (widget->property(kControlId).toInt() == id)
                return *widget;
        }
        throw std::runtime_error("no control " + std::to_string(id));
    }
    PictureView& grid() const { return control<PictureView>(1084); }
    PictureView& preview() const { return control<PictureView>(1085); }
    QListView& list() const { return control<QListView>(1086); }
    QScrollBar& bar(const char* name) const { return *page->findChild<QScrollBar*>(name); }
    QString heightText() const { return control<QLabel>(1087).text(); }
    QString widthText() const { return control<QLabel>(1088).text(); }
    QString roomsText() const { return control<QLineEdit>(1209).text(); }

    void press(int button) const
    {
        QTest::mouseClick(&control<QAbstractButton>(button), Qt::LeftButton);
    }
    static QPoint inWidget(int x, int y)
    {
        return {x + PictureView::kFrame, y + PictureView::kFrame};
    }
    void clickCell(int row, int column) const
    {
        QTest::mouseClick(&grid(), Qt::LeftButton, {}, inWidget(column * 128 + 64, row * 120 + 60));
    }
    void moveHolding(int x, int y, Qt::MouseButton button) const
    {
        const QPoint point = inWidget(x, y);
        QMouseEvent move(QEvent::MouseMove, point, grid().mapToGlobal(QPointF(point)), Qt::NoButton,
                         button, {});
        QApplication::sendEvent(&grid(), &move);
    }
    void chooseLine(int line) const
    {
        const QModelIndex index = list().model()->index(line, 0);
        list().scrollTo(index);
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().visualRect(index).center());
    }
    // The line that is selected; -1 for none.
    int chosenLine() const
    {
        const QModelIndexList lines = list().selectionModel()->selectedIndexes();
        return lines.isEmpty() ? -1 : lines.front().row();
    }
    void changeRoom(std::uint8_t room)
    {
        state.graphics.selectRoom(room);
        page->refresh();
    }
    // Away from the cell's number.
    Pixel cellPixel(std::uint32_t row, std::uint32_t column) const
    {
        return grid().picture().at(column * 128 + 110, row * 120 + 100);
    }
    bool cellIsFramed(std::uint32_t row, std::uint32_t column) const
    {
        const PixelImage& picture = grid().picture();
        return picture.at(column * 128, row * 120) == 0x000000
            && picture.at(column * 128 + 1, row * 120 + 1) == 0xFFFFFF
            && picture.at(column * 128 + 127, row * 120 + 119) == 0x000000;
    }
    void expectSelected(std::uint32_t row, std::uint32_t column, int screen, Pixel colour) const
    {
        EXPECT_TRUE(cellIsFramed(row, column));
        EXPECT_EQ(chosenLine(), screen);
        EXPECT_EQ(preview().picture(), PixelImage(256, 240, colour));
    }
    bool changingButtonsAre(bool enabled) const
    {
        for (const int button : kChangingButtons) {
            if (control(button).isEnabled() != enabled)
                return false;
        }
        return true;
    }

    const Bytes kRows = {0xEE, 0, 1, 2, 0xEE, 0xEE, 3, 4, 5, 0xEE};
    ScriptedPrompt prompt;
    std::unique_ptr<MapLayoutPage> page;
};

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
    QTest::mousePress(&grid(), Qt::LeftButton, {}, inWidget(10, 10));
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
    QTest::mouseClick(&grid(), Qt::RightButton, {}, inWidget(200, 60));
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

// The size

TEST_F(MapLayoutPageTest, HeightGrowsAtTheBottom)
{
    press(kHeightGrow);
    EXPECT_EQ(block(0, 15), (Bytes{0xEE, 0, 1, 2, 0xEE, 0xEE, 3, 4, 5, 0xEE, 0, 0, 0, 0, 0}));
    for (const std::uint32_t room : {0x00U, 0x02U, 0x1AU})
        EXPECT_EQ(storedSize(room), (Bytes{5, 3})) << room;
    EXPECT_EQ(storedSize(3), (Bytes{5, 1}));
    EXPECT_EQ(block(1, 3), (Bytes{0xEE, 7, 0xEE})); // moved up
    EXPECT_EQ(heightText(), "3");
    EXPECT_EQ(roomsText(), "2, 1a");
    EXPECT_EQ(grid().picture().height(), 360U);
    EXPECT_EQ(cellPixel(2, 2), TestRom::colour(16));
}

TEST_F(MapLayoutPageTest, HeightShrinksToOneRow)
{
    press(kHeightShrink);
    EXPECT_EQ(storedSize(0), (Bytes{5, 1}));
    EXPECT_EQ(block(0, 5), (Bytes{0xEE, 0, 1, 2, 0xEE}));
    EXPECT_EQ(block(1, 3), (Bytes{0xEE, 7, 0xEE}));
    EXPECT_EQ(heightText(), "1");
    EXPECT_EQ(roomsText(), "2, 3, 1a"); // now of room 3's size
    EXPECT_EQ(grid().picture().height(), 120U);
    const Bytes before = image();
    press(kHeightShrink);
    EXPECT_EQ(image(), before);
}

TEST_F(MapLayoutPageTest, WidthGrowsBeforeTheRightBorder)
{
    press(kWidthGrow);
    EXPECT_EQ(block(0, 12), (Bytes{0xEE, 0, 1, 2, 0, 0xEE, 0xEE, 3, 4, 5, 0, 0xEE}));
    for (const std::uint32_t room : {0x00U, 0x02U, 0x1AU})
        EXPECT_EQ(storedSize(room), (Bytes{6, 2})) << room;
    EXPECT_EQ(block(1, 3), (Bytes{0xEE, 7, 0xEE}));
    EXPECT_EQ(widthText(), "4");
    EXPECT_EQ(cellPixel(0, 3), TestRom::colour(16));
}

TEST_F(MapLayoutPageTest, WidthShrinksToOneColumn)
{
    press(kWidthShrink);
    EXPECT_EQ(block(0, 8), (Bytes{0xEE, 0, 1, 0xEE, 0xEE, 3, 4, 0xEE}));
    EXPECT_EQ(storedSize(0x1A), (Bytes{4, 2}));
    EXPECT_EQ(widthText(), "2");
    press(kWidthShrink);
    EXPECT_EQ(block(0, 6), (Bytes{0xEE, 0, 0xEE, 0xEE, 3, 0xEE}));
    const Bytes before = image();
    press(kWidthShrink);
    EXPECT_EQ(image(), before);
    EXPECT_EQ(widthText(), "1");
}

TEST_F(MapLayoutPageTest, SelectionStaysInASmallerMap)
{
    clickCell(1, 2);
    press(kWidthShrink);
    expectSelected(1, 1, 4, TestRom::colour(5));
}

TEST_F(MapLayoutPageTest, LargestSizesAreTold)
{
    setStoredSize(0, 5, 255);
    page->refresh();
    Bytes before = image();
    prompt.expect("Yup. This is as far as it goes.", MessageIcon::kExclamation);
    press(kHeightGrow);
    EXPECT_EQ(image(), before);
    setStoredSize(0, 255, 2);
    page->refresh();
    before = image();
    prompt.expect("Yup. This is as far as it goes.", MessageIcon::kExclamation);
    press(kWidthGrow);
    EXPECT_EQ(image(), before);
}

TEST_F(MapLayoutPageTest, MissingSpaceIsTold)
{
    layouts().setFreeSpace(1);
    const Bytes before = image();
    prompt.expect("Not enough free space in the Map Layout data.", MessageIcon::kExclamation);
    press(kHeightGrow);
    prompt.expect("Not enough free space in the Map Layout data.", MessageIcon::kExclamation);
    press(kWidthGrow);
    EXPECT_EQ(image(), before);
    EXPECT_EQ(heightText(), "2");
}

// Moving the map

TEST_F(MapLayoutPageTest, ArrowButtonsMoveTheMapAroundItsEdges)
{
    const struct {
        int button;
        Bytes moved;
    } moves[] = {{kMoveRight, {0xEE, 2, 0, 1, 0xEE, 0xEE, 5, 3, 4, 0xEE}},
                 {kMoveLeft, kRows},
                 {kMoveDown, {0xEE, 3, 4, 5, 0xEE, 0xEE, 0, 1, 2, 0xEE}},
                 {kMoveUp, kRows},
                 {kMoveLeft, {0xEE, 1, 2, 0, 0xEE, 0xEE, 4, 5, 3, 0xEE}}};
    for (const auto& move : moves) {
        press(move.button);
        EXPECT_EQ(block(0, 10), move.moved) << move.button;
    }
}

TEST_F(MapLayoutPageTest, MovedMapIsShown)
{
    press(kMoveRight);
    expectSelected(0, 0, 2, TestRom::colour(2));
    EXPECT_EQ(cellPixel(0, 0), TestRom::colour(2));
    EXPECT_EQ(cellPixel(1, 0), 0x988898U);
    press(kMoveUp);
    expectSelected(0, 0, -1, 0x988898);
}

// Rooms without a map

TEST_F(MapLayoutPageTest, RoomWithoutAMapIsToldOncePerRefresh)
{
    setStoredSize(0, 0, 0);
    prompt.expect(kNoMap);
    page->refresh();
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(heightText(), "0");
    EXPECT_EQ(widthText(), "0");
    EXPECT_TRUE(grid().picture().empty());
    EXPECT_TRUE(grid().size().isEmpty());
    EXPECT_TRUE(preview().picture().empty());
    EXPECT_EQ(list().model()->rowCount(), 0);
    EXPECT_EQ(roomsText(), "");
    EXPECT_TRUE(changingButtonsAre(false));
    page->resize(800, 600);

    prompt.expect(kNoMap);
    page->refresh();
    EXPECT_TRUE(prompt.done());

    changeRoom(2);
    EXPECT_TRUE(changingButtonsAre(true));
    EXPECT_EQ(heightText(), "2");
    EXPECT_EQ(cellPixel(0, 1), TestRom::colour(1));
}

TEST_F(MapLayoutPageTest, NothingIsWrittenWithoutAMap)
{
    setStoredSize(0, 0, 0);
    prompt.expect(kNoMap);
    page->refresh();
    const Bytes before = image();
    for (const int button : kChangingButtons)
        press(button);
    QTest::mouseClick(&grid(), Qt::LeftButton, {}, QPoint(3, 3));
    QTest::keyClick(&grid(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(image(), before);
}

TEST_F(MapLayoutPageTest, OneSizeOfZeroIsAMap)
{
    setStoredSize(0, 0, 2);
    page->refresh();
    EXPECT_EQ(widthText(), "1");
    EXPECT_TRUE(changingButtonsAre(true));
}

// The two rooms of one map

class PartnerRoomTest : public MapLayoutPageTest {
protected:
    PartnerRoomTest()
    {
        game.shareAll(kPartner, 0);
        game.shareAll(kInside, 0);
        game.setStoredSize(kInside, 4, 1);
        start();
    }
    void showInside(ScriptedPrompt::Answer answer)
    {
        prompt.expectYesNoCancel(kPartnerQuestion, answer);
        changeRoom(kInside);
        EXPECT_TRUE(prompt.done());
    }
};

TEST_F(PartnerRoomTest, YesTakesThePartnersSize)
{
    Bytes expected = image();
    const std::uint32_t entry = game.entryOffset(&GameConfig::pahMapLayout, kInside);
    showInside(ScriptedPrompt::Answer::kYes);
    expected[entry + 2] = 5;
    expected[entry + 3] = 2;
    EXPECT_EQ(image(), expected);
    EXPECT_EQ(widthText(), "3");
    EXPECT_EQ(heightText(), "2");
    EXPECT_EQ(roomsText(), "0, 2, 1a, 48");
    page->refresh(); // no question any more
}

TEST_F(PartnerRoomTest, NoAndCancelKeepTheSize)
{
    const Bytes before = image();
    for (const auto answer : {ScriptedPrompt::Answer::kNo, ScriptedPrompt::Answer::kCancel}) {
        showInside(answer);
        EXPECT_EQ(image(), before);
        EXPECT_EQ(widthText(), "2");
        EXPECT_EQ(heightText(), "1");
        EXPECT_EQ(roomsText(), "");
    }
}

TEST_F(PartnerRoomTest, QuestionComesAfterEveryResizeAndNoOtherChange)
{
    showInside(ScriptedPrompt::Answer::kNo);
    press(kMoveRight);
    chooseLine(3);
    clickCell(0, 1);
    prompt.expectYesNoCancel(kPartnerQuestion, ScriptedPrompt::Answer::kNo);
    press(kWidthShrink);
    EXPECT_EQ(storedSize(kInside), (Bytes{3, 1}));
    EXPECT_EQ(storedSize(kPartner), (Bytes{5, 2}));
}

TEST_F(PartnerRoomTest, PartnerWithoutAMapLeavesNone)
{
    setStoredSize(kPartner, 0, 0);
    prompt.expectYesNoCancel(kPartnerQuestion, ScriptedPrompt::Answer::kYes);
    prompt.expect(kNoMap);
    changeRoom(kInside);
    EXPECT_EQ(storedSize(kInside), (Bytes{0, 0}));
    EXPECT_TRUE(changingButtonsAre(false));
}

TEST_F(PartnerRoomTest, PartnerItselfIsNotAsked)
{
    changeRoom(kPartner);
    EXPECT_EQ(roomsText(), "0, 2, 1a");
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
    QTest::mouseClick(&grid(), Qt::LeftButton, {}, inWidget(100, 100)); // 116, 116 of the map
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
    const auto wheel = [this](QWidget& over, QPoint turn) {
        const QPointF global = over.mapToGlobal(QPointF(20, 20));
        QWheelEvent event(page->mapFromGlobal(global), global, {}, turn, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(page.get(), &event);
    };
    wheel(grid(), {0, -120});
    EXPECT_GT(verticalBar().value(), 0);
    wheel(grid(), {-120, 0});
    EXPECT_GT(horizontalBar().value(), 0);
    const int before = verticalBar().value();
    wheel(preview(), {0, -120});
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
    QTest::mousePress(&grid(), Qt::LeftButton, {}, inWidget(0, 0));
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
} // namespace velko
