#pragma once

#include <cstdint>
#include <span>

namespace velko {

// The CRC-32 of zip and PNG files.
std::uint32_t crc32Of(std::span<const std::uint8_t> bytes);

} // namespace velko
