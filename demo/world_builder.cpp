#include "demo/world_builder.h"

namespace velko::demo {

void buildWorld(const Art& art, World& world)
{
    world.backgrounds.addArt(0, art.meadow);
    world.backgrounds.addArt(1, art.village);
    world.backgrounds.addArt(2, art.cave);
    world.backgrounds.addArt(3, art.works);
    buildSprites(art, world);
    buildRooms(art, world);
    buildOverworld(art, world);
}

} // namespace velko::demo
