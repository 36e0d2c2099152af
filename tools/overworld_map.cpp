#include "tools/overworld_map.h"

#include <algorithm>

namespace velko {

namespace {

constexpr std::size_t kChunkTiles = 4;

// The attribute table starts three tiles left of and above the map. A byte holds the palettes of
// 4 x 4 tiles, eight bytes a row.
constexpr int kTilesBeforeMap = 3;
constexpr int kAttributeTiles = 32;
constexpr int kAttributeRowBytes = 8;

// Where a cell's palette is: the byte of the attribute table and the lowest bit in it.
struct AttributePlace {
    std::uint32_t byte = 0;
    int shift = 0;
};

AttributePlace attributePlace(OverworldCell cell)
{
    const int x = std::clamp(cell.column + kTilesBeforeMap, 0, kAttributeTiles - 1);
    const int y = std::clamp(cell.row + kTilesBeforeMap, 0, kAttributeTiles - 1);
    const int quadrant = ((x & 2) != 0 ? 1 : 0) + ((y & 2) != 0 ? 2 : 0);
    return {static_cast<std::uint32_t>((x >> 2) + (y >> 2) * kAttributeRowBytes), 2 * quadrant};
}

} // namespace

OverworldMap::OverworldMap(RomImage& rom, const GameConfig& config) : m_rom(rom), m_config(config)
{
}

bool OverworldMap::contains(OverworldCell cell)
{
    return cell.column >= 0 && cell.column < kColumns && cell.row >= 0 && cell.row < kRows;
}

std::uint32_t OverworldMap::tileOffset(OverworldCell cell) const
{
    return m_config.value(MiscField::ptrMapTileMap)
        + static_cast<std::uint32_t>(cell.row * kColumns + cell.column);
}

std::uint8_t OverworldMap::tile(OverworldCell cell) const
{
    return m_rom.readByte(tileOffset(cell));
}

void OverworldMap::setTile(OverworldCell cell, std::uint8_t tileNumber)
{
    if (contains(cell))
        m_rom.writeByte(tileOffset(cell), tileNumber);
}

void OverworldMap::placePreset(OverworldCell cell, std::uint32_t preset)
{
    const Chunk tiles = chunk(preset);
    setTile(cell, tiles[0]);
    setTile({cell.column, cell.row + 1}, tiles[1]);
    setTile({cell.column + 1, cell.row}, tiles[2]);
    setTile({cell.column + 1, cell.row + 1}, tiles[3]);
}

std::uint32_t OverworldMap::paletteOffset(OverworldCell cell) const
{
    return m_config.value(MiscField::ptrMapAttributeTable) + attributePlace(cell).byte;
}

int OverworldMap::palette(OverworldCell cell) const
{
    return (m_rom.readByte(paletteOffset(cell)) >> attributePlace(cell).shift) & 3;
}

void OverworldMap::setPalette(OverworldCell cell, int palette)
{
    const std::uint32_t offset = paletteOffset(cell);
    const int shift = attributePlace(cell).shift;
    const int others = m_rom.readByte(offset) & ~(3 << shift);
    m_rom.writeByte(offset, static_cast<std::uint8_t>(others | (palette & 3) << shift));
}

std::array<std::uint8_t, OverworldMap::kPaletteBytes> OverworldMap::paletteBytes() const
{
    std::array<std::uint8_t, kPaletteBytes> bytes{};
    m_rom.readBlock(m_config.value(MiscField::ptrMapPalette), bytes);
    return bytes;
}

std::uint32_t OverworldMap::lastArea() const
{
    return std::min(m_config.value(MiscField::areas), kMostAreas - 1);
}

std::uint32_t OverworldMap::areaOffset(std::uint32_t area) const
{
    return m_config.value(MiscField::ptrMapAreaXY) + 2 * area;
}

AreaPosition OverworldMap::areaPosition(std::uint32_t area) const
{
    const std::uint32_t offset = areaOffset(area);
    return {m_rom.readByte(offset), m_rom.readByte(offset + 1)};
}

void OverworldMap::setAreaPosition(std::uint32_t area, AreaPosition position)
{
    const std::uint32_t offset = areaOffset(area);
    m_rom.writeByte(offset, position.x);
    m_rom.writeByte(offset + 1, position.y);
}

OverworldMap::Chunk OverworldMap::chunk(std::uint32_t preset) const
{
    Chunk tiles{};
    if (preset < m_config.gameMapTileChunks.size() / kChunkTiles)
        std::copy_n(m_config.gameMapTileChunks.begin() + preset * kChunkTiles, kChunkTiles,
                    tiles.begin());
    return tiles;
}

std::uint32_t OverworldMap::presetCount() const
{
    std::uint32_t count = kMostPresets;
    while (count > 1 && chunk(count - 1) == Chunk{})
        --count;
    return count;
}

} // namespace velko
