#pragma once

#include "state/editor_state.h"
#include "tests/support/test_rom.h"

#include <cstdint>
#include <gtest/gtest.h>

namespace velko::test {

// A game of six rooms for the tests of the palette page.
//
// Rooms differ in size and palette and share everything else. There are two screens, each made of
// one Tile32 record: the first one's left metatiles use palette 0 and its right ones palette 1,
// the second one's 2 and 3. Each tile has four columns of value 1, then four of value 0. So on
// every row of a screen's picture 32 pixels repeat: 4 in the colour of entry 1, 4 of entry 16, 4
// of entry 1, 4 of entry 16, then the same with entry 5 for entry 1; in the second screen with
// entries 9 and 13 for 1 and 5.
struct PaletteRom : TestRom {
    static constexpr std::uint8_t kOneScreen = 0;   // 1 x 1 screens; entry e is e + 1
    static constexpr std::uint8_t kFourByThree = 1; // 4 x 3 screens, the middle row of the second
                                                    // screen; entry e is 0x3F - e
    static constexpr std::uint8_t kNoLayout = 2;    // stored width and height 0, palette of room 0
    static constexpr std::uint8_t kHuge = 3;        // stored as 255 x 255, palette of room 0
    static constexpr std::uint8_t kOutside = 4;     // palette past the end of the ROM
    static constexpr std::uint8_t kCutOff = 5;      // only entries 0-3 in the ROM: 0x21 to 0x24
    static constexpr std::uint32_t kRooms = 6;

    PaletteRom() : TestRom(kRooms)
    {
        setBackgroundBlock(0, 0, tiles());
        setTile32(0, {{0, 0, 0, 0, 0x44, 0, 0}, {0, 0, 0, 0, 0xEE, 0, 0}});
        setScreenList(0, {layout::kFirstScreen, addScreen(Bytes(64, 1))});
        for (std::uint32_t room = 1; room < kRooms; ++room)
            shareAll(room, 0);
        setLayout(kFourByThree, 4, 3, {0, 0, 0, 0, 1, 1, 1, 1, 0, 0, 0, 0});
        setStoredSize(kNoLayout, 0, 0);
        setStoredSize(kHuge, 255, 255);

        Bytes rising;
        Bytes falling;
        for (std::uint8_t entry = 0; entry < kPaletteLength; ++entry) {
            rising.push_back(static_cast<std::uint8_t>(entry + 1));
            falling.push_back(static_cast<std::uint8_t>(0x3F - entry));
        }
        for (const std::uint8_t room : {kOneScreen, kNoLayout, kHuge})
            setPointer(&GameConfig::pahPal, room, kRisingPalette);
        write(kRising, rising);
        setPointer(&GameConfig::pahPal, kFourByThree, kFallingPalette);
        write(kFalling, falling);

        // The last bank ends after 256 bytes.
        setPointer(&GameConfig::pahPal, kOutside, 0xC200);
        setPointer(&GameConfig::pahPal, kCutOff, 0xC0FC);
        bytes.resize(kHeaderSize + layout::kFixedBank * kBankSize + 0x100);
        write(kCutOffPalette, {0x21, 0x22, 0x23, 0x24});
    }

    // File offsets of the palettes of kOneScreen, kFourByThree and kCutOff.
    static constexpr std::uint32_t kRising = kHeaderSize + layout::kBlockBank * kBankSize + 0x2800;
    static constexpr std::uint32_t kFalling = kRising + 0x20;
    static constexpr std::uint32_t kCutOffPalette =
        kHeaderSize + layout::kFixedBank * kBankSize + 0xFC;

private:
    static constexpr std::uint16_t kRisingPalette = 0xA800;
    static constexpr std::uint16_t kFallingPalette = 0xA820;

    static Bytes tiles()
    {
        Bytes block;
        for (int tile = 0; tile < 4; ++tile) {
            block.insert(block.end(), 8, 0xF0);
            block.insert(block.end(), 8, 0x00);
        }
        return block;
    }
};

// A state with this game, on the room of one screen.
class PaletteGameTest : public testing::Test {
protected:
    PaletteGameTest() { game.loadInto(state); }

    static constexpr Pixel colour(std::uint32_t number) { return PaletteRom::colour(number); }
    Bytes image() const { return {state.rom.bytes().begin(), state.rom.bytes().end()}; }
    // The image as it was loaded, but for one byte.
    Bytes loadedExcept(std::uint32_t offset, std::uint8_t value) const
    {
        Bytes bytes = game.bytes;
        bytes.at(offset) = value;
        return bytes;
    }

    PaletteRom game;
    EditorState state;
};

} // namespace velko::test
