#include "gfx/pixel_image.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace velko {

namespace {

// Where a destination column or row falls in the source: between `first` and `first` + 1,
// `fraction` (0 to below 1) of the way.
struct SourcePosition {
    std::uint32_t first = 0;
    float fraction = 0.0F;
};

// The position of `index` when `sourceSize` is spread over `destinationSize`. Rounding can
// push the last positions of a very large image past the edge; they stop at the edge, whose
// neighbours are black.
SourcePosition sourcePosition(std::uint32_t index, float step, std::uint32_t sourceSize)
{
    const float position = static_cast<float>(index) * step;
    if (position >= static_cast<float>(sourceSize))
        return {sourceSize, 0.0F};
    const auto first = static_cast<std::uint32_t>(position);
    return {first, position - static_cast<float>(first)};
}

float scalingStep(std::uint32_t sourceSize, std::uint32_t destinationSize)
{
    return static_cast<float>(sourceSize) / static_cast<float>(destinationSize);
}

// Equal neighbours give exactly themselves: flat areas keep their colour after truncation.
float mix(float a, float b, float fraction)
{
    return a + (b - a) * fraction;
}

// One source row mixed horizontally to the destination's width, a plane per channel so that
// the compiler can work on several columns at once.
struct MixedRow {
    explicit MixedRow(std::size_t width) : red(width), green(width), blue(width) { }

    std::vector<float> red;
    std::vector<float> green;
    std::vector<float> blue;
    std::uint32_t sourceRow = 0;
    bool filled = false;
};

class BilinearScaler {
public:
    BilinearScaler(PixelImage& destination, const PixelImage& source);
    void run();

private:
    void gatherNeighbours(std::uint32_t sourceRow);
    void mixHorizontally(MixedRow& mixed, std::uint32_t sourceRow);
    void writeRow(Pixel* out, float fraction) const;

    PixelImage& m_destination;
    const PixelImage& m_source;
    std::size_t m_width;
    std::vector<std::uint32_t> m_columns; // of the left neighbours
    std::vector<float> m_fractions;
    std::size_t m_insideCount = 0; // leading columns whose neighbours both lie in the source
    std::vector<Pixel> m_left;     // the two neighbours of each destination column
    std::vector<Pixel> m_right;
    MixedRow m_top;
    MixedRow m_bottom;
};

BilinearScaler::BilinearScaler(PixelImage& destination, const PixelImage& source)
    : m_destination(destination)
    , m_source(source)
    , m_width(destination.width())
    , m_columns(m_width)
    , m_fractions(m_width)
    , m_left(m_width)
    , m_right(m_width)
    , m_top(m_width)
    , m_bottom(m_width)
{
    const float step = scalingStep(source.width(), destination.width());
    for (std::uint32_t x = 0; x < destination.width(); ++x) {
        const SourcePosition position = sourcePosition(x, step, source.width());
        m_columns[x] = position.first;
        m_fractions[x] = position.fraction;
        if (position.first + 1 < source.width())
            ++m_insideCount;
    }
}

void BilinearScaler::gatherNeighbours(std::uint32_t sourceRow)
{
    if (sourceRow >= m_source.height()) {
        std::ranges::fill(m_left, Pixel{0});
        std::ranges::fill(m_right, Pixel{0});
        return;
    }
    const Pixel* row = m_source.row(sourceRow);
    for (std::size_t x = 0; x < m_insideCount; ++x) {
        m_left[x] = row[m_columns[x]];
        m_right[x] = row[m_columns[x] + 1];
    }
    for (std::size_t x = m_insideCount; x < m_width; ++x) {
        m_left[x] = m_columns[x] < m_source.width() ? row[m_columns[x]] : 0;
        m_right[x] = 0;
    }
}

void BilinearScaler::mixHorizontally(MixedRow& mixed, std::uint32_t sourceRow)
{
    if (mixed.filled && mixed.sourceRow == sourceRow)
        return;
    mixed.filled = true;
    mixed.sourceRow = sourceRow;
    gatherNeighbours(sourceRow);
    const auto mixPlane = [this](std::vector<float>& plane, unsigned shift) {
        for (std::size_t x = 0; x < m_width; ++x) {
            const auto left = static_cast<int>((m_left[x] >> shift) & 0xFF);
            const auto right = static_cast<int>((m_right[x] >> shift) & 0xFF);
            plane[x] = mix(static_cast<float>(left), static_cast<float>(right), m_fractions[x]);
        }
    };
    mixPlane(mixed.red, 16);
    mixPlane(mixed.green, 8);
    mixPlane(mixed.blue, 0);
}

void BilinearScaler::writeRow(Pixel* out, float fraction) const
{
    for (std::size_t x = 0; x < m_width; ++x) {
        const auto red = static_cast<int>(mix(m_top.red[x], m_bottom.red[x], fraction));
        const auto green = static_cast<int>(mix(m_top.green[x], m_bottom.green[x], fraction));
        const auto blue = static_cast<int>(mix(m_top.blue[x], m_bottom.blue[x], fraction));
        out[x] = static_cast<Pixel>(red << 16 | green << 8 | blue);
    }
}

void BilinearScaler::run()
{
    const float step = scalingStep(m_source.height(), m_destination.height());
    for (std::uint32_t y = 0; y < m_destination.height(); ++y) {
        const SourcePosition position = sourcePosition(y, step, m_source.height());
        // Going down the image, the lower of two rows becomes the upper one.
        if (m_bottom.filled && m_bottom.sourceRow == position.first)
            std::swap(m_top, m_bottom);
        mixHorizontally(m_top, position.first);
        mixHorizontally(m_bottom, position.first + 1);
        writeRow(m_destination.row(y), position.fraction);
    }
}

bool copiedUnscaled(PixelImage& destination, const PixelImage& source)
{
    if (destination.width() != source.width() || destination.height() != source.height())
        return false;
    std::ranges::copy(source.pixels(), destination.pixels().begin());
    return true;
}

} // namespace

void copyScaled(PixelImage& destination, const PixelImage& source)
{
    if (destination.empty() || copiedUnscaled(destination, source))
        return;
    if (source.empty()) {
        fill(destination, 0);
        return;
    }
    BilinearScaler(destination, source).run();
}

void copyScaledNearest(PixelImage& destination, const PixelImage& source)
{
    if (destination.empty() || copiedUnscaled(destination, source))
        return;
    if (source.empty()) {
        fill(destination, 0);
        return;
    }
    const auto nearest = [](std::uint32_t index, float step, std::uint32_t size) {
        return std::min(sourcePosition(index, step, size).first, size - 1);
    };
    const float stepX = scalingStep(source.width(), destination.width());
    const float stepY = scalingStep(source.height(), destination.height());
    std::vector<std::uint32_t> columns(destination.width());
    for (std::uint32_t x = 0; x < destination.width(); ++x)
        columns[x] = nearest(x, stepX, source.width());
    for (std::uint32_t y = 0; y < destination.height(); ++y) {
        const Pixel* from = source.row(nearest(y, stepY, source.height()));
        Pixel* to = destination.row(y);
        for (std::size_t x = 0; x < columns.size(); ++x)
            to[x] = from[columns[x]];
    }
}

} // namespace velko
