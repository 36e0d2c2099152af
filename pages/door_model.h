#pragma once

#include "gfx/pixel_image.h"
#include "pages/room_view.h"
#include "state/editor_state.h"

#include <cstdint>

namespace velko {

// Where the hero appears in a room: a 16x16 block of one of its screens, as stored. Nothing keeps
// it inside the room.
struct Entrance {
    std::uint8_t screenColumn = 0; // 0-15, counted from 1; 0 means that the entrance is not set
    std::uint8_t screenRow = 0;    // 0-15
    std::uint8_t blockColumn = 0;  // 0-15
    std::uint8_t blockRow = 0;     // 0-15, of which a screen has 0-14

    // From the room's bytes in the tables of entrance screens and of entrance blocks.
    static Entrance fromBytes(std::uint8_t screen, std::uint8_t block);

    bool isSet() const { return screenColumn > 0; }
    // The block's top-left corner in room pixels, of an entrance that is set.
    RoomView::Position corner() const;

    bool operator==(const Entrance&) const = default;
};

// The current room's entrances and exits, one of each selected, and a view of the room in which
// entrances stand as door pictures and can be placed.
//
// Both stand in fixed tables of the ROM with as many bytes per room as the module tells. The page
// offers kSlots of each, whatever that number is: further ones are out of its reach, and of fewer
// the last slots are those of the rooms that follow. Tables that lie past the end of the file read
// as filler and take nothing.
class DoorModel {
public:
    static constexpr std::uint32_t kSlots = 4;
    static constexpr RoomView::Size kRegionLimit{384, 384}; // room pixels
    static constexpr RoomView::Size kDisplay{640, 480};     // picture pixels

    explicit DoorModel(EditorState& state) : m_state(state) { }

    // Shows the current room from its top-left corner. The selected slots stay.
    void showRoom();
    RoomView& view() { return m_view; }

    std::uint32_t selectedEntrance() const { return m_entrance; }
    // Slots 0-3. The view goes to the entrance when it is set.
    void selectEntrance(std::uint32_t slot);
    Entrance entrance() const { return entranceOf(m_entrance); }
    // Of any slot, which may be read and written as it is.
    Entrance entranceOf(std::uint32_t slot) const;
    void setEntrance(std::uint32_t slot, const Entrance& entrance);

    // Puts the selected entrance into the block under a point of the picture. Returns false,
    // changing nothing, for a point outside of it. A room of more than 15 screens each way is
    // larger than an entrance can tell: its screen numbers run over into one another.
    bool placeEntrance(int x, int y);
    // The mouse moved to a point of the picture, or beyond its edges. Places the entrance while
    // the left button is held and the point is not the one it moved to last, on this page or an
    // earlier one. Returns whether the entrance was placed.
    bool moveMouse(int x, int y, bool leftButtonHeld);

    // Moves the selected entrance by blocks, for those who use no mouse; one that is not set comes
    // into the middle of the view first. It stays inside the room, and on the screens that an
    // entrance can tell. The view follows it.
    void moveEntrance(int columns, int rows);

    std::uint32_t selectedExit() const { return m_exit; }
    void selectExit(std::uint32_t slot) { m_exit = slot; } // 0-3
    // The room that the selected exit leads to, and the entrance slot there.
    std::uint8_t exitRoom() const;
    std::uint8_t exitEntrance() const;
    void setExitRoom(std::uint8_t room);
    void setExitEntrance(std::uint8_t slot);

    // The shown region with the doors of its entrances, scaled to kDisplay. Doors have pictures for
    // four slots at most; a door whose block lies out of the region is not drawn, whatever the size
    // of its picture.
    void draw(PixelImage& picture);

private:
    void storeEntrance(std::uint32_t roomX, std::uint32_t roomY);
    void centreOn(RoomView::Position corner);
    // Whether a block shows, at least in part.
    bool isInView(RoomView::Position corner) const;
    void drawDoors(PixelImage& region) const;
    // File offset of a slot's byte in one of the tables; wraps at 32 bits.
    std::uint32_t entranceOffset(MiscField table, std::uint32_t slot) const;
    std::uint32_t exitOffset(MiscField table) const;

    EditorState& m_state;
    RoomView m_view{kRegionLimit, kDisplay};
    std::uint32_t m_entrance = 0;
    std::uint32_t m_exit = 0;
    PixelImage m_region; // unscaled; kept for its memory
};

} // namespace velko
