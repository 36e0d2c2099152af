// Growing, shrinking and tidying blocks of room data.

#include "bench/memcpy_ratio.h"
#include "store/block_operations.h"
#include "tests/support/quiet_prompt.h"

#include <benchmark/benchmark.h>

namespace velko {
namespace {

constexpr std::uint32_t kRooms = 256;
constexpr std::uint16_t kRegion = 0x8000;
constexpr std::uint32_t kTableBank = 4;

// A table of 256 rooms, all pointing at the start of a region in the file's first banks.
struct Game {
    Game()
    {
        rom.setBytes(std::vector<std::uint8_t>(kHeaderSize + 5 * kBankSize, 1));
        setRegion({0, 1}, 0xFFFF);
        for (std::uint32_t room = 0; room < kRooms; ++room)
            handler.setPointer(room, kRegion);
    }
    Game(const Game&) = delete; // the handler refers to the image
    Game& operator=(const Game&) = delete;

    void setRegion(BankPair banks, std::uint16_t edge)
    {
        handler.setDescriptor({.dBank = banks,
                               .pBank = kTableBank,
                               .pMemStart = 0x8000,
                               .pMemEdge = 0x8000 + 2 * kRooms,
                               .dEdge = edge});
    }

    RomImage rom;
    PointerArrayHandler handler{rom};
};

// Seconds that a memmove of `bytes` by `distance` takes, the best of several rounds.
double memmoveSeconds(std::size_t bytes, std::size_t distance)
{
    constexpr int kRounds = 200;
    std::vector<std::byte> region(bytes + distance, std::byte{1});
    double best = std::numeric_limits<double>::max();
    for (int round = 0; round < kRounds; ++round) {
        const auto start = bench::Clock::now();
        std::memmove(region.data() + distance, region.data(), bytes);
        benchmark::DoNotOptimize(region.data());
        benchmark::ClobberMemory();
        const std::chrono::duration<double> time = bench::Clock::now() - start;
        best = std::min(best, time.count());
    }
    return best;
}

// Times `work`; `undo` puts back what it changed and is not timed.
template <typename Work, typename Undo>
double bestSeconds(benchmark::State& state, Work work, Undo undo)
{
    double best = std::numeric_limits<double>::max();
    for (auto _ : state) {
        const auto start = bench::Clock::now();
        work();
        benchmark::ClobberMemory();
        const std::chrono::duration<double> time = bench::Clock::now() - start;
        state.SetIterationTime(time.count());
        best = std::min(best, time.count());
        undo();
    }
    return best;
}

constexpr std::uint32_t kEdited = 16; // bytes inserted and deleted

// An almost full region of 16 or 48 KB. Addresses reach 32 KB only, but the bytes to move are told
// by file offsets: with the upper half mapped two banks further they are three banks.
void fillRegion(Game& game, std::int64_t kilobytes)
{
    if (kilobytes == 16)
        game.setRegion({0, 1}, 0xC000);
    else
        game.setRegion({0, 2}, 0xFFFF);
    game.handler.setFreeSpace(2 * kEdited);
}

void InsertAtBottom(benchmark::State& state)
{
    Game game;
    fillRegion(game, state.range(0));
    const std::vector<std::uint8_t> bytes(kEdited, 7);
    const double best = bestSeconds(
        state, [&] { static_cast<void>(game.handler.insertBytes(0, bytes)); },
        [&] { static_cast<void>(game.handler.deleteBytes(0, kEdited)); });
    state.counters["memmove_ratio"] =
        best / memmoveSeconds(static_cast<std::size_t>(state.range(0)) * 1024, kEdited);
}
BENCHMARK(InsertAtBottom)->Arg(16)->Arg(48)->UseManualTime();

void DeleteAtBottom(benchmark::State& state)
{
    Game game;
    fillRegion(game, state.range(0));
    const std::vector<std::uint8_t> bytes(kEdited, 7);
    const double best = bestSeconds(
        state, [&] { static_cast<void>(game.handler.deleteBytes(0, kEdited)); },
        [&] { static_cast<void>(game.handler.insertBytes(0, bytes)); });
    state.counters["memmove_ratio"] =
        best / memmoveSeconds(static_cast<std::size_t>(state.range(0)) * 1024, kEdited);
}
BENCHMARK(DeleteAtBottom)->Arg(16)->Arg(48)->UseManualTime();

// 256 rooms that share the blocks of 1024 bytes that a region of 32 KB holds.
void placeBlocks(Game& game, std::uint32_t blocks, std::uint32_t distance)
{
    for (std::uint32_t room = 0; room < kRooms; ++room)
        game.handler.setPointer(room,
                                static_cast<std::uint16_t>(kRegion + room % blocks * distance));
    game.handler.setFreeSpace(
        static_cast<std::int32_t>(0xFFFF - (kRegion + (blocks - 1) * distance + 1024)));
}

template <typename Tidy> void tidy(benchmark::State& state, Game& game, Tidy operation)
{
    test::QuietPrompt prompt;
    BlockOperations operations(game.handler, blockKind(RoomDataKind::kTile32), prompt);
    const std::vector<std::uint8_t> image(game.rom.bytes().begin(), game.rom.bytes().end());
    const std::int32_t freeSpace = game.handler.freeSpace();
    const double best = bestSeconds(
        state, [&] { operation(operations); },
        [&] {
            game.rom.setBytes(image);
            game.handler.setFreeSpace(freeSpace);
        });
    state.counters["memmove_ratio"] = best / memmoveSeconds(0x8000, 1024);
}

// 20 gaps of 512 bytes.
void DeleteUnusedData(benchmark::State& state)
{
    Game game;
    placeBlocks(game, 21, 1536);
    tidy(state, game, [](BlockOperations& o) { o.deleteUnusedData(); });
}
BENCHMARK(DeleteUnusedData)->UseManualTime();

// 31 blocks that are all the same.
void JoinIdenticalData(benchmark::State& state)
{
    Game game;
    placeBlocks(game, 31, 1024);
    tidy(state, game, [](BlockOperations& o) { o.joinIdenticalData({}); });
}
BENCHMARK(JoinIdenticalData)->UseManualTime();

// 31 blocks that differ in their last byte only.
void JoinNothing(benchmark::State& state)
{
    Game game;
    placeBlocks(game, 31, 1024);
    for (std::uint32_t block = 0; block < 31; ++block)
        game.rom.writeByte(kHeaderSize + block * 1024 + 1023, static_cast<std::uint8_t>(block));
    tidy(state, game, [](BlockOperations& o) { o.joinIdenticalData({}); });
}
BENCHMARK(JoinNothing)->UseManualTime();

} // namespace
} // namespace velko
