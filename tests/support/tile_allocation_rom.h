#pragma once

#include "state/editor_state.h"
#include "tests/support/test_rom.h"

#include <cstdint>
#include <gtest/gtest.h>

namespace velko::test {

// A game of four rooms for the tests of the tile allocation page. Two blocks have pixels:
// in block 1 of bank 0 the one at column 0, row 0 is 1, the one at (8, 0) is 2, the one at (0, 8)
// is 3; in block 0x45 of bank 2 all are 2. The rest is 0. Entry e of room 0's palette is 2e + 1.
struct TileAllocationRom : TestRom {
    static constexpr std::uint8_t kPlain = 0;   // slot 0 and 3: block 1; slot 1: block 1 mirrored,
                                                // slot 2: block 0x45 of bank 2, spare bit set
    static constexpr std::uint8_t kSharing = 1; // the same tile-load block as room 0
    static constexpr std::uint8_t kOther = 2;   // its own: slot 63 holds block 1, spare bit set
    static constexpr std::uint8_t kOutside = 3; // tile-load block past the end of the ROM
    static constexpr std::uint32_t kRooms = 4;

    TileAllocationRom() : TestRom(kRooms)
    {
        Bytes corners(64);
        corners[0] = 0x80;  // top left tile, low plane
        corners[40] = 0x80; // top right tile, high plane
        corners[16] = 0x80; // bottom left tile, both planes
        corners[24] = 0x80;
        setBackgroundBlock(0, 1, corners);
        Bytes twos;
        for (int tile = 0; tile < 4; ++tile) {
            const Bytes solid = solidTile(2);
            twos.insert(twos.end(), solid.begin(), solid.end());
        }
        setBackgroundBlock(2, 0x45, twos);

        Bytes allocation(96);
        allocation[0] = 1;
        allocation[1] = 1;
        allocation[2] = 0x45;
        allocation[3] = 1;
        allocation[64] = 0x04; // slot 0 plain, slot 1 mirrored
        allocation[65] = 0xA0; // slot 2: spare bit and bank 2, slot 3 plain
        setTileLoad(kPlain, allocation);
        shareAll(kSharing, kPlain);
        Bytes other(96);
        other[63] = 1;
        other[95] = 0x08;
        setTileLoad(kOther, other);

        Bytes palette;
        for (std::uint8_t entry = 0; entry < kPaletteLength; ++entry)
            palette.push_back(static_cast<std::uint8_t>(2 * entry + 1));
        setPalette(kPlain, palette);

        // The last bank ends after 256 bytes.
        setPointer(&GameConfig::pahTileLoad, kOutside, 0xC200);
        bytes.resize(kHeaderSize + layout::kFixedBank * kBankSize + 0x100);
    }

    // File offsets of the tile-load blocks of rooms kPlain and kOther. The game itself has
    // put one block before them.
    static constexpr std::uint32_t kAllocation =
        kHeaderSize + layout::kTileLoadBank * kBankSize + 96;
    static constexpr std::uint32_t kOtherAllocation = kAllocation + 96;
    // File offsets of background blocks.
    static constexpr std::uint32_t blockOffset(std::uint32_t bank, std::uint32_t block)
    {
        return kHeaderSize + (layout::kBackgroundBank + bank) * kBankSize + block * 64;
    }
};

// A state with this game, on room kPlain.
class TileAllocationGameTest : public testing::Test {
protected:
    TileAllocationGameTest() { game.loadInto(state); }

    Bytes image() const { return {state.rom.bytes().begin(), state.rom.bytes().end()}; }
    // The image as it was loaded, but for some bytes.
    struct Change {
        std::uint32_t offset;
        std::uint8_t value;
    };
    Bytes loadedExcept(std::initializer_list<Change> changes) const
    {
        Bytes bytes = game.bytes;
        for (const Change& change : changes)
            bytes.at(change.offset) = change.value;
        return bytes;
    }
    // Byte `index` (0-63) of a slot in pattern memory.
    std::uint8_t patternByte(std::uint32_t slot, std::uint32_t index) const
    {
        return state.graphics.patternMemory.at(0x1000 + 64 * slot + index);
    }

    TileAllocationRom game;
    EditorState state;
};

} // namespace velko::test
