#pragma once

#include "demo/room_canvas.h"
#include "demo/world.h"

#include <string_view>

namespace velko::demo {

// Places what a text names into a room, word by word:
//
//     snail@12     a unit of that name on the floor of cell column 12 (of the lowest screen row)
//     bee@12^3     three cells above the floor
//     bee@12/1     on the floor of screen row 1
//     fish@12,40   with its feet in cell row 40
//     frog!none    without a placement
//     frog!off     below the map
//     in0@12       entrance 0, with the same ways to tell the place
//     out1@12>2b.0 exit 1, which leads to entrance 0 of room $2B
//
// Also fills the room's list of sprite graphics. Throws DemoError when a name is unknown, when a
// sprite would cross a screen's edge, when two graphics want the same tiles, or when a line of
// the screen would hold more sprites than the console shows.
void placeUnits(const World& world, Room& room, const RoomCanvas& canvas, std::string_view text);

} // namespace velko::demo
