#pragma once

#include "gfx/room_renderer.h"
#include "pages/tile32_packing.h"
#include "state/editor_state.h"

#include <cstdint>
#include <span>
#include <vector>

namespace velko {

// A cell of a map holds one byte, so of a list without an end this many screens are taken.
inline constexpr std::uint32_t kMostMapScreens = 256;

// A screen as it is edited. `cells` and `groups` tell the same.
struct MapEditScreen {
    std::uint16_t address = 0;
    bool isReferredToTwice = false; // or more often, by the lists of all rooms
    ScreenMap16 cells;
    ScreenGroups groups;

    // The cell at row x 16 + column.
    MetatileCell cell(std::size_t index) const
    {
        return {cells.metatile[index], cells.palette[index], cells.physics[index]};
    }
};

// The screens that have to be packed together: those of the current room and those of the rooms
// that share its Tile32 set, unpacked to cells. Lists may name a screen many times; it is kept
// once, so that an edit shows wherever the room uses it.
class MapEditScreens {
public:
    // Reads the current room anew.
    void decode(const EditorState& state);
    void clear();

    // The room's list; of an endless one the first kMostMapScreens entries.
    std::uint32_t count() const { return static_cast<std::uint32_t>(m_list.size()); }
    // The screen at a position of it.
    const MapEditScreen& at(std::uint32_t position) const { return m_screens[m_list[position]]; }
    void setCell(std::uint32_t position, std::size_t cell, const MetatileCell& value);

    // Each background block's palette and physics, from its first cell in the room's screens.
    const TsaTable& tsa() const { return m_tsa; }

    // The other rooms with the same Tile32 set that have a screen list of their own.
    std::span<const std::uint32_t> sharedRooms() const { return m_sharedRooms; }

    // Every screen once, in the order of packing: first the room's own in the order of its list,
    // then the shared ones in the order of the rooms and their lists.
    std::span<const MapEditScreen> all() const { return m_screens; }

private:
    class Decoder;

    std::vector<MapEditScreen> m_screens;
    std::vector<std::uint32_t> m_list; // by position: index into m_screens
    std::vector<std::uint32_t> m_sharedRooms;
    TsaTable m_tsa{};
};

} // namespace velko
