#include "check/check_families.h"
#include "check/missing_places.h"
#include "gfx/graphics_state.h"
#include "pages/unit_list.h"
#include "pages/vram_load_list.h"
#include "rom/number_text.h"
#include "store/file_offsets.h"

#include <algorithm>
#include <bitset>
#include <map>
#include <unordered_set>

namespace velko {

namespace {

// How often a type stands in a list, and where first.
struct TypeUse {
    std::uint32_t count = 0;
    std::uint32_t first = 0; // record
};

// Lists that rooms share are looked at once, for the first of them.
void checkUnitTypes(const EditorState& state, Findings& findings)
{
    PointerArrayHandler handler = state.store.pahUnit; // of our own, to be pointed at any room
    std::unordered_set<std::uint16_t> seen;
    for (std::uint32_t room = 0; room < state.config.roomCount(); ++room) {
        handler.selectRoom(room);
        if (!entryLiesInFile(state.rom, handler, room))
            continue;
        if (!seen.insert(handler.pointerOf()).second)
            continue;
        std::map<std::uint8_t, TypeUse> unnamed;
        const std::uint32_t count = UnitList(handler).count();
        if (handler.pointerOf() + count * UnitRecord::kBytes >= handler.descriptor().dEdge)
            continue; // it has no end mark, and what it runs through are no units
        if (!blockLiesInFile(state.rom, handler, handler.pointerOf(),
                             count * UnitRecord::kBytes + 1))
            continue;
        for (std::uint32_t i = 0; i < count; ++i) {
            const std::uint8_t type = handler.dataByte(i * UnitRecord::kBytes);
            if (state.names.hasUnitName(type))
                continue;
            TypeUse& use = unnamed.try_emplace(type, TypeUse{0, i}).first->second;
            ++use.count;
        }
        for (const auto& [type, use] : unnamed) {
            const std::uint16_t place = handler.pointerOf(room, use.first * UnitRecord::kBytes);
            findings.push_back({FindingKind::kUnnamedUnitType, room, handler.dataFileOffset(place),
                                "Unit " + hexText(use.first) + " is of type " + hexText(type)
                                    + ", which has no name" + suchText(use.count, "unit") + "."});
        }
    }
}

// Each record once, for the first entry whose list has it. The table goes on behind the rooms.
void checkLoads(const EditorState& state, Findings& findings)
{
    PointerArrayHandler handler = state.store.pahTileLoadType2;
    std::bitset<256> seen;
    std::unordered_set<std::uint16_t> seenLists;
    MissingPlaces missing("record");
    const auto entries = static_cast<std::uint32_t>(std::max(handler.entryCount(), 0));
    for (std::uint32_t entry = 0; entry < entries; ++entry) {
        handler.selectRoom(entry);
        if (!entryLiesInFile(state.rom, handler, entry))
            continue;
        if (!seenLists.insert(handler.pointerOf()).second)
            continue;
        const VramLoadList list(handler);
        const std::uint32_t count = list.shownCount();
        if (!blockLiesInFile(state.rom, handler, handler.pointerOf(), count + 1))
            continue;
        for (std::uint32_t i = 0; i < count; ++i) {
            const std::uint8_t id = list.id(i);
            if (seen.test(id))
                continue;
            seen.set(id);
            const std::uint32_t place = state.graphics.loadRecordOffset(id);
            if (!liesInFile(state.rom, neighbours(place, kLoadRecordBytes))) {
                missing.add(entry, place, "Load record " + hexText(id) + " ends");
                continue;
            }
            const LoadRecord record = state.graphics.loadRecord(id);
            if (record.length == 0 || record.destination + record.length <= kPatternMemorySize)
                continue;
            findings.push_back({FindingKind::kLoadPastPatternMemory, entry, place,
                                "Load record " + hexText(id) + " fills "
                                    + addressText(record.destination) + " to "
                                    + addressText(record.destination + record.length - 1)
                                    + ", past the end of pattern memory, $2000."});
        }
    }
    missing.report(findings);
}

} // namespace

void checkUnits(const EditorState& state, Findings& findings)
{
    checkUnitTypes(state, findings);
    checkLoads(state, findings);
}

} // namespace velko
