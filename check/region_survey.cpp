#include "check/region_survey.h"

#include "pages/unit_list.h"
#include "pages/vram_load_list.h"
#include "store/block_kinds.h"
#include "store/block_lengths.h"
#include "store/length_table.h"
#include "store/screen_area.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace velko {

namespace {

constexpr std::uint32_t kEndless = 0x10000; // longer than any region
constexpr std::uint32_t kWindowStart = 0x8000;

// Lists are walked through a handler of their own, which can be pointed at any entry.
std::uint32_t unitListLength(PointerArrayHandler units, std::uint32_t entry)
{
    units.selectRoom(entry);
    const std::uint32_t count = UnitList(units).count();
    return count < UnitList::kMostUnits ? count * UnitRecord::kBytes + 1 : kEndless;
}

// As the game reads it: any byte from $80 on ends the list.
std::uint32_t loadListLength(PointerArrayHandler loads, std::uint32_t entry)
{
    loads.selectRoom(entry);
    const std::uint32_t count = VramLoadList(loads).shownCount();
    return count < kLongestTileLoadType2 ? count + 1 : kEndless;
}

// The length of any entry's block. A list may take thousands of steps, so those that entries share
// are walked once.
class Lengths {
public:
    Lengths(const PointerArrayHandler& handler, const RegionKind& kind) : m_handler(handler)
    {
        if (kind.handler == &RoomDataStore::pahUnit)
            m_listLength = unitListLength;
        else if (kind.handler == &RoomDataStore::pahTileLoadType2)
            m_listLength = loadListLength;
        for (const BlockKind& blocks : kBlockKinds) {
            if (blocks.handler == kind.handler)
                m_table.emplace(handler, blocks);
        }
    }

    std::uint32_t of(std::uint32_t entry, std::uint16_t pointer)
    {
        if (m_table)
            return m_table->of(entry, pointer);
        const auto [known, isNew] = m_known.try_emplace(pointer, 0);
        if (isNew)
            known->second = m_listLength(m_handler, entry);
        return known->second;
    }

private:
    const PointerArrayHandler& m_handler;
    std::uint32_t (*m_listLength)(PointerArrayHandler, std::uint32_t) = nullptr;
    std::optional<LengthTable> m_table;
    std::unordered_map<std::uint16_t, std::uint32_t> m_known;
};

// File offset of the last byte before an end address.
std::uint32_t lastByte(BankPair banks, std::uint32_t end)
{
    return cpuToFileOffset(banks, end - 1);
}

// File offsets of the last bytes of everything with a place that the module tells.
std::vector<std::uint32_t> lastBytes(const GameConfig& config)
{
    std::vector<std::uint32_t> offsets;
    for (const RegionKind& kind : kRegionKindTable) {
        const PointerArrayDescriptor& d = config.*kind.descriptor;
        offsets.push_back(lastByte(d.dBank, d.dEdge));
        // Both halves of a table's window lie one after the other in the file.
        const auto nextBank = static_cast<std::uint8_t>(d.pBank + 1);
        offsets.push_back(lastByte({d.pBank, nextBank}, d.pMemEdge));
    }
    const ScreenArea screens = ScreenArea::of(config);
    if (screens.count > 0)
        offsets.push_back(
            lastByte(config.phMapScreenData,
                     screens.addressOf(screens.count - 1) + ScreenArea::kScreenBytes));
    return offsets;
}

} // namespace

const std::array<RegionKind, kRegionKinds> kRegionKindTable = {{
    {"screen list", "screen lists", &RoomDataStore::pahMapAlloc, &GameConfig::pahMapAlloc, true},
    {"map layout", "map layouts", &RoomDataStore::pahMapLayout, &GameConfig::pahMapLayout, false},
    {"Tile32 set", "Tile32 sets", &RoomDataStore::pahTile32, &GameConfig::pahTile32, false},
    {"tile allocation", "tile allocations", &RoomDataStore::pahTileLoad, &GameConfig::pahTileLoad,
     false},
    {"palette", "palettes", &RoomDataStore::pahPal, &GameConfig::pahPal, false},
    {"unit list", "unit lists", &RoomDataStore::pahUnit, &GameConfig::pahUnit, true},
    {"sprite load list", "sprite load lists", &RoomDataStore::pahTileLoadType2,
     &GameConfig::pahTileLoadType2, true},
}};

std::vector<SurveyedBlock> surveyBlocks(const RoomDataStore& store, const RegionKind& kind,
                                        std::uint32_t rooms)
{
    const PointerArrayHandler& handler = store.*kind.handler;
    const auto tableEntries = static_cast<std::uint32_t>(std::max(handler.entryCount(), 0));
    const std::uint32_t entries = std::min(std::max(tableEntries, rooms), kMostSurveyedEntries);
    Lengths lengths(handler, kind);
    std::vector<SurveyedBlock> blocks;
    for (std::uint32_t entry = 0; entry < entries; ++entry) {
        const std::uint16_t pointer = handler.pointerOf(entry);
        const std::int32_t start = pointer;
        const auto length = static_cast<std::int32_t>(lengths.of(entry, pointer));
        if (length != 0)
            blocks.push_back({entry, start, start + length});
    }
    return blocks;
}

std::int32_t lowestAddress(const GameConfig& config, const RegionKind& kind)
{
    const PointerArrayDescriptor& region = config.*kind.descriptor;
    std::uint32_t lowest = kWindowStart;
    for (const std::uint32_t last : lastBytes(config)) {
        for (std::uint32_t slot = 0; slot < 2; ++slot) {
            const std::uint32_t slotStart = kWindowStart + slot * kBankSize;
            const std::uint32_t inBank = last - cpuToFileOffset(region.dBank, slotStart);
            const std::uint32_t behind = slotStart + inBank + 1;
            if (inBank < kBankSize && behind < region.dEdge)
                lowest = std::max(lowest, behind);
        }
    }
    return static_cast<std::int32_t>(lowest);
}

} // namespace velko
