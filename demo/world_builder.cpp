#include "demo/world_builder.h"

namespace velko::demo {

namespace {

const std::vector<std::string> kMusic = {
    "Silence",          "Over the downs", "Market day",   "Night watch",      "Falling leaves",
    "Under the hill",   "Clockwork",      "First snow",   "Starlight",        "By the hearth",
    "Mist on the mere", "The map",        "Lantern Vale", "A lantern is lit", "Good night",
};

// The items of rooms 37 to 44; $FF is a room without one.
constexpr std::array<std::uint8_t, kLastChamber - kFirstChamber + 1> kChamberItems = {
    4, 13, 0xFF, 21, 12, 0xFF, 1, 25};

} // namespace

void buildWorld(const Art& art, const std::vector<RoomText>& rooms, World& world)
{
    world.backgrounds.addArt(0, art.meadow);
    world.backgrounds.addArt(1, art.village);
    world.backgrounds.addArt(2, art.cave);
    world.backgrounds.addArt(3, art.works);
    world.music = kMusic;
    world.chamberItems = kChamberItems;
    buildSprites(art, world);
    buildRooms(art, rooms, world);
    buildOverworld(art, world);
}

} // namespace velko::demo
