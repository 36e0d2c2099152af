#pragma once

#include "store/pointer_array_handler.h"

#include <cstdint>
#include <span>
#include <vector>

namespace velko {

// The bytes that a handler's data addresses reach, as they stood at the last refresh(): the two
// banks of its region. Addresses repeat every 32 KB, so the bytes are kept twice in a row and any
// block of up to 32 KB is one run. It makes comparing many blocks cheap.
class DataWindow {
public:
    static constexpr std::uint32_t kSize = 0x8000;

    explicit DataWindow(const PointerArrayHandler& handler);

    void refresh();

    // The bytes from an address on. Of more than kSize bytes only the first kSize are given: from
    // there on they repeat.
    std::span<const std::uint8_t> bytes(std::uint16_t cpuAddress, std::uint32_t count) const;

private:
    const PointerArrayHandler& m_handler;
    std::vector<std::uint8_t> m_bytes;
};

} // namespace velko
