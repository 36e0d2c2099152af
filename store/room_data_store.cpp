#include "store/room_data_store.h"

#include "store/block_lengths.h"
#include "store/free_space.h"

#include <algorithm>

namespace velko {

namespace {

// The type-2 table holds two entries behind those of the rooms (the overworld's loads).
constexpr std::uint32_t kExtraTileLoadType2Entries = 2;

void setFreeSpaceFromEnd(PointerArrayHandler& handler, std::int32_t end)
{
    handler.setFreeSpace(handler.descriptor().dEdge - end);
}

void computeFixedLength(PointerArrayHandler& handler, std::uint32_t rooms, std::uint32_t length)
{
    setFreeSpaceFromEnd(handler, fixedLengthEnd(findLastBlock(handler, rooms), length));
}

} // namespace

RoomDataStore::RoomDataStore(RomImage& rom)
    : pahMapAlloc(rom)
    , pahMapLayout(rom)
    , pahPal(rom)
    , pahTileLoad(rom)
    , pahTile32(rom)
    , pahUnit(rom)
    , pahTileLoadType2(rom)
    , pahMapAreaMovement(rom)
{
}

std::array<PointerArrayHandler*, 7> RoomDataStore::levelHandlers()
{
    return {&pahMapAlloc, &pahMapLayout, &pahPal,          &pahTileLoad,
            &pahTile32,   &pahUnit,      &pahTileLoadType2};
}

void RoomDataStore::configure(const GameConfig& config)
{
    pahMapAlloc.setDescriptor(config.pahMapAlloc);
    pahMapLayout.setDescriptor(config.pahMapLayout);
    pahPal.setDescriptor(config.pahPal);
    pahTileLoad.setDescriptor(config.pahTileLoad);
    pahTile32.setDescriptor(config.pahTile32);
    pahUnit.setDescriptor(config.pahUnit);
    pahTileLoadType2.setDescriptor(config.pahTileLoadType2);
    pahMapAreaMovement.setDescriptor(config.pahMapAreaMovement);
}

void RoomDataStore::selectRoom(std::uint32_t room)
{
    for (PointerArrayHandler* handler : levelHandlers())
        handler->selectRoom(room);
}

void RoomDataStore::computeFreeSpace(std::uint32_t rooms)
{
    rooms = std::min(rooms, kMostRooms);

    const LastBlock lastMapAlloc = findLastBlock(pahMapAlloc, rooms);
    pahMapAlloc.selectRoom(lastMapAlloc.room);
    setFreeSpaceFromEnd(pahMapAlloc, mapAllocEnd(pahMapAlloc, lastMapAlloc));

    const LastBlock lastMapLayout = findLastMapLayoutBlock(pahMapLayout, rooms);
    setFreeSpaceFromEnd(pahMapLayout, mapLayoutEnd(pahMapLayout, lastMapLayout));

    computeFixedLength(pahPal, rooms, kPaletteLength);

    const LastBlock lastTileLoadType2 =
        findLastBlock(pahTileLoadType2, rooms + kExtraTileLoadType2Entries);
    setFreeSpaceFromEnd(pahTileLoadType2, tileLoadType2End(pahTileLoadType2, lastTileLoadType2));

    setFreeSpaceFromEnd(pahUnit, unitEnd(pahUnit, findLastBlock(pahUnit, rooms)));

    computeFixedLength(pahTileLoad, rooms, kTileLoadLength);
    computeFixedLength(pahTile32, rooms, kTile32Length);
}

} // namespace velko
