#pragma once

#include "state/editor_state.h"

#include <cstdint>
#include <optional>
#include <string>

namespace velko {

// Two settings of the current room that stand in fixed tables of the ROM: its music, and, in the
// chambers of the neutral areas only, the item that lies there with the address of the item's
// sprite. Every change is in the ROM image at once. Tables that lie past the end of the file read
// as filler and take nothing.
class RoomSettingsModel {
public:
    // In place of an item: the chamber is empty. Its sprite address is then kNoAddress.
    static constexpr std::uint8_t kNoItem = 0xFF;
    static constexpr std::uint16_t kNoAddress = 0xFFFF;
    // What a chamber holds when it gets an item, whatever it held before.
    static constexpr std::uint8_t kFirstItem = 4;
    static constexpr std::uint16_t kFirstItemAddress = 0xAB06;

    explicit RoomSettingsModel(EditorState& state) : m_state(state) { }

    std::uint8_t music() const;
    void setMusic(std::uint8_t number);

    // " Neutral Area Item (only for rooms 37 to 44)", with the game's own rooms.
    std::string chamberTitle() const;
    // Whether the room is a chamber. Any other room reads as empty and drops what is written.
    bool isChamber() const;

    bool hasItem() const { return item() != kNoItem; }
    // The stored number, which may lie past the list of items.
    std::uint8_t item() const;
    // The same where the list has a name for it.
    std::optional<std::uint8_t> listedItem() const;
    // Leaves the sprite address as it is.
    void setItem(std::uint8_t number);
    // Puts kFirstItem with its address into the chamber.
    void addItem();
    void removeItem();

    std::uint16_t spriteAddress() const;
    // Only the low 16 bits count.
    void setSpriteAddress(std::uint32_t address);
    // The address that the module tells for the item; kNoAddress without an item. An item past
    // the list has none, and nothing changes.
    void takeItemAddress();

private:
    // File offsets of the room's entries; they wrap at 32 bits.
    std::uint32_t musicOffset() const;
    std::uint32_t itemOffset() const;
    std::uint32_t addressOffset() const;
    std::uint32_t chamberIndex() const;

    EditorState& m_state;
};

} // namespace velko
