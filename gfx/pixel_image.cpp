#include "gfx/pixel_image.h"

#include <algorithm>

namespace velko {

namespace {

// Rows or columns of an image: from `begin` up to, not including, `end`.
struct Range {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;

    std::uint32_t size() const { return end - begin; }
    bool empty() const { return begin == end; }
};

// The part of [first, first + count) that lies inside [0, limit). In 64 bits, so that any
// position and extent may be asked for.
Range clippedRange(std::int64_t first, std::int64_t count, std::uint32_t limit)
{
    const std::int64_t begin = std::clamp<std::int64_t>(first, 0, limit);
    const std::int64_t end = std::clamp<std::int64_t>(first + count, begin, limit);
    return {static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(end)};
}

// Rows `top` to `top` + height - 1, columns `left` to `left` + width - 1, clipped.
void fillClipped(PixelImage& image, std::int64_t top, std::int64_t left, std::int64_t height,
                 std::int64_t width, Pixel pixel)
{
    const Range rows = clippedRange(top, height, image.height());
    const Range columns = clippedRange(left, width, image.width());
    for (std::uint32_t y = rows.begin; y < rows.end; ++y)
        std::fill_n(image.row(y) + columns.begin, columns.size(), pixel);
}

void outlineClipped(PixelImage& image, std::int64_t top, std::int64_t left, std::int64_t height,
                    std::int64_t width, Pixel pixel)
{
    if (height < 0 || width < 0)
        return;
    fillClipped(image, top, left, 1, width + 1, pixel);
    fillClipped(image, top + height, left, 1, width + 1, pixel);
    fillClipped(image, top, left, height + 1, 1, pixel);
    fillClipped(image, top, left + width, height + 1, 1, pixel);
}

Pixel mixChannels(Pixel source, Pixel destination, float transparency)
{
    Pixel mixed = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const auto s = static_cast<float>((source >> shift) & 0xFF);
        const auto d = static_cast<float>((destination >> shift) & 0xFF);
        const float channel = s * (1.0F - transparency) + d * transparency;
        mixed |= static_cast<Pixel>(channel) << shift;
    }
    return mixed;
}

} // namespace

PixelImage::PixelImage(std::uint32_t width, std::uint32_t height, Pixel fillPixel)
{
    allocate(height, width);
    fill(*this, fillPixel);
}

void PixelImage::allocate(std::uint32_t height, std::uint32_t width)
{
    const std::uint64_t count = std::uint64_t{height} * width;
    if (count > kLargestImage) {
        *this = PixelImage();
        return;
    }
    m_width = width;
    m_height = height;
    m_pixels.assign(static_cast<std::size_t>(count), 0);
}

void fill(PixelImage& image, Pixel pixel)
{
    std::ranges::fill(image.pixels(), pixel);
}

void fillRectangle(PixelImage& image, int top, int left, int height, int width, Pixel pixel)
{
    fillClipped(image, top, left, height, width, pixel);
}

void drawOutline(PixelImage& image, int top, int left, int height, int width, Pixel pixel)
{
    outlineClipped(image, top, left, height, width, pixel);
}

void drawSelectionFrame(PixelImage& image, int top, int left, int height, int width)
{
    constexpr Pixel kBlack = 0x000000;
    constexpr Pixel kWhite = 0xFFFFFF;
    const std::int64_t y = top;
    const std::int64_t x = left;
    const std::int64_t rows = height;
    const std::int64_t columns = width;
    outlineClipped(image, y, x, rows - 1, columns - 1, kBlack);
    outlineClipped(image, y + 1, x + 1, rows - 3, columns - 3, kWhite);
    outlineClipped(image, y + 2, x + 2, rows - 5, columns - 5, kWhite);
}

void blit(PixelImage& destination, const PixelImage& source, int x, int y, float transparency)
{
    if (transparency >= 1.0F)
        return;
    const bool opaque = !(transparency > 0.0F); // so that "not a number" copies too
    const Range rows = clippedRange(y, source.height(), destination.height());
    const Range columns = clippedRange(x, source.width(), destination.width());
    if (columns.empty())
        return;
    const auto sourceColumn = static_cast<std::size_t>(std::int64_t{columns.begin} - x);
    for (std::uint32_t row = rows.begin; row < rows.end; ++row) {
        const auto sourceRow = static_cast<std::uint32_t>(std::int64_t{row} - y);
        const Pixel* from = source.row(sourceRow) + sourceColumn;
        Pixel* to = destination.row(row) + columns.begin;
        if (opaque) {
            std::copy_n(from, columns.size(), to);
            continue;
        }
        for (std::uint32_t i = 0; i < columns.size(); ++i)
            to[i] = mixChannels(from[i], to[i], transparency);
    }
}

void tintImage(PixelImage& image, Pixel colour)
{
    const Pixel red = (colour >> 16) & 0xFF;
    const Pixel green = (colour >> 8) & 0xFF;
    const Pixel blue = colour & 0xFF;
    for (Pixel& pixel : image.pixels()) {
        pixel = (((pixel >> 16) & 0xFF) * red / 255) << 16
            | (((pixel >> 8) & 0xFF) * green / 255) << 8 | (pixel & 0xFF) * blue / 255;
    }
}

} // namespace velko
