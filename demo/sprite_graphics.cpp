#include "demo/sprite_graphics.h"

#include <algorithm>

namespace velko::demo {

namespace {

constexpr std::uint8_t kFlipX = 0x40;
constexpr std::uint8_t kFlipY = 0x80;

Tile flippedX(Tile tile)
{
    for (std::uint8_t& row : tile) {
        unsigned turned = 0;
        for (unsigned bit = 0; bit < 8; ++bit)
            if (row & (1U << bit))
                turned |= 0x80U >> bit;
        row = static_cast<std::uint8_t>(turned);
    }
    return tile;
}

Tile flippedY(Tile tile)
{
    std::reverse(tile.begin(), tile.begin() + 8);
    std::reverse(tile.begin() + 8, tile.end());
    return tile;
}

} // namespace

TileGroup::TileGroup(std::string name, std::uint16_t firstTile, std::uint16_t capacity)
    : m_name(std::move(name)), m_firstTile(firstTile), m_capacity(capacity)
{
}

std::uint8_t TileGroup::numberOf(std::size_t index) const
{
    return static_cast<std::uint8_t>((m_firstTile + index) & 0xFF);
}

std::uint8_t TileGroup::addTile(const Tile& tile)
{
    if (m_tiles.size() == m_capacity)
        throw DemoError("too many tiles in " + m_name);
    m_tiles.push_back(tile);
    return numberOf(m_tiles.size() - 1);
}

Piece TileGroup::pieceFor(const Tile& tile)
{
    const std::array<Tile, 4> turned = {tile, flippedX(tile), flippedY(tile),
                                        flippedX(flippedY(tile))};
    constexpr std::array<std::uint8_t, 4> kFlips = {0, kFlipX, kFlipY, kFlipX | kFlipY};
    for (std::size_t way = 0; way < turned.size(); ++way) {
        const auto found = std::find(m_tiles.begin(), m_tiles.end(), turned[way]);
        if (found != m_tiles.end()) {
            const auto index = static_cast<std::size_t>(found - m_tiles.begin());
            return {numberOf(index), 0, 0, kFlips[way]};
        }
    }
    return {addTile(tile), 0, 0, 0};
}

Frame TileGroup::addPicture(const Picture& picture, int originX, int originY,
                            std::uint8_t colourSet)
{
    Frame frame;
    for (int y = 0; y < picture.height; y += 8) {
        for (int x = 0; x < picture.width; x += 8) {
            const Tile tile = encodeTile(picture, x, y);
            if (tile == Tile{})
                continue;
            Piece piece = pieceFor(tile);
            piece.x = x - originX;
            piece.y = y - originY;
            piece.attributes = static_cast<std::uint8_t>(piece.attributes | colourSet);
            frame.push_back(piece);
        }
    }
    return frame;
}

std::uint8_t storeGroup(World& world, const TileGroup& group)
{
    if (world.loads.size() == 128)
        throw DemoError("too many load records");
    // Pattern memory holds the sprite table first, then the background table.
    const LoadRecord record{group.name(), static_cast<std::uint16_t>(world.graphics.size()),
                            static_cast<std::uint16_t>(group.firstTile() * 16),
                            static_cast<std::uint8_t>(group.tiles().size())};
    for (const Tile& tile : group.tiles())
        world.graphics.insert(world.graphics.end(), tile.begin(), tile.end());
    world.loads.push_back(record);
    return static_cast<std::uint8_t>(world.loads.size() - 1);
}

Frame mirrored(const Frame& frame)
{
    Frame result = frame;
    for (Piece& piece : result) {
        piece.x = -piece.x - 8;
        piece.attributes ^= kFlipX;
    }
    return result;
}

} // namespace velko::demo
