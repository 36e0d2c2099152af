#pragma once

#include "state/editor_state.h"
#include "tests/support/test_rom.h"

#include <gtest/gtest.h>
#include <string>

namespace velko::test {

// A game of 48 rooms whose chambers are the rooms 37 to 44. Room r plays music r + 100. Chamber 37
// holds item 7 with address $B0C1, chamber 44 item 25 with $1234; chamber 40 holds nothing,
// chamber 41 item 26, which has no name, and the others item 0 with address 0. Item i belongs to
// address $9000 + i. Music, items and rooms have names.
class RoomSettingsTest : public testing::Test {
protected:
    static constexpr std::uint32_t kMusic = 0x3800; // file offsets
    static constexpr std::uint32_t kItem = 0x3900;
    static constexpr std::uint32_t kAddress = 0x3A00;
    static constexpr std::uint8_t kFirst = 37;
    static constexpr std::uint8_t kLast = 44;
    static constexpr std::uint8_t kEmpty = 40;
    static constexpr std::uint8_t kUnlisted = 41;

    RoomSettingsTest()
    {
        game.config.setValue(MiscField::ptrRoomMusic, kMusic);
        game.config.setValue(MiscField::ptrNA_ChamberItem, kItem);
        game.config.setValue(MiscField::ptrNA_ChItemAddress, kAddress);
        game.config.setValue(MiscField::areaFirstNAchamber, kFirst);
        game.config.setValue(MiscField::areaLastNAchamber, kLast);
        for (std::uint8_t room = 0; room < 48; ++room)
            game.bytes[kMusic + room] = static_cast<std::uint8_t>(room + 100);
        game.write(kItem, {7, 0, 0, 0xFF, 26, 0, 0, 25, 0xEE});
        game.write(kAddress,
                   {0xC1, 0xB0, 0, 0, 0, 0, 0xFF, 0xFF, 0x78, 0x56, 0, 0, 0, 0, 0x34, 0x12, 0xEE});
        for (std::uint16_t i = 0; i < kItems; ++i)
            game.config.itemInGameSpriteAddress[i] = static_cast<std::uint16_t>(0x9000 + i);
        nameAll();
        load();
    }
    // For a test that changed `game`.
    void load() { game.loadInto(state); }

    void nameAll()
    {
        for (std::size_t i = 0; i < state.names.music.size(); ++i)
            state.names.music[i] = "Tune " + std::to_string(i);
        for (std::size_t i = 0; i < state.names.items.size(); ++i)
            state.names.items[i] = "Item " + std::to_string(i);
    }

    std::uint8_t byteAt(std::uint32_t offset) const { return state.rom.readByte(offset); }
    Bytes image() const { return {state.rom.bytes().begin(), state.rom.bytes().end()}; }
    // The image as it was loaded, but for some bytes that follow one another.
    Bytes loadedExcept(std::uint32_t offset, const Bytes& values) const
    {
        Bytes bytes = game.bytes;
        for (std::size_t i = 0; i < values.size(); ++i)
            bytes.at(offset + i) = values[i];
        return bytes;
    }

    TestRom game{48};
    EditorState state;
};

} // namespace velko::test
