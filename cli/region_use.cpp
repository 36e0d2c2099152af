#include "cli/region_use.h"

#include "pages/unit_list.h"
#include "store/block_kinds.h"
#include "store/block_lengths.h"
#include "store/length_table.h"
#include "tools/area_movement.h"

#include <algorithm>
#include <functional>

namespace velko {

namespace {

// How long the block of an entry is; 0 means that it has none.
using LengthRule = std::function<std::uint32_t(std::uint32_t entry)>;

LengthRule lengthOf(const PointerArrayHandler& handler, RoomDataKind kind)
{
    LengthTable lengths(handler, blockKind(kind));
    lengths.refresh();
    return [lengths](std::uint32_t entry) { return lengths.of(entry); };
}

// Up to the byte that ends it, in steps of `step`. A list without an end is `longest` bytes.
std::uint32_t listLength(const PointerArrayHandler& handler, std::uint32_t entry,
                         std::uint32_t step, std::uint8_t lowestEnd, std::uint32_t longest)
{
    std::uint32_t bytes = 0;
    while (bytes < longest && handler.dataByte(bytes, entry) < lowestEnd)
        bytes += step;
    return bytes < longest ? bytes + 1 : longest;
}

LengthRule unitListLength(const PointerArrayHandler& units)
{
    return [&units](std::uint32_t entry) {
        return listLength(units, entry, UnitRecord::kBytes, UnitList::kEnd,
                          UnitList::kMostUnits * UnitRecord::kBytes);
    };
}

// The game stops at any byte from $80 on.
LengthRule loadListLength(const PointerArrayHandler& loads)
{
    return [&loads](std::uint32_t entry) {
        return listLength(loads, entry, 1, 0x80, kLongestTileLoadType2);
    };
}

LengthRule areaMovementLength(const PointerArrayHandler& movement)
{
    return [&movement](std::uint32_t entry) { return movement.dataByte(0, entry) + 2U; };
}

void countBytes(RegionUse& use)
{
    std::uint32_t end = use.blocks.empty() ? 0 : use.blocks.begin()->first;
    for (const auto& [start, block] : use.blocks) {
        if (start > end)
            use.unusedBytes += start - end;
        const std::uint32_t blockEnd = start + block.length;
        if (blockEnd > end)
            use.usedBytes += blockEnd - std::max<std::uint32_t>(start, end);
        end = std::max(end, blockEnd);
    }
}

RegionUse useOf(std::string_view key, const PointerArrayHandler& handler, std::uint32_t users,
                const LengthRule& length)
{
    RegionUse use;
    use.key = key;
    use.tableOffset = handler.entryFileOffset(0);
    use.entries = static_cast<std::uint32_t>(std::max(handler.entryCount(), 0));
    use.freeBytes = handler.freeSpace();
    use.entriesPassed = std::min(std::max(use.entries, users), kMostEntries);
    for (std::uint32_t entry = 0; entry < use.entriesPassed; ++entry) {
        const std::uint32_t bytes = length(entry);
        if (bytes == 0)
            continue;
        RegionBlock& block = use.blocks[handler.pointerOf(entry)];
        block.length = std::max(block.length, bytes);
        block.entries.push_back(entry);
    }
    countBytes(use);
    return use;
}

} // namespace

std::uint32_t RegionUse::sharedBlocks() const
{
    return static_cast<std::uint32_t>(std::ranges::count_if(
        blocks, [](const auto& block) { return block.second.entries.size() > 1; }));
}

std::vector<RegionUse> regionUses(EditorState& state)
{
    RoomDataStore& store = state.store;
    const std::uint32_t rooms = state.config.roomCount();
    const auto ofKind = [&](std::string_view key, RoomDataKind kind) {
        const PointerArrayHandler& handler = store.*blockKind(kind).handler;
        return useOf(key, handler, rooms, lengthOf(handler, kind));
    };
    AreaMovement(store.pahMapAreaMovement).open();
    return {
        ofKind("pahMapAlloc", RoomDataKind::kMapAlloc),
        ofKind("pahMapLayout", RoomDataKind::kMapLayout),
        ofKind("pahTile32", RoomDataKind::kTile32),
        ofKind("pahTileLoad", RoomDataKind::kTileLoad),
        ofKind("pahPal", RoomDataKind::kPalette),
        useOf("pahUnit", store.pahUnit, rooms, unitListLength(store.pahUnit)),
        useOf("pahTileLoadType2", store.pahTileLoadType2, rooms,
              loadListLength(store.pahTileLoadType2)),
        useOf("pahMapAreaMovement", store.pahMapAreaMovement, 0,
              areaMovementLength(store.pahMapAreaMovement)),
    };
}

} // namespace velko
