#include "gfx/bmp.h"

#include <array>
#include <cstddef>

namespace velko {

namespace {

// File offsets of the fields that matter; all are little-endian.
constexpr std::size_t kPixelDataOffset = 10; // u32
constexpr std::size_t kInfoHeaderSize = 14;  // u32, where the info header starts
constexpr std::size_t kWidth = 18;           // i32
constexpr std::size_t kHeight = 22;          // i32
constexpr std::size_t kBitsPerPixel = 28;    // u16
constexpr std::size_t kColourTable = 14 + 40;

constexpr std::size_t kColourEntrySize = 4; // blue, green, red, reserved

using Bytes = std::span<const std::uint8_t>;

std::uint32_t u16At(Bytes file, std::size_t offset)
{
    return file[offset] | std::uint32_t{file[offset + 1]} << 8;
}

std::uint32_t u32At(Bytes file, std::size_t offset)
{
    return u16At(file, offset) | u16At(file, offset + 2) << 16;
}

Pixel bgrAt(Bytes bytes, std::size_t offset)
{
    return bytes[offset] | Pixel{bytes[offset + 1]} << 8 | Pixel{bytes[offset + 2]} << 16;
}

using ColourTable = std::array<Pixel, 256>;

// Colours that the file is too short for stay black.
ColourTable readColourTable(Bytes file)
{
    ColourTable colours{};
    for (std::size_t i = 0; i < colours.size(); ++i) {
        const std::size_t offset = kColourTable + i * kColourEntrySize;
        if (offset + kColourEntrySize <= file.size())
            colours[i] = bgrAt(file, offset);
    }
    return colours;
}

// Where the rows of an image lie in the file.
struct RowLayout {
    std::uint64_t start = 0;    // of the bottom row
    std::uint64_t rowBytes = 0; // without padding
    std::uint64_t stride = 0;   // from row to row, a multiple of 4

    RowLayout(std::uint64_t pixelData, std::uint64_t width, std::uint32_t bitsPerPixel)
        : start(pixelData), rowBytes(width * (bitsPerPixel / 8)), stride((rowBytes + 3) / 4 * 4)
    {
    }

    // The last row's padding may be missing. Sizes of 31 bits cannot overflow here.
    bool fits(std::uint64_t height, std::uint64_t fileSize) const
    {
        return start + stride * (height - 1) + rowBytes <= fileSize;
    }
};

} // namespace

BmpResult decodeBmp(std::span<const std::uint8_t> file, PixelImage& image)
{
    constexpr std::uint32_t kExpectedHeaderSize = 40;
    constexpr std::uint32_t kLargestSide = 0x7FFFFFFF; // larger ones are negative numbers

    image = PixelImage();
    if (file.size() < kInfoHeaderSize + 4 || file[0] != 'B' || file[1] != 'M')
        return BmpResult::kNoBitmap;
    if (u32At(file, kInfoHeaderSize) != kExpectedHeaderSize)
        return BmpResult::kOtherHeader;
    if (file.size() < kColourTable)
        return BmpResult::kNoBitmap;

    const std::uint32_t width = u32At(file, kWidth);
    const std::uint32_t height = u32At(file, kHeight);
    const std::uint32_t bitsPerPixel = u16At(file, kBitsPerPixel);
    if ((bitsPerPixel != 8 && bitsPerPixel != 24) || width == 0 || height == 0
        || width > kLargestSide || height > kLargestSide)
        return BmpResult::kOtherDepth;
    const RowLayout rows(u32At(file, kPixelDataOffset), width, bitsPerPixel);
    if (!rows.fits(height, file.size()))
        return BmpResult::kNoBitmap;
    if (std::uint64_t{width} * height > kLargestImage)
        return BmpResult::kTooLarge;

    image.allocate(height, width);
    const ColourTable colours = bitsPerPixel == 8 ? readColourTable(file) : ColourTable{};
    for (std::uint32_t y = 0; y < height; ++y) {
        const auto rowStart = static_cast<std::size_t>(rows.start + rows.stride * (height - 1 - y));
        const Bytes row = file.subspan(rowStart, static_cast<std::size_t>(rows.rowBytes));
        Pixel* out = image.row(y);
        for (std::uint32_t x = 0; x < width; ++x)
            out[x] = bitsPerPixel == 8 ? colours[row[x]] : bgrAt(row, std::size_t{x} * 3);
    }
    return BmpResult::kDone;
}

} // namespace velko
