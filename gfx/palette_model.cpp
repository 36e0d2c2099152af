#include "gfx/palette_model.h"

#include <algorithm>

namespace velko {

namespace {

constexpr int roundedDown(int pixels)
{
    return pixels - pixels % PaletteModel::kPreviewStep;
}

ViewScroll previewScroll(std::uint32_t roomExtent, int viewExtent, int wanted)
{
    ViewScroll scroll = ViewScroll::along(static_cast<int>(roomExtent), viewExtent, wanted);
    scroll.position = roundedDown(scroll.position);
    return scroll;
}

} // namespace

PaletteModel::PaletteModel(EditorState& state) : m_state(state) { }

void PaletteModel::selectEntry(int entry)
{
    if (entry >= 0 && entry < kEntries)
        m_selectedEntry = entry;
}

void PaletteModel::moveSelection(int columns, int rows)
{
    const int column = std::clamp(m_selectedEntry / kSwatchRows + columns, 0, kSwatchColumns - 1);
    const int row = std::clamp(m_selectedEntry % kSwatchRows + rows, 0, kSwatchRows - 1);
    m_selectedEntry = column * kSwatchRows + row;
}

std::uint8_t PaletteModel::entryValue(int entry) const
{
    return m_state.store.pahPal.dataByte(static_cast<std::uint32_t>(entry));
}

void PaletteModel::setValue(std::uint8_t value)
{
    m_state.store.pahPal.setDataByte(static_cast<std::uint32_t>(m_selectedEntry), value);
}

void PaletteModel::stepBrightness(int steps)
{
    stepHue(steps * kGridColumns);
}

void PaletteModel::stepHue(int steps)
{
    setValue(static_cast<std::uint8_t>((value() + steps) & 63));
}

void PaletteModel::moveColour(int columns, int rows)
{
    const int column = std::clamp(colourNumber() % kGridColumns + columns, 0, kGridColumns - 1);
    const int row = std::clamp(colourNumber() / kGridColumns + rows, 0, kGridRows - 1);
    const int moved = row * kGridColumns + column;
    if (moved != colourNumber())
        setValue(static_cast<std::uint8_t>(moved));
}

std::optional<int> PaletteModel::entryAt(int x, int y)
{
    if (x < 0 || y < 0 || x >= kSwatchColumns * kSwatchSize || y >= kSwatchRows * kSwatchSize)
        return std::nullopt;
    return y / kSwatchSize + kSwatchRows * (x / kSwatchSize);
}

std::optional<int> PaletteModel::colourAt(int x, int y)
{
    if (x < 0 || y < 0 || x >= kGridColumns * kCellWidth || y >= kGridRows * kCellHeight)
        return std::nullopt;
    return kGridColumns * (y / kCellHeight) + x / kCellWidth;
}

void PaletteModel::drawEntries(PixelImage& image) const
{
    image.allocate(kSwatchRows * kSwatchSize, kSwatchColumns * kSwatchSize);
    for (int entry = 0; entry < kEntries; ++entry) {
        const int top = entry % kSwatchRows * kSwatchSize;
        const int left = entry / kSwatchRows * kSwatchSize;
        fillRectangle(image, top, left, kSwatchSize, kSwatchSize,
                      m_state.graphics.colour(entryValue(entry)));
        if (entry == m_selectedEntry)
            drawSelectionFrame(image, top, left, kSwatchSize, kSwatchSize);
    }
}

void PaletteModel::drawSelectedColour(PixelImage& image) const
{
    image.allocate(kSelectedColourSize, kSelectedColourSize);
    fill(image, m_state.graphics.colour(value()));
}

void PaletteModel::drawColourGrid(PixelImage& image) const
{
    image.allocate(kGridRows * kCellHeight, kGridColumns * kCellWidth);
    for (int number = 0; number < kGridRows * kGridColumns; ++number) {
        const int top = number / kGridColumns * kCellHeight;
        const int left = number % kGridColumns * kCellWidth;
        fillRectangle(image, top, left, kCellHeight, kCellWidth,
                      m_state.graphics.colour(static_cast<std::uint8_t>(number)));
        if (number == colourNumber())
            drawSelectionFrame(image, top, left, kCellHeight, kCellWidth);
    }
}

void PaletteModel::drawPreview(PixelImage& image) const
{
    image.allocate(static_cast<std::uint32_t>(m_previewHeight),
                   static_cast<std::uint32_t>(m_previewWidth));
    m_state.renderer.renderRoomRegion(
        image, static_cast<std::uint32_t>(horizontalScroll().position),
        static_cast<std::uint32_t>(verticalScroll().position), m_state.backgroundColour);
}

int PaletteModel::previewExtent(int available)
{
    // Rooms are whole metatiles wide and high.
    return std::max(roundedDown(available), kPreviewStep);
}

void PaletteModel::setPreviewSize(int width, int height)
{
    m_previewWidth = std::max(width, 0);
    m_previewHeight = std::max(height, 0);
}

void PaletteModel::scrollPreviewTo(int x, int y)
{
    m_scrollX = x;
    m_scrollY = y;
    m_scrollX = horizontalScroll().position;
    m_scrollY = verticalScroll().position;
}

ViewScroll PaletteModel::horizontalScroll() const
{
    return previewScroll(m_state.renderer.roomSize(m_state.currentRoom()).width(), m_previewWidth,
                         m_scrollX);
}

ViewScroll PaletteModel::verticalScroll() const
{
    return previewScroll(m_state.renderer.roomSize(m_state.currentRoom()).height(), m_previewHeight,
                         m_scrollY);
}

} // namespace velko
