#include "gfx/tile_allocation_pictures.h"

#include "gfx/grey_colours.h"

#include <algorithm>
#include <array>
#include <span>

namespace velko {

namespace {

using Model = TileAllocationModel;

constexpr int kTileSize = 8;
// A frame around a cell of 16 x 16 lies just outside of it.
constexpr int kFrameMargin = 3;
constexpr int kFrameSize = Model::kBlockSize + 2 * kFrameMargin;

constexpr int leftOf(int cell)
{
    return cell % Model::kColumns * Model::kBlockSize;
}

constexpr int topOf(int cell)
{
    return cell / Model::kColumns * Model::kBlockSize;
}

constexpr std::uint32_t kUnscaledSize = Model::kColumns * Model::kBlockSize;

// Frames a cell, then doubles the pixels.
void showGrid(PixelImage& image, PixelImage& unscaled, int framedCell)
{
    drawSelectionFrame(unscaled, topOf(framedCell) - kFrameMargin,
                       leftOf(framedCell) - kFrameMargin, kFrameSize, kFrameSize);
    image.allocate(TileAllocationPictures::kGridSize, TileAllocationPictures::kGridSize);
    copyScaledNearest(image, unscaled);
}

// 16x16 pixels from the four tiles of a block.
void drawBlock(PixelImage& image, int top, int left,
               std::span<const std::uint8_t, kBackgroundBlockBytes> block)
{
    for (int tile = 0; tile < 4; ++tile) {
        const auto start = static_cast<std::size_t>(tile) * kTileBytes;
        drawTileOpaque(image, top + tile % 2 * kTileSize, left + tile / 2 * kTileSize,
                       block.subspan(start).first<kTileBytes>(), kGreyColours);
    }
}

} // namespace

void drawBackgroundSlots(const GraphicsState& graphics, PixelImage& image)
{
    image.allocate(kUnscaledSize, kUnscaledSize);
    for (int slot = 0; slot < Model::kSlots; ++slot) {
        graphics.drawMetatileWithColours(image, topOf(slot), leftOf(slot),
                                         static_cast<std::uint8_t>(4 * slot), kGreyColours);
    }
}

TileAllocationPictures::TileAllocationPictures(const EditorState& state,
                                               const TileAllocationModel& model)
    : m_state(state), m_model(model)
{
}

void TileAllocationPictures::drawSlots(PixelImage& image) const
{
    PixelImage unscaled;
    drawBackgroundSlots(m_state.graphics, unscaled);
    showGrid(image, unscaled, m_model.selectedSlot());
}

void TileAllocationPictures::drawBlocks(PixelImage& image) const
{
    std::array<std::uint8_t, Model::kBlocksPerPage * kBackgroundBlockBytes> page{};
    m_state.rom.readBlock(m_model.pageOffset(), page);
    PixelImage unscaled(kUnscaledSize, kUnscaledSize);
    for (int block = 0; block < Model::kBlocksPerPage; ++block) {
        const auto start = static_cast<std::size_t>(block) * kBackgroundBlockBytes;
        drawBlock(unscaled, topOf(block), leftOf(block),
                  std::span(page).subspan(start).first<kBackgroundBlockBytes>());
    }
    showGrid(image, unscaled, m_model.blockInPage());
}

void TileAllocationPictures::drawCanvas(PixelImage& image, std::optional<BlockPixel> cursor) const
{
    std::array<std::uint8_t, kBackgroundBlockBytes> block{};
    m_state.rom.readBlock(m_model.blockOffset(), block);
    PixelImage unscaled(Model::kBlockSize, Model::kBlockSize);
    drawBlock(unscaled, 0, 0, block);

    image.allocate(kCanvasSize, kCanvasSize);
    for (int row = 0; row < Model::kBlockSize; ++row)
        for (int column = 0; column < Model::kBlockSize; ++column)
            fillRectangle(
                image, row * kPixelSize, column * kPixelSize, kPixelSize, kPixelSize,
                unscaled.at(static_cast<std::uint32_t>(column), static_cast<std::uint32_t>(row)));
    if (cursor)
        drawSelectionFrame(image, cursor->row * kPixelSize, cursor->column * kPixelSize, kPixelSize,
                           kPixelSize);
}

void TileAllocationPictures::drawColours(PixelImage& image) const
{
    image.allocate(kSwatchSize * Model::kColours, kSwatchSize);
    for (int colour = 0; colour < Model::kColours; ++colour) {
        fillRectangle(image, colour * kSwatchSize, 0, kSwatchSize, kSwatchSize,
                      kGreyColours[static_cast<std::size_t>(colour)]);
        if (colour == m_model.currentColour())
            drawSelectionFrame(image, colour * kSwatchSize, 0, kSwatchSize, kSwatchSize);
    }
}

std::optional<int> TileAllocationPictures::cellAt(int x, int y)
{
    if (x < 0 || y < 0 || x >= kGridSize || y >= kGridSize)
        return std::nullopt;
    return x / kCellSize + Model::kColumns * (y / kCellSize);
}

std::optional<TileAllocationModel::BlockPixel> TileAllocationPictures::canvasPixelAt(int x, int y)
{
    if (x < 0 || y < 0)
        return std::nullopt;
    constexpr int kLast = Model::kBlockSize - 1;
    return BlockPixel{std::min(x / kPixelSize, kLast), std::min(y / kPixelSize, kLast)};
}

std::optional<int> TileAllocationPictures::colourAt(int x, int y)
{
    if (x < 0 || y < 0 || x >= kSwatchSize || y >= kSwatchSize * Model::kColours)
        return std::nullopt;
    return y / kSwatchSize;
}

} // namespace velko
