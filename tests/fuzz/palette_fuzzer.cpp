#include "gfx/resources.h"

#include <algorithm>
#include <cstdlib>

// Any bytes either give 64 colours or leave the old ones alone.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr velko::Pixel kBefore = 0xFFFFFFFF;
    std::array<velko::Pixel, 64> colours{};
    colours.fill(kBefore);
    const bool decoded = velko::decodePalette({data, size}, colours);
    const auto kept = std::ranges::count(colours, kBefore);
    if (kept != (decoded ? 0 : 64))
        std::abort();
    return 0;
}
