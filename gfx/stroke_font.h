#pragma once

#include <string_view>
#include <vector>

namespace velko {

// The lines a pen follows to draw one character, in a small path language: "M x y" puts the pen
// down, "L x y" draws a line, "Q cx cy x y" a curve bent towards (cx, cy). A line of no length is
// a dot. Coordinates are those of the pen's middle: 0 to 10 from the left to the right stem, and
// upwards -4 the descender, 0 the baseline, 10 the height of x, 14 the height of capitals.
using StrokePath = std::string_view;

// The strokes of a printable ASCII character, or of a letter with an accent, which loses it.
// Blanks and control characters have no strokes; anything else is a hollow box.
StrokePath strokesOf(char32_t character);

struct Point {
    float x = 0;
    float y = 0;

    bool operator==(const Point&) const = default;
};

// One line or curve of a path. A line's `control` is its end.
struct Stroke {
    Point from;
    Point control;
    Point to;

    bool isLine() const { return control == to; }
};

// The lines and curves of a path as above.
std::vector<Stroke> readStrokes(StrokePath path);

} // namespace velko
