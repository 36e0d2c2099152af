#pragma once

#include "state/editor_state.h"
#include "tests/support/test_rom.h"

#include <gtest/gtest.h>

namespace velko::test {

// Where OverworldRom keeps things: CPU addresses of bank 10, then file offsets.
namespace overworld {
inline constexpr std::uint8_t kBank = 10;
constexpr std::uint32_t at(std::uint16_t cpuAddress)
{
    return cpuToFileOffset({kBank, layout::kFixedBank}, cpuAddress);
}
inline constexpr std::uint32_t kMovementTable = at(0x8000);
inline constexpr std::uint32_t kMovement = at(0x8100);
inline constexpr std::uint32_t kTiles = at(0x8200);
inline constexpr std::uint32_t kAttributes = at(0x8400);
inline constexpr std::uint32_t kPalettes = at(0x8440);
inline constexpr std::uint32_t kAreas = at(0x8460);
inline constexpr std::uint32_t kTrucks = at(0x8490);
inline constexpr std::uint32_t kPreviews = at(0x84A0);
inline constexpr std::uint32_t kQuads = at(0x8500);
inline constexpr std::uint32_t kPatternTable = at(0x8600);
inline constexpr std::uint32_t kPatterns = at(0x8610);
} // namespace overworld

// A small overworld of three areas, three trucks and four movement patterns, in bank 10.
//
//     area  position   movement block                 stored at
//     0     (64, 72)   02 99 DE F0                    $810A, the highest
//     1     (128, 72)  04 77 12 34 56 78              $8100
//     2     (64, 120)  02 88 9A BC                    $8106
//
// A fourth table entry, of no area, points at area 0's block too. Ten bytes are free.
//
//     pattern set  starts at  phases             truck  pattern set  starting area
//     0            0          00 01 82           0      0            0
//     1            3          84                 1      1            1
//     2            4          06 87              2      2            2
//     3            6          03 85
//
// Four bytes are free. Map tiles, attributes and palettes are 0.
struct OverworldRom : TestRom {
    OverworldRom()
    {
        config.pahMapAreaMovement = {.dBank = {overworld::kBank, layout::kFixedBank},
                                     .pBank = overworld::kBank,
                                     .pMemStart = 0x8000,
                                     .pMemEdge = 0x8008,
                                     .dEdge = 0x8118};
        config.setValue(MiscField::areas, 2);
        config.setValue(MiscField::ptrMapAreaXY, overworld::kAreas);
        config.setValue(MiscField::ptrMapTruckInit, overworld::kTrucks);
        config.setValue(MiscField::numOfMapTrucks, 3);
        config.setValue(MiscField::ptrMapPalette, overworld::kPalettes);
        config.setValue(MiscField::ptrMapTileMap, overworld::kTiles);
        config.setValue(MiscField::ptrMapPathPreviewSpriteAddr, overworld::kPreviews);
        config.setValue(MiscField::ptrMapQuadSpriteTable, overworld::kQuads);
        config.setValue(MiscField::ptrMapAttributeTable, overworld::kAttributes);
        config.setValue(MiscField::bpahTruckMovement_bank, overworld::kBank);
        config.setValue(MiscField::bpahTruckMovement_dMemStart, 0x8610);
        config.setValue(MiscField::bpahTruckMovement_dMemEdge, 0x861C);
        config.setValue(MiscField::bpahTruckMovement_pMemStart, 0x8600);
        config.setValue(MiscField::bpahTruckMovement_pMemEdge, 0x8604);

        write(overworld::kMovementTable, {0x0A, 0x81, 0x00, 0x81, 0x06, 0x81, 0x0A, 0x81});
        write(overworld::kMovement,
              {4, 0x77, 0x12, 0x34, 0x56, 0x78, 2, 0x88, 0x9A, 0xBC, 2, 0x99, 0xDE, 0xF0});
        write(overworld::kAreas, {64, 72, 128, 72, 64, 120});
        write(overworld::kTrucks, {0x00, 0x11, 0x22});
        write(overworld::kPatternTable, {0, 3, 4, 6});
        write(overworld::kPatterns, {0x00, 0x01, 0x82, 0x84, 0x06, 0x87, 0x03, 0x85});
    }
};

// A state with this game. Change `game` and call start() again for another one.
class OverworldTest : public testing::Test {
protected:
    OverworldTest() { start(); }
    void start() { game.loadInto(state); }

    Bytes image() const { return {state.rom.bytes().begin(), state.rom.bytes().end()}; }
    Bytes bytesAt(std::uint32_t fileOffset, std::uint32_t count) const
    {
        Bytes bytes(count);
        state.rom.readBlock(fileOffset, bytes);
        return bytes;
    }
    // The image as it was loaded, but for some bytes in a row.
    Bytes loadedExcept(std::uint32_t offset, const Bytes& values) const
    {
        Bytes bytes = game.bytes;
        std::copy(values.begin(), values.end(), bytes.begin() + offset);
        return bytes;
    }
    void setValue(MiscField field, std::uint32_t value) { state.config.setValue(field, value); }

    OverworldRom game;
    EditorState state;
};

} // namespace velko::test
