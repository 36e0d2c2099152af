// The grid of a room's map: after each change of the room, and while the mouse is dragged over it.

#include "bench/memcpy_ratio.h"
#include "pages/map_grid_picture.h"
#include "tests/support/test_rom.h"

#include <benchmark/benchmark.h>

namespace velko {
namespace {

constexpr std::uint8_t kSize = 32; // cells each way, 150 of which show

// A room of 32 x 32 cells and 200 screens.
void fillRoom(EditorState& state)
{
    test::TestRom game;
    std::vector<std::uint16_t> screens;
    for (int i = 0; i < 200; ++i)
        screens.push_back(game.addScreen(test::Bytes(64, static_cast<std::uint8_t>(i))));
    test::Bytes cells;
    for (int i = 0; i < kSize * kSize; ++i)
        cells.push_back(static_cast<std::uint8_t>(i % 200));
    game.setScreenList(0, screens);
    game.setLayout(0, kSize, kSize, cells);
    game.loadInto(state);
}

template <typename Draw> void drawGrid(benchmark::State& bench, Draw draw)
{
    EditorState state;
    fillRoom(state);
    MapLayoutModel model(state);
    MapGridPicture grid(state, model);
    grid.setViewSize(672, 450);
    PixelImage picture;
    grid.draw(picture);
    bench::runAgainstMemcpy(bench, picture.pixels().size_bytes(),
                            [&] { draw(model, grid, picture); });
}

void MapGridAfterRefresh(benchmark::State& bench)
{
    drawGrid(bench, [](MapLayoutModel&, MapGridPicture& grid, PixelImage& picture) {
        grid.refresh();
        grid.draw(picture);
    });
}
BENCHMARK(MapGridAfterRefresh);

void MapGridWhileDragging(benchmark::State& bench)
{
    std::uint32_t step = 0;
    drawGrid(bench, [&](MapLayoutModel& model, MapGridPicture& grid, PixelImage& picture) {
        model.selectCell({step % 10, step % 14});
        ++step;
        grid.draw(picture);
    });
}
BENCHMARK(MapGridWhileDragging);

} // namespace
} // namespace velko
