#pragma once

#include "gfx/stroke_font.h"

#include <span>
#include <vector>

namespace velko {

// A stroke in pixels of its cell, right and down from the cell's corner, and the size of the
// elliptic pen that draws it.
struct FittedStroke {
    Stroke stroke;
    float penWidth = 1;
    float penHeight = 1;
};

// Fits strokes given in the font's units into a cell of `width` x `height` pixels. Upright stems
// and level bars come to lie on whole pixels, which keeps small text sharp.
std::vector<FittedStroke> fitStrokes(std::span<const Stroke> strokes, int width, int height);

} // namespace velko
