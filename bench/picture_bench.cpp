// `velko-cli render --all` on the demo. The aim is that drawing takes less than a quarter of the
// time: the rest is the encoding of PNG files.

#include "bench/memcpy_ratio.h"
#include "cli/cli.h"
#include "cli/png_file.h"
#include "cli/room_picture.h"
#include "rom/file_io.h"
#include "tests/cli/demo_state.h"
#include "tests/support/temporary_folder.h"

#include <algorithm>
#include <atomic>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <future>
#include <limits>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace velko::bench {
namespace {

double secondsOf(const auto& work)
{
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// The least of what was measured in one run: what else goes on only adds to a time.
class Best {
public:
    void take(double seconds) { m_seconds = std::min(m_seconds, seconds); }
    double seconds() const { return m_seconds; }

private:
    double m_seconds = std::numeric_limits<double>::max();
};

// The pictures of the demo's rooms.
class Pictures {
public:
    Pictures() : m_pictures(m_game.state.config.roomCount()) { }

    std::size_t count() const { return m_pictures.size(); }
    void draw()
    {
        for (std::size_t room = 0; room < count(); ++room)
            benchmark::DoNotOptimize(drawRoom(m_game.state, static_cast<std::uint8_t>(room), false,
                                              1, m_pictures[room]));
    }
    void encode() const
    {
        for (const PixelImage& picture : m_pictures)
            benchmark::DoNotOptimize(encodePng(picture));
    }
    void encodeOnAllCores() const
    {
        std::atomic<std::size_t> next = 0;
        const auto work = [&] {
            for (std::size_t i = next++; i < count(); i = next++)
                benchmark::DoNotOptimize(encodePng(m_pictures[i]));
        };
        std::vector<std::future<void>> helpers; // which are waited for when they go
        for (unsigned i = 1; i < std::thread::hardware_concurrency(); ++i)
            helpers.push_back(std::async(std::launch::async, work));
        work();
    }

private:
    test::OpenGame m_game;
    std::vector<PixelImage> m_pictures;
};

// The two halves of the work, one after the other on one core.
void PicturesOfAllRooms(benchmark::State& state)
{
    Pictures pictures;
    Best drawing;
    Best encoding;
    for (auto _ : state) {
        drawing.take(secondsOf([&] { pictures.draw(); }));
        encoding.take(secondsOf([&] { pictures.encode(); }));
    }
    const double both = drawing.seconds() + encoding.seconds();
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(pictures.count()));
    state.counters["drawing_share"] = drawing.seconds() / both;
    state.counters["encoding_ratio"] = both / encoding.seconds();
}
BENCHMARK(PicturesOfAllRooms)->Unit(benchmark::kMillisecond);

// The whole command on all cores: it opens the game once for each, draws, encodes and writes files.
// The ratio is to the encoding of the same pictures alone, on all cores, too.
void RenderAll(benchmark::State& state)
{
    const test::TemporaryFolder folder;
    const std::vector<std::string> words = {
        "-C", VELKO_DEMO_DIR, "render", "demo.nes", "--all", "-o", utf8FromPath(folder.path())};
    Pictures pictures;
    pictures.draw();
    Best whole;
    Best encoding;
    for (auto _ : state) {
        std::ostringstream out;
        std::ostringstream err;
        const double seconds = secondsOf([&] {
            if (runCli(words, out, err) != 0)
                state.SkipWithError(err.str().c_str());
        });
        state.SetIterationTime(seconds);
        whole.take(seconds);
        encoding.take(secondsOf([&] { pictures.encodeOnAllCores(); }));
    }
    state.SetItemsProcessed(
        state.iterations() * std::distance(std::filesystem::directory_iterator(folder.path()), {}));
    state.counters["encoding_ratio"] = whole.seconds() / encoding.seconds();
    state.counters["best_rooms_per_second"] =
        static_cast<double>(pictures.count()) / whole.seconds();
}
BENCHMARK(RenderAll)->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace
} // namespace velko::bench
