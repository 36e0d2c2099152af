#include "demo/meadow_things.h"

#include "demo/buildings.h"
#include "demo/things.h"

namespace velko::demo {

namespace {

// Narrowing upwards to a snowy top; what stands in front of it stays.
void placeMountain(RoomCanvas& canvas, const MeadowThing& thing)
{
    const int rows = thing.cells / 2;
    for (int row = 0; row < rows; ++row) {
        const int left = thing.x + rows - 1 - row;
        const int right = thing.x + rows + row;
        const int y = thing.top - rows + row;
        canvas.putIfEmpty(left, y, row == 0 ? "far_hill_top_l" : "far_hill_l");
        canvas.putIfEmpty(right, y, row == 0 ? "far_hill_top_r" : "far_hill_r");
        for (int cell = left + 1; cell < right; ++cell)
            canvas.putIfEmpty(cell, y, "far_hill");
    }
}

void placeHills(RoomCanvas& canvas, const MeadowThing& thing)
{
    for (int i = 0; i + 4 <= thing.cells; i += 4)
        canvas.stamp(thing.x + i, thing.top - 2,
                     {{"hill_tl", "hill_tm", "hill_tn", "hill_tr"},
                      {"hill_bl", "hill_bm", "hill_bm", "hill_br"}});
}

void placePine(RoomCanvas& canvas, int x, int top, int height)
{
    canvas.put(x, top - 1, "pine_base");
    for (int i = 2; i < height; ++i)
        canvas.put(x, top - i, "pine_mid");
    canvas.put(x, top - height, "pine_top");
}

// What has the same shape everywhere. Rows count from the lowest one above the ground.
const ThingSet kThings{
    "thing in a meadow",
    {{'T', -2, {{"tree_tl", "tree_tr"}, {"tree_bl", "tree_br"}, {"tree_trunk_l", "tree_trunk_r"}}},
     {'l', -1, {{"lamp_top"}, {"lamp_post"}}},
     {'b', 0, {{"bush_l", "bush_r"}}},
     {'o', 0, {{"bush"}}},
     {'f', 0, {{"flower_tulip", "flower_daisy"}}},
     {'d', 0, {{"flower_daisy", "flower_daisy"}}},
     {'g', 0, {{"grass_tall", "grass_tall"}}},
     {'m', 0, {{"", "mushroom"}}},
     {'s', 0, {{"sign"}}},
     {'F', 0, {{"fence", "fence"}}},
     {'w', 0, {{"wheat", "wheat"}}},
     {'r', 0, {{"reeds"}}},
     {'R', 0, {{"rock"}}},
     {'S', 0, {{"", "stump"}}},
     {'D', 0, {{"stone_mossy", "stone_mossy"}}}}};

} // namespace

bool isWideMeadowThing(char letter)
{
    return letter == 'M' || letter == 'X' || letter == 'h';
}

void placeMeadowThing(RoomCanvas& canvas, const MeadowThing& thing)
{
    const int x = thing.x;
    const int top = thing.top;
    switch (thing.letter) {
    case 'M':
        return placeMountain(canvas, thing);
    case 'h':
        return placeHills(canvas, thing);
    case 'X':
        return paintHouse(canvas, {x, top, thing.cells, 1, HouseStyle::kCottage, thing.seed + x});
    case 'P':
        return placePine(canvas, x, top, 3);
    case 'p':
        return placePine(canvas, x + 1, top, 3);
    case 'Q':
        placePine(canvas, x, top, 3);
        return placePine(canvas, x + 1, top, 4);
    default:
        return placeThing(canvas, kThings, thing.letter, x, top - 1);
    }
}

} // namespace velko::demo
