#pragma once

#include "state/editor_state.h"
#include "tests/support/test_rom.h"

#include <gtest/gtest.h>
#include <string>

namespace velko::test {

// A game for the tests of unit placement. Entry e of the palette is NES colour e.
//
// Room 0 is of 3 x 2 screens, which show the colours of entries
//
//     16  1  2
//      3  1 16
//
// and has no units yet. Its loads 0, 1 and 2 fill tiles 1, 2 and 3 of pattern table 0 with pixel
// values 1, 2 and 3. Room 1 is of one screen, without units and loads. The room pointers above
// belong to no room: an empty list ends each region, so that its free space is told exactly.
struct UnitRom : TestRom {
    static constexpr std::uint8_t kAnimated = 3; // 8 x 8 pixels at its position: entry 17 for two
                                                 // ticks, then entry 19 for three, and so on
    static constexpr std::uint8_t kStill = 4;    // the same place in entry 22
    static constexpr std::uint8_t kMarker = 10;  // no sprite

    UnitRom() : TestRom(4)
    {
        Bytes palette(32);
        for (std::uint8_t i = 0; i < 32; ++i)
            palette[i] = i;
        setPalette(0, palette);
        makeScreens();
        makeSprites();
        for (std::uint32_t room = 1; room < 4; ++room)
            shareAll(room, 0);
        setLayout(0, 3, 2, {0, 1, 2, 3, 1, 0});
        setLayout(1, 1, 1, {0});
        setType2Loads(0, {0, 1, 2});
        setUnits(1, {});
        setType2Loads(1, {});
        endRegions();
    }

    // Gives room 0 units; the free space stays exact.
    void setRoomUnits(const Bytes& records)
    {
        setUnits(0, records);
        endRegions();
    }
    void setRoomLoads(const Bytes& ids)
    {
        setType2Loads(0, ids);
        endRegions();
    }

private:
    void endRegions()
    {
        setUnits(3, {});
        setType2Loads(3, {});
    }
    // Screen i shows colour i, or the backdrop for 0.
    void makeScreens()
    {
        setTile32(0,
                  {{0, 0, 0, 0, 0, 0, 0},
                   {4, 4, 4, 4, 0, 0, 0},
                   {8, 8, 8, 8, 0, 0, 0},
                   {12, 12, 12, 12, 0, 0, 0}});
        Bytes blocks(96);
        for (std::uint8_t value = 0; value < 4; ++value) {
            blocks[value] = value;
            Bytes tiles;
            for (int tile = 0; tile < 4; ++tile)
                appendTo(tiles, solidTile(value));
            setBackgroundBlock(0, value, tiles);
        }
        setTileLoad(0, blocks);
        std::vector<std::uint16_t> screens = {layout::kFirstScreen};
        for (std::uint8_t i = 1; i < 4; ++i)
            screens.push_back(addScreen(Bytes(64, i)));
        setScreenList(0, screens);
    }
    void makeSprites()
    {
        for (std::uint8_t i = 0; i < 3; ++i) {
            setType2Graphics(16U * i, solidTile(i + 1U));
            setLoadRecord(i, static_cast<std::uint16_t>(16 * i),
                          static_cast<std::uint16_t>(16 * (i + 1)), 1);
        }
        config.unitSpriteReg[kAnimated] = 1;
        config.unitSpriteAddress[kAnimated] =
            addSprite({1, 1, 0, 0, 0, 2, 1, 3, 0, 0, 0, 0x83, 0x00, 0x80});
        config.unitSpriteReg[kStill] = 2;
        config.unitSpriteAddress[kStill] = addSprite({1, 2, 0, 0, 1, 5});
    }
    static void appendTo(Bytes& bytes, const Bytes& more)
    {
        bytes.insert(bytes.end(), more.begin(), more.end());
    }
};

// A state with this game, on room 0.
class UnitGameTest : public testing::Test {
protected:
    UnitGameTest()
    {
        for (std::size_t i = 0; i < state.names.units.size(); ++i)
            state.names.units[i] = "Unit " + std::to_string(i);
        for (std::size_t i = 0; i < state.names.vramLoads.size(); ++i)
            state.names.vramLoads[i] = "Load " + std::to_string(i);
        game.loadInto(state);
    }
    void setUnits(const Bytes& records)
    {
        game.setRoomUnits(records);
        game.loadInto(state);
    }
    void setLoads(const Bytes& ids)
    {
        game.setRoomLoads(ids);
        game.loadInto(state);
    }

    PointerArrayHandler& unitData() { return state.store.pahUnit; }
    PointerArrayHandler& loadData() { return state.store.pahTileLoadType2; }
    // The first bytes of the current room's block.
    static Bytes block(const PointerArrayHandler& handler, std::uint32_t count)
    {
        Bytes bytes;
        for (std::uint32_t i = 0; i < count; ++i)
            bytes.push_back(handler.dataByte(i));
        return bytes;
    }
    Bytes unitBytes(std::uint32_t count) { return block(unitData(), count); }
    Bytes loadBytes(std::uint32_t count) { return block(loadData(), count); }
    // The whole file, and what it would be with one byte of room 0's units or loads changed.
    Bytes image() const { return {state.rom.bytes().begin(), state.rom.bytes().end()}; }
    Bytes imageExcept(const PointerArrayHandler& handler, std::uint32_t offset,
                      std::uint8_t value) const
    {
        Bytes bytes = image();
        bytes.at(handler.dataFileOffset(handler.pointerOf(0, offset))) = value;
        return bytes;
    }
    static constexpr Pixel colour(std::uint32_t number) { return TestRom::colour(number); }

    UnitRom game;
    EditorState state;
};

} // namespace velko::test
