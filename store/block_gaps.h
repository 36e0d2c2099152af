#pragma once

#include "store/length_table.h"
#include "store/pointer_array_handler.h"

#include <cstdint>
#include <vector>

namespace velko {

// Unused bytes of a data region; `length` 0 means that there are none.
struct BlockGap {
    std::uint16_t start = 0;  // CPU address
    std::uint32_t length = 0; // bytes
};

// A snapshot of where the blocks of all table entries lie, to find the gaps between them. It
// must be rebuilt after any change of the table or the blocks. A query takes a few binary
// searches, since a table may have tens of thousands of entries.
class BlockMap {
public:
    BlockMap(const PointerArrayHandler& handler, const BlockKind& kind);

    void rebuild();

    // The bytes from the end of the entry's block to the start of the next block above. No gap
    // when a block starts right at that end, when the entry's block lies inside a longer one,
    // when no block starts above, or when the block has length 0 or ends at `dEdge` or beyond.
    BlockGap gapBehind(std::uint32_t room) const;

private:
    struct Block {
        std::uint32_t start = 0;
        std::uint32_t end = 0; // start + length, not wrapped
        std::uint32_t room = 0;
    };

    bool anotherStartsAt(std::uint32_t address, std::uint32_t room) const;
    bool liesInsideAnother(const Block& block, std::uint32_t wrappedEnd) const;

    const PointerArrayHandler& m_handler;
    LengthTable m_lengths;
    std::vector<Block> m_byRoom;
    std::vector<Block> m_byStart; // in order of start
    // For each prefix of m_byStart: the block that reaches furthest, and the one after it.
    struct Reach {
        Block furthest;
        std::uint32_t secondEnd = 0;
    };
    std::vector<Reach> m_reach;
};

} // namespace velko
