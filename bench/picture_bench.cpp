// `velko-cli render --all` on the demo. The aim is that drawing takes less than a quarter of the
// time: the rest is the encoding of PNG files.

#include "bench/memcpy_ratio.h"
#include "cli/cli.h"
#include "cli/png_file.h"
#include "cli/room_picture.h"
#include "rom/file_io.h"
#include "tests/cli/demo_state.h"
#include "tests/support/temporary_folder.h"

#include <benchmark/benchmark.h>
#include <sstream>

namespace velko::bench {
namespace {

// The two halves of the work, one after the other on one core: the best of this run for each.
void PicturesOfAllRooms(benchmark::State& state)
{
    test::OpenGame game;
    const std::uint32_t rooms = game.state.config.roomCount();
    std::vector<PixelImage> pictures(rooms);
    double drawing = std::numeric_limits<double>::max();
    double encoding = std::numeric_limits<double>::max();
    for (auto _ : state) {
        const auto start = Clock::now();
        for (std::uint32_t room = 0; room < rooms; ++room)
            benchmark::DoNotOptimize(
                drawRoom(game.state, static_cast<std::uint8_t>(room), false, 1, pictures[room]));
        const auto drawn = Clock::now();
        for (const PixelImage& picture : pictures)
            benchmark::DoNotOptimize(encodePng(picture));
        const auto encoded = Clock::now();
        drawing = std::min(drawing, std::chrono::duration<double>(drawn - start).count());
        encoding = std::min(encoding, std::chrono::duration<double>(encoded - drawn).count());
    }
    state.SetItemsProcessed(state.iterations() * rooms);
    state.counters["drawing_share"] = drawing / (drawing + encoding);
    state.counters["encoding_ratio"] = (drawing + encoding) / encoding;
}
BENCHMARK(PicturesOfAllRooms)->Unit(benchmark::kMillisecond);

// The whole command with its files, on all cores: rooms per second.
void RenderAll(benchmark::State& state)
{
    const test::TemporaryFolder folder;
    const std::vector<std::string> words = {
        "-C", VELKO_DEMO_DIR, "render", "demo.nes", "--all", "-o", utf8FromPath(folder.path())};
    std::ostringstream out;
    std::ostringstream err;
    for (auto _ : state) {
        if (runCli(words, out, err) != 0)
            state.SkipWithError(err.str().c_str());
    }
    state.SetItemsProcessed(
        state.iterations() * std::distance(std::filesystem::directory_iterator(folder.path()), {}));
}
BENCHMARK(RenderAll)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace velko::bench
