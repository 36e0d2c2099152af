#include "tools/overworld_pickers.h"

#include <algorithm>
#include <array>

namespace velko {

namespace {

constexpr std::uint32_t kTiles = 256;
constexpr int kTileSize = 8;
constexpr int kPresetSize = 16;

// By tile number, the palette of the first cell that shows the tile; -1 for the others.
using TilePalettes = std::array<int, kTiles>;

TilePalettes tilePalettes(const OverworldMap& map)
{
    TilePalettes palettes;
    palettes.fill(-1);
    for (int row = 0; row < OverworldMap::kRows; ++row) {
        for (int column = 0; column < OverworldMap::kColumns; ++column) {
            int& palette = palettes[map.tile({column, row})];
            if (palette < 0)
                palette = map.palette({column, row});
        }
    }
    return palettes;
}

int presetPalette(const TilePalettes& palettes, const OverworldMap::Chunk& tiles)
{
    const auto used = std::find_if(tiles.begin(), tiles.end(),
                                   [&](std::uint8_t tile) { return palettes[tile] >= 0; });
    return used == tiles.end() ? 0 : palettes[*used];
}

// Enlarges a picture of cells to the picker's size and frames one of them.
void finishPicker(PixelImage& image, const PixelImage& cells, const PickerGrid& grid, int selected)
{
    image.allocate(PickerGrid::kSize, PickerGrid::kSize);
    copyScaledNearest(image, cells);
    drawSelectionFrame(image, selected / grid.columns() * grid.cellSize(),
                       selected % grid.columns() * grid.cellSize(), grid.cellSize(),
                       grid.cellSize());
}

} // namespace

std::optional<int> PickerGrid::at(int px, int py) const
{
    if (px < 0 || py < 0 || px >= kSize || py >= kSize)
        return std::nullopt;
    const int thing = py / cellSize() * columns() + px / cellSize();
    return thing < m_count ? std::optional(thing) : std::nullopt;
}

int PickerGrid::beside(int thing, int columns, int rows) const
{
    const int column = thing % this->columns() + columns;
    const int row = thing / this->columns() + rows;
    const int target = row * this->columns() + column;
    const bool isThere = column >= 0 && column < this->columns() && row >= 0 && target < m_count;
    return isThere ? target : thing;
}

PickerGrid tileGrid()
{
    return PickerGrid(kTiles);
}

PickerGrid presetGrid(const OverworldMap& map)
{
    return PickerGrid(map.presetCount());
}

void drawTilePicker(PixelImage& image, const OverworldPainter& painter, const OverworldMap& map,
                    int selected)
{
    const PickerGrid grid = tileGrid();
    const auto side = static_cast<std::uint32_t>(grid.columns() * kTileSize);
    const TilePalettes palettes = tilePalettes(map);
    PixelImage tiles(side, side);
    for (int tile = 0; tile < static_cast<int>(kTiles); ++tile) {
        painter.drawTile(tiles, static_cast<std::uint8_t>(tile),
                         std::max(palettes[static_cast<std::size_t>(tile)], 0),
                         tile / grid.columns() * kTileSize, tile % grid.columns() * kTileSize);
    }
    finishPicker(image, tiles, grid, selected);
}

void drawPresetPicker(PixelImage& image, const OverworldPainter& painter, const OverworldMap& map,
                      int selected, Pixel background)
{
    const PickerGrid grid = presetGrid(map);
    const auto side = static_cast<std::uint32_t>(grid.columns() * kPresetSize);
    const TilePalettes palettes = tilePalettes(map);
    PixelImage presets(side, side, background);
    for (std::uint32_t preset = 0; preset < map.presetCount(); ++preset) {
        const int cell = static_cast<int>(preset);
        painter.drawPreset(presets, preset, presetPalette(palettes, map.chunk(preset)),
                           cell / grid.columns() * kPresetSize,
                           cell % grid.columns() * kPresetSize);
    }
    finishPicker(image, presets, grid, selected);
}

} // namespace velko
