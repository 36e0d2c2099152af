#pragma once

#include "gfx/pixel_image.h"
#include "tools/overworld_painter.h"

#include <cstdint>
#include <optional>

namespace velko {

// A square picture of things to choose from, row by row in square cells. Up to 64 things have
// cells of 32 pixels, up to 256 cells of 16.
class PickerGrid {
public:
    static constexpr int kSize = 256; // pixels along each side

    explicit PickerGrid(std::uint32_t count) : m_count(static_cast<int>(count)) { }

    int columns() const { return m_count <= 64 ? 8 : 16; }
    int cellSize() const { return kSize / columns(); }
    // The thing at a point of the picture; nothing outside of it and in the cells left over.
    std::optional<int> at(int px, int py) const;
    // The thing so many columns and rows away; `thing` itself where there is none.
    int beside(int thing, int columns, int rows) const;

private:
    int m_count;
};

// All 256 tiles of the overworld.
PickerGrid tileGrid();
// As many presets as the game has.
PickerGrid presetGrid(const OverworldMap& map);

// Each gives the image PickerGrid's size and draws it whole, with a frame around the selected
// cell. Tiles have the palette in which they are first found on the map, presets that of the first
// of their tiles that is found; what the map does not use has palette 0. Cells left over become
// `background`.
void drawTilePicker(PixelImage& image, const OverworldPainter& painter, const OverworldMap& map,
                    int selected);
void drawPresetPicker(PixelImage& image, const OverworldPainter& painter, const OverworldMap& map,
                      int selected, Pixel background);

} // namespace velko
