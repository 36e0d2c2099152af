// One tick of unit placement: sprites move on, and the view is drawn with its units. The aim is
// at most 6,400 us, 40 % of the time between two ticks, with 255 units.

#include "bench/memcpy_ratio.h"
#include "pages/unit_placement_model.h"
#include "tests/gfx/random_game.h"

#include <benchmark/benchmark.h>

namespace velko::bench {
namespace {

// Room 0 has 8 x 4 screens of random metatiles, and `count` units of 16 x 32 pixels, all in the
// first view. The sprites of all types are animated.
test::TestRom gameWithUnits(std::uint32_t count)
{
    test::TestRom game = test::randomGame(1);
    game.setLayout(0, 8, 4, test::Bytes(32, 1));
    test::Bytes tiles;
    for (std::uint32_t i = 0; i < 256 * 16; ++i)
        tiles.push_back(static_cast<std::uint8_t>(i * 167 >> 3));
    game.setType2Graphics(0, tiles);
    game.setLoadRecord(0, 0, 0, 255);
    game.setType2Loads(0, {0});

    test::Bytes script;
    for (const std::uint8_t end : test::Bytes{0x02, 0x82}) { // two frames of two ticks
        script.push_back(8);
        for (std::uint8_t i = 0; i < 8; ++i)
            script.insert(script.end(),
                          {static_cast<std::uint8_t>(i + end),
                           static_cast<std::uint8_t>(i % 2 * 8 - 8),
                           static_cast<std::uint8_t>(i / 2 * 8 - 16), i});
        script.push_back(end);
    }
    const std::uint16_t address = game.addSprite(script);
    game.write(
        cpuToFileOffset(game.config.phSprite, static_cast<std::uint16_t>(address + 68)),
        {static_cast<std::uint8_t>(address & 0xFF), static_cast<std::uint8_t>(address >> 8)});
    game.config.unitSpriteReg.fill(1);
    game.config.unitSpriteAddress.fill(address);

    test::Bytes units;
    for (std::uint32_t i = 0; i < count; ++i)
        units.insert(units.end(),
                     {static_cast<std::uint8_t>(i % 144), static_cast<std::uint8_t>(i * 37), 1,
                      static_cast<std::uint8_t>(i * 53 % 240), 0});
    game.setUnits(0, units);
    return game;
}

void runTicks(benchmark::State& bench, bool scrolling)
{
    EditorState state;
    gameWithUnits(static_cast<std::uint32_t>(bench.range(0))).loadInto(state);
    UnitPlacementModel model(state);
    model.refresh();
    PixelImage picture;
    model.draw(picture);
    runAgainstMemcpy(bench, picture.pixels().size_bytes(), [&] {
        model.tick();
        if (scrolling)
            model.view().scrollTo({model.view().scroll().x ^ 16, 0});
        model.draw(picture);
    });
}

void UnitTick(benchmark::State& bench)
{
    runTicks(bench, false);
}
BENCHMARK(UnitTick)->Arg(0)->Arg(32)->Arg(255)->Unit(benchmark::kMicrosecond);

// While a unit is moved at the view's border.
void UnitTickThatScrolls(benchmark::State& bench)
{
    runTicks(bench, true);
}
BENCHMARK(UnitTickThatScrolls)->Arg(0)->Arg(255)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace velko::bench
