#pragma once

#include "store/pointer_array_handler.h"

#include <cstdint>

namespace velko {

// How the chopper leaves an area, in up to 127 directions. An area's block is
//
//     0       2 x number of entries
//     1       not for the editor
//     2 + 2i  entry i: chopper sprite (high nibble), path preview sprite (low nibble)
//     3 + 2i  entry i: first (high) and second (low) digit of the destination's number
//
// Blocks lie packed like those of rooms; the handler is indexed by areas. A game may be damaged:
// an odd byte 0 counts like the even one below it, and of an area without entries all nibbles read
// as 0 and cannot be set.
class AreaMovement {
public:
    // The values of one entry, 0 to 15 each.
    struct Entry {
        std::uint8_t chopperSprite = 0;
        std::uint8_t pathPreviewSprite = 0;
        std::uint8_t firstDigit = 0;
        std::uint8_t secondDigit = 0;

        bool operator==(const Entry&) const = default;
    };
    // Of a block, before its entries.
    static constexpr std::uint32_t kHeadBytes = 2;
    // The most that byte 0 may hold: 127 entries.
    static constexpr std::uint32_t kLargestCount = 254;

    explicit AreaMovement(PointerArrayHandler& handler) : m_handler(handler) { }

    // Selects area 0 and computes the handler's free space: its block is the one stored last. The
    // table keeps its configured length, so that an edit moves the pointers of all its entries.
    void open();

    void selectArea(std::uint32_t area) { m_handler.selectRoom(area); }

    // The rest is about the selected area. Entry numbers must lie below entryCount(); others read
    // as zeros and change nothing.
    int entryCount() const;
    Entry entry(int index) const;
    // The low nibble of `value` counts.
    void setChopperSprite(int index, int value);
    void setPathPreviewSprite(int index, int value);
    void setFirstDigit(int index, int value);
    void setSecondDigit(int index, int value);

    // Inserts an entry of zeros right behind entry `index`, or as the only one. Refused, changing
    // nothing, without two free bytes (or with the free space not known) and where byte 0 would
    // pass kLargestCount.
    [[nodiscard]] bool addEntry(int index);
    // Removes an entry. Returns false, changing nothing, for an area's only one, and while the free
    // space is not known.
    bool removeEntry(int index);

private:
    enum class Nibble { kLow, kHigh };
    bool has(int index) const { return index >= 0 && index < entryCount(); }
    void setNibble(int index, std::uint32_t byte, Nibble nibble, int value);

    PointerArrayHandler& m_handler;
};

} // namespace velko
