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
struct CheckRom : TestRom {
    // File offsets of the door tables, four slots per room.
    static constexpr std::uint32_t kEntranceScreens = kHeaderSize + 0x3400;
    static constexpr std::uint32_t kEntranceBlocks = kHeaderSize + 0x3420;
    static constexpr std::uint32_t kExitRooms = kHeaderSize + 0x3440;
    static constexpr std::uint32_t kExitEntrances = kHeaderSize + 0x3460;

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
};

// A finding in one line: "overlapping-blocks 3 6020 The palette ..."; "-" without a room.
inline std::string lineOf(const Finding& finding)
{
    const auto hex = [](std::uint32_t value) {
        std::ostringstream text;
        text << std::hex << value;
        return text.str();
    };
    return std::string(codeOf(finding.kind)) + " " + (finding.room ? hex(*finding.room) : "-") + " "
        + hex(finding.fileOffset) + " " + finding.text;
}

inline std::vector<std::string> linesOf(const Findings& findings)
{
    std::vector<std::string> lines;
    for (const Finding& finding : findings)
        lines.push_back(lineOf(finding));
    return lines;
}

} // namespace velko::test
