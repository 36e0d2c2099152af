#pragma once

#include "demo/art_library.h"

#include <array>
#include <cstdint>
#include <vector>

namespace velko::demo {

using Tile = std::array<std::uint8_t, 16>;  // two bit planes of eight rows
using Block = std::array<std::uint8_t, 64>; // four tiles: left column, then right column

// The 8x8 tile whose corner is at (left, top) of the picture.
Tile encodeTile(const Picture& picture, int left, int top);
// A 16x16 picture as the four tiles of a background block.
Block encodeBlock(const Picture& picture);
// All tiles of a picture, column by column, as sprite frames refer to them.
std::vector<Tile> encodeColumns(const Picture& picture);

} // namespace velko::demo
