#pragma once

#include "gfx/stroke_font.h"

#include <cstdint>
#include <vector>

namespace velko {

// How much of each pixel of a character cell its strokes cover, 0 to 255; row-major.
struct GlyphMask {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> coverage;
};

// Draws the strokes into a cell of `width` x `height` pixels (both at least 1) with a bold round
// pen. Stems and bars lie on whole pixels, so that small text stays sharp.
GlyphMask drawGlyph(StrokePath strokes, int width, int height);

} // namespace velko
