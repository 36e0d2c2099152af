#pragma once

#include "gfx/pixel_image.h"

#include <cstdint>
#include <span>

namespace velko {

// An 8x8 tile: bytes 0-7 are bit plane 0 of rows 0-7, bytes 8-15 bit plane 1; bit 7 is leftmost.
inline constexpr std::size_t kTileBytes = 16;
using TileBytes = std::span<const std::uint8_t, kTileBytes>;

// Draws all 64 pixels with the tile's corner at row y, column x. A tile whose corner lies before
// the first row or column is not drawn at all, as no view has one there. Rows and columns past the
// image are cut off; the destination moves on by (image width - 8) after each row whatever number
// of columns was written, so a tile cut at the right edge is written with each further row shifted
// left by the columns cut off. Intended: rooms never show it. In an image less than 8 pixels wide
// the shift may lead to before the first pixel, where nothing is written.
void drawTileOpaque(PixelImage& image, int y, int x, TileBytes tile, const ColourSet4& colours);

// Draws the pixels of value 1 to 3, clipped on all four sides, optionally mirrored.
void drawTileTransparent(PixelImage& image, int y, int x, TileBytes tile, const ColourSet4& colours,
                         bool hFlip, bool vFlip);

} // namespace velko
