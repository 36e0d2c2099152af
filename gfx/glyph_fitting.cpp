#include "gfx/glyph_fitting.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace velko {

namespace {

// The font's main lines in its units.
constexpr float kLeft = 0;
constexpr float kRight = 10;
constexpr float kDescender = -4;
constexpr float kBaseline = 0;
constexpr float kXHeight = 10;
constexpr float kCapitals = 14;

// Where one of the font's lines lies: in its units, and in pixels from the cell's top or left.
struct FixedLine {
    float units = 0;
    float pixels = 0;
};

// The way from the font's units to pixels along one axis: fixed lines, everything else evenly
// between them.
class Axis {
public:
    // `lines` are sorted by units and drawn with `outerPen`, all others with `innerPen`.
    Axis(std::vector<FixedLine> lines, float outerPen, float innerPen)
        : m_lines(std::move(lines))
        , m_mainLines(m_lines)
        , m_outerPen(outerPen)
        , m_innerPen(innerPen)
    {
    }

    float outerPen() const { return m_outerPen; }
    float innerPen() const { return m_innerPen; }

    float toPixels(float units) const
    {
        std::size_t upper = 1;
        while (upper + 1 < m_lines.size() && units > m_lines[upper].units)
            ++upper;
        const FixedLine a = m_lines[upper - 1];
        const FixedLine b = m_lines[upper];
        return a.pixels + (b.pixels - a.pixels) * (units - a.units) / (b.units - a.units);
    }

    // Moves lines at these positions so that the pen covers whole pixels there.
    void snap(std::span<const float> positions)
    {
        std::vector<FixedLine> snapped = m_lines;
        for (const float units : positions) {
            if (!contains(snapped, units)) {
                const float edge = std::round(toPixels(units) - m_innerPen / 2);
                snapped.push_back({units, edge + m_innerPen / 2});
            }
        }
        std::ranges::sort(snapped, {}, &FixedLine::units);
        m_lines = std::move(snapped);
    }

    // True when two of these sorted positions have less than a pixel between their lines.
    bool isCrowded(std::span<const float> positions) const
    {
        const auto tooClose = [this](float a, float b) {
            const float distance = std::abs(toPixels(b) - toPixels(a));
            return a != b && distance < (penAt(a) + penAt(b)) / 2 + 1;
        };
        return std::ranges::adjacent_find(positions, tooClose) != positions.end();
    }

private:
    static bool contains(std::span<const FixedLine> lines, float units)
    {
        return std::ranges::find(lines, units, &FixedLine::units) != lines.end();
    }
    float penAt(float units) const
    {
        return contains(m_mainLines, units) ? m_outerPen : m_innerPen;
    }

    std::vector<FixedLine> m_lines;
    std::vector<FixedLine> m_mainLines;
    float m_outerPen;
    float m_innerPen;
};

// Where strokes are upright or level along an axis, in the font's units, sorted.
struct Straights {
    std::vector<float> lines; // straight lines and dots
    std::vector<float> all;   // and curves that end in this direction
};

// Sizes of the face in a cell, in pixels.
class CellMetrics {
public:
    CellMetrics(int width, int height);

    // Axes on which straight strokes are sharp and keep apart, with pens as thick as can be.
    Axis horizontalAxis(const Straights& stems) const;
    Axis verticalAxis(const Straights& bars) const;

private:
    float m_penWidth;  // of upright stems
    float m_penHeight; // of level bars
    float m_left;      // first and last edge of the ink
    float m_right;
    float m_capitals; // upper edges
    float m_xHeight;
    float m_baseline; // lower edges
    float m_descender;
};

CellMetrics::CellMetrics(int width, int height)
{
    const auto w = static_cast<float>(width);
    const auto h = static_cast<float>(height);
    const float spacing = std::max(1.0F, std::round(w * 0.28F - 0.9F));
    const float inkWidth = std::max(1.0F, w - spacing);
    m_left = std::floor(spacing / 2);
    m_right = m_left + inkWidth;
    m_penWidth = std::clamp(std::round(h * 0.15F), 1.0F, std::max(1.0F, std::floor(inkWidth / 3)));
    m_penHeight = std::clamp(std::round(h * 0.12F), 1.0F, m_penWidth);
    m_descender = h;
    m_baseline = h - std::round(h * 0.2F);
    const float capitals = std::min(m_baseline, std::round(h * 0.72F));
    m_capitals = m_baseline - capitals;
    m_xHeight = m_baseline - std::round(capitals * 0.74F);
}

// Three stems do not fit into narrow cells: then the inner strokes are drawn with a finer pen if
// there are two outer stems to carry the weight, else all of them.
template <typename MakeLines>
Axis roomyAxis(float pen, const Straights& straights, MakeLines makeLines)
{
    const auto axisFor = [&](float outer, float inner) {
        Axis axis(makeLines(outer / 2), outer, inner);
        axis.snap(straights.all);
        return axis;
    };
    const bool framed = !straights.lines.empty() && straights.lines.front() == kLeft
        && straights.lines.back() == kRight;
    for (float inner = pen; framed && inner >= 1; --inner) {
        if (Axis axis = axisFor(pen, inner); !axis.isCrowded(straights.lines))
            return axis;
    }
    while (pen > 1 && axisFor(pen, pen).isCrowded(straights.lines))
        --pen;
    return axisFor(pen, pen);
}

Axis CellMetrics::horizontalAxis(const Straights& stems) const
{
    return roomyAxis(m_penWidth, stems, [this](float half) {
        return std::vector<FixedLine>{{kLeft, m_left + half}, {kRight, m_right - half}};
    });
}

Axis CellMetrics::verticalAxis(const Straights& bars) const
{
    return roomyAxis(m_penHeight, bars, [this](float half) {
        return std::vector<FixedLine>{{kDescender, m_descender - half},
                                      {kBaseline, m_baseline - half},
                                      {kXHeight, m_xHeight + half},
                                      {kCapitals, m_capitals + half}};
    });
}

using Coordinate = float Point::*;

Straights straightsOf(std::span<const Stroke> strokes, Coordinate across)
{
    Straights straights;
    for (const Stroke& s : strokes) {
        const float from = s.from.*across;
        const float to = s.to.*across;
        if (s.isLine() && from == to)
            straights.lines.push_back(from);
        if (from == s.control.*across)
            straights.all.push_back(from);
        if (!s.isLine() && to == s.control.*across)
            straights.all.push_back(to);
    }
    std::ranges::sort(straights.lines);
    std::ranges::sort(straights.all);
    return straights;
}

bool isOuterStem(const Stroke& s)
{
    return s.isLine() && s.from.x == s.to.x && (s.to.x == kLeft || s.to.x == kRight);
}

} // namespace

std::vector<FittedStroke> fitStrokes(std::span<const Stroke> strokes, int width, int height)
{
    const CellMetrics metrics(width, height);
    const Axis xAxis = metrics.horizontalAxis(straightsOf(strokes, &Point::x));
    const Axis yAxis = metrics.verticalAxis(straightsOf(strokes, &Point::y));
    const auto toPixels = [&](Point p) { return Point{xAxis.toPixels(p.x), yAxis.toPixels(p.y)}; };

    std::vector<FittedStroke> fitted;
    for (const Stroke& s : strokes) {
        const float penWidth = isOuterStem(s) ? xAxis.outerPen() : xAxis.innerPen();
        fitted.push_back(
            {{toPixels(s.from), toPixels(s.control), toPixels(s.to)}, penWidth, yAxis.innerPen()});
    }
    return fitted;
}

} // namespace velko
