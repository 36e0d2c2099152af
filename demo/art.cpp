#include "demo/art.h"

namespace velko::demo {

Art loadAllArt(const std::filesystem::path& folder)
{
    Art art;
    art.meadow = loadArt(folder / "meadow.txt");
    art.village = loadArt(folder / "village.txt");
    art.cave = loadArt(folder / "cave.txt");
    art.works = loadArt(folder / "works.txt");
    art.hero = loadArt(folder / "hero.txt");
    art.creatures = loadArt(folder / "creatures.txt");
    art.items = loadArt(folder / "items.txt");
    art.overworld = loadArt(folder / "overworld.txt");
    art.overworldMap = loadText(folder / "overworld_map.txt");
    art.physics = loadArt(folder / "physics.txt");
    art.doors = loadArt(folder / "doors.txt");
    return art;
}

} // namespace velko::demo
