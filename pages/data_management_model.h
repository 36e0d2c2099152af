#pragma once

#include "rom/user_prompt.h"
#include "state/editor_state.h"
#include "store/block_operations.h"

#include <array>
#include <cstdint>
#include <string>

namespace velko {

// Where the blocks of the current room are, who shares them and how much space their regions
// have, and the operations on whole blocks, for each of five kinds of data. All state is in the
// image and the handlers: after a command, everything is to be shown anew.
//
// Commands on tile loading also rebuild the room's pattern memory. Room (B) is the line chosen in
// a list of rooms; none (-1) is the table entry before room 0, which nothing guards against.
class DataManagementModel {
public:
    struct Row {
        RoomDataKind kind;
        const char* caption; // of the row's group box
    };
    // In the order of the page.
    static constexpr std::array<Row, kRoomDataKinds> kRows = {{
        {RoomDataKind::kMapAlloc, " Map allocation "},
        {RoomDataKind::kMapLayout, " Map layout"},
        {RoomDataKind::kTile32, " 32x32 Tile data"},
        {RoomDataKind::kTileLoad, " Tile Allocation"},
        {RoomDataKind::kPalette, " Palette "},
    }};

    DataManagementModel(EditorState& state, UserPrompt& prompt);

    // "a3f0"
    std::string pointerText(RoomDataKind kind) const;
    // As typed: the low 16 bits become the room's pointer, whatever they are.
    void setPointer(RoomDataKind kind, std::uint32_t cpuAddress);

    struct Sharing {
        std::string answer; // "Yes" or "No"
        std::string rooms;  // "(3, 1a)", "()" when no other room has the pointer
    };
    Sharing sharing(RoomDataKind kind) const;
    // "0x12c"; "0xffffffff" where it is not known.
    std::string freeSpaceText(RoomDataKind kind) const;

    // Returns false, changing nothing, without enough free space, which is told.
    bool allocateUniqueData(RoomDataKind kind);
    void deleteData(RoomDataKind kind);
    void setPointerToRoom(RoomDataKind kind, int roomB);
    CloneResult cloneDataOfRoom(RoomDataKind kind, int roomB);
    void deleteUnusedData(RoomDataKind kind);
    void joinIdenticalData(RoomDataKind kind);

private:
    PointerArrayHandler& handler(RoomDataKind kind) const;
    BlockOperations operations(RoomDataKind kind);
    void rebuildTiles(RoomDataKind kind);

    EditorState& m_state;
    UserPrompt& m_prompt;
};

} // namespace velko
