#include "patch/crc32.h"

#include <zlib.h>

namespace velko {

std::uint32_t crc32Of(std::span<const std::uint8_t> bytes)
{
    return static_cast<std::uint32_t>(crc32_z(0, bytes.data(), bytes.size()));
}

} // namespace velko
