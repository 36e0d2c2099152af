#include "gfx/tile_drawing.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace velko {

namespace {

constexpr int kTileSize = 8;

// Pixels are drawn two at a time. A row's eight pixels are four pairs, one in each byte of a word,
// leftmost in the lowest: bits 0-1 of a byte come from bit plane 0, bits 2-3 from bit plane 1.
// This table spreads a bit plane's byte into bits 0-1.
constexpr std::array<std::uint32_t, 256> spreadOfAllBytes()
{
    std::array<std::uint32_t, 256> spread{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        spread[byte] =
            (byte >> 6) | ((byte >> 4 & 3) << 8) | ((byte >> 2 & 3) << 16) | ((byte & 3) << 24);
    }
    return spread;
}

constexpr std::array<std::uint32_t, 256> kSpread = spreadOfAllBytes();

// What each of the sixteen values of a pair looks like.
class ColourPairs {
public:
    explicit ColourPairs(const ColourSet4& colours)
    {
        for (std::size_t pair = 0; pair < 16; ++pair) {
            const std::size_t left = (pair >> 1 & 1) | (pair >> 3 & 1) << 1;
            const std::size_t right = (pair & 1) | (pair >> 2 & 1) << 1;
            m_pairs[pair] = {colours[left], colours[right]};
        }
    }

    // Writes the eight pixels of one row. Written out, as this is the inner loop of every picture.
    void drawRow(Pixel* row, std::uint8_t plane0, std::uint8_t plane1) const
    {
        const std::uint32_t pairs = kSpread[plane0] | kSpread[plane1] << 2;
        std::memcpy(row, &m_pairs[pairs & 15], sizeof(Pair));
        std::memcpy(row + 2, &m_pairs[pairs >> 8 & 15], sizeof(Pair));
        std::memcpy(row + 4, &m_pairs[pairs >> 16 & 15], sizeof(Pair));
        std::memcpy(row + 6, &m_pairs[pairs >> 24], sizeof(Pair));
    }

private:
    using Pair = std::array<Pixel, 2>;
    std::array<Pair, 16> m_pairs{};
};

// A tile that crosses the right or bottom edge. The shift at the right edge may lead to before
// the start of a very narrow image; what would lie there is left out.
void drawClipped(PixelImage& image, int y, int x, TileBytes tile, const ColourSet4& colours)
{
    const std::int64_t width = image.width();
    const std::int64_t rows = std::min<std::int64_t>(kTileSize, image.height() - std::int64_t{y});
    const std::int64_t columns = std::min<std::int64_t>(kTileSize, width - x);
    const ColourPairs pairs(colours);
    std::int64_t position = y * width + x;
    for (std::int64_t row = 0; row < rows; ++row) {
        const auto r = static_cast<std::size_t>(row);
        std::array<Pixel, kTileSize> pixels{};
        pairs.drawRow(pixels.data(), tile[r], tile[r + 8]);
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
    const ColourPairs pairs(colours);
    Pixel* destination = image.row(top) + left;
    for (std::size_t row = 0; row < kTileSize; ++row, destination += image.width())
        pairs.drawRow(destination, tile[row], tile[row + 8]);
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
