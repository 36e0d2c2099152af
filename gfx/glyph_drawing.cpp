#include "gfx/glyph_drawing.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <span>

namespace velko {

namespace {

struct Point {
    float x = 0;
    float y = 0;
};

// A piece of a stroke: a curve, or a line whose `control` is its end.
struct Segment {
    Point from;
    Point control;
    Point to;
};

class PathReader {
public:
    explicit PathReader(StrokePath path) : m_rest(path) { }

    std::vector<Segment> segments()
    {
        std::vector<Segment> result;
        Point pen;
        while (const char command = nextCommand()) {
            const Point first = nextPoint();
            const Point end = command == 'Q' ? nextPoint() : first;
            if (command != 'M')
                result.push_back({pen, first, end});
            pen = end;
        }
        return result;
    }

private:
    void skipBlanks()
    {
        while (m_rest.starts_with(' '))
            m_rest.remove_prefix(1);
    }
    // 0 at the end.
    char nextCommand()
    {
        skipBlanks();
        if (m_rest.empty())
            return 0;
        const char command = m_rest.front();
        m_rest.remove_prefix(1);
        return command;
    }
    float nextNumber()
    {
        skipBlanks();
        float value = 0;
        const auto read = std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), value);
        m_rest.remove_prefix(static_cast<std::size_t>(read.ptr - m_rest.data()));
        return value;
    }
    Point nextPoint()
    {
        const float x = nextNumber();
        return {x, nextNumber()};
    }

    StrokePath m_rest;
};

// The way from the font's units to pixels along one axis: fixed points, straight lines between.
class Axis {
public:
    Axis(std::initializer_list<Point> unitsToPixels, float penSize)
        : m_fixed(unitsToPixels), m_penSize(penSize)
    {
    }

    float toPixels(float units) const
    {
        std::size_t upper = 1;
        while (upper + 1 < m_fixed.size() && units > m_fixed[upper].x)
            ++upper;
        const Point a = m_fixed[upper - 1];
        const Point b = m_fixed[upper];
        return a.y + (b.y - a.y) * (units - a.x) / (b.x - a.x);
    }

    // Moves what lies at these positions so that the pen covers whole pixels there.
    void snap(std::vector<float> stems)
    {
        std::ranges::sort(stems);
        std::vector<Point> snapped = m_fixed;
        for (const float units : stems) {
            const auto isStem = [units](Point p) { return p.x == units; };
            if (std::ranges::none_of(snapped, isStem)) {
                const float edge = std::round(toPixels(units) - m_penSize / 2);
                snapped.push_back({units, edge + m_penSize / 2});
            }
        }
        std::ranges::sort(snapped, {}, &Point::x);
        m_fixed = std::move(snapped);
    }

private:
    std::vector<Point> m_fixed; // x: units, y: pixels; sorted by units
    float m_penSize;
};

// Sizes of the face in a cell, in whole pixels.
struct CellMetrics {
    CellMetrics(int width, int height);

    int penWidth;  // of upright stems
    int penHeight; // of level bars
    int inkLeft;
    int inkWidth;
    int baseline; // first row below it
    int capitals; // height
    int xHeight;
    int height;
};

int rounded(double value)
{
    return static_cast<int>(std::lround(value));
}

CellMetrics::CellMetrics(int cellWidth, int cellHeight) : height(cellHeight)
{
    const int spacing = std::max(1, rounded(cellWidth * 0.2 - 0.2));
    inkWidth = std::max(1, cellWidth - spacing);
    inkLeft = spacing / 2;
    penWidth = std::clamp(rounded(cellHeight * 0.135), 1, std::max(1, inkWidth / 3));
    penHeight = std::clamp(rounded(cellHeight * 0.12), 1, penWidth);
    baseline = cellHeight - rounded(cellHeight * 0.2);
    capitals = std::min(baseline, rounded(cellHeight * 0.72));
    xHeight = rounded(capitals * 0.74);
}

Axis horizontalAxis(const CellMetrics& m)
{
    const float half = static_cast<float>(m.penWidth) / 2;
    const auto left = static_cast<float>(m.inkLeft);
    const auto right = static_cast<float>(m.inkLeft + m.inkWidth);
    return Axis({{0, left + half}, {10, right - half}}, static_cast<float>(m.penWidth));
}

Axis verticalAxis(const CellMetrics& m)
{
    const float half = static_cast<float>(m.penHeight) / 2;
    const auto baseline = static_cast<float>(m.baseline);
    return Axis({{-4, static_cast<float>(m.height) - half},
                 {0, baseline - half},
                 {10, baseline - static_cast<float>(m.xHeight) + half},
                 {14, baseline - static_cast<float>(m.capitals) + half}},
                static_cast<float>(m.penHeight));
}

void snapToPixels(Axis& xAxis, Axis& yAxis, std::span<const Segment> segments)
{
    std::vector<float> stems;
    std::vector<float> bars;
    for (const Segment& s : segments) {
        // Upright or level at one of its ends.
        for (const Point end : {s.from, s.to}) {
            if (s.control.x == end.x && (end.x == s.from.x || end.x == s.to.x))
                stems.push_back(end.x);
            if (s.control.y == end.y)
                bars.push_back(end.y);
        }
    }
    xAxis.snap(std::move(stems));
    yAxis.snap(std::move(bars));
}

// A round pen, squeezed to an ellipse, that leaves coverage on a mask.
class Pen {
public:
    Pen(GlyphMask& mask, int width, int height)
        : m_mask(mask)
        , m_radiusX(static_cast<float>(width) / 2)
        , m_radiusY(static_cast<float>(height) / 2)
    {
    }

    void drawLine(Point from, Point to);
    void drawCurve(Point from, Point control, Point to);

private:
    float coverageAt(Point pixel, Point from, Point to) const;

    GlyphMask& m_mask;
    float m_radiusX;
    float m_radiusY;
};

float Pen::coverageAt(Point pixel, Point from, Point to) const
{
    // In units of the pen's radii the pen is a circle of radius 1.
    const Point line{(to.x - from.x) / m_radiusX, (to.y - from.y) / m_radiusY};
    const Point offset{(pixel.x - from.x) / m_radiusX, (pixel.y - from.y) / m_radiusY};
    const float lengthSquared = line.x * line.x + line.y * line.y;
    const float along = lengthSquared > 0
        ? std::clamp((offset.x * line.x + offset.y * line.y) / lengthSquared, 0.0F, 1.0F)
        : 0.0F;
    const Point nearest{offset.x - along * line.x, offset.y - along * line.y};
    const float distance = std::hypot(nearest.x, nearest.y);
    if (distance < 0.001F)
        return 1.0F;
    // Back to pixels, across the pen's edge.
    const float slope = std::hypot(nearest.x / m_radiusX, nearest.y / m_radiusY) / distance;
    return std::clamp(0.5F - (distance - 1) / slope, 0.0F, 1.0F);
}

void Pen::drawLine(Point from, Point to)
{
    const auto firstPixel = [](float a, float b, float radius) {
        return std::max(0, static_cast<int>(std::floor(std::min(a, b) - radius - 0.5F)));
    };
    const auto endPixel = [](float a, float b, float radius, int limit) {
        return std::min(limit, static_cast<int>(std::ceil(std::max(a, b) + radius + 0.5F)));
    };
    const int endY = endPixel(from.y, to.y, m_radiusY, m_mask.height);
    const int endX = endPixel(from.x, to.x, m_radiusX, m_mask.width);
    for (int y = firstPixel(from.y, to.y, m_radiusY); y < endY; ++y) {
        for (int x = firstPixel(from.x, to.x, m_radiusX); x < endX; ++x) {
            const Point middle{static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F};
            const float coverage = coverageAt(middle, from, to) * 255.0F;
            auto& pixel = m_mask.coverage[static_cast<std::size_t>(y * m_mask.width + x)];
            pixel = std::max(pixel, static_cast<std::uint8_t>(coverage + 0.5F));
        }
    }
}

void Pen::drawCurve(Point from, Point control, Point to)
{
    constexpr int kLines = 8; // smooth enough for cells of 64 pixels
    Point last = from;
    for (int i = 1; i <= kLines; ++i) {
        const float t = static_cast<float>(i) / kLines;
        const float a = (1 - t) * (1 - t);
        const float b = 2 * t * (1 - t);
        const float c = t * t;
        const Point next{a * from.x + b * control.x + c * to.x,
                         a * from.y + b * control.y + c * to.y};
        drawLine(last, next);
        last = next;
    }
}

} // namespace

GlyphMask drawGlyph(StrokePath strokes, int width, int height)
{
    GlyphMask mask{width, height, {}};
    mask.coverage.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const CellMetrics metrics(width, height);
    Axis xAxis = horizontalAxis(metrics);
    Axis yAxis = verticalAxis(metrics);
    const std::vector<Segment> segments = PathReader(strokes).segments();
    snapToPixels(xAxis, yAxis, segments);

    const auto toPixels = [&](Point p) { return Point{xAxis.toPixels(p.x), yAxis.toPixels(p.y)}; };
    Pen pen(mask, metrics.penWidth, metrics.penHeight);
    for (const Segment& s : segments) {
        const bool straight = s.control.x == s.to.x && s.control.y == s.to.y;
        if (straight)
            pen.drawLine(toPixels(s.from), toPixels(s.to));
        else
            pen.drawCurve(toPixels(s.from), toPixels(s.control), toPixels(s.to));
    }
    return mask;
}

} // namespace velko
