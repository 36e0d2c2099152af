#pragma once

#include <cstdint>

namespace velko {

// A frame of a sprite script is a byte n, n pieces (tile number, x offset, y offset, attributes)
// and a control byte.
inline constexpr std::uint32_t kPieceBytes = 4;

} // namespace velko
