#include "demo/world_builder.h"

namespace velko::demo {

void buildOverworld(const Art&, World& world)
{
    world.overworldLoads = {0};
    world.titleLoads = {0};
    Overworld& overworld = world.overworld;
    for (std::uint32_t i = 0; i < kAreas + 1; ++i) {
        Area area;
        area.x = static_cast<std::uint8_t>(48 + i % 5 * 32);
        area.y = static_cast<std::uint8_t>(48 + i / 5 * 32);
        area.movement = {2, 0, 0, static_cast<std::uint8_t>((i + 1) / 10 << 4 | (i + 1) % 10)};
        overworld.areas.push_back(area);
    }
    overworld.quadSprites.resize(16 + 16 * 8);
    for (std::size_t i = 0; i < 16; ++i)
        overworld.quadSprites[i] = static_cast<std::uint8_t>(16 + 8 * i);
    overworld.previewFrames.fill(kHeroScript);
    for (std::uint8_t i = 0; i < kTruckPatterns; ++i)
        overworld.truckPointers[i] = static_cast<std::uint8_t>(2 * i);
    for (std::uint8_t i = 0; i < kTruckPatterns; ++i)
        overworld.truckPatterns.insert(overworld.truckPatterns.end(), {0, 0x84});
}

} // namespace velko::demo
