// The view of a room with its doors: at each move of a drag, and each step of a scroll bar.

#include "bench/memcpy_ratio.h"
#include "pages/door_model.h"
#include "tests/support/test_rom.h"

#include <benchmark/benchmark.h>

namespace velko {
namespace {

constexpr std::uint32_t kScreenTable = 0x3800; // file offsets
constexpr std::uint32_t kBlockTable = 0x3900;

// A room of 8 x 8 screens whose metatiles differ, with four doors in its first screen.
void fillRoom(EditorState& state)
{
    test::TestRom game;
    std::vector<test::Tile32Record> records;
    for (std::uint8_t i = 0; i < 64; ++i)
        records.push_back({i, static_cast<std::uint8_t>(i + 64), i, i, i, 0, 0});
    game.setTile32(0, records);
    test::Bytes numbers(64);
    for (std::uint8_t i = 0; i < 64; ++i)
        numbers[i] = i;
    const std::uint16_t screen = game.addScreen(numbers);
    game.setScreenList(0, {screen});
    game.setLayout(0, 8, 8, test::Bytes(64));
    game.config.setValue(MiscField::ptrEntranceScreen, kScreenTable);
    game.config.setValue(MiscField::ptrEntranceBlock, kBlockTable);
    game.config.setValue(MiscField::roomEntrances, 4);
    game.write(kScreenTable, {0x10, 0x10, 0x10, 0x10});
    game.write(kBlockTable, {0x11, 0x44, 0x77, 0xAA});
    game.loadInto(state);
    for (PixelImage& door : state.resources.doorBitmaps)
        door = PixelImage(16, 16, 0xFF0000);
}

void DoorViewWhileDragging(benchmark::State& bench)
{
    EditorState state;
    fillRoom(state);
    DoorModel model(state);
    model.showRoom();
    PixelImage picture;
    model.draw(picture);
    int x = 0;
    bench::runAgainstMemcpy(bench, picture.pixels().size_bytes(), [&] {
        x = (x + 27) % DoorModel::kDisplay.width;
        model.moveMouse(x, 100, true);
        model.draw(picture);
    });
}
BENCHMARK(DoorViewWhileDragging);

void DoorViewWhileScrolling(benchmark::State& bench)
{
    EditorState state;
    fillRoom(state);
    DoorModel model(state);
    model.showRoom();
    PixelImage picture;
    model.draw(picture);
    int x = 0;
    bench::runAgainstMemcpy(bench, picture.pixels().size_bytes(), [&] {
        x = (x + 24) % 1024; // cuts metatiles every other time
        model.view().scrollTo({x, 8});
        model.draw(picture);
    });
}
BENCHMARK(DoorViewWhileScrolling);

} // namespace
} // namespace velko
