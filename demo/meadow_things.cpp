#include "demo/meadow_things.h"

#include "demo/buildings.h"

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

void placePair(RoomCanvas& canvas, int x, int y, std::string_view left, std::string_view right)
{
    canvas.put(x, y, left);
    canvas.put(x + 1, y, right);
}

// Things of one row.
void placeSmall(RoomCanvas& canvas, char letter, int x, int y)
{
    switch (letter) {
    case 'b':
        return placePair(canvas, x, y, "bush_l", "bush_r");
    case 'o':
        return canvas.put(x, y, "bush");
    case 'f':
        return placePair(canvas, x, y, "flower_tulip", "flower_daisy");
    case 'd':
        return placePair(canvas, x, y, "flower_daisy", "flower_daisy");
    case 'g':
        return placePair(canvas, x, y, "grass_tall", "grass_tall");
    case 'm':
        return canvas.put(x + 1, y, "mushroom");
    case 's':
        return canvas.put(x, y, "sign");
    case 'F':
        return placePair(canvas, x, y, "fence", "fence");
    case 'w':
        return placePair(canvas, x, y, "wheat", "wheat");
    case 'r':
        return canvas.put(x, y, "reeds");
    case 'R':
        return canvas.put(x, y, "rock");
    case 'S':
        return canvas.put(x + 1, y, "stump");
    case 'D':
        return placePair(canvas, x, y, "stone_mossy", "stone_mossy");
    default:
        throw DemoError(std::string("unknown thing in a meadow: ") + letter);
    }
}

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
    case '.':
        return;
    case 'M':
        return placeMountain(canvas, thing);
    case 'h':
        return placeHills(canvas, thing);
    case 'X':
        return paintHouse(canvas, {x, top, thing.cells, 1, HouseStyle::kCottage, thing.seed + x});
    case 'T':
        return canvas.stamp(
            x, top - 3,
            {{"tree_tl", "tree_tr"}, {"tree_bl", "tree_br"}, {"tree_trunk_l", "tree_trunk_r"}});
    case 'P':
        return placePine(canvas, x, top, 3);
    case 'p':
        return placePine(canvas, x + 1, top, 3);
    case 'Q':
        placePine(canvas, x, top, 3);
        return placePine(canvas, x + 1, top, 4);
    case 'l':
        canvas.put(x, top - 2, "lamp_top");
        return canvas.put(x, top - 1, "lamp_post");
    default:
        return placeSmall(canvas, thing.letter, x, top - 1);
    }
}

} // namespace velko::demo
