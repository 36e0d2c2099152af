#pragma once

#include "gfx/resources.h"
#include "pages/map_edit_model.h"
#include "tests/support/scripted_prompt.h"
#include "tests/support/test_rom.h"

#include <gtest/gtest.h>

namespace velko::test {

// Room 0 has a map of 3 x 2 cells and three screens, of one Tile32 block each. Position 3 is the
// end mark of its list, position 4 the word behind: the list of room 1, which is screen 2.
//
//     0 1 2
//     1 4 3
//
// Screen 1 is made of these 2 x 2 cells, told as metatile, palette, physics; screen 2 of equal
// ones, screen 0 of zeros:
//
//     4,0,1  12,1,3        20,1,5
//     8,2,2  16,3,4
//
// Background block b has pixels of the value b modulo 4 only, and palette entry e is colour e. The
// other rooms have the blocks that a TestRom starts with, so none shares anything with room 0.
class MapEditTest : public testing::Test {
protected:
    explicit MapEditTest(std::uint32_t rooms = 4) : game(rooms)
    {
        game.addScreen(Bytes(64, 1));
        game.addScreen(Bytes(64, 2));
        game.setScreenList(0, {0x8600, 0x8640, 0x8680});
        game.setScreenList(1, {0x8680});
        game.setLayout(0, 3, 2, {0, 1, 2, 1, 4, 3});
        game.setTile32(0,
                       {{0, 0, 0, 0, 0, 0, 0},
                        {4, 8, 12, 16, 0xE4, 0x12, 0x34},
                        {20, 20, 20, 20, 0x55, 0x55, 0x55}});
        setGraphics();
        start();
    }
    void start()
    {
        game.loadInto(state);
        setPhysicsColours(state.graphics);
        model.refresh();
    }

    // The cell at a row and column of the screen at a row and column of the map, in room pixels.
    static RoomView::Position roomPoint(int mapRow, int mapColumn, int row, int column)
    {
        return {mapColumn * 256 + column * 16, mapRow * 240 + row * 16};
    }
    // Scrolls so that the cell shows and returns a point of the view inside of it.
    RoomView::Position pointOn(RoomView::Position room)
    {
        RoomView& view = model.view();
        view.scrollToStep({room.x - 96, room.y - 96});
        const RoomView::Position scroll = view.scroll();
        return {(room.x + 8 - scroll.x) * view.display().width / view.region().width,
                (room.y + 8 - scroll.y) * view.display().height / view.region().height};
    }
    void paint(int mapRow, int mapColumn, int row, int column)
    {
        model.applyLeft(pointOn(roomPoint(mapRow, mapColumn, row, column)));
    }
    void pick(int mapRow, int mapColumn, int row, int column)
    {
        model.applyRight(pointOn(roomPoint(mapRow, mapColumn, row, column)));
    }
    void selectBlock(std::uint32_t block)
    {
        model.selectBlockAt(
            {static_cast<int>(block % 8) * 35 + 20, static_cast<int>(block / 8) * 35 + 20});
    }
    void selectPalette(int palette) { model.selectPaletteAt({20, palette * 70 + 20}); }
    void selectPhysics(int value)
    {
        model.selectPhysicsAt({value % 2 * 141 + 20, value / 2 * 40 + 20});
    }

    // Metatile, palette and physics of a cell.
    Bytes cell(std::uint32_t position, std::size_t row, std::size_t column) const
    {
        const MetatileCell value = model.screens().at(position).cell(row * 16 + column);
        return {value.metatile, value.palette, value.physics};
    }
    // What the current room's ROM data tells at that place.
    Bytes cellInRom(std::uint16_t screenAddress, std::uint32_t row, std::uint32_t column) const
    {
        const MetatileCell value = state.renderer.screenCell(screenAddress, row, column);
        return {value.metatile, value.palette, value.physics};
    }
    Bytes image() const { return {state.rom.bytes().begin(), state.rom.bytes().end()}; }
    Bytes bytesAt(std::uint32_t fileOffset, std::uint32_t count) const
    {
        Bytes bytes(count);
        state.rom.readBlock(fileOffset, bytes);
        return bytes;
    }
    Bytes screenBytes(std::uint16_t address) const
    {
        return bytesAt(state.renderer.screenFileOffset(address), 64);
    }
    void selectRoom(std::uint8_t room)
    {
        state.graphics.selectRoom(room);
        model.refresh();
    }

    TestRom game;
    EditorState state;
    ScriptedPrompt prompt;
    MapEditModel model{state, prompt};

private:
    void setGraphics()
    {
        Bytes palette(32);
        for (std::uint8_t i = 0; i < 32; ++i)
            palette[i] = i;
        game.setPalette(0, palette);
        Bytes numbers(96);
        for (std::uint8_t i = 0; i < 64; ++i) {
            numbers[i] = i;
            Bytes tiles;
            for (int tile = 0; tile < 4; ++tile) {
                const Bytes solid = solidTile(i % 4U);
                tiles.insert(tiles.end(), solid.begin(), solid.end());
            }
            game.setBackgroundBlock(0, i, tiles);
        }
        game.setTileLoad(0, numbers);
    }
};

} // namespace velko::test
