#include "cli/game_diff.h"
#include "rom/number_text.h"
#include "tools/overworld_map.h"

#include <algorithm>

namespace velko {

namespace {

// A damaged module may tell of any number of slots.
constexpr std::uint32_t kMost = 256;
constexpr std::uint32_t kLoadRecords = 128; // a list ends at $80

enum class Value : std::uint8_t { kByte, kWord, kMusic, kItem, kRoom };

using Count = std::uint32_t (*)(const GameConfig&);

// A table of the ROM with the same number of slots for each owner, one owner after the other.
struct FixedTable {
    DiffOwner owner;
    const char* what; // a "#" stands for the slot, "@" for row and column
    MiscField start;
    Count owners;
    Count slots;
    std::uint32_t bytes = 1; // of a slot
    Value value = Value::kByte;
    Count firstOwner = nullptr; // 0 where it is null
    std::uint32_t columns = 1;  // for "@"
};

template <std::uint32_t count> std::uint32_t just(const GameConfig&)
{
    return count;
}
template <MiscField field> std::uint32_t given(const GameConfig& config)
{
    return std::min(config.value(field), kMost);
}
std::uint32_t rooms(const GameConfig& config)
{
    return config.roomCount();
}
// Positions are counted from the chopper's own on, so there is one more than areas.
std::uint32_t areasAndOne(const GameConfig& config)
{
    return std::min(config.value(MiscField::areas), kMost - 1) + 1;
}
std::uint32_t chambers(const GameConfig& config)
{
    const std::uint32_t first = config.value(MiscField::areaFirstNAchamber);
    const std::uint32_t last = config.value(MiscField::areaLastNAchamber);
    return first <= last && first < kMost ? std::min(last - first, kMost - 1) + 1 : 0;
}

constexpr std::uint32_t kMapTiles = OverworldMap::kColumns * OverworldMap::kRows;

constexpr FixedTable kTables[] = {
    {DiffOwner::kRoom, "entrance # screen", MiscField::ptrEntranceScreen, rooms,
     given<MiscField::roomEntrances>},
    {DiffOwner::kRoom, "entrance # block", MiscField::ptrEntranceBlock, rooms,
     given<MiscField::roomEntrances>},
    {DiffOwner::kRoom, "exit # room", MiscField::ptrExitRoom, rooms, given<MiscField::roomExits>, 1,
     Value::kRoom},
    {DiffOwner::kRoom, "exit # entrance", MiscField::ptrExitEntrance, rooms,
     given<MiscField::roomExits>},
    {DiffOwner::kRoom, "music", MiscField::ptrRoomMusic, rooms, just<1>, 1, Value::kMusic},
    {DiffOwner::kRoom, "item", MiscField::ptrNA_ChamberItem, chambers, just<1>, 1, Value::kItem,
     given<MiscField::areaFirstNAchamber>},
    {DiffOwner::kRoom, "item address", MiscField::ptrNA_ChItemAddress, chambers, just<1>, 2,
     Value::kWord, given<MiscField::areaFirstNAchamber>},
    {DiffOwner::kArea, "parachute", MiscField::ptrAreaParachute, given<MiscField::areas>, just<1>},
    {DiffOwner::kArea, "clear item", MiscField::ptrAreaEndItem, given<MiscField::areas>, just<1>, 1,
     Value::kItem},
    {DiffOwner::kArea, "position", MiscField::ptrMapAreaXY, areasAndOne, just<1>, 2},
    {DiffOwner::kNobody, "overworld tile @", MiscField::ptrMapTileMap, just<1>, just<kMapTiles>, 1,
     Value::kByte, nullptr, OverworldMap::kColumns},
    {DiffOwner::kNobody, "overworld attribute @", MiscField::ptrMapAttributeTable, just<1>,
     just<64>, 1, Value::kByte, nullptr, 8},
    {DiffOwner::kNobody, "overworld palette entry #", MiscField::ptrMapPalette, just<1>,
     just<OverworldMap::kPaletteBytes>},
    {DiffOwner::kNobody, "truck # pattern and area", MiscField::ptrMapTruckInit, just<1>,
     given<MiscField::numOfMapTrucks>},
    {DiffOwner::kNobody, "path preview sprite #", MiscField::ptrMapPathPreviewSpriteAddr, just<1>,
     just<16>, 2, Value::kWord},
    {DiffOwner::kNobody, "load record #", MiscField::ptrTileLoadType2, just<1>, just<kLoadRecords>,
     5},
};

std::string subject(const FixedTable& table, std::uint32_t slot)
{
    std::string text;
    for (const char c : std::string_view(table.what)) {
        if (c == '#')
            text += hexText(slot);
        else if (c == '@')
            text += hexText(slot / table.columns) + "," + hexText(slot % table.columns);
        else
            text += c;
    }
    return text;
}

template <typename Names> std::string named(std::uint8_t value, const Names& names)
{
    return byteText(value) + (value < names.size() ? " (" + names[value] + ")" : "");
}

std::string valueText(const FixedTable& table, const EditorState& state, std::uint32_t offset)
{
    const std::uint8_t first = state.rom.readByte(offset);
    switch (table.value) {
    case Value::kWord:
        return wordText(first | static_cast<std::uint32_t>(state.rom.readByte(offset + 1)) << 8);
    case Value::kMusic:
        return named(first, state.names.music);
    case Value::kItem:
        return named(first, state.names.items);
    case Value::kRoom:
        return hexText(first);
    case Value::kByte:
        break;
    }
    std::string text = byteText(first);
    for (std::uint32_t i = 1; i < table.bytes; ++i)
        text += " " + byteText(state.rom.readByte(offset + i));
    return text;
}

void compareTable(const FixedTable& table, const EditorState& before, const EditorState& after,
                  GameDiff& diff)
{
    const GameConfig& config = after.config;
    const std::uint32_t slots = table.slots(config);
    const std::uint32_t first = table.firstOwner != nullptr ? table.firstOwner(config) : 0;
    for (std::uint32_t i = 0; i < table.owners(config) * slots; ++i) {
        const std::uint32_t offset = config.value(table.start) + i * table.bytes;
        if (!diff.isOpen(offset, table.bytes))
            continue;
        Difference difference{.owner = table.owner, .what = subject(table, i % slots)};
        if (table.owner != DiffOwner::kNobody)
            difference.owners = {first + i / slots};
        difference.from = valueText(table, before, offset);
        difference.to = valueText(table, after, offset);
        const std::size_t told = diff.add(std::move(difference));
        for (std::uint32_t byte = 0; byte < table.bytes; ++byte)
            diff.explain(told, offset + byte);
    }
}

void compareHeader(const EditorState& before, const EditorState& after, GameDiff& diff)
{
    for (std::uint32_t i = 0; i < kHeaderSize; ++i) {
        const std::uint8_t from = before.rom.readByte(i);
        const std::uint8_t to = after.rom.readByte(i);
        if (diff.isOpen(i))
            diff.explain(diff.add({.what = "header byte " + hexText(i),
                                   .from = byteText(from),
                                   .to = byteText(to)}),
                         i);
    }
}

} // namespace

void compareTables(const EditorState& before, const EditorState& after, GameDiff& diff)
{
    compareHeader(before, after, diff);
    for (const FixedTable& table : kTables)
        compareTable(table, before, after, diff);
}

} // namespace velko
