#pragma once

#include "gfx/pixel_image.h"
#include "state/editor_state.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velko {

// Fills cells whose value is no position of the room's screen list.
inline constexpr Pixel kInvalidCellColour = 0x988898;

// A cell of the map as it is shown: column 0 is the first column behind the left border.
struct MapCell {
    std::uint32_t row = 0;
    std::uint32_t column = 0;

    bool operator==(const MapCell&) const = default;
};

// The current room's map: a grid of positions in its screen list, of which the first and the last
// column are borders that are neither shown nor moved. Its size stands beside the room's pointer:
// the stored width counts both borders.
//
// A damaged game may store a width below 3 or a height of 0. Such a room shows one column, or one
// row, as everywhere in the editor, and what would lie outside its block is not written. A block
// of no bytes grows where its pointer stands, as any other does: its first bytes become the head
// of whatever starts there, also of a block of another room.
class MapLayoutModel {
public:
    static constexpr std::uint32_t kLargestSize = 255; // stored, a byte
    static constexpr std::uint32_t kSmallestWidth = 3; // stored: one column that shows

    enum class ResizeResult { kDone, kNothing, kAtLimit, kNoFreeSpace };

    explicit MapLayoutModel(EditorState& state);

    // False when stored width and height are both 0: the room has no map. Everything below then
    // changes nothing.
    bool hasMap() const;
    // To be shown then.
    static std::string_view noMapText();

    // The shown size, both at least 1; 0 without a map.
    std::uint32_t columns() const;
    std::uint32_t rows() const;
    // For the labels, in hexadecimal.
    std::string widthText() const;
    std::string heightText() const;

    // The position in the screen list that a cell holds.
    std::uint8_t cellValue(MapCell cell) const;
    // Screens in the room's list. A cell that holds no less than that is invalid.
    std::uint32_t screenCount() const;

    // The selected cell, which lies inside the map whatever size it has now.
    MapCell selectedCell() const;
    // The nearest cell of the map.
    void selectCell(MapCell cell);
    // What the selected cell holds; nothing when it is invalid.
    std::optional<std::uint8_t> selectedScreen() const;
    // The selected cell's screen, 256 x 240 pixels; of one colour when it is invalid.
    void drawSelectedScreen(PixelImage& image) const;
    // Puts a position of the screen list into the selected cell. Positions beyond 255 cannot be
    // told by a cell and change nothing.
    void assignScreen(int position);

    // Each adds or removes the bottom row, or the column left of the right border, and gives all
    // synchronised rooms the new size. Unless kDone, nothing has changed.
    ResizeResult growHeight();
    ResizeResult shrinkHeight();
    ResizeResult growWidth();
    ResizeResult shrinkWidth();
    // What a refused resize tells, with the exclamation icon; empty for kDone and kNothing.
    static std::string_view message(ResizeResult result);

    // Moves all shown cells down and right by so many cells, around the map's edges.
    void moveMap(int rows, int columns);

    // The other rooms with the same pointer, width and height: they stay of one size with this
    // room. Rooms that share the block in another size are left alone.
    std::vector<std::uint32_t> synchronisedRooms() const;
    // "3, 1a"
    std::string synchronisedRoomsText() const;

    // Two rooms of the game use one map: room 0x6E should have the size of room 0x48. True when
    // 0x6E is shown, shares the map and differs.
    bool partnerSizeDiffers() const;
    // Asks whether to take over room 0x48's size (Yes, No, Cancel).
    static std::string_view partnerQuestion();
    void takePartnerSize();

private:
    struct StoredSize {
        std::uint8_t width = 0;
        std::uint8_t height = 0;

        bool operator==(const StoredSize&) const = default;
        std::uint32_t bytes() const { return std::uint32_t{width} * height; }
    };
    StoredSize storedSize(std::uint32_t room) const;
    StoredSize storedSize() const { return storedSize(layouts().currentRoom()); }
    void setStoredSize(std::uint32_t room, StoredSize size);
    // Bytes from the block's start to a cell.
    std::uint32_t offsetOf(MapCell cell) const;
    bool canDelete(std::uint32_t deletions) const;
    template <typename Change> ResizeResult resize(StoredSize newSize, Change changeBlock);

    PointerArrayHandler& layouts() { return m_state.store.pahMapLayout; }
    const PointerArrayHandler& layouts() const { return m_state.store.pahMapLayout; }

    EditorState& m_state;
    MapCell m_selected;
};

} // namespace velko
