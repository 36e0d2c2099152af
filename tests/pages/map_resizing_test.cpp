#include "tests/pages/map_layout_rom.h"

namespace velko {
namespace {

using test::Bytes;
using test::MapLayoutTest;
using ResizeResult = MapLayoutModel::ResizeResult;

class MapResizingTest : public MapLayoutTest {
protected:
    // A resize of the current room that must be refused, with the reason.
    template <typename Resize> void expectRefused(ResizeResult reason, Resize resize)
    {
        const Bytes before = image();
        const std::int32_t freeSpace = layouts().freeSpace();
        EXPECT_EQ((model.*resize)(), reason);
        EXPECT_EQ(image(), before);
        EXPECT_EQ(layouts().freeSpace(), freeSpace);
    }
};

TEST_F(MapResizingTest, GrownHeightHasANewBottomRowOfZeros)
{
    const std::int32_t freeSpace = layouts().freeSpace();
    EXPECT_EQ(model.growHeight(), ResizeResult::kDone);
    EXPECT_EQ(block(0, 15), (Bytes{0xEE, 0, 1, 2, 0xEE, 0xEE, 3, 4, 5, 0xEE, 0, 0, 0, 0, 0}));
    EXPECT_EQ(storedSize(0), (Bytes{5, 3}));
    EXPECT_EQ(block(1, 3), (Bytes{0xEE, 7, 0xEE}));
    EXPECT_EQ(layouts().freeSpace(), freeSpace - 5);
}

TEST_F(MapResizingTest, ShrunkHeightLosesItsBottomRow)
{
    const std::int32_t freeSpace = layouts().freeSpace();
    EXPECT_EQ(model.shrinkHeight(), ResizeResult::kDone);
    EXPECT_EQ(block(0, 8), (Bytes{0xEE, 0, 1, 2, 0xEE, 0xEE, 7, 0xEE}));
    EXPECT_EQ(storedSize(0), (Bytes{5, 1}));
    EXPECT_EQ(block(1, 3), (Bytes{0xEE, 7, 0xEE}));
    EXPECT_EQ(layouts().freeSpace(), freeSpace + 5);
}

TEST_F(MapResizingTest, GrownWidthHasANewColumnLeftOfTheRightBorder)
{
    const std::int32_t freeSpace = layouts().freeSpace();
    EXPECT_EQ(model.growWidth(), ResizeResult::kDone);
    EXPECT_EQ(block(0, 12), (Bytes{0xEE, 0, 1, 2, 0, 0xEE, 0xEE, 3, 4, 5, 0, 0xEE}));
    EXPECT_EQ(storedSize(0), (Bytes{6, 2}));
    EXPECT_EQ(block(1, 3), (Bytes{0xEE, 7, 0xEE}));
    EXPECT_EQ(layouts().freeSpace(), freeSpace - 2);
}

TEST_F(MapResizingTest, WidthSixGrowsAtOffsetsFiveAndTwelve)
{
    game.setLayout(0, 4, 2, {1, 2, 3, 4, 5, 6, 7, 8});
    start();
    EXPECT_EQ(model.growWidth(), ResizeResult::kDone);
    EXPECT_EQ(block(0, 14), (Bytes{0xEE, 1, 2, 3, 4, 0, 0xEE, 0xEE, 5, 6, 7, 8, 0, 0xEE}));
    EXPECT_EQ(storedSize(0), (Bytes{7, 2}));
}

TEST_F(MapResizingTest, ShrunkWidthLosesItsLastShownColumn)
{
    const std::int32_t freeSpace = layouts().freeSpace();
    EXPECT_EQ(model.shrinkWidth(), ResizeResult::kDone);
    EXPECT_EQ(block(0, 8), (Bytes{0xEE, 0, 1, 0xEE, 0xEE, 3, 4, 0xEE}));
    EXPECT_EQ(storedSize(0), (Bytes{4, 2}));
    EXPECT_EQ(block(1, 3), (Bytes{0xEE, 7, 0xEE}));
    EXPECT_EQ(layouts().freeSpace(), freeSpace + 2);
}

TEST_F(MapResizingTest, GrowingAndShrinkingGiveTheMapBack)
{
    const Bytes before = image();
    EXPECT_EQ(model.growWidth(), ResizeResult::kDone);
    EXPECT_EQ(model.growHeight(), ResizeResult::kDone);
    EXPECT_EQ(model.shrinkWidth(), ResizeResult::kDone);
    EXPECT_EQ(model.shrinkHeight(), ResizeResult::kDone);
    EXPECT_EQ(image(), before);
}

TEST_F(MapResizingTest, SmallestMapIsNotShrunk)
{
    state.graphics.selectRoom(1);
    expectRefused(ResizeResult::kNothing, &MapLayoutModel::shrinkWidth);
    expectRefused(ResizeResult::kNothing, &MapLayoutModel::shrinkHeight);
}

TEST_F(MapResizingTest, LargestMapIsNotGrown)
{
    setStoredSize(0, 255, 255);
    layouts().setFreeSpace(0x10000);
    expectRefused(ResizeResult::kAtLimit, &MapLayoutModel::growWidth);
    expectRefused(ResizeResult::kAtLimit, &MapLayoutModel::growHeight);
}

TEST_F(MapResizingTest, MapIsNotGrownWithoutFreeSpace)
{
    layouts().setFreeSpace(4);
    expectRefused(ResizeResult::kNoFreeSpace, &MapLayoutModel::growHeight);
    layouts().setFreeSpace(1);
    expectRefused(ResizeResult::kNoFreeSpace, &MapLayoutModel::growWidth);
    for (const std::int32_t freeSpace : {0, -1, -2, -300}) {
        layouts().setFreeSpace(freeSpace);
        expectRefused(ResizeResult::kNoFreeSpace, &MapLayoutModel::growHeight);
        expectRefused(ResizeResult::kNoFreeSpace, &MapLayoutModel::growWidth);
    }
}

TEST_F(MapResizingTest, AllOfTheFreeSpaceCanBeUsed)
{
    layouts().setFreeSpace(2);
    EXPECT_EQ(model.growWidth(), ResizeResult::kDone);
    layouts().setFreeSpace(6);
    EXPECT_EQ(model.growHeight(), ResizeResult::kDone);
    EXPECT_EQ(layouts().freeSpace(), 0);
}

// The limit is told before the lack of space.
TEST_F(MapResizingTest, LimitComesFirst)
{
    setStoredSize(0, 255, 255);
    layouts().setFreeSpace(0);
    expectRefused(ResizeResult::kAtLimit, &MapLayoutModel::growWidth);
    expectRefused(ResizeResult::kAtLimit, &MapLayoutModel::growHeight);
}

TEST_F(MapResizingTest, UnknownFreeSpaceShrinksNothing)
{
    layouts().setFreeSpace(-1);
    expectRefused(ResizeResult::kNothing, &MapLayoutModel::shrinkHeight);
    expectRefused(ResizeResult::kNothing, &MapLayoutModel::shrinkWidth);
}

// Each row gives back a byte. Free space of -2 would be -1 for the second row, which then would be
// refused and leave half a map.
TEST_F(MapResizingTest, OverfullRegionShrinksTheWholeWidthOrNothing)
{
    layouts().setFreeSpace(-2);
    expectRefused(ResizeResult::kNothing, &MapLayoutModel::shrinkWidth);
    layouts().setFreeSpace(-3);
    EXPECT_EQ(model.shrinkWidth(), ResizeResult::kDone);
    EXPECT_EQ(block(0, 8), (Bytes{0xEE, 0, 1, 0xEE, 0xEE, 3, 4, 0xEE}));
    EXPECT_EQ(layouts().freeSpace(), -1);
}

TEST_F(MapResizingTest, SynchronisedRoomsGetTheNewSize)
{
    game.shareAll(2, 0);
    game.shareAll(3, 0);
    start();
    setStoredSize(3, 5, 1); // of another size: left alone
    EXPECT_EQ(model.growHeight(), ResizeResult::kDone);
    EXPECT_EQ(model.growWidth(), ResizeResult::kDone);
    EXPECT_EQ(storedSize(2), (Bytes{6, 3}));
    EXPECT_EQ(storedSize(3), (Bytes{5, 1}));
    EXPECT_EQ(layouts().pointerOf(2), layouts().pointerOf(0));
    EXPECT_EQ(model.shrinkHeight(), ResizeResult::kDone);
    EXPECT_EQ(model.shrinkWidth(), ResizeResult::kDone);
    EXPECT_EQ(storedSize(2), (Bytes{5, 2}));
    EXPECT_EQ(model.synchronisedRooms(), (std::vector<std::uint32_t>{2}));
}

// Sizes that no game has. The block stays as long as the size says. A block of no bytes starts
// where another room's does: what is inserted there becomes the head of both.

TEST_F(MapResizingTest, RowsWithoutBytesGrowAtTheHeadOfTheBlockThere)
{
    // Room 2's empty block lies where room 1's starts, and room 3 is synchronised with it.
    const std::uint16_t start = layouts().pointerOf(1);
    for (const std::uint32_t room : {2U, 3U}) {
        layouts().setPointer(room, start);
        setStoredSize(room, 0, 2);
    }
    state.graphics.selectRoom(2);
    const std::int32_t freeSpace = layouts().freeSpace();
    EXPECT_EQ(model.growWidth(), ResizeResult::kDone);
    EXPECT_EQ(storedSize(2), (Bytes{1, 2}));
    EXPECT_EQ(storedSize(3), (Bytes{1, 2}));
    EXPECT_EQ(layouts().freeSpace(), freeSpace - 2);
    for (const std::uint32_t room : {1U, 2U, 3U})
        EXPECT_EQ(layouts().pointerOf(room), start);
    EXPECT_EQ(storedSize(1), (Bytes{3, 1}));
    EXPECT_EQ(block(1, 5), (Bytes{0, 0, 0xEE, 7, 0xEE}));
    EXPECT_EQ(block(0, 10), (Bytes{0xEE, 0, 1, 2, 0xEE, 0xEE, 3, 4, 5, 0xEE}));
}

TEST_F(MapResizingTest, WidthOneAndTwoGrowInsideTheirRows)
{
    setStoredSize(0, 1, 3); // EE | 0 | 1
    EXPECT_EQ(model.growWidth(), ResizeResult::kDone);
    EXPECT_EQ(block(0, 7), (Bytes{0, 0xEE, 0, 0, 0, 1, 2}));
    EXPECT_EQ(model.growWidth(), ResizeResult::kDone);
    EXPECT_EQ(block(0, 10), (Bytes{0, 0, 0xEE, 0, 0, 0, 0, 0, 1, 2}));
    EXPECT_EQ(storedSize(0), (Bytes{3, 3}));
}

TEST_F(MapResizingTest, WidthBelowThreeIsNotShrunk)
{
    for (const int width : {0, 1, 2, 3}) {
        setStoredSize(0, static_cast<std::uint8_t>(width), 2);
        expectRefused(ResizeResult::kNothing, &MapLayoutModel::shrinkWidth);
    }
}

TEST_F(MapResizingTest, MapWithoutRowsGetsItsFirstOneAtTheHeadOfTheBlockThere)
{
    const std::uint16_t start = layouts().pointerOf(1);
    layouts().setPointer(0, start);
    setStoredSize(0, 5, 0);
    EXPECT_EQ(model.heightText(), "1");
    expectRefused(ResizeResult::kNothing, &MapLayoutModel::shrinkHeight);
    const std::int32_t freeSpace = layouts().freeSpace();
    EXPECT_EQ(model.growHeight(), ResizeResult::kDone);
    EXPECT_EQ(storedSize(0), (Bytes{5, 1}));
    EXPECT_EQ(layouts().freeSpace(), freeSpace - 5);
    EXPECT_EQ(layouts().pointerOf(0), start);
    EXPECT_EQ(layouts().pointerOf(1), start);
    EXPECT_EQ(block(1, 8), (Bytes{0, 0, 0, 0, 0, 0xEE, 7, 0xEE}));
}

// Where no other block starts, nobody notices.
TEST_F(MapResizingTest, MapWithoutRowsGrowsAtTheStartOfTheFreeSpace)
{
    const std::uint16_t firstFree = layouts().freeSpaceStart();
    layouts().setPointer(0, firstFree);
    setStoredSize(0, 3, 0);
    EXPECT_EQ(model.growHeight(), ResizeResult::kDone);
    EXPECT_EQ(layouts().pointerOf(0), firstFree);
    EXPECT_EQ(layouts().freeSpaceStart(), firstFree + 3);
    EXPECT_EQ(block(0, 3), Bytes(3));
    EXPECT_EQ(block(1, 3), (Bytes{0xEE, 7, 0xEE}));
}

TEST_F(MapResizingTest, MapWithoutRowsChangesItsWidthOnly)
{
    setStoredSize(0, 5, 0);
    EXPECT_EQ(model.growWidth(), ResizeResult::kDone);
    EXPECT_EQ(model.shrinkWidth(), ResizeResult::kDone);
    EXPECT_EQ(model.shrinkWidth(), ResizeResult::kDone);
    EXPECT_EQ(storedSize(0), (Bytes{4, 0}));
    EXPECT_EQ(block(0, 10), (Bytes{0xEE, 0, 1, 2, 0xEE, 0xEE, 3, 4, 5, 0xEE}));
}

TEST_F(MapResizingTest, RowsWithoutBytesComeAndGo)
{
    setStoredSize(0, 0, 3);
    EXPECT_EQ(model.growHeight(), ResizeResult::kDone);
    EXPECT_EQ(storedSize(0), (Bytes{0, 4}));
    EXPECT_EQ(model.shrinkHeight(), ResizeResult::kDone);
    EXPECT_EQ(storedSize(0), (Bytes{0, 3}));
    EXPECT_EQ(block(0, 5), (Bytes{0xEE, 0, 1, 2, 0xEE}));
}

TEST_F(MapResizingTest, RefusalsAreTold)
{
    EXPECT_EQ(MapLayoutModel::message(ResizeResult::kAtLimit), "Yup. This is as far as it goes.");
    EXPECT_EQ(MapLayoutModel::message(ResizeResult::kNoFreeSpace),
              "Not enough free space in the Map Layout data.");
    EXPECT_EQ(MapLayoutModel::message(ResizeResult::kNothing), "");
    EXPECT_EQ(MapLayoutModel::message(ResizeResult::kDone), "");
}

} // namespace
} // namespace velko
