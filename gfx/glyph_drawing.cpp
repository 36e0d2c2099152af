#include "gfx/glyph_drawing.h"

#include "gfx/glyph_fitting.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace velko {

namespace {

float length(Point p)
{
    return std::sqrt(p.x * p.x + p.y * p.y);
}

// A round pen, squeezed to an ellipse, that leaves coverage on a mask.
class Pen {
public:
    Pen(GlyphMask& mask, float width, float height)
        : m_mask(mask), m_radiusX(width / 2), m_radiusY(height / 2)
    {
    }

    // A line of no length is a dot, as high as the pen is wide.
    void draw(const Stroke& stroke);

private:
    void drawLine(Point from, Point to);
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
    const float distance = length(nearest);
    if (distance < 0.001F)
        return 1.0F;
    // Back to pixels, across the pen's edge.
    const float slope = length({nearest.x / m_radiusX, nearest.y / m_radiusY}) / distance;
    return std::clamp(0.5F - (distance - 1) / slope, 0.0F, 1.0F);
}

void Pen::drawLine(Point from, Point to)
{
    // Pixels whose middle may be less than half a pixel away from the pen.
    const auto firstPixel = [](float a, float b, float radius) {
        return std::max(0, static_cast<int>(std::floor(std::min(a, b) - radius)));
    };
    const auto endPixel = [](float a, float b, float radius, int limit) {
        return std::min(limit, static_cast<int>(std::ceil(std::max(a, b) + radius)));
    };
    const int endY = endPixel(from.y, to.y, m_radiusY, m_mask.height);
    const int endX = endPixel(from.x, to.x, m_radiusX, m_mask.width);
    for (int y = firstPixel(from.y, to.y, m_radiusY); y < endY; ++y) {
        std::uint8_t* row = m_mask.coverage.data() + std::ptrdiff_t{y} * m_mask.width;
        for (int x = firstPixel(from.x, to.x, m_radiusX); x < endX; ++x) {
            const Point middle{static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F};
            const float coverage = coverageAt(middle, from, to) * 255.0F;
            row[x] = std::max(row[x], static_cast<std::uint8_t>(coverage));
        }
    }
}

void Pen::draw(const Stroke& stroke)
{
    const auto& [from, control, to] = stroke;
    if (from == to) {
        drawLine(from, {from.x, from.y - 2 * (m_radiusX - m_radiusY)});
        return;
    }
    if (stroke.isLine()) {
        drawLine(from, to);
        return;
    }
    // So many lines that none is further from the curve than a twentieth of a pixel.
    const float bend = length({from.x - 2 * control.x + to.x, from.y - 2 * control.y + to.y});
    const int lines = 1 + static_cast<int>(1.5F * std::sqrt(bend));
    Point last = from;
    for (int i = 1; i <= lines; ++i) {
        const float t = static_cast<float>(i) / static_cast<float>(lines);
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
    for (const FittedStroke& fitted : fitStrokes(readStrokes(strokes), width, height))
        Pen(mask, fitted.penWidth, fitted.penHeight).draw(fitted.stroke);
    return mask;
}

} // namespace velko
