#pragma once

#include "pages/room_view.h"
#include "pages/unit_list.h"

#include <cstdint>
#include <optional>

namespace velko {

// Moves units with the mouse. A unit is picked up, follows the pointer, and is dropped or put back.
// While it is moved near the view's border, or the pointer is outside, the view scrolls that way by
// itself, tick by tick, until the pointer moves away.
//
// Points are pixels of the view as it is displayed. The list holds the new place at once.
class UnitMover {
public:
    // Both must outlive the mover.
    UnitMover(UnitList& units, RoomView& view) : m_units(units), m_view(view) { }

    bool isMoving() const { return m_unit.has_value(); }
    // The unit being moved.
    std::optional<std::uint32_t> unit() const { return m_unit; }

    // Picks up the unit at a point of the view and returns its index; nothing when there is none,
    // or one is being moved. Of units that overlap it takes the last of the list.
    std::optional<std::uint32_t> pick(RoomView::Position point);
    // Starts moving a unit from wherever the pointer is: in the view its position will be exactly
    // under the pointer.
    void start(std::uint32_t unit);

    // What ends or continues a move does nothing unless a unit is being moved.

    // The pointer moved. Outside the view the unit stays.
    void moveTo(RoomView::Position point);
    // Leaves the unit where it is. One that did not move at all is put down at `point`.
    void drop(RoomView::Position point);
    // The unit stays where it is.
    void stop();
    // The unit goes back to where it was.
    void revert();

    // Every 16 ms: the glow goes on, and the view scrolls where that is asked for.
    void tick();
    // How brightly the unit glows now, 0 to 1: up and down within 50 ticks.
    float glow() const { return m_phase < 1.0F ? m_phase : 2.0F - m_phase; }
    // Forgets everything, as in another room.
    void reset();

private:
    RoomView::Position toRegion(RoomView::Position point) const;
    bool isInView(RoomView::Position point) const;
    void requestScroll(RoomView::Position point, RoomView::Size size);

    UnitList& m_units;
    RoomView& m_view;
    std::optional<std::uint32_t> m_unit;
    UnitRecord m_saved;
    RoomView::Position m_offset; // from the pointer to the unit, in room pixels
    bool m_hasMoved = false;
    RoomView::Position m_scrollStep;  // asked for, in room pixels; both 0: none
    float m_scrollAccumulator = 0.0F; // steps that are due
    float m_phase = 0.0F;             // 0 to below 2
};

} // namespace velko
