#include "pages/map_allocation_model.h"

#include "tests/support/test_rom.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

using test::Bytes;
using test::TestRom;
using InsertResult = MapAllocationModel::InsertResult;
using Lines = std::vector<std::string>;

// Room 0 has the screens $8600, $8680 and $C808; room 1, above it, the screen $8640. The area has
// 272 screens from $8600 on.
class MapAllocationModelTest : public testing::Test {
protected:
    MapAllocationModelTest()
    {
        game.setScreenList(0, {0x8600, 0x8680, 0xC808});
        game.setScreenList(1, {0x8640});
        game.setScreenList(2, {});
        game.setScreenList(3, {0x8640});
        game.config.setValue(MiscField::mapIndexes, 272);
        start();
    }
    void start()
    {
        game.loadInto(state);
        model.resetSelection();
    }
    void showRoom(std::uint8_t room)
    {
        state.graphics.selectRoom(room);
        model.resetSelection();
    }
    PointerArrayHandler& lists() { return state.store.pahMapAlloc; }
    Bytes image() const { return {state.rom.bytes().begin(), state.rom.bytes().end()}; }
    // The words of the current room's list and of what follows it.
    std::vector<std::uint16_t> words(std::uint32_t count)
    {
        std::vector<std::uint16_t> all;
        for (std::uint32_t i = 0; i < count; ++i)
            all.push_back(lists().dataWord(2 * i));
        return all;
    }

    TestRom game;
    EditorState state;
    MapAllocationModel model{state};
};

using Words = std::vector<std::uint16_t>;

TEST_F(MapAllocationModelTest, LinesTellPositionAddressAndIndex)
{
    EXPECT_EQ(
        model.lines(),
        (Lines{"0: -- 8600 -- (index 0)", "1: -- 8680 -- (index 2)", "2: -- c808 -- (index 108)"}));
    showRoom(2);
    EXPECT_EQ(model.lines(), Lines{});
}

TEST_F(MapAllocationModelTest, PositionsAreHexadecimal)
{
    game.setScreenList(0, Words(17, 0x8600));
    start();
    EXPECT_EQ(model.lines()[16], "10: -- 8600 -- (index 0)");
}

TEST_F(MapAllocationModelTest, ScreenCountOf256MeansTheCurrentRoom)
{
    EXPECT_EQ(model.screenCount(), 3U);
    EXPECT_EQ(model.screenCount(256), 3U);
    EXPECT_EQ(model.screenCount(1), 1U);
    EXPECT_EQ(model.screenCount(2), 0U);
}

TEST_F(MapAllocationModelTest, SecondScreenIsPreselectedWhereThereIsOne)
{
    EXPECT_EQ(model.selectedPosition(), 1);
    showRoom(1);
    EXPECT_EQ(model.selectedPosition(), 0);
    showRoom(2);
    EXPECT_EQ(model.selectedPosition(), 0);
}

TEST_F(MapAllocationModelTest, SelectionShowsAddressAndIndex)
{
    model.select(2);
    EXPECT_EQ(model.selectedAddress(), 0xC808);
    EXPECT_EQ(model.selectedIndex(), 264U);
    model.select(-1);
    EXPECT_EQ(model.selectedPosition(), 2);
}

TEST_F(MapAllocationModelTest, ScrollBarRunsOverAllIndexes)
{
    EXPECT_EQ(model.scrollMaximum(), 272 + 14);
    EXPECT_EQ(model.scrollMaximum() - MapAllocationModel::kScrollPage + 1, 271);
    state.config.setValue(MiscField::mapIndexes, 0);
    EXPECT_EQ(model.scrollMaximum(), 14);
    state.config.setValue(MiscField::mapIndexes, 0xFFFFFFFF);
    EXPECT_GT(model.scrollMaximum(), 0);
}

TEST_F(MapAllocationModelTest, FreeSpaceIsHexadecimalWithoutPrefix)
{
    lists().setFreeSpace(300);
    EXPECT_EQ(model.freeSpaceText(), "12c");
    lists().setFreeSpace(-1);
    EXPECT_EQ(model.freeSpaceText(), "ffffffff");
}

TEST_F(MapAllocationModelTest, PreviewIsTheSelectedScreen)
{
    PixelImage picture;
    model.drawSelectedScreen(picture);
    PixelImage expected(256, 240);
    state.renderer.drawScreen(expected, 0, 0, 0x8680);
    EXPECT_EQ(picture, expected);
}

// Inserting

TEST_F(MapAllocationModelTest, InsertionPutsTheNextScreenBehindTheSelectedOne)
{
    const std::int32_t freeSpace = lists().freeSpace();
    const std::uint16_t room1 = lists().pointerOf(1);
    EXPECT_EQ(model.insertAfterSelected(), InsertResult::kDone);
    EXPECT_EQ(words(5), (Words{0x8600, 0x8680, 0x86C0, 0xC808, 0xFFFF}));
    EXPECT_EQ(model.selectedPosition(), 2);
    EXPECT_EQ(lists().freeSpace(), freeSpace - 2);
    EXPECT_EQ(lists().pointerOf(1), room1 + 2);
    EXPECT_EQ(lists().dataWord(0, 1), 0x8640);
}

TEST_F(MapAllocationModelTest, InsertionBehindTheLastScreenStaysBeforeTheTerminator)
{
    model.select(2);
    EXPECT_EQ(model.insertAfterSelected(), InsertResult::kDone);
    EXPECT_EQ(words(5), (Words{0x8600, 0x8680, 0xC808, 0xC848, 0xFFFF}));
}

TEST_F(MapAllocationModelTest, PastTheScreenAreaTheFirstScreenIsInserted)
{
    state.config.setValue(MiscField::mapIndexes, 265); // 264 is the last one
    model.select(2);
    EXPECT_EQ(model.insertAfterSelected(), InsertResult::kDone);
    EXPECT_EQ(words(5), (Words{0x8600, 0x8680, 0xC808, 0x8600, 0xFFFF}));
}

TEST_F(MapAllocationModelTest, NextAddressWrapsAt65536)
{
    model.setAddress(0xFFE0);
    EXPECT_EQ(model.insertAfterSelected(), InsertResult::kDone);
    EXPECT_EQ(words(3), (Words{0x8600, 0xFFE0, 0x0020})); // below the area: index 0
}

TEST_F(MapAllocationModelTest, Room255TakesOneMoreAndRoom256None)
{
    game.setScreenList(0, Words(255, 0x8600));
    start();
    EXPECT_EQ(model.insertAfterSelected(), InsertResult::kDone);
    EXPECT_EQ(model.screenCount(), 256U);
    const Bytes before = image();
    EXPECT_EQ(model.insertAfterSelected(), InsertResult::kListFull);
    EXPECT_EQ(image(), before);
    EXPECT_EQ(model.selectedPosition(), 2);
}

TEST_F(MapAllocationModelTest, OnlyExactly256ScreensAreRefused)
{
    game.setScreenList(0, Words(257, 0x8600));
    start();
    EXPECT_EQ(model.insertAfterSelected(), InsertResult::kDone);
    EXPECT_EQ(model.screenCount(), 258U);
}

TEST_F(MapAllocationModelTest, InsertionWithoutSpaceChangesNothing)
{
    for (const std::int32_t freeSpace : {1, 0, -1, -7}) {
        lists().setFreeSpace(freeSpace);
        const Bytes before = image();
        EXPECT_EQ(model.insertAfterSelected(), InsertResult::kNoFreeSpace);
        EXPECT_EQ(image(), before);
        EXPECT_EQ(model.selectedPosition(), 1);
    }
}

TEST_F(MapAllocationModelTest, RefusedInsertionsAreTold)
{
    EXPECT_EQ(MapAllocationModel::message(InsertResult::kListFull),
              "Insert failed! 256 screens allocated. Any more can't be referred to on the room's "
              "map.");
    EXPECT_EQ(MapAllocationModel::message(InsertResult::kNoFreeSpace),
              "Not enough free space in Map Allocation data.");
    EXPECT_EQ(MapAllocationModel::message(InsertResult::kDone), "");
}

// Removing

TEST_F(MapAllocationModelTest, RemovedEntryIsFollowedByTheNext)
{
    const std::uint16_t room1 = lists().pointerOf(1);
    model.removeSelected();
    EXPECT_EQ(words(3), (Words{0x8600, 0xC808, 0xFFFF}));
    EXPECT_EQ(model.selectedPosition(), 1);
    EXPECT_EQ(lists().pointerOf(1), room1 - 2);
}

TEST_F(MapAllocationModelTest, RemovingTheLastEntrySelectsTheNewLastOne)
{
    model.select(2);
    model.removeSelected();
    EXPECT_EQ(words(3), (Words{0x8600, 0x8680, 0xFFFF}));
    EXPECT_EQ(model.selectedPosition(), 1);
}

TEST_F(MapAllocationModelTest, OnlyEntryIsNotRemoved)
{
    showRoom(1);
    const Bytes before = image();
    model.removeSelected();
    EXPECT_EQ(image(), before);
}

TEST_F(MapAllocationModelTest, RemovingFromAnEmptyListTakesItsTerminator)
{
    showRoom(2);
    const std::uint16_t next = lists().pointerOf(3);
    model.removeSelected();
    EXPECT_EQ(words(2), (Words{0x8640, 0xFFFF})); // room 3's list, which lay behind
    EXPECT_EQ(lists().pointerOf(3), next - 2);
    EXPECT_EQ(model.selectedPosition(), 0);
}

TEST_F(MapAllocationModelTest, RemovalWithUnknownFreeSpaceChangesNothing)
{
    lists().setFreeSpace(-1);
    model.select(2);
    const Bytes before = image();
    model.removeSelected();
    EXPECT_EQ(image(), before);
    EXPECT_EQ(model.selectedPosition(), 2);
}

// Resetting

TEST_F(MapAllocationModelTest, ResetListHoldsTheFirstScreenOnly)
{
    const std::int32_t freeSpace = lists().freeSpace();
    model.resetList();
    EXPECT_EQ(words(2), (Words{0x8600, 0xFFFF}));
    EXPECT_EQ(model.selectedPosition(), 0);
    EXPECT_EQ(lists().freeSpace(), freeSpace + 4);
    EXPECT_EQ(lists().dataWord(0, 1), 0x8640);
}

TEST_F(MapAllocationModelTest, ResetWorksWithoutFreeSpace)
{
    lists().setFreeSpace(0);
    model.resetList();
    EXPECT_EQ(words(2), (Words{0x8600, 0xFFFF}));
}

TEST_F(MapAllocationModelTest, ResetWithUnknownFreeSpaceChangesNothing)
{
    lists().setFreeSpace(-1);
    const Bytes before = image();
    model.resetList();
    EXPECT_EQ(image(), before);
    EXPECT_EQ(model.selectedPosition(), 1);
}

// The list goes before the one screen comes, which may find no room even then.
TEST_F(MapAllocationModelTest, ResetInAnOverfullRegionEmptiesTheList)
{
    const Bytes before = image();
    const auto listBytes = static_cast<std::int32_t>(2 * model.screenCount());
    for (const std::int32_t left : {-1, 0, 1}) {
        state.rom.setBytes(before);
        lists().setFreeSpace(left - listBytes); // what deleting the list leaves
        model.resetList();
        EXPECT_EQ(model.screenCount(), 0U) << left;
        EXPECT_EQ(model.selectedPosition(), 0);
        EXPECT_EQ(lists().freeSpace(), left);
    }
}

// Finding a free screen

TEST_F(MapAllocationModelTest, LowestScreenWithoutReferencesIsUsed)
{
    EXPECT_TRUE(model.useFreeScreen()); // 0, 1 and 2 are in use
    EXPECT_EQ(words(4), (Words{0x8600, 0x86C0, 0xC808, 0xFFFF}));
    EXPECT_TRUE(model.useFreeScreen()); // now 2 is free
    EXPECT_EQ(model.selectedAddress(), 0x8680);
}

TEST_F(MapAllocationModelTest, WithoutAFreeScreenNothingChanges)
{
    state.config.setValue(MiscField::mapIndexes, 3);
    const Bytes before = image();
    EXPECT_FALSE(model.useFreeScreen());
    EXPECT_EQ(image(), before);
}

// Editing the selected entry

TEST_F(MapAllocationModelTest, AddressIsWrittenAsItIs)
{
    model.setAddress(0x123);
    EXPECT_EQ(words(4), (Words{0x8600, 0x0123, 0xC808, 0xFFFF}));
    model.setAddress(0xABCDEF12);
    EXPECT_EQ(model.selectedAddress(), 0xEF12);
}

// An address is written with each key. On the way to "ffff0" the list ends at this entry.
TEST_F(MapAllocationModelTest, AddressThatEndsTheListCanBeTypedOn)
{
    model.setAddress(0xFFFF);
    EXPECT_EQ(model.lines().size(), 1U);
    EXPECT_EQ(model.selectedPosition(), 1);
    model.setAddress(0x8700);
    EXPECT_EQ(words(4), (Words{0x8600, 0x8700, 0xC808, 0xFFFF}));
}

TEST_F(MapAllocationModelTest, IndexIsLimitedToTheArea)
{
    struct Case {
        std::uint32_t typed;
        std::uint16_t address;
    };
    for (const Case& c : {Case{1, 0x8640}, Case{263, 0xC7C0}, Case{264, 0xC808}, Case{271, 0xC9C8},
                          Case{272, 0xC9C8}, Case{0x7FFFFFFF, 0xC9C8}, Case{0x80000000, 0x8600},
                          Case{0, 0x8600}, Case{0xFFFFFFFF, 0x8600}}) {
        model.setIndex(c.typed);
        EXPECT_EQ(model.selectedAddress(), c.address) << c.typed;
    }
}

TEST_F(MapAllocationModelTest, IndexInAnAreaWithoutScreensIsItsStart)
{
    state.config.setValue(MiscField::mapIndexes, 0);
    model.setIndex(5);
    EXPECT_EQ(model.selectedAddress(), 0x8600);
    EXPECT_EQ(model.insertAfterSelected(), InsertResult::kDone);
    EXPECT_EQ(model.selectedAddress(), 0x8600);
    EXPECT_FALSE(model.useFreeScreen());
}

// Damaged games

TEST_F(MapAllocationModelTest, ListWithoutAnEndIsShownToItsBound)
{
    state.rom.setBytes(Bytes(16 + 12 * 0x4000));
    EXPECT_EQ(model.screenCount(), 65536U);
    EXPECT_EQ(model.lines().size(), 65536U);
    EXPECT_EQ(model.lines().back(), "ffff: -- 0 -- (index 0)");
    model.select(65535);
    EXPECT_EQ(model.selectedAddress(), 0);
    lists().setFreeSpace(10);
    EXPECT_EQ(model.insertAfterSelected(), InsertResult::kDone);
    model.removeSelected();
    model.resetList();
    model.useFreeScreen();
    EXPECT_EQ(state.rom.size(), 16U + 12 * 0x4000);
}

TEST_F(MapAllocationModelTest, ImageOfNoBytesIsSurvived)
{
    state.rom.setBytes({});
    state.prepareRoomData();
    model.resetSelection();
    EXPECT_EQ(model.lines()[1], "1: -- 5555 -- (index 0)");
    model.insertAfterSelected();
    model.removeSelected();
    model.resetList();
    model.useFreeScreen();
    model.setIndex(3);
    PixelImage picture;
    model.drawSelectedScreen(picture);
    EXPECT_EQ(state.rom.size(), 0U);
}

} // namespace
} // namespace velko
