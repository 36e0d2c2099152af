#pragma once

#include "store/length_table.h"
#include "store/pointer_array_handler.h"

#include <cstdint>
#include <unordered_set>
#include <vector>

namespace velko {

// Unused bytes of a data region; `length` 0 means that there are none.
struct BlockGap {
    std::uint16_t start = 0;  // CPU address
    std::uint32_t length = 0; // bytes
};

// A snapshot of where the blocks of all table entries lie, to find the gaps between them. It
// must be rebuilt after any change of the table or the blocks.
//
// A table may have tens of thousands of entries, with a gap behind each: rebuilding is one pass
// over the table and so is a query, in loops of plain numbers that the compiler makes fast.
class BlockMap {
public:
    BlockMap(const PointerArrayHandler& handler, const BlockKind& kind);

    void rebuild();

    // The bytes from the end of the entry's block to the start of the next block above. No gap
    // when a block starts right at that end, when the entry's block lies inside a longer one,
    // when no block starts above, or when the block has length 0 or ends at `dEdge` or beyond.
    BlockGap gapBehind(std::uint32_t room);

private:
    // What one pass over some of the entries tells about the bytes behind a block.
    struct Search {
        std::int32_t start = 0;
        std::int32_t end = 0;  // wrapped at 65536, where the start is no higher than 65535
        std::int32_t next = 0; // lowest start above the end
        bool isClosed = false; // a block starts at the end, or a longer one holds the block
    };
    void search(Search& search, std::size_t first, std::size_t last) const;

    const PointerArrayHandler& m_handler;
    LengthTable m_lengths;
    std::vector<std::uint16_t> m_pointers;
    std::vector<std::int32_t> m_starts; // by entry
    std::vector<std::int32_t> m_ends;   // start + length, not wrapped
    // Blocks without a gap behind them, as start << 32 | end: many entries may share one.
    std::unordered_set<std::uint64_t> m_withoutGap;
};

} // namespace velko
