#include "store/block_gaps.h"

#include <algorithm>

namespace velko {

namespace {

constexpr std::int32_t kNoBlock = 0x10000; // above every start
constexpr std::size_t kPiece = 512;        // entries between two looks whether to go on

} // namespace

BlockMap::BlockMap(const PointerArrayHandler& handler, const BlockKind& kind)
    : m_handler(handler), m_lengths(handler, kind)
{
    rebuild();
}

void BlockMap::rebuild()
{
    m_lengths.refresh();
    m_handler.readPointers(m_pointers);
    m_starts.assign(m_pointers.begin(), m_pointers.end());
    m_ends.resize(m_pointers.size());
    for (std::uint32_t room = 0; room < m_ends.size(); ++room)
        m_ends[room] =
            m_starts[room] + static_cast<std::int32_t>(m_lengths.of(room, m_pointers[room]));
    m_withoutGap.clear();
}

BlockGap BlockMap::gapBehind(std::uint32_t room)
{
    const std::int32_t start = m_starts[room];
    const std::int32_t end = m_ends[room] & 0xFFFF;
    if (m_ends[room] == start || end >= m_handler.descriptor().dEdge)
        return {};
    const std::uint64_t block =
        std::uint64_t{m_pointers[room]} << 32 | static_cast<std::uint32_t>(m_ends[room]);
    if (m_withoutGap.contains(block))
        return {};
    // All but the entry itself, which may lie above its own end where it wraps past $FFFF.
    Search found{start, end, kNoBlock, false};
    search(found, room + std::size_t{1}, m_starts.size());
    search(found, 0, room);
    if (found.isClosed || found.next == kNoBlock) {
        m_withoutGap.insert(block);
        return {};
    }
    return {static_cast<std::uint16_t>(end), static_cast<std::uint32_t>(found.next - end)};
}

void BlockMap::search(Search& search, std::size_t first, std::size_t last) const
{
    const std::int32_t start = search.start;
    const std::int32_t end = search.end;
    while (first < last && !search.isClosed) {
        const std::size_t pieceEnd = std::min(first + kPiece, last);
        std::int32_t next = search.next;
        std::int32_t closed = 0;
        for (; first < pieceEnd; ++first) {
            const std::int32_t otherStart = m_starts[first];
            const std::int32_t otherEnd = m_ends[first];
            closed |= static_cast<std::int32_t>(otherStart == end)
                | (static_cast<std::int32_t>(otherStart <= start)
                   & static_cast<std::int32_t>(end < otherEnd));
            next = std::min(next, otherStart > end ? otherStart : kNoBlock);
        }
        search.next = next;
        search.isClosed = closed != 0;
    }
}

} // namespace velko
