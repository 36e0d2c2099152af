#pragma once

#include "store/block_kinds.h"
#include "store/screen_list_scan.h"

#include <cstdint>
#include <optional>

namespace velko {

// The length of any entry's block in a few steps, where the rule of its kind may take a search of
// 64 KB. Lengths that depend on the contents of blocks are those at the last refresh().
class LengthTable {
public:
    LengthTable(const PointerArrayHandler& handler, const BlockKind& kind)
        : m_handler(handler), m_length(kind.length)
    {
        if (kind.kind == RoomDataKind::kMapAlloc)
            m_screenLists.emplace(handler);
    }

    void refresh()
    {
        if (m_screenLists)
            m_screenLists->refresh();
    }

    std::uint32_t of(std::uint32_t room) const { return of(room, m_handler.pointerOf(room)); }
    // For a caller that has the entry's pointer at hand.
    std::uint32_t of(std::uint32_t room, std::uint16_t pointer) const
    {
        return m_screenLists ? m_screenLists->length(pointer) : m_length(m_handler, room);
    }

private:
    const PointerArrayHandler& m_handler;
    BlockKind::Length m_length;
    std::optional<ScreenListScan> m_screenLists;
};

} // namespace velko
