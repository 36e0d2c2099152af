#include "pages/data_management_model.h"

#include "rom/number_text.h"

namespace velko {

DataManagementModel::DataManagementModel(EditorState& state, UserPrompt& prompt)
    : m_state(state), m_prompt(prompt)
{
}

PointerArrayHandler& DataManagementModel::handler(RoomDataKind kind) const
{
    return m_state.store.*blockKind(kind).handler;
}

BlockOperations DataManagementModel::operations(RoomDataKind kind)
{
    return BlockOperations(handler(kind), blockKind(kind), m_prompt);
}

// What the room's tiles look like depends on this kind of data alone.
void DataManagementModel::rebuildTiles(RoomDataKind kind)
{
    if (kind == RoomDataKind::kTileLoad)
        m_state.graphics.buildPatternMemory();
}

std::string DataManagementModel::pointerText(RoomDataKind kind) const
{
    return hexText(handler(kind).pointerOf());
}

void DataManagementModel::setPointer(RoomDataKind kind, std::uint32_t cpuAddress)
{
    handler(kind).setPointer(handler(kind).currentRoom(),
                             static_cast<std::uint16_t>(cpuAddress & 0xFFFF));
    rebuildTiles(kind);
}

DataManagementModel::Sharing DataManagementModel::sharing(RoomDataKind kind) const
{
    const PointerArrayHandler& blocks = handler(kind);
    std::string rooms;
    for (std::uint32_t room = 0; room < m_state.config.roomCount(); ++room) {
        if (room != m_state.currentRoom() && blocks.pointerOf(room) == blocks.pointerOf())
            rooms += (rooms.empty() ? "" : ", ") + hexText(room);
    }
    return {rooms.empty() ? "No" : "Yes", "(" + rooms + ")"};
}

std::string DataManagementModel::freeSpaceText(RoomDataKind kind) const
{
    return "0x" + hexText(static_cast<std::uint32_t>(handler(kind).freeSpace()));
}

bool DataManagementModel::allocateUniqueData(RoomDataKind kind)
{
    const std::uint32_t firstScreen = m_state.config.value(MiscField::mapAllocDataStart);
    if (!operations(kind).allocateUniqueData(newBlock(kind, firstScreen)))
        return false;
    rebuildTiles(kind);
    return true;
}

void DataManagementModel::deleteData(RoomDataKind kind)
{
    operations(kind).deleteData();
    rebuildTiles(kind);
}

void DataManagementModel::setPointerToRoom(RoomDataKind kind, int roomB)
{
    operations(kind).setPointerToRoom(static_cast<std::uint32_t>(roomB));
    rebuildTiles(kind);
}

CloneResult DataManagementModel::cloneDataOfRoom(RoomDataKind kind, int roomB)
{
    const CloneResult result = operations(kind).cloneDataOfRoom(static_cast<std::uint32_t>(roomB));
    rebuildTiles(kind);
    return result;
}

void DataManagementModel::deleteUnusedData(RoomDataKind kind)
{
    operations(kind).deleteUnusedData();
}

void DataManagementModel::joinIdenticalData(RoomDataKind kind)
{
    operations(kind).joinIdenticalData(m_state.names.rooms);
}

} // namespace velko
