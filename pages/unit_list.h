#pragma once

#include "pages/room_view.h"
#include "rom/name_lists.h"
#include "store/pointer_array_handler.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velko {

// An enemy, item or other object of a room, as the room's unit list tells it: five bytes.
struct UnitRecord {
    static constexpr std::uint32_t kBytes = 5;

    std::uint8_t type = 0;
    std::uint8_t pixelX = 0;  // within the screen
    std::uint8_t column = 0;  // of the screen, plus 1; 0: the unit has no placement
    std::uint8_t pixelY = 0;  // within the screen, normally below 240
    std::uint8_t screenY = 0; // row of the screen

    bool isPlaced() const { return column != 0; }
    // Where a placed unit stands, in room pixels: one pixel below what its bytes say.
    RoomView::Position position() const;
    // Writes a position into the bytes as it is, without taking back the pixel that position()
    // adds. So a unit that is put where it stands moves down by one. Intended.
    //
    // Each byte keeps the low 8 bits of its number, and Y is divided towards zero. Left of the
    // room a unit loses its placement.
    void putAt(RoomView::Position position);

    bool operator==(const UnitRecord&) const = default;
};

// The list of the current room's units: records up to an end byte in the place of a type. Every
// call reads the image anew.
class UnitList {
public:
    static constexpr std::uint8_t kEnd = 0xFF;
    // Data addresses repeat after 32 KB: a list that has not ended by then never does, and is
    // taken to end there.
    static constexpr std::uint32_t kMostUnits = 0x8000 / UnitRecord::kBytes;

    explicit UnitList(PointerArrayHandler& units) : m_units(units) { }

    std::uint32_t count() const;
    std::vector<UnitRecord> records() const;
    // `index` must be below count().
    UnitRecord record(std::uint32_t index) const;
    void setRecord(std::uint32_t index, const UnitRecord& record);

    // Puts a record before the one at `index`, or at the list's end.
    EditResult insert(std::uint32_t index, const UnitRecord& record);
    EditResult remove(std::uint32_t index);

    // "0 : Snail", one line for each unit. Types that no name is known for get a filler.
    std::vector<std::string> lines(const NameLists& names) const;

private:
    PointerArrayHandler& m_units;
};

} // namespace velko
