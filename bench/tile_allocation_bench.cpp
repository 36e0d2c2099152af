// A stroke on the tile allocation page: one pixel written, pattern memory and all pictures made
// again.

#include "bench/memcpy_ratio.h"
#include "gfx/tile_allocation_pictures.h"
#include "tests/support/tile_allocation_rom.h"

#include <benchmark/benchmark.h>

namespace velko {
namespace {

void TileAllocationStroke(benchmark::State& bench)
{
    test::TileAllocationRom game;
    EditorState state;
    game.loadInto(state);
    TileAllocationModel model(state);
    TileAllocationPictures pictures(state, model);
    PixelImage slots;
    PixelImage blocks;
    PixelImage canvas;
    int step = 0;
    const auto stroke = [&] {
        model.setCurrentColour((step / 256 + 1) % 4); // never the one that the pixel has
        model.paint({step % 16, step / 16 % 16});
        ++step;
        pictures.drawSlots(slots);
        pictures.drawBlocks(blocks);
        pictures.drawCanvas(canvas);
    };
    stroke();
    bench::runAgainstMemcpy(bench,
                            slots.pixels().size_bytes() + blocks.pixels().size_bytes()
                                + canvas.pixels().size_bytes(),
                            stroke);
}
BENCHMARK(TileAllocationStroke);

} // namespace
} // namespace velko
