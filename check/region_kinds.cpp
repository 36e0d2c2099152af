#include "check/region_kinds.h"

#include "pages/unit_list.h"
#include "pages/vram_load_list.h"
#include "store/block_kinds.h"
#include "store/block_lengths.h"
#include "tools/area_movement.h"

namespace velko {

namespace {

// Lists are walked through a handler of their own, which can be pointed at any entry.
BlockLength unitListLength(PointerArrayHandler units, std::uint32_t entry)
{
    units.selectRoom(entry);
    const std::uint32_t count = UnitList(units).count();
    const std::uint32_t records = count * UnitRecord::kBytes;
    return count < UnitList::kMostUnits ? BlockLength{records + 1} : BlockLength{records, false};
}

// As the game reads it: any byte from $80 on ends the list.
BlockLength loadListLength(PointerArrayHandler loads, std::uint32_t entry)
{
    loads.selectRoom(entry);
    const std::uint32_t count = VramLoadList(loads).shownCount();
    return count < kLongestTileLoadType2 ? BlockLength{count + 1} : BlockLength{count, false};
}

BlockLength areaMovementLength(PointerArrayHandler movement, std::uint32_t entry)
{
    return {movement.dataByte(0, entry) + AreaMovement::kHeadBytes};
}

} // namespace

const std::array<RegionKind, kRegionKinds> kRegionKindTable = {{
    {"pahMapAlloc", "screen list", "screen lists", &RoomDataStore::pahMapAlloc,
     &GameConfig::pahMapAlloc, true, BlockOwner::kRoom},
    {"pahMapLayout", "map layout", "map layouts", &RoomDataStore::pahMapLayout,
     &GameConfig::pahMapLayout, false, BlockOwner::kRoom},
    {"pahTile32", "Tile32 set", "Tile32 sets", &RoomDataStore::pahTile32, &GameConfig::pahTile32,
     false, BlockOwner::kRoom},
    {"pahTileLoad", "tile allocation", "tile allocations", &RoomDataStore::pahTileLoad,
     &GameConfig::pahTileLoad, false, BlockOwner::kRoom},
    {"pahPal", "palette", "palettes", &RoomDataStore::pahPal, &GameConfig::pahPal, false,
     BlockOwner::kRoom},
    {"pahUnit", "unit list", "unit lists", &RoomDataStore::pahUnit, &GameConfig::pahUnit, true,
     BlockOwner::kRoom},
    {"pahTileLoadType2", "sprite load list", "sprite load lists", &RoomDataStore::pahTileLoadType2,
     &GameConfig::pahTileLoadType2, true, BlockOwner::kRoom},
    {"pahMapAreaMovement", "movement list", "movement lists", &RoomDataStore::pahMapAreaMovement,
     &GameConfig::pahMapAreaMovement, false, BlockOwner::kArea},
}};
const RegionKind& kAreaMovementKind = kRegionKindTable.back();

BlockLengths::BlockLengths(const PointerArrayHandler& handler, const RegionKind& kind)
    : m_handler(handler)
{
    if (kind.handler == &RoomDataStore::pahUnit)
        m_rule = unitListLength;
    else if (kind.handler == &RoomDataStore::pahTileLoadType2)
        m_rule = loadListLength;
    else if (kind.handler == &RoomDataStore::pahMapAreaMovement)
        m_rule = areaMovementLength;
    for (const BlockKind& blocks : kBlockKinds) {
        if (blocks.handler != kind.handler)
            continue;
        m_table.emplace(handler, blocks);
        m_table->refresh();
    }
}

BlockLength BlockLengths::of(std::uint32_t entry, std::uint16_t pointer)
{
    if (m_table)
        return {m_table->of(entry, pointer)};
    const auto [known, isNew] = m_known.try_emplace(pointer);
    if (isNew)
        known->second = m_rule(m_handler, entry);
    return known->second;
}

} // namespace velko
