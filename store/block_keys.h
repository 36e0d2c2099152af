#pragma once

#include "store/data_window.h"
#include "store/length_table.h"

#include <cstdint>
#include <vector>

namespace velko {

// A number for each table entry that is the same for entries whose blocks have the same length
// and contents, as they stood at the last refresh(). Different blocks may, rarely, share a number
// too. A refresh takes a few steps per entry, however long its block: a table may have tens of
// thousands of entries, and all of them may claim to be 64 KB long.
class BlockKeys {
public:
    // Reads `window` and `lengths`, which the caller refreshes first.
    BlockKeys(const PointerArrayHandler& handler, const DataWindow& window,
              const LengthTable& lengths);

    void refresh();

    std::uint64_t of(std::uint32_t room) const { return m_keys[room]; }
    // The first entry from `room` on with that key; the number of entries if there is none.
    std::uint32_t firstFrom(std::uint32_t room, std::uint64_t key) const;

private:
    std::uint64_t keyOf(std::uint32_t room) const;

    const PointerArrayHandler& m_handler;
    const DataWindow& m_window;
    const LengthTable& m_lengths;
    std::vector<std::uint16_t> m_pointers; // by entry
    std::vector<std::uint64_t> m_powers;   // of the factor, up to the longest run
    std::vector<std::uint64_t> m_prefixes; // hash of so many bytes from the window's start
    std::vector<std::uint64_t> m_keys;
};

} // namespace velko
