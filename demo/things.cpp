#include "demo/things.h"

#include <algorithm>
#include <string>

namespace velko::demo {

void placeThing(RoomCanvas& canvas, const ThingSet& set, char letter, int x, int y)
{
    if (letter == '.')
        return;
    const auto thing = std::find_if(set.things.begin(), set.things.end(),
                                    [letter](const Thing& t) { return t.letter == letter; });
    if (thing == set.things.end())
        throw DemoError("unknown " + std::string(set.kind) + ": " + letter);
    canvas.stamp(x, y + thing->row, thing->cells);
}

} // namespace velko::demo
