#include "tests/gui/map_layout_fixture.h"

namespace velko::test::map_layout {
namespace {

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

} // namespace
} // namespace velko::test::map_layout
