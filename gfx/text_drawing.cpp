#include "gfx/text_drawing.h"

#include "gfx/glyph_drawing.h"
#include "rom/utf8.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>
#include <vector>

namespace velko {

namespace {

// Cells beyond this many pixels are not drawn: no view comes near it, and masks stay small.
constexpr int kLargestCell = 128;

// Mixes `pixel` over what is there, by a mask's coverage.
void mixOver(Pixel& there, Pixel pixel, unsigned coverage)
{
    constexpr unsigned kFull = 255;
    if (coverage == kFull) {
        there = pixel;
        return;
    }
    Pixel mixed = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const unsigned over = (pixel >> shift) & 0xFF;
        const unsigned under = (there >> shift) & 0xFF;
        mixed |= ((over * coverage + under * (kFull - coverage) + kFull / 2) / kFull) << shift;
    }
    there = mixed;
}

// Draws the part of a mask that lies inside the image.
void drawMask(PixelImage& image, std::int64_t top, std::int64_t left, const GlyphMask& mask,
              Pixel pixel)
{
    const auto inside = [](std::int64_t first, int count, std::uint32_t limit) {
        const auto begin = std::clamp<std::int64_t>(-first, 0, count);
        const auto end = std::clamp<std::int64_t>(limit - first, begin, count);
        return std::pair(static_cast<int>(begin), static_cast<int>(end));
    };
    const auto [firstRow, endRow] = inside(top, mask.height, image.height());
    const auto [firstColumn, endColumn] = inside(left, mask.width, image.width());
    for (int y = firstRow; y < endRow; ++y) {
        Pixel* row = image.row(static_cast<std::uint32_t>(top + y));
        const std::uint8_t* coverage = mask.coverage.data() + std::ptrdiff_t{y} * mask.width;
        for (int x = firstColumn; x < endColumn; ++x) {
            if (coverage[x] != 0)
                mixOver(row[left + x], pixel, coverage[x]);
        }
    }
}

// A line of text, ready to be drawn as often as its shadow or outline needs.
class TextLine {
public:
    TextLine(std::string_view text, int cellWidth, int cellHeight)
        : m_characters(charactersOf(text)), m_cellWidth(cellWidth), m_cellHeight(cellHeight)
    {
    }

    void draw(PixelImage& image, std::int64_t top, std::int64_t left, Pixel pixel)
    {
        const std::int64_t imageWidth = image.width();
        std::int64_t cellLeft = left;
        for (const char32_t character : m_characters) {
            if (cellLeft >= imageWidth)
                break;
            if (cellLeft + m_cellWidth > 0)
                drawMask(image, top, cellLeft, maskOf(character), pixel);
            cellLeft += m_cellWidth;
        }
    }

private:
    const GlyphMask& maskOf(char32_t character)
    {
        const auto [entry, isNew] = m_masks.try_emplace(character);
        if (isNew)
            entry->second = drawGlyph(strokesOf(character), m_cellWidth, m_cellHeight);
        return entry->second;
    }

    std::vector<char32_t> m_characters;
    int m_cellWidth;
    int m_cellHeight;
    std::map<char32_t, GlyphMask> m_masks;
};

} // namespace

void drawText(std::string_view text, PixelImage& image, int top, int left, int fontWidth,
              int fontHeight, std::uint32_t colour, std::uint32_t flags)
{
    constexpr Pixel kBlack = 0;
    constexpr int kShadowDistance = 3;
    if (fontWidth < 1 || fontHeight < 1 || fontWidth > kLargestCell || fontHeight > kLargestCell)
        return;
    const std::int64_t y = top;
    const std::int64_t x = left;
    TextLine line(text, fontWidth, fontHeight);
    if ((flags & kTextShadow) != 0)
        line.draw(image, y + kShadowDistance, x + kShadowDistance, kBlack);
    if ((flags & kTextOutline) != 0) {
        const int grownWidth = fontWidth * 5 / 4;
        const int grownHeight = fontHeight * 5 / 4;
        const std::int64_t firstX = x - (grownWidth - fontWidth) / 2;
        const std::int64_t firstY = y - (grownHeight - fontHeight) / 2;
        for (int row = 0; row < grownHeight / 4; ++row) {
            for (int column = 0; column < grownWidth / 4; ++column)
                line.draw(image, firstY + row, firstX + column, kBlack);
        }
    }
    line.draw(image, y, x, swapRedAndBlue(colour));
}

} // namespace velko
