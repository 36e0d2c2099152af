#include "cli/game_diff.h"
#include "pages/map_layout_model.h"
#include "pages/unit_list.h"
#include "pages/vram_load_list.h"
#include "store/block_lengths.h"
#include "tests/cli/demo_state.h"
#include "tools/area_movement.h"
#include "tools/truck_movement_region.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

struct Games {
    test::OpenGame before;
    test::OpenGame after;

    EditorState& changed() { return after.state; }
    GameDiff diff() { return compareGames(before.state, after.state); }
};

std::vector<std::string> lines(const GameDiff& diff)
{
    std::vector<std::string> result;
    for (const Difference& difference : diff.differences())
        result.push_back(differenceLine(difference));
    return result;
}

// Every differing offset belongs to one difference, or to the rest, and no other offset does.
void expectAccount(const Games& games, const GameDiff& diff)
{
    const auto before = games.before.state.rom.bytes();
    const auto after = games.after.state.rom.bytes();
    std::vector<int> told(std::max(before.size(), after.size()));
    const auto count = [&](const std::vector<OffsetRange>& ranges) {
        for (const OffsetRange& range : ranges) {
            ASSERT_TRUE(range.start < range.end && range.end <= told.size());
            for (std::uint32_t i = range.start; i < range.end; ++i)
                ++told[i];
        }
    };
    for (const Difference& difference : diff.differences())
        count(difference.offsets);
    count(diff.rest());
    for (std::size_t i = 0; i < told.size(); ++i) {
        const bool differs = i >= before.size() || i >= after.size() || before[i] != after[i];
        ASSERT_EQ(told[i], differs ? 1 : 0) << "offset " << i;
    }
}

class GameDiffTest : public ::testing::Test {
protected:
    GameDiff diff()
    {
        GameDiff result = games.diff();
        expectAccount(games, result);
        return result;
    }

    Games games;
    EditorState& changed = games.changed();
};

TEST_F(GameDiffTest, SharedBlockIsToldOnceWithAllItsRooms)
{
    PointerArrayHandler& layouts = changed.store.pahMapLayout;
    std::uint32_t room = 0;
    std::vector<std::uint32_t> sharers;
    for (; sharers.size() < 2; ++room) {
        sharers.clear();
        for (std::uint32_t other = 0; other < changed.config.roomCount(); ++other) {
            if (layouts.pointerOf(other) == layouts.pointerOf(room)
                && layouts.entryByte(2, other) == layouts.entryByte(2, room)
                && layouts.entryByte(2, other) > 3)
                sharers.push_back(other);
        }
        layouts.selectRoom(room);
    }
    layouts.setDataByte(1, 0x77);
    const GameDiff result = diff();
    ASSERT_EQ(result.differences().size(), 1u);
    EXPECT_EQ(result.differences()[0].owners, sharers);
    EXPECT_THAT(differenceLine(result.differences()[0]), StartsWith("rooms "));
    EXPECT_THAT(differenceLine(result.differences()[0]), HasSubstr(" layout 0,0: "));
    EXPECT_THAT(result.rest(), IsEmpty());
}

TEST_F(GameDiffTest, NewUnitMovesTheListsAboveIt)
{
    changed.store.selectRoom(5);
    UnitList units(changed.store.pahUnit);
    ASSERT_TRUE(units.insert(0, {.type = 3, .pixelX = 0x40, .column = 1, .pixelY = 0x50}).ok());
    const GameDiff result = diff();
    ASSERT_EQ(result.differences().size(), 2u);
    EXPECT_EQ(differenceLine(result.differences()[0]),
              "room 5 unit 0 (" + changed.names.units[3] + "): added, 03 (" + changed.names.units[3]
                  + "), x 40, y 50, screen x 00, screen y 00");
    EXPECT_EQ(result.differences()[1].change, DiffChange::kMoved);
    EXPECT_EQ(result.differences()[1].to, "5 bytes up");
    EXPECT_THAT(result.rest(), IsEmpty());
}

TEST_F(GameDiffTest, UnitThatWentIsTold)
{
    changed.store.selectRoom(5);
    UnitList units(changed.store.pahUnit);
    const std::string name = changed.names.units[units.record(1).type];
    ASSERT_TRUE(units.remove(1).ok());
    const auto told = lines(diff());
    ASSERT_EQ(told.size(), 2u);
    EXPECT_THAT(told[0], StartsWith("room 5 unit 1 (" + name + "): removed, was "));
    EXPECT_THAT(told[1], HasSubstr(" unit list: moved 5 bytes down"));
}

TEST_F(GameDiffTest, WiderRoomHasNewCells)
{
    changed.store.selectRoom(0);
    changed.graphics.selectRoom(0);
    MapLayoutModel layout(changed);
    ASSERT_EQ(layout.columns(), 4u);
    ASSERT_EQ(layout.rows(), 1u);
    ASSERT_EQ(layout.growWidth(), MapLayoutModel::ResizeResult::kDone);
    const GameDiff result = diff();
    EXPECT_THAT(lines(result), Contains(HasSubstr(" layout stored size: 6 x 1 -> 7 x 1")));
    EXPECT_THAT(lines(result), Contains(HasSubstr(" layout 0,4: added, 00")));
    EXPECT_EQ(result.differences().size(), 3u); // and what moved
    EXPECT_THAT(result.rest(), IsEmpty());
}

TEST_F(GameDiffTest, RoomThatJoinsAnotherBlockIsAPointer)
{
    PointerArrayHandler& palettes = changed.store.pahPal;
    palettes.setPointer(1, palettes.pointerOf(0x20));
    ASSERT_NE(games.before.state.store.pahPal.pointerOf(1), palettes.pointerOf(0x20));
    const GameDiff result = diff();
    ASSERT_EQ(result.differences().size(), 1u);
    EXPECT_THAT(differenceLine(result.differences()[0]), StartsWith("room 1 palette pointer: "));
    EXPECT_THAT(result.rest(), IsEmpty());
}

TEST_F(GameDiffTest, Tile32IsToldByItsParts)
{
    changed.store.selectRoom(0x20);
    changed.store.pahTile32.setDataByte(7 * 3 + 4, 0x1B);
    const auto told = lines(diff());
    ASSERT_EQ(told.size(), 1u);
    EXPECT_THAT(told[0], HasSubstr(" Tile32 3 palettes: "));
    EXPECT_THAT(told[0], HasSubstr(" -> 1b"));
}

TEST_F(GameDiffTest, AreaMovementsAndTruckPatterns)
{
    AreaMovement movement(changed.store.pahMapAreaMovement);
    movement.selectArea(2);
    movement.setFirstDigit(0, movement.entry(0).firstDigit ^ 1);
    TruckMovementRegion trucks(changed.rom, changed.config);
    trucks.selectSet(1);
    trucks.setPhase(0, trucks.phase(0) ^ 1);
    EXPECT_THAT(lines(diff()),
                ElementsAre(HasSubstr(" movement 0 digits: "), HasSubstr("pattern 1 phase 0: ")));
}

TEST_F(GameDiffTest, ScreensAreToldWithTheRoomsThatUseThem)
{
    const std::uint16_t address = changed.store.pahMapAlloc.dataWord(0, 3);
    const std::uint32_t offset = cpuToFileOffset(changed.config.phMapScreenData, address) + 10;
    changed.rom.writeByte(offset, changed.rom.readByte(offset) ^ 1);
    const GameDiff result = diff();
    ASSERT_EQ(result.differences().size(), 1u);
    EXPECT_THAT(result.differences()[0].owners, Contains(3u));
    EXPECT_THAT(result.differences()[0].what, HasSubstr(" Tile32 1,2"));
    EXPECT_EQ(result.differences()[0].offsets, (std::vector<OffsetRange>{{offset, offset + 1}}));
}

TEST_F(GameDiffTest, BackgroundTilesAreToldWithTheRoomsThatUseThem)
{
    const std::uint32_t block = changed.store.pahTileLoad.dataByte(5, 3);
    const std::uint32_t bank = changed.store.pahTileLoad.dataByte(64 + 2, 3) & 3;
    const std::uint32_t offset =
        (changed.config.value(MiscField::startGfxBg) + bank) * kBankSize + kHeaderSize + block * 64;
    changed.rom.writeByte(offset + 17, changed.rom.readByte(offset + 17) ^ 1);
    const GameDiff result = diff();
    ASSERT_EQ(result.differences().size(), 1u);
    EXPECT_THAT(result.differences()[0].owners, Contains(3u));
    EXPECT_THAT(result.differences()[0].what, HasSubstr(" tile 1"));
}

TEST_F(GameDiffTest, SpriteTilesAreToldWithTheRoomsThatLoadThem)
{
    const std::uint32_t load = changed.store.pahTileLoadType2.dataByte(0, 3);
    const std::uint32_t record = changed.config.value(MiscField::ptrTileLoadType2) + 5 * load;
    const std::uint32_t offset = changed.config.value(MiscField::startGfxType2) * kBankSize
        + kHeaderSize + changed.rom.readByte(record) + changed.rom.readByte(record + 1) * 256U;
    changed.rom.writeByte(offset, changed.rom.readByte(offset) ^ 1);
    const GameDiff result = diff();
    ASSERT_EQ(result.differences().size(), 1u);
    EXPECT_THAT(result.differences()[0].what, HasSubstr(changed.names.vramLoads[load]));
    EXPECT_THAT(result.differences()[0].what, HasSubstr(" tile 0"));
}

TEST_F(GameDiffTest, BlockThatChangedAllOverIsOneLine)
{
    changed.store.selectRoom(0x20);
    for (std::uint32_t i = 0; i < kTile32Length; ++i)
        changed.store.pahTile32.setDataByte(
            i, static_cast<std::uint8_t>(~changed.store.pahTile32.dataByte(i)));
    const GameDiff result = diff();
    ASSERT_EQ(result.differences().size(), 1u);
    EXPECT_THAT(differenceLine(result.differences()[0]),
                HasSubstr(" Tile32 set: 147 pieces -> other ones"));
    EXPECT_THAT(result.rest(), IsEmpty());
}

TEST_F(GameDiffTest, ShorterRom)
{
    const auto bytes = changed.rom.bytes();
    changed.rom.setBytes({bytes.begin(), bytes.end() - 0x4000});
    EXPECT_THAT(lines(diff()), Contains("size: 262160 -> 245776 bytes"));
}

// Something that an editor, or an accident, may do to a game.
void changeSomething(EditorState& state)
{
    const auto room = *rc::gen::inRange<std::uint32_t>(0, state.config.roomCount());
    state.graphics.selectRoom(static_cast<std::uint8_t>(room));
    state.store.selectRoom(room);
    const auto handlers = state.store.levelHandlers();
    PointerArrayHandler& handler = *handlers[*rc::gen::inRange<std::size_t>(0, handlers.size())];
    const auto value = *rc::gen::arbitrary<std::uint8_t>();
    switch (*rc::gen::inRange(0, 7)) {
    case 0:
        state.rom.writeByte(*rc::gen::inRange<std::uint32_t>(0, state.rom.size()), value);
        break;
    case 1:
        handler.setDataByte(*rc::gen::inRange<std::uint32_t>(0, 40), value);
        break;
    case 2:
        (void)handler.insertByte(*rc::gen::inRange<std::uint32_t>(0, 10), value);
        break;
    case 3:
        (void)handler.deleteBytes(*rc::gen::inRange<std::uint32_t>(0, 10), 3);
        break;
    case 4:
        handler.setPointer(room, static_cast<std::uint16_t>(0x8000 + value * 64));
        break;
    case 5:
        (void)MapLayoutModel(state).growHeight();
        break;
    default: {
        std::vector<std::uint8_t> bytes(state.rom.bytes().begin(), state.rom.bytes().end());
        bytes.resize(bytes.size() - 0x1000 + 32 * value, value);
        state.rom.setBytes(std::move(bytes));
    }
    }
}

TEST(GameDiffProperties, EveryDifferingByteIsToldOnce)
{
    Games games;
    const auto bytes = games.before.state.rom.bytes();
    const std::vector<std::uint8_t> start(bytes.begin(), bytes.end());
    rc::check([&] {
        games.changed().rom.setBytes(start);
        games.changed().prepareRoomData();
        const int changes = *rc::gen::inRange(1, 8);
        for (int i = 0; i < changes; ++i)
            changeSomething(games.changed());
        expectAccount(games, games.diff());
    });
}

// The other way round, too, where the second game is the sound one.
TEST(GameDiffProperties, NoiseIsToldOnce)
{
    Games games;
    std::uint32_t state = 1;
    for (std::size_t size = 1; size < 0x50000; size += 0xA123) {
        std::vector<std::uint8_t> noise(size);
        for (std::uint8_t& byte : noise) {
            state = state * 1664525 + 1013904223;
            byte = static_cast<std::uint8_t>(state >> 24);
        }
        games.changed().rom.setBytes(std::move(noise));
        expectAccount(games, games.diff());
        expectAccount(games, compareGames(games.after.state, games.before.state));
    }
}

} // namespace
} // namespace velko
