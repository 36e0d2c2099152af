#include "store/block_lengths.h"
#include "tests/demo/demo_game.h"

#include <algorithm>
#include <set>

namespace velko::test {
namespace {

class DemoRooms : public DemoGame {
protected:
    bool hasMap(std::uint32_t room) const
    {
        return state.store.pahMapLayout.entryByte(kMapWidthByte, room) > 0;
    }
    std::set<std::uint32_t> screensOf(std::uint32_t room) const
    {
        std::set<std::uint32_t> screens;
        for (std::uint32_t i = 0; i < mapAllocWords(state.store.pahMapAlloc, room); ++i)
            screens.insert(
                state.renderer.screenIndex(state.store.pahMapAlloc.dataWord(2 * i, room)));
        return screens;
    }
};

TEST_F(DemoRooms, ScreensCrossTheHoleIntoTheFixedBank)
{
    EXPECT_EQ(value(MiscField::mapAllocDataStart), 0x8600U);
    EXPECT_GE(value(MiscField::mapIndexes), 272U);
    EXPECT_EQ(state.config.phMapScreenData[1], 15);
    std::set<std::uint32_t> used;
    for (std::uint32_t room = 0; room < kDemoRooms; ++room)
        used.merge(screensOf(room));
    EXPECT_GE(used.size(), 272U);
    EXPECT_GE(*used.rbegin(), 272U);
    EXPECT_LT(*used.rbegin(), value(MiscField::mapIndexes));
    EXPECT_LT(used.size(), value(MiscField::mapIndexes)); // some are free
    // The eight bytes at $C800 belong to no screen.
    const std::uint32_t hole = cpuToFileOffset(state.config.phMapScreenData, 0xC800);
    EXPECT_EQ(byteAt(hole), 'L');
    EXPECT_EQ(byteAt(hole + 7), 'S');
}

TEST_F(DemoRooms, SomeScreensBelowTheHighestAreOnNobodysList)
{
    std::set<std::uint32_t> used;
    for (std::uint32_t room = 0; room < kDemoRooms; ++room)
        used.merge(screensOf(room));
    EXPECT_LT(used.size(), *used.rbegin() + 1);
}

TEST_F(DemoRooms, SizesRunFromOneScreenTo8x4)
{
    int single = 0;
    int withoutMap = 0;
    bool large = false;
    for (std::uint32_t room = 0; room < kDemoRooms; ++room) {
        const std::uint8_t width = state.store.pahMapLayout.entryByte(2, room);
        const std::uint8_t height = state.store.pahMapLayout.entryByte(3, room);
        single += width == 3 && height == 1 ? 1 : 0;
        withoutMap += width == 0 && height == 0 ? 1 : 0;
        large = large || (width >= 10 && height >= 4);
    }
    EXPECT_GE(single, 8);
    EXPECT_GE(withoutMap, 3);
    EXPECT_TRUE(large);
}

TEST_F(DemoRooms, Rooms48And6EReadOneLayoutInDifferentSizes)
{
    const PointerArrayHandler& layout = state.store.pahMapLayout;
    EXPECT_EQ(layout.pointerOf(0x48), layout.pointerOf(0x6E));
    EXPECT_NE(layout.entryByte(2, 0x48), layout.entryByte(2, 0x6E));
    EXPECT_NE(layout.entryByte(3, 0x48), layout.entryByte(3, 0x6E));
    EXPECT_EQ(mapLayoutLength(layout, 0x48), mapLayoutLength(layout, 0x6E));
}

TEST_F(DemoRooms, SomeCellsLiePastTheScreenListYetShowAScreen)
{
    std::set<std::uint32_t> rooms;
    for (std::uint32_t room = 0; room < kDemoRooms; ++room) {
        if (!hasMap(room))
            continue;
        state.store.selectRoom(room);
        const RoomSize size = state.renderer.roomSize(room);
        for (std::uint32_t row = 0; row < size.rows; ++row) {
            for (std::uint32_t column = 0; column < size.columns; ++column) {
                const std::uint8_t cell = state.renderer.layoutCell(row, column);
                if (cell < state.renderer.screenCount(room))
                    continue;
                rooms.insert(room);
                EXPECT_GE(state.renderer.screenAddress(cell), 0x8600);
                EXPECT_LT(state.renderer.screenAddress(cell), 0xD000);
            }
        }
    }
    EXPECT_GE(rooms.size(), 2U);
}

TEST_F(DemoRooms, EveryRoomWithAMapShowsAPicture)
{
    for (std::uint32_t room = 0; room < kDemoRooms; ++room) {
        if (!hasMap(room))
            continue;
        PixelImage image;
        state.renderer.renderRoomPicture(static_cast<std::uint8_t>(room), image);
        const std::set<Pixel> colours(image.pixels().begin(), image.pixels().end());
        EXPECT_GE(colours.size(), 6U) << state.names.rooms[room];
    }
}

// The console knows one palette per 16x16 cell and nothing smaller, and tiles up to 255.
TEST_F(DemoRooms, MetatilesAreWholeBlocks)
{
    for (std::uint32_t room = 0; room < kDemoRooms; ++room)
        for (std::uint32_t record = 0; record < 146; ++record)
            for (std::uint32_t part = 0; part < 4; ++part)
                ASSERT_EQ(state.store.pahTile32.dataByte(7 * record + part, room) % 4, 0);
}

TEST_F(DemoRooms, Tile32SetsLeaveRoomToEdit)
{
    for (std::uint32_t room = 0; room < kDemoRooms; ++room) {
        std::uint8_t highest = 0;
        for (std::uint32_t i = 0; i < mapAllocWords(state.store.pahMapAlloc, room); ++i) {
            const std::uint16_t screen = state.store.pahMapAlloc.dataWord(2 * i, room);
            for (std::uint16_t b = 0; b < 64; ++b)
                highest = std::max(
                    highest, byteAt(cpuToFileOffset(state.config.phMapScreenData, screen + b)));
        }
        EXPECT_LT(highest, 120) << state.names.rooms[room];
    }
}

TEST_F(DemoRooms, SomeBackgroundBlocksAreMirrored)
{
    std::set<std::uint16_t> blocks;
    std::set<int> banks;
    std::set<int> pages;
    for (std::uint32_t room = 0; room < kDemoRooms; ++room) {
        for (std::uint32_t slot = 0; slot < 64; ++slot) {
            const std::uint8_t pair = state.store.pahTileLoad.dataByte(64 + slot / 2, room);
            const int attribute = slot % 2 == 0 ? pair >> 4 : pair & 15;
            banks.insert(attribute & 3);
            pages.insert(state.store.pahTileLoad.dataByte(slot, room) >> 6);
            if (attribute & 4)
                blocks.insert(state.store.pahTileLoad.pointerOf(room));
        }
    }
    EXPECT_EQ(banks.size(), 4U);
    EXPECT_EQ(pages, (std::set<int>{0, 1, 2}));
    EXPECT_EQ(value(MiscField::bgTileBanks), 4U);
    EXPECT_GE(blocks.size(), 2U); // load blocks with mirrored slots
}

TEST_F(DemoRooms, BackdropIsTheFirstColourOfEveryPalette)
{
    for (std::uint32_t room = 0; room < kDemoRooms; ++room)
        for (std::uint32_t entry = 0; entry < 32; entry += 4)
            EXPECT_EQ(state.store.pahPal.dataByte(entry, room),
                      state.store.pahPal.dataByte(16, room));
}

TEST_F(DemoRooms, ExitsLeadToEntrancesThatAreSet)
{
    int exits = 0;
    for (std::uint32_t room = 0; room < kDemoRooms; ++room) {
        for (const DemoUnit& unit : unitsOf(state, room)) {
            if (unit.type < 40 || unit.type > 43)
                continue;
            const std::uint32_t at = room * 4 + unit.type - 40;
            const std::uint32_t target = byteAt(value(MiscField::ptrExitRoom) + at);
            const std::uint32_t entrance = byteAt(value(MiscField::ptrExitEntrance) + at);
            ASSERT_LT(target, kDemoRooms);
            ASSERT_LT(entrance, 4U);
            EXPECT_GT(byteAt(value(MiscField::ptrEntranceScreen) + target * 4 + entrance), 15)
                << state.names.rooms[room];
            ++exits;
        }
    }
    EXPECT_GE(exits, 180);
    EXPECT_EQ(value(MiscField::roomEntrances), 4U);
    EXPECT_EQ(value(MiscField::roomExits), 4U);
}

TEST_F(DemoRooms, ChambersOfTheNeutralAreasAreRooms37To44)
{
    EXPECT_EQ(value(MiscField::areaFirstNAchamber), 37U);
    EXPECT_EQ(value(MiscField::areaLastNAchamber), 44U);
    int withItem = 0;
    for (std::uint32_t i = 0; i < 8; ++i) {
        const std::uint8_t item = byteAt(value(MiscField::ptrNA_ChamberItem) + i);
        const std::uint32_t at = value(MiscField::ptrNA_ChItemAddress) + 2 * i;
        const unsigned address = byteAt(at) + 256U * byteAt(at + 1);
        if (item == 0xFF) {
            EXPECT_EQ(address, 0xFFFFU);
            continue;
        }
        ASSERT_LT(item, 26);
        EXPECT_EQ(address, state.config.itemInGameSpriteAddress[item]);
        ++withItem;
    }
    EXPECT_EQ(withItem, 6);
}

} // namespace
} // namespace velko::test
