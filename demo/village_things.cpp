#include "demo/village_things.h"

namespace velko::demo {

int villageGround(const RoomCanvas& canvas)
{
    return canvas.height() - 3;
}

void layVillageGround(RoomCanvas& canvas)
{
    const int top = villageGround(canvas);
    canvas.fill(0, top, canvas.width(), 1, "cobbles_top");
    canvas.fill(0, top + 1, canvas.width(), 1, "cobbles");
    canvas.fill(0, top + 2, canvas.width(), 1, "stone_wall");
}

std::vector<Thing> withVillageThings(std::vector<Thing> things)
{
    const std::vector<Thing> shared = {{'l', -1, {{"street_lamp_top"}, {"street_lamp_post"}}},
                                       {'t', -1, {{"potted_tree_t"}, {"potted_tree_b"}}},
                                       {'b', 0, {{"bench"}}},
                                       {'c', -1, {{"crate", ""}, {"crate", "crate"}}},
                                       {'r', 0, {{"barrel", "barrel"}}}};
    things.insert(things.end(), shared.begin(), shared.end());
    return things;
}

} // namespace velko::demo
