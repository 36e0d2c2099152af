#pragma once

#include "pages/map_edit_screens.h"
#include "pages/room_view.h"
#include "pages/tile32_packing.h"
#include "rom/user_prompt.h"
#include "state/editor_state.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velko {

// A picture whose cells the user picks from.
struct SelectorGrid {
    std::uint32_t columns;
    std::uint32_t rows;
    RoomView::Size display; // pixels

    // The cell (row x columns + column) at a point of the picture; nothing outside of it.
    std::optional<std::uint32_t> cellAt(RoomView::Position point) const;
};
inline constexpr SelectorGrid kTileSelector = {8, 8, {282, 282}};    // background blocks 0-63
inline constexpr SelectorGrid kPaletteSelector = {1, 4, {256, 282}}; // background palettes 0-3
inline constexpr SelectorGrid kPhysicsSelector = {2, 8, {282, 322}}; // physics values 0-15

// What the radio buttons choose, in their order.
enum class MapEditMode { kTileCombined, kTile, kPalette, kPhysics };

// What the mouse does in a mode.
struct MapEditHints {
    std::string_view select;
    std::string_view modify;
    std::string_view copy;
};
const MapEditHints& mapEditHints(MapEditMode mode);

// The current room as a plain grid of 16x16 cells that the user paints. In the game it is made of
// Tile32 blocks, of which it may use 146, together with all rooms that share its set. So after
// every stroke the room and its sharers are packed anew, to tell how many blocks they need; only
// convertAndWrite() changes the ROM image.
//
// Points are pixels of the pictures as they are shown; outside of them nothing happens. After any
// command all pictures and texts may have changed.
class MapEditModel {
public:
    using Point = RoomView::Position;

    // Warnings go to the prompt, which must outlive the model like the state.
    MapEditModel(EditorState& state, UserPrompt& prompt);

    // Reads the current room anew, without a question, and packs it once. Selection and mode stay.
    void refresh();
    // The user is about to leave the room or the page: with unwritten changes asks whether to
    // write them, and either way there are none afterwards. Returns true when they were given up;
    // refresh() then takes them away from what is shown, too.
    bool leave();

    // False when the room's stored height is 0, or its width leaves no column to show. Then there
    // are no screens, the view is 0 x 0, and the commands below change nothing but the selection.
    bool hasMap() const { return m_width != 0 && m_height != 0; }
    // What to tell the user then.
    static std::string_view noMapText();
    // The shown size, in screens.
    std::uint32_t width() const { return m_width; }
    std::uint32_t height() const { return m_height; }
    // width() x height() positions in the screen list, row by row. They may lie past its end.
    std::span<const std::uint8_t> layout() const { return m_layout; }
    const MapEditScreens& screens() const { return m_screens; }
    // For the list of the rooms that share the set: their names.
    std::vector<std::string> sharedRoomNames() const;

    MapEditMode mode() const { return m_mode; }
    void setMode(MapEditMode mode) { m_mode = mode; }
    std::uint32_t selectedBlock() const { return m_block; }    // 0-63
    std::uint8_t selectedPalette() const { return m_palette; } // 0-3
    std::uint8_t selectedPhysics() const { return m_physics; } // 0-15

    // What the map view shows of the room: at most 320 x 320 pixels, scaled to 448 x 420.
    RoomView& view() { return m_view; }
    const RoomView& view() const { return m_view; }

    // The left button, pressed or dragged. A block brings its palette and physics along; physics
    // can be selected in their own mode only.
    void selectBlockAt(Point point);
    void selectPaletteAt(Point point);
    void selectPhysicsAt(Point point);
    // On the map view: changes what the mode tells of the cell, which marks the room as modified.
    // The room's first screen is protected, and positions past its list have no cells.
    void applyLeft(Point point);
    // The same for a cell (row x 16 + column) of the screen at a position of the list. Returns
    // false, changing nothing but statusText(), where applyLeft() changes nothing.
    bool setCell(std::uint32_t position, std::size_t cell, const MetatileCell& value);
    // The right button on the map view: selects what the mode tells of the cell.
    void applyRight(Point point);

    // True from the first change until it is written or given up.
    bool isModified() const { return m_modified; }
    // Packs, then writes the whole set and every screen. What is over the limit becomes block 0.
    void convertAndWrite();

    // The outcome of the last packing.
    const Tile32Packer& packing() const { return m_packing; }
    // The Tile32 numbers of screens().all(), in the same order.
    std::span<const Tile32Numbers> tile32Numbers() const { return m_numbers; }
    // For the labels: the number of blocks in use, in decimal, and what went wrong, if anything.
    std::string usedText() const;
    std::string_view statusText() const { return m_status; }

private:
    // A cell of the room.
    struct Cell {
        std::uint8_t position = 0; // of its screen in the list
        std::size_t index = 0;     // within the screen
    };
    std::optional<Cell> cellAt(Point point) const;
    // What painting makes of a cell.
    MetatileCell painted(MetatileCell cell) const;

    void readLayout();
    void pack();
    void warnOfLimit();
    void writeSet();
    void writeScreens();

    EditorState& m_state;
    UserPrompt& m_prompt;
    std::uint32_t m_width = 0;
    std::uint32_t m_height = 0;
    std::vector<std::uint8_t> m_layout;
    MapEditScreens m_screens;
    RoomView m_view;
    MapEditMode m_mode = MapEditMode::kTileCombined;
    std::uint32_t m_block = 0;
    std::uint8_t m_palette = 0;
    std::uint8_t m_physics = 0;
    bool m_modified = false;
    Tile32Packer m_packing;
    std::vector<Tile32Numbers> m_numbers;
    std::string_view m_status;
    bool m_hasWarned = false;
};

} // namespace velko
