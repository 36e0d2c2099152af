#pragma once

#include "gfx/room_renderer.h"

namespace velko {

// The part of the current room that a page shows: a region of at most so many room pixels,
// scaled to a picture whose size never changes. All numbers are pixels; the room's and the
// region's are room pixels.
class RoomView {
public:
    struct Size {
        int width = 0;
        int height = 0;

        bool operator==(const Size&) const = default;
    };
    struct Position {
        int x = 0;
        int y = 0;

        bool operator==(const Position&) const = default;
    };

    // One click on a scroll bar's arrow; positions that the user scrolls to are multiples of it.
    static constexpr int kScrollStep = 16;

    RoomView(Size regionLimit, Size display) : m_regionLimit(regionLimit), m_display(display) { }

    // Shows another room, from its top-left corner.
    void showRoom(RoomSize size);

    Size room() const { return m_room; }
    // The limit, or the room's size where that is smaller.
    Size region() const;
    // What the region is scaled to.
    Size display() const { return m_display; }
    // The room pixel in the region's top-left corner.
    Position scroll() const { return m_scroll; }

    // As near to `position` as leaves the region inside the room.
    void scrollTo(Position position);
    // The same for a position that the user chose with a scroll bar: rounded down to a step.
    void scrollToStep(Position position);

private:
    Size m_regionLimit;
    Size m_display;
    Size m_room;
    Position m_scroll;
};

} // namespace velko
