#pragma once

#include "gfx/graphics_state.h"
#include "gfx/resources.h"
#include "gfx/room_renderer.h"
#include "rom/game_config.h"
#include "rom/name_lists.h"
#include "rom/rom_image.h"
#include "store/room_data_store.h"

#include <optional>

namespace velko {

// What windows remember after they are gone, until the program ends.
struct WindowMemory {
    struct Point {
        int x = 0;
        int y = 0;

        bool operator==(const Point&) const = default;
    };
    // Where the door page last saw the mouse move, in pixels of its picture.
    std::optional<Point> doorPointer;
};

// Everything that lives from start-up to exit. The program owns one, each test builds its own;
// windows and models take it by reference. Open ROM and Revert replace the image's bytes only.
struct EditorState {
    EditorState() = default;
    EditorState(const EditorState&) = delete; // its parts refer to one another
    EditorState& operator=(const EditorState&) = delete;

    RomImage rom;
    GameConfig config;
    RoomDataStore store{rom};
    NameLists names;
    Resources resources;
    GraphicsState graphics{rom, config, store};
    RoomRenderer renderer{rom, config, store, graphics};
    WindowMemory memory;
    // The window system's button-face colour, which pictures use as their background.
    Pixel backgroundColour = 0xF0F0F0;
    // Whether map editing shows a box when a room needs too many Tile32 blocks. Nothing turns it
    // on: the page's status line tells it all the time.
    bool warnsOfTile32Limit = false;

    // The room being edited.
    std::uint8_t currentRoom() const { return graphics.currentRoom(); }
    // Runs after every ROM load: the free space of every region, then the current room.
    void prepareRoomData();
};

} // namespace velko
