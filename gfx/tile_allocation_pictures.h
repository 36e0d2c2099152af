#pragma once

#include "gfx/tile_allocation_model.h"

#include <optional>

namespace velko {

// The 64 slots as pattern memory holds them, mirrored blocks mirrored, in the fixed greys: eight
// rows of eight, 16 x 16 pixels each. Gives the image its size, 128 x 128.
void drawBackgroundSlots(const GraphicsState& graphics, PixelImage& image);

// The pictures of the tile allocation page, in the sizes in which they are shown, and what lies
// at their points. All are drawn in the fixed greys: shapes count here, not the room's colours.
class TileAllocationPictures {
public:
    using BlockPixel = TileAllocationModel::BlockPixel;

    static constexpr int kCellSize = 32; // of one slot or block
    static constexpr int kGridSize = TileAllocationModel::kColumns * kCellSize;
    static constexpr int kPixelSize = 14; // of one pixel of the block on the canvas
    static constexpr int kCanvasSize = TileAllocationModel::kBlockSize * kPixelSize;
    static constexpr int kSwatchSize = 33; // of one colour

    TileAllocationPictures(const EditorState& state, const TileAllocationModel& model);

    // Each gives the image its size and draws it whole.
    // The 64 slots, the selected one framed.
    void drawSlots(PixelImage& image) const;
    // The 64 blocks of the selected slot's page as the ROM holds them; the slot's block framed.
    void drawBlocks(PixelImage& image) const;
    // The pixels of the slot's block, the one at `cursor` outlined.
    void drawCanvas(PixelImage& image, std::optional<BlockPixel> cursor = std::nullopt) const;
    // The four colours in a column, the current one framed.
    void drawColours(PixelImage& image) const;

    // The slot, or the block of the page, at a point of its picture. Nothing outside.
    static std::optional<int> cellAt(int x, int y);
    // What lies right of the canvas or below it counts as its last pixels, so that its border
    // belongs to them; nothing left of it or above.
    static std::optional<BlockPixel> canvasPixelAt(int x, int y);
    static std::optional<int> colourAt(int x, int y);

private:
    const EditorState& m_state;
    const TileAllocationModel& m_model;
};

} // namespace velko
