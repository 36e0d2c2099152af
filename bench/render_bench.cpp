// Drawing screens and rooms, and changing the room. The aim is a screen within 4 times a memcpy
// of its 245,760 bytes.

#include "bench/memcpy_ratio.h"
#include "tests/gfx/random_game.h"
#include "tools/room_browser.h"

#include <benchmark/benchmark.h>
#include <numeric>

namespace velko::bench {
namespace {

constexpr Pixel kPaper = 0xF0F0F0;

// Room 0 has 8 x 4 screens of random metatiles.
test::TestRom wideGame()
{
    test::TestRom game = test::randomGame(1);
    game.setLayout(0, 8, 4, test::Bytes{0, 1, 2, 3, 4, 5, 6, 7, 7, 6, 5, 4, 3, 2, 1, 0,
                                        0, 2, 4, 6, 1, 3, 5, 7, 7, 5, 3, 1, 6, 4, 2, 0});
    return game;
}

void Screen(benchmark::State& state)
{
    const test::TestCore core(wideGame());
    PixelImage image(kScreenWidth, kScreenHeight);
    const std::uint16_t address = core.renderer.screenAddress(0);
    runAgainstMemcpy(state, image.pixels().size_bytes(),
                     [&] { core.renderer.drawScreen(image, 0, 0, address); });
}
BENCHMARK(Screen)->Unit(benchmark::kMicrosecond);

void RoomOf32Screens(benchmark::State& state)
{
    test::TestCore core(wideGame());
    PixelImage image;
    core.renderer.renderRoomPicture(0, image);
    runAgainstMemcpy(state, image.pixels().size_bytes(),
                     [&] { core.renderer.renderRoomPicture(0, image); });
}
BENCHMARK(RoomOf32Screens)->Unit(benchmark::kMicrosecond);

// What a page's view shows, once of a small and once of the largest room: the same work.
void VisibleRegion(benchmark::State& state)
{
    test::TestRom game = wideGame();
    const auto size = static_cast<std::uint8_t>(state.range(0));
    game.setStoredSize(0, size, size);
    const test::TestCore core(game);
    PixelImage image(320, 320);
    runAgainstMemcpy(state, image.pixels().size_bytes(),
                     [&] { core.renderer.renderRoomRegion(image, 100, 100, kPaper); });
}
BENCHMARK(VisibleRegion)->Arg(4)->Arg(255)->Unit(benchmark::kMicrosecond);

// A page of the room selector: eight captioned thumbnails, each of 8 x 4 screens, all different.
// The aim is a page within 100 ms.
void PageOfEightRooms(benchmark::State& state)
{
    test::TestRom game = wideGame();
    test::Bytes cells(32);
    std::iota(cells.begin(), cells.end(), std::uint8_t{0});
    game.setLayout(0, 8, 4, cells);
    test::TestCore core(game);
    std::vector<PixelImage> thumbnails(RoomBrowser::kSlots);
    for (PixelImage& thumbnail : thumbnails)
        thumbnail.allocate(RoomBrowser::kThumbnailSize, RoomBrowser::kThumbnailSize);
    runAgainstMemcpy(state, thumbnails.size() * thumbnails[0].pixels().size_bytes(), [&] {
        for (PixelImage& thumbnail : thumbnails)
            core.renderer.renderRoomThumbnail(0, thumbnail, "Area 1: Clover Downs, the brook",
                                              kPaper);
    });
}
BENCHMARK(PageOfEightRooms)->Unit(benchmark::kMicrosecond);

// The bytes it produces are those of pattern memory.
void ChangeOfRoom(benchmark::State& state)
{
    test::TestCore core(wideGame());
    std::uint8_t room = 0;
    runAgainstMemcpy(state, core.graphics.patternMemory.size(),
                     [&] { core.graphics.selectRoom(room = room == 0 ? 1 : 0); });
}
BENCHMARK(ChangeOfRoom)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace velko::bench
