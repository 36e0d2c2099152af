#pragma once

#include "demo/rom_layout.h"

#include <cstdint>
#include <vector>

namespace velko::demo {

using Bytes = std::vector<std::uint8_t>;

// The blocks of one region in the order in which they are stored, and the table that points at
// them. Equal blocks are kept once, unless a copy is asked for.
class BlockRegion {
public:
    explicit BlockRegion(const RegionPlan& plan);

    // Points the entry at a block with these bytes, storing it unless it is there already.
    void place(std::uint32_t entry, const Bytes& block);
    // Points the entry at a block of its own, even if it equals another.
    void placeCopy(std::uint32_t entry, const Bytes& block);
    // Points the entry at the block of another one.
    void share(std::uint32_t entry, std::uint32_t other);
    // Stores a block that no entry points at.
    void addOrphan(const Bytes& block);
    // The bytes of the entry that follow its pointer.
    void setParameters(std::uint32_t entry, std::uint8_t first, std::uint8_t second);

    const RegionPlan& plan() const { return m_plan; }
    const Bytes& blockOf(std::uint32_t entry) const;
    // CPU address of the entry's block.
    std::uint16_t pointerOf(std::uint32_t entry) const;

    // Writes table and blocks into the program banks `prg`. Throws DemoError when the blocks
    // leave fewer than kLeastFreeBytes of the region, or an entry was never placed.
    void write(Bytes& prg) const;

private:
    struct Entry {
        int block = -1;
        std::uint8_t first = 0;
        std::uint8_t second = 0;
    };

    std::uint32_t addressOf(int block) const;

    RegionPlan m_plan;
    std::vector<Bytes> m_blocks;
    std::vector<Entry> m_entries;
};

// Every region leaves at least this much room for edits.
inline constexpr std::uint32_t kLeastFreeBytes = 64;

} // namespace velko::demo
