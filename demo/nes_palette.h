#pragma once

#include <array>
#include <cstdint>

namespace velko::demo {

struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const Rgb&) const = default;
};

// Our own RGB values for the console's 64 colour numbers. The low four bits of a number are a
// hue on the colour wheel in steps of 30 degrees, the high two bits one of four lightness levels;
// the formula is told in docs/demo.md.
std::array<Rgb, 64> nesPalette();

} // namespace velko::demo
