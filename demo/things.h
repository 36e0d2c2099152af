#pragma once

#include "demo/room_canvas.h"

#include <string_view>
#include <vector>

namespace velko::demo {

// Something of a fixed shape that a letter of a plan stands for.
struct Thing {
    char letter = '.';
    int row = 0;     // of its top, from the place at which it is put; negative is above
    CellNames cells; // from the top
};

// The things of one kind of room. The letter '.' is none of them and stands for nothing.
struct ThingSet {
    std::string_view kind; // names them in errors: "thing in a cave"
    std::vector<Thing> things;
};

// Puts the thing that `letter` stands for at cell (x, y): its left column is x, its top lies
// Thing::row below y. Throws DemoError for an unknown letter.
void placeThing(RoomCanvas& canvas, const ThingSet& set, char letter, int x, int y);

} // namespace velko::demo
