#include "demo/nes_palette.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace velko::demo {

namespace {

// Lightness and colourfulness of the four levels, 0 to 1.
constexpr std::array<double, 4> kLuma = {0.31, 0.47, 0.71, 0.87};
constexpr std::array<double, 4> kChroma = {0.21, 0.26, 0.23, 0.10};
// Column 0 of each level, and column 13.
constexpr std::array<double, 4> kLightGrey = {0.40, 0.67, 1.0, 1.0};
constexpr std::array<double, 4> kDarkGrey = {0.0, 0.0, 0.26, 0.70};
// The angle of hue 1 (a blue) in the I/Q plane of the television signal, in degrees.
constexpr double kFirstHue = 165.0;

std::uint8_t channel(double value)
{
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0));
}

Rgb fromYiq(double y, double i, double q)
{
    return {channel(y + 0.956 * i + 0.621 * q), channel(y - 0.272 * i - 0.647 * q),
            channel(y - 1.106 * i + 1.703 * q)};
}

Rgb nesColour(unsigned number)
{
    const unsigned level = number >> 4;
    const unsigned hue = number & 15;
    if (hue >= 14)
        return {};
    if (hue == 0)
        return fromYiq(kLightGrey[level], 0, 0);
    if (hue == 13)
        return fromYiq(kDarkGrey[level], 0, 0);
    const double angle = (kFirstHue - 30.0 * (hue - 1.0)) * std::numbers::pi / 180.0;
    return fromYiq(kLuma[level], kChroma[level] * std::cos(angle),
                   kChroma[level] * std::sin(angle));
}

} // namespace

std::array<Rgb, 64> nesPalette()
{
    std::array<Rgb, 64> colours;
    for (unsigned number = 0; number < colours.size(); ++number)
        colours[number] = nesColour(number);
    return colours;
}

} // namespace velko::demo
