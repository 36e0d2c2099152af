#include "gfx/tile_drawing.h"

#include <algorithm>
#include <array>

namespace velko {

namespace {

constexpr int kTileSize = 8;

// For each value of a bit plane's byte the eight pixels it covers, as masks: all ones where the
// bit is set. With masks a row is drawn by logic on whole words, which compilers turn into vector
// code for any machine.
using PixelMasks = std::array<std::uint32_t, kTileSize>;

constexpr std::array<PixelMasks, 256> spreadOfAllBytes()
{
    std::array<PixelMasks, 256> spread{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        for (std::size_t column = 0; column < kTileSize; ++column)
            spread[byte][column] = (byte >> (7 - column)) & 1 ? 0xFFFFFFFF : 0;
    }
    return spread;
}

constexpr std::array<PixelMasks, 256> kSpread = spreadOfAllBytes();

// A colour set as the bits in which its colours differ, so that
// colour(value) = first ^ (plane 0 & low) ^ (plane 1 & high) ^ (plane 0 & plane 1 & both).
struct ColourDifferences {
    Pixel first;
    Pixel low;
    Pixel high;
    Pixel both;

    explicit ColourDifferences(const ColourSet4& colours)
        : first(colours[0])
        , low(colours[0] ^ colours[1])
        , high(colours[0] ^ colours[2])
        , both(colours[0] ^ colours[1] ^ colours[2] ^ colours[3])
    {
    }
};

// Writes the first `columns` pixels of a tile's row.
inline void drawRow(Pixel* destination, std::uint8_t plane0, std::uint8_t plane1,
                    const ColourDifferences& colours, std::ptrdiff_t columns = kTileSize)
{
    const PixelMasks& low = kSpread[plane0];
    const PixelMasks& high = kSpread[plane1];
    for (std::ptrdiff_t i = 0; i < columns; ++i) {
        const auto c = static_cast<std::size_t>(i);
        destination[i] = colours.first ^ (low[c] & colours.low) ^ (high[c] & colours.high)
            ^ (low[c] & high[c] & colours.both);
    }
}

// A tile that crosses the right or bottom edge. The shift at the right edge may lead to before
// the start of a very narrow image; what would lie there is left out.
void drawClipped(PixelImage& image, int y, int x, TileBytes tile, const ColourSet4& colours)
{
    const std::int64_t width = image.width();
    const std::int64_t rows = std::min<std::int64_t>(kTileSize, image.height() - std::int64_t{y});
    const std::int64_t columns = std::min<std::int64_t>(kTileSize, width - x);
    std::int64_t position = y * width + x;
    for (std::int64_t row = 0; row < rows; ++row) {
        PixelMasks pixels;
        const auto r = static_cast<std::size_t>(row);
        drawRow(pixels.data(), tile[r], tile[r + 8], ColourDifferences(colours));
        for (std::int64_t column = 0; column < columns; ++column, ++position) {
            if (position >= 0)
                image.pixels()[static_cast<std::size_t>(position)] =
                    pixels[static_cast<std::size_t>(column)];
        }
        position += width - kTileSize;
    }
}

} // namespace

void drawTileOpaque(PixelImage& image, int y, int x, TileBytes tile, const ColourSet4& colours)
{
    if (y < 0 || x < 0)
        return;
    const auto top = static_cast<std::uint32_t>(y);
    const auto left = static_cast<std::uint32_t>(x);
    if (top >= image.height() || left >= image.width())
        return;
    if (image.height() - top < kTileSize || image.width() - left < kTileSize) {
        drawClipped(image, y, x, tile, colours);
        return;
    }
    const ColourDifferences differences(colours);
    Pixel* destination = image.row(top) + left;
    for (std::size_t row = 0; row < kTileSize; ++row, destination += image.width())
        drawRow(destination, tile[row], tile[row + 8], differences);
}

void drawTileTransparent(PixelImage& image, int y, int x, TileBytes tile, const ColourSet4& colours,
                         bool hFlip, bool vFlip)
{
    for (int row = 0; row < kTileSize; ++row) {
        const std::int64_t imageRow = std::int64_t{y} + row;
        if (imageRow < 0 || imageRow >= image.height())
            continue;
        const auto tileRow = static_cast<std::size_t>(vFlip ? 7 - row : row);
        Pixel* destination = image.row(static_cast<std::uint32_t>(imageRow));
        for (int column = 0; column < kTileSize; ++column) {
            const std::int64_t imageColumn = std::int64_t{x} + column;
            if (imageColumn < 0 || imageColumn >= image.width())
                continue;
            const int bit = hFlip ? column : 7 - column;
            const unsigned value =
                ((tile[tileRow] >> bit) & 1U) | (((tile[tileRow + 8] >> bit) & 1U) << 1);
            if (value != 0)
                destination[imageColumn] = colours[value];
        }
    }
}

} // namespace velko
