#pragma once

#include "demo/art_library.h"
#include "demo/tile_encoder.h"
#include "demo/world.h"

#include <string_view>
#include <vector>

namespace velko::demo {

// The overworld picture as text: tiles by name, palettes, and where the areas' icons are.
struct OverworldMap {
    std::vector<std::vector<std::string>> rows; // kMapRows of kMapColumns tile names
    std::vector<std::string> palettes;          // a digit per 16x16 cell
    std::vector<std::array<int, 2>> areas;      // column and row of an icon's top left tile
};

// Reads "row NAME...", "palettes DIGITS" and "area NUMBER COLUMN ROW" lines. The cells of the
// palettes lie one tile up and left of the map's corner. Throws DemoError when something is
// missing.
OverworldMap parseOverworldMap(std::string_view text);

// The tiles of the overworld in the order of their numbers: the art's 8x8 tiles, then four per
// icon, which are called NAME.tl, NAME.bl, NAME.tr and NAME.br.
class OverworldTiles {
public:
    explicit OverworldTiles(const ArtFile& art);

    std::uint8_t number(std::string_view name) const;
    const std::vector<Tile>& tiles() const { return m_tiles; }

private:
    void add(const std::string& name, const Tile& tile);

    std::vector<std::string> m_names;
    std::vector<Tile> m_tiles;
};

} // namespace velko::demo
