#pragma once

#include "gfx/background_slot.h"
#include "state/editor_state.h"

#include <cstdint>
#include <string>

namespace velko {

// The 64 background slots of the current room, the one that is being changed, and the pixels of
// the block that fills it.
//
// Every change goes straight into the ROM image and into pattern memory, and every query reads
// the image again. Pixels belong to the block, not to the room: painting one changes every room
// that uses the block. Where data lies past the end of the image it reads as filler and writes
// are dropped.
class TileAllocationModel {
public:
    static constexpr int kSlots = 64;
    static constexpr int kBlocksPerPage = 64; // as many are browsed at a time
    static constexpr int kColumns = 8;        // of slots, and of the blocks of a page
    static constexpr int kBlockSize = 16;     // pixels each way
    static constexpr int kColours = 4;

    // A pixel of the selected block, as the ROM holds it: never mirrored.
    struct BlockPixel {
        int column = 0; // 0 to 15
        int row = 0;    // 0 to 15

        bool operator==(const BlockPixel&) const = default;
    };

    explicit TileAllocationModel(EditorState& state);

    // The slot that is being changed, 0 to 63. Another room keeps it.
    int selectedSlot() const { return m_selectedSlot; }
    // Numbers outside 0 to 63 change nothing.
    void selectSlot(int slot);
    // Moves the selection, stopping at the edges of the 8 x 8 slots.
    void moveSlot(int columns, int rows);

    BackgroundSlot slot() const;
    void toggleMirror();
    void toggleUnusedBit();

    // The selected slot's block within its page of 64, 0 to 63.
    int blockInPage() const;
    // Fills the slot with another block of the same page. Numbers outside 0 to 63 change nothing.
    void selectBlock(int blockInPage);
    // The same with a neighbour, stopping at the page's edges, where nothing is written.
    void moveBlock(int columns, int rows);

    // The pages, four to a bank. A slot has two bits for its bank, so at most 16 can be chosen
    // from whatever the configuration says; 0 is the last position too when there are no banks.
    int lastBrowsePosition() const;
    // The page of the selected slot's block, or the last one when its bank lies beyond them all.
    int browsePosition() const;
    // Fills the slot with the same block of another page. Positions outside the range, and the
    // one that is shown already, change nothing.
    void browseTo(int position);

    // File offset of the selected slot's block, and of block 0 of its page.
    std::uint32_t blockOffset() const;
    std::uint32_t pageOffset() const;

    // What the labels tell of the selected slot: its number in hexadecimal, the bank counted from
    // the first one in decimal, the block number in hexadecimal, and where the block lies.
    std::string indexText() const;
    std::string bankText() const;
    std::string tileNumberText() const;
    std::string romAddressText() const; // "$" and hexadecimal digits

    // The colour that is painted with, 0 to 3.
    int currentColour() const { return m_currentColour; }
    // Numbers outside 0 to 3 change nothing.
    void setCurrentColour(int colour);

    int pixel(BlockPixel place) const;
    // Gives the pixel the current colour. Returns false, without writing, when it has it already.
    bool paint(BlockPixel place);
    // Makes the pixel's colour the current one.
    void pickColour(BlockPixel place);

private:
    std::uint32_t slotNumber() const { return static_cast<std::uint32_t>(m_selectedSlot); }
    void writeSlot(const BackgroundSlot& value);
    // File offset of the byte that holds the pixel's low bit; the high bit is 8 bytes further on.
    std::uint32_t rowOffset(BlockPixel place) const;

    EditorState& m_state;
    int m_selectedSlot = 0;
    int m_currentColour = 0;
};

} // namespace velko
