#include "demo/tile_encoder.h"

#include <algorithm>

namespace velko::demo {

Tile encodeTile(const Picture& picture, int left, int top)
{
    Tile tile{};
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            const unsigned value = picture.at(left + x, top + y);
            const unsigned bit = 0x80U >> x;
            if (value & 1)
                tile[static_cast<std::size_t>(y)] |= static_cast<std::uint8_t>(bit);
            if (value & 2)
                tile[static_cast<std::size_t>(y) + 8] |= static_cast<std::uint8_t>(bit);
        }
    }
    return tile;
}

Block encodeBlock(const Picture& picture)
{
    Block block{};
    auto out = block.begin();
    for (const Tile& tile : encodeColumns(picture))
        out = std::copy(tile.begin(), tile.end(), out);
    return block;
}

std::vector<Tile> encodeColumns(const Picture& picture)
{
    std::vector<Tile> tiles;
    for (int x = 0; x < picture.width; x += 8)
        for (int y = 0; y < picture.height; y += 8)
            tiles.push_back(encodeTile(picture, x, y));
    return tiles;
}

} // namespace velko::demo
