#pragma once

#include "gfx/pixel_image.h"

namespace velko {

// The four greys in which tiles are drawn where their shapes count, not the room's palette. They
// are not in the order of brightness: 1 is the lightest.
inline constexpr ColourSet4 kGreyColours = {0x000000, 0xF0F0F0, 0x909090, 0x404040};

} // namespace velko
