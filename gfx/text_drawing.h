#pragma once

#include "gfx/pixel_image.h"

#include <cstdint>
#include <string_view>

namespace velko {

enum TextFlags : std::uint32_t {
    kTextPlain = 0,
    kTextShadow = 1, // drawn in black 3 pixels right and down first
    // Black copies around the text first: a grid of (5/4 height) / 4 rows by (5/4 width) / 4
    // columns, a pixel apart, from half the growth up and left of the text. The copies have the
    // text's own size, so that the outline hugs the letters.
    kTextOutline = 2,
};

// Draws one line of UTF-8 text in a bold face whose cells are `fontWidth` x `fontHeight` pixels,
// left-aligned in the rectangle from (left, top) to the image's right edge, `fontHeight` high;
// nothing is drawn outside it. The face is part of the program, so a picture looks the same on
// every machine. `colour` is 0x00BBGGRR, as text colours are told to window systems.
//
// Letters with accents lose them, other characters beyond ASCII show a hollow box, and bytes that
// are no UTF-8 (sequences broken off or longer than needed, surrogates, numbers past U+10FFFF)
// count as Latin-1. A cell size below 1 or above 128 draws nothing.
void drawText(std::string_view text, PixelImage& image, int top, int left, int fontWidth,
              int fontHeight, std::uint32_t colour, std::uint32_t flags = kTextPlain);

} // namespace velko
