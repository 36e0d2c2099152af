#pragma once

#include "state/editor_state.h"
#include "tests/support/test_rom.h"

#include <gtest/gtest.h>

namespace velko::test {

// A game of six rooms, with four entrances and four exits each, all bytes 0. Its screens are of
// one colour each and stand like the fields of a chess board, kEven in the corner. Door pictures
// are of 16 x 16 pixels and of one colour each.
class DoorTest : public testing::Test {
protected:
    static constexpr std::uint8_t kLarge = 0; // 4 x 3 screens, 1024 x 720 pixels
    static constexpr std::uint8_t kOneScreen = 1;
    static constexpr std::uint8_t kHuge = 2;     // 253 x 255 screens
    static constexpr std::uint8_t kNoLayout = 3; // stored as 0 x 0
    static constexpr std::uint8_t kWide = 4;     // 4 x 1 screens

    static constexpr std::uint32_t kScreenTable = 0x3800; // file offsets of the tables
    static constexpr std::uint32_t kBlockTable = 0x3900;
    static constexpr std::uint32_t kExitRoomTable = 0x3A00;
    static constexpr std::uint32_t kExitEntranceTable = 0x3B00;

    static constexpr Pixel kEven = TestRom::colour(3);
    static constexpr Pixel kOdd = TestRom::colour(7);
    static constexpr std::array<Pixel, 4> kDoors = {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00};

    DoorTest()
    {
        game.config.setValue(MiscField::ptrEntranceScreen, kScreenTable);
        game.config.setValue(MiscField::ptrEntranceBlock, kBlockTable);
        game.config.setValue(MiscField::ptrExitRoom, kExitRoomTable);
        game.config.setValue(MiscField::ptrExitEntrance, kExitEntranceTable);
        game.config.setValue(MiscField::roomEntrances, 4);
        game.config.setValue(MiscField::roomExits, 4);

        game.setBackgroundBlock(0, 0, Bytes(64, 0xFF)); // solid tiles of value 3
        game.setTile32(0, {{0, 0, 0, 0, 0x00}, {0, 0, 0, 0, 0x55}});
        game.setPalette(0, {0, 1, 2, 3, 4, 5, 6, 7});
        game.setScreenList(0, {layout::kFirstScreen, game.addScreen(Bytes(64, 1))});
        for (std::uint32_t room = 1; room < 6; ++room)
            game.shareAll(room, 0);
        game.setLayout(kLarge, 4, 3, {0, 1, 0, 1, 1, 0, 1, 0, 0, 1, 0, 1});
        game.setStoredSize(kHuge, 255, 255);
        game.setStoredSize(kNoLayout, 0, 0);
        game.setLayout(kWide, 4, 1, {0, 1, 0, 1});
        for (std::size_t i = 0; i < kDoors.size(); ++i)
            state.resources.doorBitmaps[i] = PixelImage(16, 16, kDoors[i]);
        load();
    }
    // For a test that changed `game`.
    void load() { game.loadInto(state); }

    // Sets the bytes of an entrance in `game`.
    void setEntrance(std::uint8_t room, std::uint32_t slot, std::uint8_t screen, std::uint8_t block)
    {
        game.bytes.at(kScreenTable + room * 4U + slot) = screen;
        game.bytes.at(kBlockTable + room * 4U + slot) = block;
    }
    void setExit(std::uint8_t room, std::uint32_t slot, std::uint8_t target, std::uint8_t entrance)
    {
        game.bytes.at(kExitRoomTable + room * 4U + slot) = target;
        game.bytes.at(kExitEntranceTable + room * 4U + slot) = entrance;
    }

    Bytes image() const { return {state.rom.bytes().begin(), state.rom.bytes().end()}; }
    // The image as it was loaded, but for one byte, or for an entrance.
    Bytes loadedExcept(std::uint32_t offset, std::uint8_t value) const
    {
        Bytes bytes = game.bytes;
        bytes.at(offset) = value;
        return bytes;
    }
    Bytes loadedWithEntrance(std::uint32_t index, std::uint8_t screen, std::uint8_t block) const
    {
        Bytes bytes = loadedExcept(kScreenTable + index, screen);
        bytes.at(kBlockTable + index) = block;
        return bytes;
    }

    TestRom game{6};
    EditorState state;
};

} // namespace velko::test
