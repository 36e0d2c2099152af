#pragma once

#include "demo/room_canvas.h"

namespace velko::demo {

// One of the things of a MeadowPlan, by its letter, standing on row `top` from cell `x` on.
struct MeadowThing {
    char letter = '.';
    int x = 0;
    int top = 0;
    int cells = 2; // of a wide thing
    int seed = 0;
};

// True for the letters whose runs make one thing: near hills, mountains and cottages.
bool isWideMeadowThing(char letter);

// Throws DemoError for an unknown letter.
void placeMeadowThing(RoomCanvas& canvas, const MeadowThing& thing);

} // namespace velko::demo
