#pragma once

#include <cstdint>
#include <optional>

namespace velko {

// Pages through a game's rooms, eight at a time, in two rows of four thumbnails.
class RoomBrowser {
public:
    static constexpr int kColumns = 4;
    static constexpr int kRows = 2;
    static constexpr int kSlots = kColumns * kRows;
    static constexpr int kThumbnailSize = 230; // pixels, both ways

    struct Point {
        int x = 0;
        int y = 0;
        bool operator==(const Point&) const = default;
    };

    // Starts on the page that holds `room`.
    RoomBrowser(std::uint32_t roomCount, std::uint32_t room);

    std::uint32_t page() const { return m_page; }
    void turnTo(std::uint32_t page) { m_page = page; }
    // The last page that can be turned to. Rooms are divided into whole pages, and up to seven
    // rooms that are left over are not offered; a game of fewer than eight has one page.
    std::uint32_t lastPage() const;

    // The room of a slot 0 to 7, rows first; nothing past the last room.
    std::optional<std::uint32_t> roomInSlot(int slot) const;
    // The slot's top-left corner.
    static Point corner(int slot);
    // The room whose thumbnail covers a point.
    std::optional<std::uint32_t> roomAt(Point point) const;
    // The slot beside `slot`, so many columns and rows away; `slot` itself when there is none or
    // when it holds no room.
    int slotBeside(int slot, int columns, int rows) const;

private:
    std::uint32_t m_roomCount;
    std::uint32_t m_page;
};

} // namespace velko
