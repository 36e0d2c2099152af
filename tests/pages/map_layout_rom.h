#pragma once

#include "pages/map_layout_model.h"
#include "tests/support/test_rom.h"

#include <gtest/gtest.h>

namespace velko::test {

// Room 0 has a map of 3 x 2 shown cells and five screens; room 1, whose map lies above it, one
// cell. Border bytes are $EE.
//
//     EE 0 1 2 EE
//     EE 3 4 5 EE    5 is no screen of the room
class MapLayoutTest : public testing::Test {
protected:
    explicit MapLayoutTest(std::uint32_t rooms = 4) : game(rooms)
    {
        for (std::uint8_t i = 1; i < 5; ++i)
            game.addScreen(Bytes(64, i));
        game.setScreenList(0, {0x8600, 0x8640, 0x8680, 0x86C0, 0x8700});
        game.setLayout(0, 3, 2, {0, 1, 2, 3, 4, 5});
        game.setLayout(1, 1, 1, {7});
        start();
    }
    void start() { game.loadInto(state); }

    PointerArrayHandler& layouts() { return state.store.pahMapLayout; }
    // The first bytes of a room's block, borders included.
    Bytes block(std::uint32_t room, std::uint32_t count)
    {
        Bytes bytes;
        for (std::uint32_t i = 0; i < count; ++i)
            bytes.push_back(layouts().dataByte(i, room));
        return bytes;
    }
    Bytes storedSize(std::uint32_t room)
    {
        return {layouts().entryByte(2, room), layouts().entryByte(3, room)};
    }
    void setStoredSize(std::uint32_t room, std::uint8_t width, std::uint8_t height)
    {
        layouts().setEntryByte(2, width, room);
        layouts().setEntryByte(3, height, room);
    }
    Bytes image() const { return {state.rom.bytes().begin(), state.rom.bytes().end()}; }

    TestRom game;
    EditorState state;
    MapLayoutModel model{state};
};

// Screens of tiles that are all of one colour: screen i shows colour i of the room's palette.
class ColouredMapTest : public MapLayoutTest {
protected:
    explicit ColouredMapTest(std::uint32_t rooms = 4) : MapLayoutTest(rooms)
    {
        Bytes palette(32);
        for (std::uint8_t i = 0; i < 32; ++i)
            palette[i] = i;
        game.setPalette(0, palette);
        game.setTile32(0,
                       {{0, 0, 0, 0, 0, 0, 0},
                        {4, 4, 4, 4, 0, 0, 0},
                        {8, 8, 8, 8, 0, 0, 0},
                        {12, 12, 12, 12, 0, 0, 0},
                        {4, 4, 4, 4, 0x55, 0, 0}});
        // Background blocks 0 to 3 of pixel values 0 to 3.
        Bytes numbers(96);
        for (std::uint8_t i = 0; i < 4; ++i) {
            numbers[i] = i;
            Bytes tiles(64);
            for (std::size_t b = 0; b < 64; ++b)
                tiles[b] = (b % 16 < 8 ? (i & 1) : (i & 2)) != 0 ? 0xFF : 0;
            game.setBackgroundBlock(0, i, tiles);
        }
        game.setTileLoad(0, numbers);
        start();
    }
};

} // namespace velko::test
