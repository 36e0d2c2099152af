#include "pages/map_grid_picture.h"

#include "gfx/room_renderer.h"
#include "gfx/text_drawing.h"
#include "rom/number_text.h"

#include <algorithm>

namespace velko {

namespace {

// The number on a cell.
constexpr int kCaptionPosition = 6;
constexpr int kCaptionFontWidth = 18;
constexpr int kCaptionFontHeight = 24;
constexpr std::uint32_t kInvalidCaption = 0x3030F0; // a text colour: red
constexpr std::uint32_t kPaletteByteOfCaption = 2;
constexpr std::uint32_t kLightTint = 0xC0C0C0;

constexpr int kPitchStepWidth = 16;
constexpr int kPitchStepHeight = 15;

// The position nearest to the present one that shows the pixels from `start` on; where they are
// more than a page, the first of them.
int positionShowing(const ViewScroll& scroll, int start, int extent)
{
    return std::min(std::max(scroll.position, start + extent - scroll.page), start);
}

std::uint32_t cellAlong(int pixel, int pitch, std::uint32_t cells)
{
    const auto cell = static_cast<std::uint32_t>(std::max(pixel, 0) / pitch);
    return std::min(cell, std::max(cells, 1U) - 1);
}

} // namespace

MapGridPicture::MapGridPicture(const EditorState& state, const MapLayoutModel& model)
    : m_state(state), m_model(model)
{
    refresh();
}

void MapGridPicture::setViewSize(int width, int height)
{
    m_viewWidth = std::max(width, 0);
    m_viewHeight = std::max(height, 0);
}

void MapGridPicture::refresh()
{
    m_cells.clear();
    m_screenCount = m_model.screenCount();
}

MapGridPicture::Pitch MapGridPicture::pitch() const
{
    const auto columns = static_cast<int>(std::max(m_model.columns(), 1U));
    const auto rows = static_cast<int>(std::max(m_model.rows(), 1U));
    const int steps = std::clamp(
        std::min(m_viewWidth / columns / kPitchStepWidth, m_viewHeight / rows / kPitchStepHeight),
        kSmallestPitch.width / kPitchStepWidth, kLargestPitch.width / kPitchStepWidth);
    return {steps * kPitchStepWidth, steps * kPitchStepHeight};
}

ViewScroll MapGridPicture::horizontalScroll() const
{
    return ViewScroll::along(static_cast<int>(m_model.columns()) * pitch().width, m_viewWidth,
                             m_scrollX);
}

ViewScroll MapGridPicture::verticalScroll() const
{
    return ViewScroll::along(static_cast<int>(m_model.rows()) * pitch().height, m_viewHeight,
                             m_scrollY);
}

void MapGridPicture::scrollTo(int x, int y)
{
    m_scrollX = x;
    m_scrollY = y;
    m_scrollX = horizontalScroll().position;
    m_scrollY = verticalScroll().position;
}

void MapGridPicture::scrollToSelectedCell()
{
    const MapCell cell = m_model.selectedCell();
    const Pitch size = pitch();
    scrollTo(
        positionShowing(horizontalScroll(), static_cast<int>(cell.column) * size.width, size.width),
        positionShowing(verticalScroll(), static_cast<int>(cell.row) * size.height, size.height));
}

void MapGridPicture::draw(PixelImage& image)
{
    const ViewScroll horizontal = horizontalScroll();
    const ViewScroll vertical = verticalScroll();
    image.allocate(static_cast<std::uint32_t>(vertical.page),
                   static_cast<std::uint32_t>(horizontal.page));
    if (image.empty())
        return;
    drawCells(image);
    const MapCell cell = m_model.selectedCell();
    const Pitch size = pitch();
    drawSelectionFrame(image, static_cast<int>(cell.row) * size.height - vertical.position,
                       static_cast<int>(cell.column) * size.width - horizontal.position,
                       size.height, size.width);
}

void MapGridPicture::drawCells(PixelImage& image)
{
    const ViewScroll horizontal = horizontalScroll();
    const ViewScroll vertical = verticalScroll();
    const Pitch size = pitch();
    if (size != m_cellPitch)
        m_cells.clear();
    m_cellPitch = size;
    const MapCell first = cellAt(0, 0);
    const MapCell last = cellAt(horizontal.page - 1, vertical.page - 1);
    for (std::uint32_t row = first.row; row <= last.row; ++row) {
        for (std::uint32_t column = first.column; column <= last.column; ++column) {
            blit(image, cellPicture(m_model.cellValue({row, column})),
                 static_cast<int>(column) * size.width - horizontal.position,
                 static_cast<int>(row) * size.height - vertical.position);
        }
    }
}

const PixelImage& MapGridPicture::cellPicture(std::uint8_t value)
{
    const auto found = m_cells.find(value);
    if (found != m_cells.end())
        return found->second;
    return m_cells.emplace(value, renderCell(value, m_cellPitch)).first->second;
}

PixelImage MapGridPicture::renderCell(std::uint8_t value, Pitch size) const
{
    const bool valid = value < m_screenCount;
    PixelImage screen(kScreenWidth, kScreenHeight, kInvalidCellColour);
    if (valid)
        m_state.renderer.drawScreen(screen, 0, 0, m_state.renderer.screenAddress(value));
    PixelImage cell(static_cast<std::uint32_t>(size.width),
                    static_cast<std::uint32_t>(size.height));
    copyScaled(cell, screen);
    // A colour of the room in a tint that is always light, told as text colours are.
    const Pixel colour =
        m_state.graphics.colour(m_state.store.pahPal.dataByte(kPaletteByteOfCaption));
    drawText(hexText(value), cell, kCaptionPosition, kCaptionPosition, kCaptionFontWidth,
             kCaptionFontHeight, valid ? swapRedAndBlue(colour) | kLightTint : kInvalidCaption,
             kTextOutline);
    return cell;
}

MapCell MapGridPicture::cellAt(int x, int y) const
{
    const Pitch size = pitch();
    return {cellAlong(y + verticalScroll().position, size.height, m_model.rows()),
            cellAlong(x + horizontalScroll().position, size.width, m_model.columns())};
}

} // namespace velko
