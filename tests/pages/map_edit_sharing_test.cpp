// Rooms that share a Tile32 set, and data that leads nowhere.

#include "pages/map_edit_model.h"
#include "store/block_lengths.h"
#include "tests/gfx/random_game.h"
#include "tests/pages/map_edit_rom.h"

#include <rapidcheck/gtest.h>

namespace velko::test {
namespace {

using Rooms = std::vector<std::uint32_t>;
using Strings = std::vector<std::string>;
using Point = RoomView::Position;

class MapEditSharingTest : public MapEditTest {
protected:
    explicit MapEditSharingTest(std::uint32_t rooms = 5) : MapEditTest(rooms) { }

    void shareSet(std::uint32_t room)
    {
        game.setPointer(&GameConfig::pahTile32, room, setPointer());
    }
    std::uint16_t setPointer() const { return state.store.pahTile32.pointerOf(0); }
    Rooms sharedRooms() const
    {
        const auto rooms = model.screens().sharedRooms();
        return {rooms.begin(), rooms.end()};
    }
    std::vector<std::uint16_t> addresses() const
    {
        std::vector<std::uint16_t> all;
        for (const MapEditScreen& screen : model.screens().all())
            all.push_back(screen.address);
        return all;
    }
    PixelImage picture(std::uint8_t room)
    {
        PixelImage image;
        state.renderer.renderRoomPicture(room, image);
        state.graphics.selectRoom(0);
        return image;
    }
};

TEST_F(MapEditSharingTest, RoomsWithTheSameSetAndAnotherListShareIt)
{
    shareSet(1);
    shareSet(2);
    shareSet(4);
    // The same list: its screens are the room's own.
    game.setPointer(&GameConfig::pahMapAlloc, 2, state.store.pahMapAlloc.pointerOf(0));
    start();
    EXPECT_EQ(sharedRooms(), (Rooms{1, 4}));
    selectRoom(4);
    EXPECT_EQ(sharedRooms(), (Rooms{0, 1, 2}));
    selectRoom(3);
    EXPECT_EQ(sharedRooms(), Rooms{});
}

TEST_F(MapEditSharingTest, SharedRoomsAreToldByTheirNames)
{
    shareSet(1);
    shareSet(3);
    start();
    EXPECT_EQ(model.sharedRoomNames(), (Strings{"", ""}));
    state.names.rooms = {"Hall", "Yard", "Cave", "Tower", "Well"};
    EXPECT_EQ(model.sharedRoomNames(), (Strings{"Yard", "Tower"}));
}

TEST_F(MapEditSharingTest, SharedScreensFollowTheOwnOnesInTheOrderOfRoomsAndLists)
{
    shareSet(2);
    shareSet(1);
    game.setScreenList(1, {0x8900, 0x8680, 0x8900, 0x8780});
    game.setScreenList(2, {0x8700, 0x8780, 0x8600});
    game.setScreenList(0, {0x8680, 0x8640, 0x8680});
    start();
    EXPECT_EQ(model.screens().count(), 3U);
    EXPECT_EQ(addresses(),
              (std::vector<std::uint16_t>{0x8680, 0x8640, 0x8900, 0x8780, 0x8700, 0x8600}));
}

TEST_F(MapEditSharingTest, SharedScreensCountTowardsTheLimit)
{
    EXPECT_EQ(model.usedText(), "4");
    game.setTile32(0, {{}, {}, {}, {44, 0, 0, 0, 0, 0, 0}});
    game.setScreenList(1, {game.addScreen(Bytes(64, 3))});
    start();
    EXPECT_EQ(model.usedText(), "1");
    shareSet(1);
    start();
    EXPECT_EQ(model.usedText(), "2");
}

TEST_F(MapEditSharingTest, TsaKnowsOnlyTheRoomsOwnScreens)
{
    game.setTile32(0, {{}, {}, {}, {44, 44, 44, 44, 0xFF, 0x77, 0x77}});
    game.setScreenList(1, {game.addScreen(Bytes(64, 3))});
    start();
    const std::size_t own = model.screens().all().size();
    shareSet(1);
    start();
    EXPECT_EQ(model.screens().all().size(), own + 1);
    EXPECT_FALSE(model.screens().tsa()[11].seen);
    EXPECT_TRUE(model.screens().tsa()[0].seen);
}

TEST_F(MapEditSharingTest, WritingOneRoomRewritesTheOthersScreens)
{
    const std::uint16_t theirs = game.addScreen(Bytes(64, 2));
    game.setScreenList(1, {theirs, 0x8640});
    game.setLayout(1, 2, 1, {0, 1});
    shareSet(1);
    start();
    const PixelImage before = picture(1);
    // Another order of blocks: the first one of the room is a new one.
    selectBlock(13);
    model.setMode(MapEditMode::kTile);
    game.setScreenList(0, {0x8680, 0x8600});
    start();
    const PixelImage theirsBefore = picture(1);
    paint(0, 1, 0, 0);
    model.convertAndWrite();
    EXPECT_EQ(picture(1), theirsBefore);
    EXPECT_EQ(screenBytes(theirs), Bytes(64, 0)); // it was block 2
    EXPECT_EQ(before, theirsBefore);
}

TEST_F(MapEditSharingTest, EditOfAScreenThatBothHaveShowsInBoth)
{
    game.setScreenList(1, {0x8600, 0x8640});
    game.setLayout(1, 1, 1, {1});
    shareSet(1);
    start();
    selectBlock(9);
    paint(0, 1, 2, 2);
    model.convertAndWrite();
    selectRoom(1);
    EXPECT_EQ(cell(1, 2, 2), (Bytes{36, 0, 0}));
}

TEST_F(MapEditSharingTest, ScreensReferredToTwiceAreTold)
{
    // Rooms 1 to 4 name $8600 (room 1: $8680), so that it has four references more.
    game.setScreenList(0, {0x8600, 0x8640, 0x86C0, 0x8700, 0x8700});
    start();
    const auto all = model.screens().all();
    ASSERT_EQ(all.size(), 4U);
    EXPECT_TRUE(all[0].isReferredToTwice);
    EXPECT_FALSE(all[1].isReferredToTwice);
    EXPECT_FALSE(all[2].isReferredToTwice);
    EXPECT_TRUE(all[3].isReferredToTwice);
}

// Data that leads nowhere

TEST_F(MapEditSharingTest, OfAListWithoutAnEnd256ScreensAreEdited)
{
    // Two banks without a word $FFFF.
    game.config.pahMapAlloc.dBank = {8, 9};
    Bytes list;
    for (std::uint32_t i = 0; i < 0x2000; ++i) {
        list.push_back(static_cast<std::uint8_t>(i % 3 * 64));
        list.push_back(0x86);
    }
    game.write(kHeaderSize + 8 * kBankSize, list);
    game.write(kHeaderSize + 9 * kBankSize, list);
    shareSet(3);
    start();
    ASSERT_EQ(state.renderer.screenCount(0), 0x10000U);
    EXPECT_EQ(model.screens().count(), 256U);
    EXPECT_EQ(model.screens().all().size(), 3U);
    selectBlock(9);
    paint(1, 1, 0, 0); // position 4
    EXPECT_EQ(cell(4, 0, 0), (Bytes{36, 0, 0}));
    EXPECT_EQ(cell(255, 0, 0), cell(0, 0, 0));
    model.convertAndWrite();
    EXPECT_EQ(cellInRom(model.screens().at(4).address, 0, 0), (Bytes{36, 0, 0}));
}

TEST_F(MapEditSharingTest, ListWithAnEndIsReadWhole)
{
    game.setScreenList(0, std::vector<std::uint16_t>(300, 0x8640));
    start();
    EXPECT_EQ(model.screens().count(), 300U);
}

TEST_F(MapEditSharingTest, RoomWithoutScreensHasBadCellsOnly)
{
    game.setScreenList(0, {});
    start();
    EXPECT_EQ(model.screens().count(), 0U);
    EXPECT_EQ(model.usedText(), "0");
    pick(0, 0, 0, 0);
    EXPECT_EQ(model.statusText(), "Bad Map Allocation index.");
    paint(0, 1, 0, 0);
    EXPECT_EQ(model.statusText(), "Bad Map Allocation index.");
}

TEST_F(MapEditSharingTest, ScreensOutsideTheFileAreDecodedAndNotWritten)
{
    game.setScreenList(0, {0x8600, 0xC640});
    game.bytes.resize(kHeaderSize + layout::kFixedBank * kBankSize + 0x660);
    game.write(kHeaderSize + layout::kFixedBank * kBankSize + 0x640, Bytes(32, 1));
    start();
    EXPECT_EQ(cell(1, 7, 15), (Bytes{16, 3, 4}));
    selectBlock(9);
    paint(0, 1, 0, 0);
    paint(0, 1, 14, 0);
    model.convertAndWrite();
    EXPECT_EQ(state.rom.size(), game.bytes.size());
    EXPECT_EQ(cellInRom(0xC640, 0, 0), (Bytes{36, 0, 0}));
    EXPECT_EQ(cellInRom(0xC640, 0, 1), (Bytes{12, 1, 3}));
}

class MapEditManyRoomsTest : public MapEditSharingTest {
protected:
    MapEditManyRoomsTest() : MapEditSharingTest(256) { }
};

TEST_F(MapEditManyRoomsTest, SetMayBeSharedByEveryRoom)
{
    for (std::uint32_t room = 1; room < 256; ++room) {
        game.setScreenList(room, {static_cast<std::uint16_t>(0x8600 + room % 150 * 64)});
        shareSet(room);
    }
    start();
    EXPECT_EQ(model.screens().sharedRooms().size(), 255U);
    EXPECT_EQ(model.screens().all().size(), 150U);
    selectBlock(9);
    paint(0, 1, 0, 0);
    model.convertAndWrite();
    EXPECT_EQ(cellInRom(0x8640, 0, 0), (Bytes{36, 0, 0}));
    EXPECT_EQ(screenBytes(0x8600 + 149 * 64), Bytes(64, 0));
}

RC_GTEST_PROP(MapEditHostileData, NeverLeavesTheImage, (std::uint32_t seed))
{
    // Only that nothing crashes and the file keeps its size.
    const TestRom game = randomGarbage(seed);
    EditorState state;
    game.loadInto(state);
    ScriptedPrompt prompt;
    MapEditModel model(state, prompt);
    model.refresh();
    for (const Point point : {Point{20, 20}, {240, 210}, {440, 410}}) {
        model.applyLeft(point);
        model.applyRight(point);
    }
    model.convertAndWrite();
    RC_ASSERT(state.rom.size() == game.bytes.size());
}

} // namespace
} // namespace velko::test
