#include "bench/memcpy_ratio.h"
#include "gfx/pixel_image.h"
#include "gfx/text_drawing.h"

#include <benchmark/benchmark.h>

namespace velko {
namespace {

PixelImage noise(std::uint32_t width, std::uint32_t height)
{
    PixelImage image(width, height);
    Pixel value = 1;
    for (Pixel& pixel : image.pixels()) {
        value = value * 1664525U + 1013904223U;
        pixel = value >> 8;
    }
    return image;
}

void scale(benchmark::State& state, const PixelImage& source, std::uint32_t width,
           std::uint32_t height)
{
    PixelImage destination(width, height);
    bench::runAgainstMemcpy(state, destination.pixels().size_bytes(),
                            [&] { copyScaled(destination, source); });
}

// A view that is shown enlarged.
void ScaleUp(benchmark::State& state)
{
    scale(state, noise(384, 384), 640, 480);
}
BENCHMARK(ScaleUp);

// A screen's share of a room's thumbnail: rooms of 4 x 2 screens.
void ScaleScreenDown(benchmark::State& state)
{
    scale(state, noise(256, 240), 57, 115);
}
BENCHMARK(ScaleScreenDown);

void ScaleEqual(benchmark::State& state)
{
    scale(state, noise(256, 240), 256, 240);
}
BENCHMARK(ScaleEqual);

// The bytes are those of the text's cells.
void text(benchmark::State& state, std::string_view line, int width, int height)
{
    PixelImage image(320, 48, 0x406080);
    const std::size_t bytes =
        line.size() * static_cast<std::size_t>(width * height) * sizeof(Pixel);
    bench::runAgainstMemcpy(
        state, bytes, [&] { drawText(line, image, 6, 6, width, height, 0xFFFFFF, kTextOutline); });
}

void LayoutCaption(benchmark::State& state)
{
    text(state, "1f", 18, 24);
}
BENCHMARK(LayoutCaption);

void ThumbnailCaption(benchmark::State& state)
{
    text(state, "Forest path, 2nd", 10, 15);
}
BENCHMARK(ThumbnailCaption);

void LargeCaption(benchmark::State& state)
{
    text(state, "1f", 32, 32);
}
BENCHMARK(LargeCaption);

} // namespace
} // namespace velko
