#pragma once

#include "gfx/pixel_image.h"

#include <cstdint>
#include <span>

namespace velko {

enum class BmpResult : int {
    kDone = 0,
    kNoBitmap = -1,
    kOtherHeader = -2,
    kOtherDepth = -3,
    kTooLarge = -4,
};

// Decodes a whole .bmp file of 8 or 24 bits per pixel whose rows are stored bottom-up. Unless
// kDone, the image is left empty:
// - kNoBitmap: no "BM", or the headers or the pixels do not lie inside the file;
// - kOtherHeader: the info header is not 40 bytes long;
// - kOtherDepth: another depth, a width or height that is 0 or negative (rows top-down);
// - kTooLarge: more than kLargestImage pixels.
// An 8-bit pixel whose colour would lie past the end of the file is black. The compression field
// is not looked at.
BmpResult decodeBmp(std::span<const std::uint8_t> file, PixelImage& image);

} // namespace velko
