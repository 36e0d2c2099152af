#pragma once

#include "check/rom_check.h"
#include "tests/support/test_rom.h"

#include <sstream>
#include <string>
#include <vector>

namespace velko::test {

// A game of four rooms that nothing is wrong with: all share their blocks, exit 0 of each leads to
// the next, and their other exits to entrance 0 of room 0. Unit types 0 to 143 have names but for
// 7 and 8.
//
// The overworld lies in bank 0, where $A000 is 0x2010 in the file: areas 0 to 2 with their movement
// lists at $A10A, $A100 and $A104, and two trucks; their pattern sets 0 to 2 start at $A210, $A212
// and $A214.
struct CheckRom : TestRom {
    // File offsets of the door tables, four slots per room.
    static constexpr std::uint32_t kEntranceScreens = kHeaderSize + 0x3400;
    static constexpr std::uint32_t kEntranceBlocks = kHeaderSize + 0x3420;
    static constexpr std::uint32_t kExitRooms = kHeaderSize + 0x3440;
    static constexpr std::uint32_t kExitEntrances = kHeaderSize + 0x3460;
    // Of the overworld, in bank 0: byte 0 of the first movement list, the patterns' table and
    // their first phase, and where trucks start.
    static constexpr std::uint32_t kMovementLists = kHeaderSize + 0x2100;
    static constexpr std::uint32_t kPatternPointers = kHeaderSize + 0x2200;
    static constexpr std::uint32_t kPatterns = kHeaderSize + 0x2210;
    static constexpr std::uint32_t kTruckStarts = kHeaderSize + 0x2300;

    CheckRom() : TestRom(4)
    {
        config.setValue(MiscField::roomEntrances, 4);
        config.setValue(MiscField::roomExits, 4);
        config.setValue(MiscField::ptrEntranceScreen, kEntranceScreens);
        config.setValue(MiscField::ptrEntranceBlock, kEntranceBlocks);
        config.setValue(MiscField::ptrExitRoom, kExitRooms);
        config.setValue(MiscField::ptrExitEntrance, kExitEntrances);
        for (std::uint8_t room = 0; room < 4; ++room) {
            bytes[kEntranceScreens + 4U * room] = 0x10;
            bytes[kExitRooms + 4U * room] = static_cast<std::uint8_t>((room + 1) % 4);
        }
        // The entries behind those of the rooms.
        setPointer(&GameConfig::pahTileLoadType2, 4, 0xB800);
        setPointer(&GameConfig::pahTileLoadType2, 5, 0xB800);
        addAreas();
        addTrucks();
    }

    Findings check() const
    {
        EditorState state;
        loadInto(state);
        for (std::size_t type = 0; type < state.names.units.size(); ++type)
            state.names.units[type] = "Unit " + std::to_string(type);
        state.names.units[7] = "7 : ?? "; // what a list without such a line is filled with
        state.names.units[8] = "";
        return checkRom(state);
    }

private:
    void addAreas()
    {
        PointerArrayDescriptor& table = config.pahMapAreaMovement;
        table.dBank = {layout::kTableBank, layout::kFixedBank};
        table.pBank = layout::kTableBank;
        table.pMemStart = 0xA000;
        table.pMemEdge = 0xA006;
        table.dEdge = 0xA120;
        config.setValue(MiscField::areas, 2);
        setPointer(&GameConfig::pahMapAreaMovement, 0, 0xA10A); // the one stored last
        setPointer(&GameConfig::pahMapAreaMovement, 1, 0xA100);
        setPointer(&GameConfig::pahMapAreaMovement, 2, 0xA104);
        write(kMovementLists, {2, 0, 0x01, 0x02, 4, 0, 0x23, 0x01, 0x45, 0x02, 2, 0, 0x67, 0x01});
    }
    void addTrucks()
    {
        config.setValue(MiscField::bpahTruckMovement_bank, layout::kTableBank);
        config.setValue(MiscField::bpahTruckMovement_pMemStart, 0xA200);
        config.setValue(MiscField::bpahTruckMovement_pMemEdge, 0xA203);
        config.setValue(MiscField::bpahTruckMovement_dMemStart, 0xA210);
        config.setValue(MiscField::bpahTruckMovement_dMemEdge, 0xA220);
        config.setValue(MiscField::ptrMapTruckInit, kTruckStarts);
        config.setValue(MiscField::numOfMapTrucks, 2);
        write(kPatternPointers, {0, 2, 4});
        write(kPatterns, {0x01, 0x82, 0x03, 0x84, 0x87});
        write(kTruckStarts, {0x00, 0x12});
    }
};

// A finding in one line: "overlapping-blocks 3 6020 The palette ..."; "area:3" instead of a room,
// or "-".
inline std::string lineOf(const Finding& finding)
{
    const auto hex = [](std::uint32_t value) {
        std::ostringstream text;
        text << std::hex << value;
        return text.str();
    };
    const std::string owner = finding.room ? hex(*finding.room)
        : finding.area                     ? "area:" + hex(*finding.area)
                                           : "-";
    return std::string(codeOf(finding.kind)) + " " + owner + " " + hex(finding.fileOffset) + " "
        + finding.text;
}

inline std::vector<std::string> linesOf(const Findings& findings)
{
    std::vector<std::string> lines;
    for (const Finding& finding : findings)
        lines.push_back(lineOf(finding));
    return lines;
}

} // namespace velko::test
