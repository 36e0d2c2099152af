#pragma once

#include "store/pointer_array_handler.h"

#include <cstdint>
#include <vector>

namespace velko {

// How long the screen lists at all addresses of a region are, found in one pass over it. A list
// may run through the whole region without an end; walking that of each room would take seconds
// in a damaged ROM.
class ScreenListScan {
public:
    explicit ScreenListScan(const PointerArrayHandler& mapAlloc);

    void refresh();

    // What mapAllocWords() counts for a list that starts here: at most 0x10000.
    std::uint32_t words(std::uint16_t cpuAddress) const;
    // What mapAllocLength() gives for it.
    std::uint32_t length(std::uint16_t cpuAddress) const;
    // Word `index` of it.
    std::uint16_t word(std::uint16_t cpuAddress, std::uint32_t index) const;

private:
    const PointerArrayHandler& m_mapAlloc;
    // By address modulo 32 KB, where the mapping of addresses repeats.
    std::vector<std::uint16_t> m_word;
    std::vector<std::uint32_t> m_wordsBeforeEnd;
};

} // namespace velko
