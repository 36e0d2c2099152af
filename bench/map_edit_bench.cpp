// Map editing: what every stroke of the brush costs. The whole room and its sharers are packed
// anew, then the view is drawn.

#include "bench/memcpy_ratio.h"
#include "pages/map_edit_model.h"
#include "pages/map_edit_pictures.h"
#include "tests/pages/linear_packer.h"
#include "tests/pages/random_screens.h"
#include "tests/support/scripted_prompt.h"
#include "tests/support/test_rom.h"

#include <benchmark/benchmark.h>
#include <random>

namespace velko {
namespace {

// As many blocks as are in use in a full room, so that a linear search is at its longest.
constexpr std::uint32_t kKinds = 130;
constexpr std::uint32_t kSeed = 1;

template <typename Work> double bestSeconds(int rounds, Work work)
{
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < rounds; ++i) {
        const auto start = bench::Clock::now();
        work();
        const std::chrono::duration<double> time = bench::Clock::now() - start;
        best = std::min(best, time.count());
    }
    return best;
}

// Packing so many screens; "linear_ratio" is how many times as long the linear search takes.
void PackScreens(benchmark::State& bench)
{
    const auto count = static_cast<std::size_t>(bench.range(0));
    const auto screens = test::patternedScreens(kSeed, count, kKinds);
    std::vector<ScreenGroups> groups;
    for (const ScreenMap16& screen : screens)
        groups.push_back(groupsOf(screen));

    const auto pack = [&] {
        Tile32Packer packer;
        for (const ScreenGroups& screen : groups)
            benchmark::DoNotOptimize(packer.pack(screen));
    };
    const double linear = bestSeconds(3, [&] {
        test::LinearPacker packer;
        for (const ScreenMap16& screen : screens)
            benchmark::DoNotOptimize(packer.pack(screen));
    });
    const double hashed = bestSeconds(20, pack);
    for (auto _ : bench)
        pack();
    bench.counters["linear_ratio"] = linear / hashed;
}
BENCHMARK(PackScreens)->Arg(16)->Arg(256)->Arg(4096)->Unit(benchmark::kMicrosecond);

// From cells to groups, which only decoding a room does for all screens.
void GatherGroups(benchmark::State& bench)
{
    const auto screens =
        test::patternedScreens(kSeed, static_cast<std::size_t>(bench.range(0)), kKinds);
    for (auto _ : bench) {
        for (const ScreenMap16& screen : screens)
            benchmark::DoNotOptimize(groupsOf(screen));
    }
}
BENCHMARK(GatherGroups)->Arg(256)->Unit(benchmark::kMicrosecond);

// A game of 256 rooms that share one set, with 256 screens each at addresses of their own, as
// far as there are any: the screens of different rooms overlap, so that no two are the same.
struct LargestGame {
    LargestGame() : model(state, prompt)
    {
        test::TestRom game(256);
        std::mt19937 random(kSeed);
        std::vector<test::Tile32Record> records(kKinds);
        for (test::Tile32Record& record : records) {
            for (std::uint8_t& byte : record)
                byte = static_cast<std::uint8_t>(random() & 0xFF);
        }
        const std::uint16_t set = game.setTile32(0, records);
        addScreens(game, random);
        addLists(game);
        for (std::uint32_t room = 0; room < 256; ++room)
            game.setPointer(&GameConfig::pahTile32, room, set);
        game.setLayout(0, 2, 2, {1, 2, 3, 4});
        game.loadInto(state);
        model.refresh();
    }

    EditorState state;
    test::ScriptedPrompt prompt;
    MapEditModel model;

private:
    // Random numbers of blocks wherever a screen can be.
    static void addScreens(test::TestRom& game, std::mt19937& random)
    {
        for (const std::uint32_t bank : {test::layout::kScreenBank, test::layout::kFixedBank}) {
            test::Bytes numbers(kBankSize);
            for (std::uint8_t& number : numbers)
                number = static_cast<std::uint8_t>(random() % kKinds);
            game.write(kHeaderSize + bank * kBankSize, numbers);
        }
    }
    // 63 lists of 256 words and an end mark fill the two banks of the region; four rooms use each.
    static void addLists(test::TestRom& game)
    {
        game.config.pahMapAlloc.dBank = {7, 8};
        for (std::uint32_t list = 0; list < 63; ++list) {
            test::Bytes bytes;
            for (std::uint32_t i = 0; i < 256; ++i) {
                const std::uint32_t address = 0x8000 + list * 256 + i;
                bytes.push_back(static_cast<std::uint8_t>(address & 0xFF));
                bytes.push_back(static_cast<std::uint8_t>(address >> 8));
            }
            bytes.insert(bytes.end(), 2, 0xFF);
            const std::uint32_t offset = list * static_cast<std::uint32_t>(bytes.size());
            game.write(kHeaderSize + 7 * kBankSize + offset, bytes);
            for (std::uint32_t room = list; room < 256; room += 63)
                game.setPointer(&GameConfig::pahMapAlloc, room,
                                static_cast<std::uint16_t>(0x8000 + offset));
        }
    }
};

// Paint, pack and draw.
void StrokeInTheLargestGame(benchmark::State& bench)
{
    LargestGame game;
    PixelImage picture;
    int x = 0;
    for (auto _ : bench) {
        x = (x + 30) % 448;
        game.model.selectBlockAt({x % 282, 100});
        game.model.applyLeft({x, 100});
        drawMapView(game.state, game.model, picture);
        benchmark::DoNotOptimize(picture.pixels().data());
    }
    bench.counters["screens"] = static_cast<double>(game.model.screens().all().size());
}
BENCHMARK(StrokeInTheLargestGame)->Unit(benchmark::kMillisecond);

void RefreshInTheLargestGame(benchmark::State& bench)
{
    LargestGame game;
    for (auto _ : bench)
        game.model.refresh();
}
BENCHMARK(RefreshInTheLargestGame)->Unit(benchmark::kMillisecond);

void drawView(benchmark::State& bench, MapEditMode mode, const test::Bytes& layout)
{
    test::TestRom game;
    game.setScreenList(0, std::vector<std::uint16_t>(3, game.addScreen(test::Bytes(64))));
    game.setLayout(0, 2, 2, layout);
    EditorState state;
    game.loadInto(state);
    test::ScriptedPrompt prompt;
    MapEditModel model(state, prompt);
    model.setMode(mode);
    model.refresh();
    PixelImage picture;
    drawMapView(state, model, picture);
    bench::runAgainstMemcpy(bench, picture.pixels().size_bytes(),
                            [&] { drawMapView(state, model, picture); });
}

void MapView(benchmark::State& bench)
{
    drawView(bench, MapEditMode::kTileCombined, {0, 1, 2, 1});
}
BENCHMARK(MapView)->Unit(benchmark::kMicrosecond);

void MapViewOfFadedCells(benchmark::State& bench)
{
    drawView(bench, MapEditMode::kTileCombined, {9, 9, 9, 9});
}
BENCHMARK(MapViewOfFadedCells)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace velko
