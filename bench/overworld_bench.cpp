// The picture of the overworld map, as each change and each move of the mouse draws it again.

#include "bench/memcpy_ratio.h"
#include "tests/support/quiet_prompt.h"
#include "tests/tools/overworld_rom.h"
#include "tools/overworld_model.h"

#include <benchmark/benchmark.h>

namespace velko {
namespace {

namespace overworld = test::overworld;

// A map of mixed tiles and palettes with 13 areas and 8 trucks.
test::OverworldRom ordinaryGame()
{
    test::OverworldRom game;
    for (std::uint32_t i = 0; i < OverworldMap::kColumns * OverworldMap::kRows; ++i)
        game.bytes[overworld::kTiles + i] = static_cast<std::uint8_t>(i * 37);
    for (std::uint32_t i = 0; i < 64; ++i)
        game.bytes[overworld::kAttributes + i] = static_cast<std::uint8_t>(i * 91);
    for (std::uint32_t i = 0; i < 26; ++i)
        game.bytes[overworld::kAreas + i] = static_cast<std::uint8_t>(40 + i * 53 % 160);
    game.config.setValue(MiscField::areas, 12);
    game.config.setValue(MiscField::numOfMapTrucks, 8);
    return game;
}

// As many trucks as are taken at all, and patterns without an end.
test::OverworldRom brokenGame()
{
    test::OverworldRom game = ordinaryGame();
    game.config.setValue(MiscField::numOfMapTrucks, 0xFFFFFFFF);
    game.config.setValue(MiscField::areas, 0xFFFFFFFF);
    for (std::uint32_t i = 0; i < 600; ++i)
        game.bytes[overworld::kPatterns + i] = i % 2 == 0 ? 0x00 : 0x04;
    return game;
}

void drawMap(benchmark::State& bench, const test::OverworldRom& game, OverworldMode mode)
{
    EditorState state;
    game.loadInto(state);
    test::QuietPrompt prompt;
    OverworldModel model(state, prompt);
    for (std::size_t i = 0; i < state.graphics.patternMemory.size(); ++i)
        state.graphics.patternMemory[i] = static_cast<std::uint8_t>(i * 167 >> 3);
    model.setMode(mode);
    PixelImage picture;
    model.drawMap(picture);
    bench::runAgainstMemcpy(bench, picture.pixels().size_bytes(), [&] { model.drawMap(picture); });
}

void OverworldMapTiles(benchmark::State& bench)
{
    drawMap(bench, ordinaryGame(), OverworldMode::kTile);
}
BENCHMARK(OverworldMapTiles);

void OverworldMapAreas(benchmark::State& bench)
{
    drawMap(bench, ordinaryGame(), OverworldMode::kArea);
}
BENCHMARK(OverworldMapAreas);

void OverworldMapTrucks(benchmark::State& bench)
{
    drawMap(bench, ordinaryGame(), OverworldMode::kTruck);
}
BENCHMARK(OverworldMapTrucks);

void OverworldMapOf256Areas(benchmark::State& bench)
{
    drawMap(bench, brokenGame(), OverworldMode::kArea);
}
BENCHMARK(OverworldMapOf256Areas);

void OverworldMapOf256TrucksAndPhases(benchmark::State& bench)
{
    drawMap(bench, brokenGame(), OverworldMode::kTruck);
}
BENCHMARK(OverworldMapOf256TrucksAndPhases);

} // namespace
} // namespace velko
