#pragma once

#include "gfx/room_renderer.h"

#include <cstdint>
#include <random>
#include <vector>

namespace velko::test {

// Screens whose cells are drawn at random from `metatiles` metatiles, `palettes` palettes and
// `physics` physics values: small numbers make groups repeat, or differ in one value only.
struct CellVariety {
    std::uint32_t metatiles = 256;
    std::uint32_t palettes = 4;
    std::uint32_t physics = 16;
};

inline ScreenMap16 randomScreen(std::mt19937& random, const CellVariety& variety)
{
    const auto below = [&](std::uint32_t limit) {
        return static_cast<std::uint8_t>(static_cast<std::uint32_t>(random()) % limit);
    };
    ScreenMap16 screen;
    for (std::size_t cell = 0; cell < kScreenCells; ++cell) {
        screen.metatile[cell] = below(variety.metatiles);
        screen.palette[cell] = below(variety.palettes);
        screen.physics[cell] = below(variety.physics);
    }
    return screen;
}

inline std::vector<ScreenMap16> randomScreens(std::uint32_t seed, std::size_t count,
                                              const CellVariety& variety)
{
    std::mt19937 random(seed);
    std::vector<ScreenMap16> screens;
    for (std::size_t i = 0; i < count; ++i)
        screens.push_back(randomScreen(random, variety));
    return screens;
}

// Screens put together from `kinds` different groups of cells, as rooms are.
inline std::vector<ScreenMap16> patternedScreens(std::uint32_t seed, std::size_t count,
                                                 std::uint32_t kinds)
{
    std::mt19937 random(seed);
    std::vector<ScreenMap16> patterns; // of each only the cells of the first group count
    for (std::uint32_t i = 0; i < kinds; ++i)
        patterns.push_back(randomScreen(random, {}));
    std::vector<ScreenMap16> screens(count);
    for (ScreenMap16& screen : screens) {
        for (std::size_t group = 0; group < 64; ++group) {
            const ScreenMap16& pattern = patterns[static_cast<std::uint32_t>(random()) % kinds];
            for (const std::size_t quadrant : {0U, 1U, 16U, 17U}) {
                const std::size_t cell = group / 8 * 32 + group % 8 * 2 + quadrant;
                if (cell >= kScreenCells)
                    continue;
                screen.metatile[cell] = pattern.metatile[quadrant];
                screen.palette[cell] = pattern.palette[quadrant];
                screen.physics[cell] = pattern.physics[quadrant];
            }
        }
    }
    return screens;
}

} // namespace velko::test
