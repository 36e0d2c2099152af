#pragma once

#include "demo/gallery.h"
#include "demo/interior_scene.h"
#include "demo/meadow_scene.h"
#include "demo/tileset.h"
#include "demo/village_scene.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velko::demo {

// One room as its text file tells it.
struct RoomText {
    std::uint32_t number = 0;
    std::string name;
    std::string scenery;
    std::string tileset;
    std::string look;
    int columns = 0; // screens; 0 x 0 for a room without a map
    int rows = 0;
    int like = -1; // the room whose map this one shares
    int music = 0;
    std::string units;
    BlockPage page = BlockPage::kDrawn;
    bool spare = false; // an older draft of the room's first screen is still there
    // Cells of the layout that name a screen past the end of the room's list.
    std::vector<int> wildCells;

    MeadowPlan meadow;
    StreetPlan street;
    InteriorPlan interior;
    GalleryPlan galleries;
};

// Reads room text. "scenery NAME TILESET" starts a group of rooms that share 32x32 blocks; "room
// NUMBER NAME" starts a room (the number in hexadecimal), and the lines that follow tell about it:
//
//     look NAME          the colours
//     size COLUMNS ROWS  in screens; a room without this line and without "like" has no map
//     like NUMBER        the map of an earlier room
//     seed N, music N, sun, brick
//     shade, mist        the same blocks from another page of their bank
//     spare              keeps a draft of the first screen that no room lists
//     ground, things, island COLUMN HEIGHT THINGS      (meadow, hamlet: see MeadowPlan)
//     street, floors                                   (village: see StreetPlan)
//     furniture                                        (house: see InteriorPlan)
//     ceiling, floor, things, hanging, ledge X Y CELLS (cave, works: see GalleryPlan)
//     wild CELL          a layout cell past the room's screen list
//     units ...          see placeUnits()
//
// Blanks in a text of columns only set its screens apart. Throws DemoError with the line number.
std::vector<RoomText> parseRooms(std::string_view text);
std::vector<RoomText> loadRooms(const std::filesystem::path& path);

} // namespace velko::demo
