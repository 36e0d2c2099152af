#include "tests/demo/demo_game.h"

#include <algorithm>
#include <set>

namespace velko::test {
namespace {

struct Piece {
    int x = 0;
    int y = 0;
};
using Frame = std::vector<Piece>;

class DemoSprites : public DemoGame {
protected:
    std::uint8_t script(std::uint32_t address) const
    {
        return byteAt(cpuToFileOffset(state.config.phSprite, address));
    }

    // The frames of a script from `address` on, until one repeats or the script is a still one.
    std::vector<Frame> framesAt(std::uint32_t address, bool animated) const
    {
        std::vector<Frame> frames;
        std::set<std::uint32_t> seen;
        while (seen.insert(address).second) {
            Frame frame;
            const std::uint32_t pieces = script(address);
            for (std::uint32_t i = 0; i < pieces; ++i)
                frame.push_back({static_cast<std::int8_t>(script(address + 2 + 4 * i)),
                                 static_cast<std::int8_t>(script(address + 3 + 4 * i))});
            frames.push_back(frame);
            const std::uint32_t control = address + 1 + 4 * pieces;
            if (!animated)
                break;
            address = (script(control) & 0x80) == 0
                ? control + 1
                : script(control + 1) + 256U * script(control + 2);
        }
        return frames;
    }

    std::vector<Frame> framesOf(std::uint8_t type) const
    {
        const std::uint8_t reg = state.config.unitSpriteReg[type];
        if (type >= kUnitTypes || reg == 0)
            return {};
        return framesAt(state.config.unitSpriteAddress[type], reg == 1);
    }

    bool onMap(const DemoUnit& unit, const RoomSize& size) const
    {
        return unit.column > 0 && unit.x < static_cast<int>(size.width())
            && unit.y < static_cast<int>(size.height());
    }
};

TEST_F(DemoSprites, FortyOf144TypesHaveSpritesAndTwelveMove)
{
    int sprites = 0;
    int animated = 0;
    int jumping = 0;
    for (std::uint8_t type = 0; type < kUnitTypes; ++type) {
        const std::uint8_t reg = state.config.unitSpriteReg[type];
        sprites += reg > 0 ? 1 : 0;
        animated += reg == 1 ? 1 : 0;
        jumping += reg == 1 && framesOf(type).size() >= 2 ? 1 : 0;
        EXPECT_EQ(reg > 0, state.config.unitSpriteAddress[type] != 0);
    }
    EXPECT_EQ(sprites, 40);
    EXPECT_EQ(animated, 12);
    EXPECT_EQ(jumping, 12); // a script without a jump would never come back to a known frame
}

TEST_F(DemoSprites, HerosScriptHasAFrameAtOffset42)
{
    EXPECT_EQ(framesAt(0x8171, false)[0].size(), 6U);     // 16 x 24 pixels
    EXPECT_EQ(script(0x8171 + 1 + 24), 0x80 | 60);        // then a jump
    EXPECT_EQ(script(0x8171 + 28), 3);                    // star and sparks
    const Frame raised = framesAt(0x8171 + 42, false)[0]; // the lantern held high
    EXPECT_GE(raised.size(), 7U);
    EXPECT_LE(raised.size(), 9U);
    for (const Piece& piece : raised) {
        EXPECT_GE(piece.x, -16);
        EXPECT_LE(piece.x, 8);
        EXPECT_GE(piece.y, -16);
        EXPECT_LE(piece.y, 0);
    }
}

TEST_F(DemoSprites, TilesOfTheHerosLightAreLoadedInEveryRoom)
{
    for (std::uint32_t room = 0; room < kDemoRooms; ++room) {
        state.graphics.selectRoom(static_cast<std::uint8_t>(room));
        for (const std::size_t tile : {128U, 131U}) {
            const auto first =
                state.graphics.patternMemory.begin() + static_cast<std::ptrdiff_t>(16 * tile);
            EXPECT_TRUE(std::any_of(first, first + 16, [](std::uint8_t b) { return b != 0; }));
        }
    }
}

TEST_F(DemoSprites, UnitsShowTheirOwnTiles)
{
    // A piece whose tile is empty would be one that the room did not load.
    for (std::uint32_t room = 0; room < kDemoRooms; ++room) {
        state.graphics.selectRoom(static_cast<std::uint8_t>(room));
        for (const DemoUnit& unit : unitsOf(state, room)) {
            if (framesOf(unit.type).empty() || unit.column == 0)
                continue;
            const std::uint32_t address = state.config.unitSpriteAddress[unit.type];
            for (std::uint32_t i = 0; i < script(address); ++i) {
                const std::size_t tile = script(address + 1 + 4 * i);
                const auto first =
                    state.graphics.patternMemory.begin() + static_cast<std::ptrdiff_t>(16 * tile);
                EXPECT_TRUE(std::any_of(first, first + 16, [](std::uint8_t b) { return b != 0; }))
                    << state.names.units[unit.type] << " in " << state.names.rooms[room];
            }
        }
    }
}

// The console shows 8 sprites on a line; two of them are the hero's.
TEST_F(DemoSprites, NoLineHoldsMoreThanSixSpritesOfUnits)
{
    for (std::uint32_t room = 0; room < kDemoRooms; ++room) {
        const RoomSize size = state.renderer.roomSize(room);
        std::map<int, std::vector<int>> lines;
        for (const DemoUnit& unit : unitsOf(state, room)) {
            if (!onMap(unit, size))
                continue;
            // Whatever frame it shows: the fullest of each line.
            std::map<int, std::vector<int>> fullest;
            for (const Frame& frame : framesOf(unit.type)) {
                std::map<int, std::vector<int>> own;
                for (const Piece& piece : frame)
                    for (int line = 0; line < 8; ++line)
                        own[unit.y + piece.y + line].push_back(unit.x + piece.x);
                for (const auto& [line, edges] : own)
                    if (edges.size() > fullest[line].size())
                        fullest[line] = edges;
            }
            for (const auto& [line, edges] : fullest)
                lines[line].insert(lines[line].end(), edges.begin(), edges.end());
        }
        for (const auto& [line, edges] : lines)
            for (const int left : edges)
                EXPECT_LE(std::count_if(edges.begin(), edges.end(),
                                        [&](int x) { return x >= left && x < left + 256; }),
                          6)
                    << state.names.rooms[room] << ", line " << line;
    }
}

// Nor can it show a part of a sprite left of a screen, or anything on a screen's first line.
TEST_F(DemoSprites, SpritesStayWithinTheirScreen)
{
    for (std::uint32_t room = 0; room < kDemoRooms; ++room) {
        const RoomSize size = state.renderer.roomSize(room);
        for (const DemoUnit& unit : unitsOf(state, room)) {
            if (!onMap(unit, size))
                continue;
            const int left = unit.x / 256 * 256;
            const int top = unit.y / 240 * 240;
            for (const Frame& frame : framesOf(unit.type)) {
                for (const Piece& piece : frame) {
                    EXPECT_GE(unit.x + piece.x, left) << state.names.rooms[room];
                    EXPECT_LE(unit.x + piece.x, left + 248) << state.names.rooms[room];
                    EXPECT_GE(unit.y + piece.y, top + 1) << state.names.rooms[room];
                    EXPECT_LE(unit.y + piece.y, top + 232) << state.names.rooms[room];
                }
            }
        }
    }
}

TEST_F(DemoSprites, SomeUnitsHaveNoPlaceSomeLieOffTheMapSomeRoomsHaveNone)
{
    int unplaced = 0;
    int off = 0;
    int empty = 0;
    for (std::uint32_t room = 0; room < kDemoRooms; ++room) {
        const RoomSize size = state.renderer.roomSize(room);
        const std::vector<DemoUnit> units = unitsOf(state, room);
        empty += units.empty() ? 1 : 0;
        for (const DemoUnit& unit : units) {
            unplaced += unit.column == 0 ? 1 : 0;
            off += unit.column > 0 && !onMap(unit, size) ? 1 : 0;
        }
    }
    EXPECT_GE(unplaced, 1);
    EXPECT_GE(off, 1);
    EXPECT_GE(empty, 4);
}

TEST_F(DemoSprites, ItemFourHasTheAddressThatNewItemsGet)
{
    EXPECT_EQ(state.config.itemInGameSpriteAddress[4], 0xAB06);
    std::set<std::uint16_t> addresses;
    for (const std::uint16_t address : state.config.itemInGameSpriteAddress) {
        addresses.insert(address);
        const std::size_t pieces = framesAt(address, false)[0].size();
        EXPECT_GE(pieces, 1U);
        EXPECT_LE(pieces, 4U);
    }
    EXPECT_EQ(addresses.size(), 26U);
}

TEST_F(DemoSprites, ProgramStaysInItsPartOfTheFixedBank)
{
    const std::uint32_t bank = 15 * 16384 + 16 - 0xC000;
    EXPECT_EQ(byteAt(bank + 0xF7FF), 0xFF); // a little room is left
    for (std::uint32_t address = 0xF800; address < 0xFFFA; ++address)
        ASSERT_EQ(byteAt(bank + address), 0xFF);
    for (const std::uint32_t vector : {0xFFFAU, 0xFFFCU, 0xFFFEU}) {
        EXPECT_GE(byteAt(bank + vector + 1), 0xE0); // high byte
        EXPECT_LT(byteAt(bank + vector + 1), 0xF8);
    }
}

} // namespace
} // namespace velko::test
