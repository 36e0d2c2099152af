#include "tools/room_browser.h"

#include <algorithm>

namespace velko {

namespace {

constexpr RoomBrowser::Point kFirstCorner{10, 20};
constexpr int kSpacing = 250; // from one corner to the next, both ways

bool isSlot(int column, int row)
{
    return column >= 0 && column < RoomBrowser::kColumns && row >= 0 && row < RoomBrowser::kRows;
}

} // namespace

RoomBrowser::RoomBrowser(std::uint32_t roomCount, std::uint32_t room)
    : m_roomCount(roomCount), m_page(room / kSlots)
{
}

std::uint32_t RoomBrowser::lastPage() const
{
    return std::max<std::uint32_t>(m_roomCount / kSlots, 1) - 1;
}

std::optional<std::uint32_t> RoomBrowser::roomInSlot(int slot) const
{
    const std::uint64_t room = std::uint64_t{m_page} * kSlots + static_cast<std::uint32_t>(slot);
    if (slot < 0 || slot >= kSlots || room >= m_roomCount)
        return std::nullopt;
    return static_cast<std::uint32_t>(room);
}

RoomBrowser::Point RoomBrowser::corner(int slot)
{
    return {kFirstCorner.x + slot % kColumns * kSpacing,
            kFirstCorner.y + slot / kColumns * kSpacing};
}

std::optional<std::uint32_t> RoomBrowser::roomAt(Point point) const
{
    for (int slot = 0; slot < kSlots; ++slot) {
        const Point inside{point.x - corner(slot).x, point.y - corner(slot).y};
        if (inside.x >= 0 && inside.x < kThumbnailSize && inside.y >= 0
            && inside.y < kThumbnailSize)
            return roomInSlot(slot);
    }
    return std::nullopt;
}

int RoomBrowser::slotBeside(int slot, int columns, int rows) const
{
    const int column = slot % kColumns + columns;
    const int row = slot / kColumns + rows;
    const int beside = row * kColumns + column;
    return isSlot(column, row) && roomInSlot(beside) ? beside : slot;
}

} // namespace velko
