#pragma once

#include "store/pointer_array_handler.h"
#include "store/screen_area.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace velko {

// Which screens the rooms' lists refer to, and which rooms share a list. A snapshot: whoever asks
// computes it anew.
class ScreenUsage {
public:
    // Set in the mark of a room that shares its list.
    static constexpr std::uint32_t kShared = 0x1000;

    // Looks at rooms 0 to `rooms` - 1 (at most kMostRooms). Every entry before a list's terminator
    // is a reference, in lists that several rooms share once for each of them.
    void compute(const PointerArrayHandler& mapAlloc, ScreenArea area, std::uint32_t rooms);

    // Number of references to a screen, of any index.
    std::uint32_t references(std::uint32_t index) const;
    // kShared and the number of another room with the same list (the highest one), else 0.
    std::uint32_t mark(std::uint32_t room) const;
    // The lowest index below the area's number of screens that nothing refers to.
    std::optional<std::uint32_t> firstUnused() const;

private:
    std::uint32_t m_screens = 0;
    std::vector<std::uint32_t> m_references; // by screen index
    std::vector<std::uint32_t> m_marks;      // by room
};

} // namespace velko
