#include "pages/map_edit_pictures.h"

#include "gfx/grey_colours.h"

#include <algorithm>
#include <array>
#include <span>

namespace velko {

namespace {

constexpr int kCellSize = 16; // pixels of a metatile
constexpr int kSwatchSize = 64;
constexpr int kSwatches = 4;    // per palette
constexpr int kFrameMargin = 3; // by which the frame of a metatile surrounds it

constexpr Pixel kBehindMap = 0x404040;
constexpr float kFaded = 0.5F;

// Where the game keeps its hero. Graphics: the room's sprite tiles.
constexpr std::uint16_t kHeroScript = 0x8171;
constexpr std::uint32_t kHeroFrame = 42;
// The line from the hero to the mouse: its end, then pieces further and further down and right.
constexpr std::uint8_t kLineEndTile = 128;
constexpr std::uint8_t kLineTile = 131;
constexpr int kLinePieces = 6;
constexpr int kLinePitch = 8;
constexpr int kLineUp = 67;
constexpr int kLineLeft = 66;
constexpr int kHeroOffset = 6;

// Every pixel is drawn afterwards, so a picture that has the size already need not be cleared.
void give(PixelImage& image, RoomView::Size size)
{
    const auto width = static_cast<std::uint32_t>(size.width);
    const auto height = static_cast<std::uint32_t>(size.height);
    if (image.width() != width || image.height() != height)
        image.allocate(height, width);
}

void showScaled(PixelImage& image, const PixelImage& drawn, RoomView::Size display)
{
    give(image, display);
    copyScaled(image, drawn);
}

// The first row or column of cell `index`, so that SelectorGrid::cellAt() finds it there.
int cellStart(std::uint32_t index, std::uint32_t cells, int extent)
{
    const auto count = static_cast<int>(cells);
    return (static_cast<int>(index) * extent + count - 1) / count;
}

// As large as the largest picture, but no larger than the cells are shown.
RoomView::Size physicsCellSize(std::span<const PixelImage> pictures)
{
    const SelectorGrid& grid = kPhysicsSelector;
    const RoomView::Size shown = {grid.display.width / static_cast<int>(grid.columns),
                                  grid.display.height / static_cast<int>(grid.rows)};
    RoomView::Size largest;
    for (const PixelImage& picture : pictures) {
        largest.width = std::max(largest.width, static_cast<int>(picture.width()));
        largest.height = std::max(largest.height, static_cast<int>(picture.height()));
    }
    if (largest == RoomView::Size())
        return shown;
    return {std::min(largest.width, shown.width), std::min(largest.height, shown.height)};
}

// Draws the cells of the room one by one into the region that the view shows.
class MapRegion {
public:
    MapRegion(const EditorState& state, const MapEditModel& model) : m_state(state), m_model(model)
    {
        const GraphicsState& graphics = state.graphics;
        for (std::uint32_t palette = 0; palette < m_palettes.size(); ++palette)
            m_palettes[palette] = graphics.metatileColours(palette);
    }

    void draw(PixelImage& region) const
    {
        const RoomView::Position scroll = m_model.view().scroll();
        for (int y = 0; y < static_cast<int>(region.height()); y += kCellSize) {
            for (int x = 0; x < static_cast<int>(region.width()); x += kCellSize)
                drawCell(region, y, x, static_cast<std::uint32_t>(scroll.y + y),
                         static_cast<std::uint32_t>(scroll.x + x));
        }
    }

private:
    void drawCell(PixelImage& region, int y, int x, std::uint32_t roomY, std::uint32_t roomX) const
    {
        const std::uint32_t row = roomY % kScreenHeight / kCellSize;
        const std::uint32_t column = roomX % kScreenWidth / kCellSize;
        const std::uint8_t position =
            m_model.layout()[roomY / kScreenHeight * m_model.width() + roomX / kScreenWidth];
        if (position < m_model.screens().count()) {
            const MapEditScreen& screen = m_model.screens().at(position);
            const MetatileCell cell = screen.cell(row * kScreenColumns + column);
            m_state.graphics.drawMetatileWithColours(region, y, x, cell.metatile, coloursOf(cell));
        } else {
            drawFaded(
                region, y, x,
                m_state.renderer.screenCell(m_state.renderer.screenAddress(position), row, column));
        }
    }

    const ColourSet4& coloursOf(const MetatileCell& cell) const
    {
        return m_model.mode() == MapEditMode::kPhysics
            ? m_state.graphics.physicsShades[cell.physics]
            : m_palettes[cell.palette];
    }

    void drawFaded(PixelImage& region, int y, int x, const MetatileCell& cell) const
    {
        PixelImage picture(kCellSize, kCellSize);
        m_state.graphics.drawMetatileWithColours(picture, 0, 0, cell.metatile,
                                                 m_palettes[cell.palette]);
        tintImage(picture, m_state.backgroundColour);
        blit(region, picture, x, y, kFaded);
    }

    const EditorState& m_state;
    const MapEditModel& m_model;
    std::array<ColourSet4, 4> m_palettes{};
};

void drawHero(const GraphicsState& graphics, PixelImage& image, RoomView::Position hero)
{
    const ColourSet4 colours = graphics.spriteColours(0);
    const int top = hero.y - kLineUp;
    const int left = hero.x - kLineLeft;
    graphics.drawSpriteTile(image, top, left, kLineEndTile, colours);
    for (int i = 1; i <= kLinePieces; ++i) {
        graphics.drawSpriteTile(image, top + i * kLinePitch, left + i * kLinePitch, kLineTile,
                                colours);
    }
    graphics.drawSpriteFrame(image, hero.y, hero.x, kHeroScript, kHeroFrame, {});
}

} // namespace

void drawTileSelector(const EditorState& state, const MapEditModel& model, PixelImage& image)
{
    const GraphicsState& graphics = state.graphics;
    const auto columns = static_cast<int>(kTileSelector.columns);
    PixelImage blocks(kTileSelector.columns * kCellSize, kTileSelector.rows * kCellSize);
    const auto topOf = [&](int block) { return block / columns * kCellSize; };
    const auto leftOf = [&](int block) { return block % columns * kCellSize; };
    for (int block = 0; block < columns * static_cast<int>(kTileSelector.rows); ++block) {
        const std::uint8_t palette = model.screens().tsa()[static_cast<std::size_t>(block)].palette;
        graphics.drawMetatileWithColours(
            blocks, topOf(block), leftOf(block), static_cast<std::uint8_t>(4 * block),
            model.mode() == MapEditMode::kTileCombined ? graphics.metatileColours(palette)
                                                       : kGreyColours);
    }
    const auto selected = static_cast<int>(model.selectedBlock());
    constexpr int kFrameSize = kCellSize + 2 * kFrameMargin;
    drawSelectionFrame(blocks, topOf(selected) - kFrameMargin, leftOf(selected) - kFrameMargin,
                       kFrameSize, kFrameSize);
    showScaled(image, blocks, kTileSelector.display);
}

void drawPaletteSelector(const EditorState& state, const MapEditModel& model, PixelImage& image)
{
    const auto palettes = static_cast<int>(kPaletteSelector.rows);
    constexpr int kWidth = kSwatches * kSwatchSize;
    PixelImage swatches(kWidth, kPaletteSelector.rows * kSwatchSize);
    for (int entry = 0; entry < palettes * kSwatches; ++entry) {
        const std::uint8_t colour = state.store.pahPal.dataByte(static_cast<std::uint32_t>(entry));
        fillRectangle(swatches, entry / kSwatches * kSwatchSize, entry % kSwatches * kSwatchSize,
                      kSwatchSize, kSwatchSize, state.graphics.colour(colour));
    }
    drawSelectionFrame(swatches, model.selectedPalette() * kSwatchSize, 0, kSwatchSize, kWidth);
    showScaled(image, swatches, kPaletteSelector.display);
}

void drawPhysicsSelector(const EditorState& state, const MapEditModel& model, PixelImage& image)
{
    const SelectorGrid& grid = kPhysicsSelector;
    const auto& pictures = state.resources.physicsBitmaps;
    const RoomView::Size size = physicsCellSize(pictures);
    PixelImage cell;
    give(cell, size);
    PixelImage cells(grid.columns * cell.width(), grid.rows * cell.height(),
                     state.backgroundColour);
    for (std::uint32_t value = 0; value < grid.rows * grid.columns; ++value) {
        if (pictures[value].empty())
            continue;
        copyScaled(cell, pictures[value]);
        blit(cells, cell, static_cast<int>(value % grid.columns) * size.width,
             static_cast<int>(value / grid.columns) * size.height);
    }
    showScaled(image, cells, grid.display);

    // Last, as the pictures may be so small that their pixels become large.
    const std::uint32_t row = model.selectedPhysics() / grid.columns;
    const std::uint32_t column = model.selectedPhysics() % grid.columns;
    const int top = cellStart(row, grid.rows, grid.display.height);
    const int left = cellStart(column, grid.columns, grid.display.width);
    drawSelectionFrame(image, top, left, cellStart(row + 1, grid.rows, grid.display.height) - top,
                       cellStart(column + 1, grid.columns, grid.display.width) - left);
}

void drawMapView(const EditorState& state, const MapEditModel& model, PixelImage& image,
                 std::optional<RoomView::Position> hero)
{
    const RoomView::Size size = model.view().region();
    PixelImage region(static_cast<std::uint32_t>(size.width),
                      static_cast<std::uint32_t>(size.height), kBehindMap);
    MapRegion(state, model).draw(region);
    if (hero)
        drawHero(state.graphics, region, *hero);
    showScaled(image, region, model.view().display());
}

RoomView::Position heroPosition(const RoomView& view, RoomView::Position point)
{
    const RoomView::Size region = view.region();
    const RoomView::Size display = view.display();
    return {point.x * region.width / display.width + kHeroOffset,
            point.y * region.height / display.height + kHeroOffset};
}

} // namespace velko
