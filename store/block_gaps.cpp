#include "store/block_gaps.h"

#include <algorithm>

namespace velko {

BlockMap::BlockMap(const PointerArrayHandler& handler, const BlockKind& kind)
    : m_handler(handler), m_lengths(handler, kind)
{
    rebuild();
}

void BlockMap::rebuild()
{
    m_lengths.refresh();
    const auto count = static_cast<std::uint32_t>(std::max(m_handler.entryCount(), 0));
    m_byRoom.resize(count);
    for (std::uint32_t room = 0; room < count; ++room) {
        const std::uint32_t start = m_handler.pointerOf(room);
        m_byRoom[room] = {start, start + m_lengths.of(room), room};
    }
    // Closing a gap leaves the order of the blocks as it was: the next rebuild need not sort.
    if (m_byStart.size() != count)
        m_byStart = m_byRoom;
    for (Block& block : m_byStart)
        block = m_byRoom[block.room];
    if (!std::ranges::is_sorted(m_byStart, {}, &Block::start))
        std::ranges::sort(m_byStart, {}, &Block::start);

    m_reach.resize(count);
    Reach reach;
    for (std::uint32_t i = 0; i < count; ++i) {
        const Block& block = m_byStart[i];
        if (block.end > reach.furthest.end) {
            reach.secondEnd = reach.furthest.end;
            reach.furthest = block;
        } else {
            reach.secondEnd = std::max(reach.secondEnd, block.end);
        }
        m_reach[i] = reach;
    }
}

BlockGap BlockMap::gapBehind(std::uint32_t room) const
{
    const Block& block = m_byRoom[room];
    if (block.end == block.start)
        return {};
    const std::uint32_t end = block.end & 0xFFFF;
    if (end >= m_handler.descriptor().dEdge || anotherStartsAt(end, room)
        || liesInsideAnother(block, end))
        return {};
    const auto next = std::ranges::upper_bound(m_byStart, end, {}, &Block::start);
    // A block that wraps past $FFFF may only find itself above its end: that is no other block.
    const auto other =
        std::find_if(next, m_byStart.end(), [room](const Block& b) { return b.room != room; });
    if (other == m_byStart.end())
        return {};
    return {static_cast<std::uint16_t>(end), other->start - end};
}

bool BlockMap::anotherStartsAt(std::uint32_t address, std::uint32_t room) const
{
    const auto first = std::ranges::lower_bound(m_byStart, address, {}, &Block::start);
    const auto last = std::ranges::upper_bound(m_byStart, address, {}, &Block::start);
    return std::any_of(first, last, [room](const Block& block) { return block.room != room; });
}

bool BlockMap::liesInsideAnother(const Block& block, std::uint32_t wrappedEnd) const
{
    // Only blocks that start no higher can hold this one.
    const auto above = std::ranges::upper_bound(m_byStart, block.start, {}, &Block::start);
    const Reach& reach = m_reach[static_cast<std::size_t>(above - m_byStart.begin()) - 1];
    const std::uint32_t furthestEnd =
        reach.furthest.room == block.room ? reach.secondEnd : reach.furthest.end;
    return wrappedEnd < furthestEnd;
}

} // namespace velko
