#pragma once

#include "demo/art_library.h"
#include "demo/block_region.h"
#include "demo/tile_encoder.h"
#include "demo/world.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velko::demo {

// Tiles that are loaded together to a fixed place of a pattern table: one load record. Frames
// name their tiles by that place, so a group that shares it with another excludes the other.
class TileGroup {
public:
    // `firstTile` is 0-255 for the sprite table, 256-511 for the background table; at most
    // `capacity` tiles.
    TileGroup(std::string name, std::uint16_t firstTile, std::uint16_t capacity);

    // Adds a tile as it stands and returns its number in its table.
    std::uint8_t addTile(const Tile& tile);
    // Cuts a picture into pieces, keeping tiles that are equal, or mirror images of each other,
    // once. Empty tiles make no piece. (originX, originY) of the picture is the sprite's position.
    Frame addPicture(const Picture& picture, int originX, int originY, std::uint8_t colourSet);

    const std::string& name() const { return m_name; }
    std::uint16_t firstTile() const { return m_firstTile; }
    const std::vector<Tile>& tiles() const { return m_tiles; }

private:
    std::uint8_t numberOf(std::size_t index) const;
    Piece pieceFor(const Tile& tile);

    std::string m_name;
    std::uint16_t m_firstTile;
    std::uint16_t m_capacity;
    std::vector<Tile> m_tiles;
};

// Appends the group's tiles to the graphics banks and its record to the load records. Returns
// the record's number.
std::uint8_t storeGroup(World& world, const TileGroup& group);

// The frame mirrored around the sprite's position.
Frame mirrored(const Frame& frame);

} // namespace velko::demo
