#include "demo/program_tables.h"

#include "demo/unit_types.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <string_view>
#include <vector>

namespace velko::demo {

namespace {

std::string hex(std::uint32_t value)
{
    std::array<char, 12> text{};
    std::snprintf(text.data(), text.size(), "$%02X", static_cast<unsigned>(value));
    return text.data();
}

void define(std::string& text, std::string_view name, std::uint32_t value)
{
    text += std::string(name) + " = " + hex(value) + '\n';
}

// A table that a file offset tells: the CPU address at which the program sees it.
std::uint32_t shownAt(std::uint32_t offset)
{
    const std::uint32_t bank = (offset - kHeaderBytes) / kBankBytes;
    const std::uint32_t start = bank == kFixedBank ? 0xC000 : 0x8000;
    return start + (offset - kHeaderBytes) % kBankBytes;
}

// A room table: described from any bank, it may lie in the one after it.
std::uint32_t shownAt(const RegionPlan& plan)
{
    return shownAt(plan.tableBank * kBankBytes + (plan.tableStart & 0x7FFFU) + kHeaderBytes);
}

void defineTable(std::string& text, const std::string& name, const RegionPlan& plan)
{
    define(text, name + "_TABLE", shownAt(plan));
    const std::uint32_t bank = plan.tableBank + ((plan.tableStart & 0x7FFFU) / kBankBytes);
    define(text, name + "_TABLE_BANK", bank);
    define(text, name + "_BANK", plan.dataBanks[0]);
}

void bytes(std::string& text, std::string_view label, const std::vector<std::uint32_t>& values)
{
    text += std::string(label) + ":\n";
    for (std::size_t i = 0; i < values.size(); ++i)
        text += (i % 8 == 0 ? "    .byte " : ", ") + hex(values[i])
            + (i % 8 == 7 || i + 1 == values.size() ? "\n" : "");
}

} // namespace

std::string programLayout()
{
    std::string text;
    define(text, "ROOMS", kRooms);
    define(text, "OVERWORLD_ENTRY", kOverworldEntry);
    define(text, "AREAS", kAreas);
    define(text, "CARTS", kTrucks);
    define(text, "EXIT_TYPE", static_cast<std::uint32_t>(kSpriteUnits.size()));
    define(text, "SPRITE_TYPES", static_cast<std::uint32_t>(kSpriteUnits.size()));

    defineTable(text, "LIST", kMapAllocPlan);
    defineTable(text, "LAYOUT", kMapLayoutPlan);
    defineTable(text, "PALETTE", kPalettePlan);
    defineTable(text, "BACKGROUND", kTileLoadPlan);
    defineTable(text, "BLOCK", kTile32Plan);
    defineTable(text, "UNIT", kUnitPlan);
    defineTable(text, "LOAD", kType2Plan);

    define(text, "SCREEN_BANK", kScreenBank);
    define(text, "TILE_BANK", kBackgroundBank);
    define(text, "GRAPHICS_BANK", kGraphicsBank);
    define(text, "SCRIPT_BANK", kSpriteBank);
    define(text, "HERO_SCRIPT", kHeroScript);
    define(text, "LOAD_RECORD_BANK", kScreenBank);
    define(text, "LOAD_RECORDS", shownAt(kLoadRecords));

    define(text, "ENTRANCE_SCREENS", shownAt(kEntranceScreen));
    define(text, "ENTRANCE_CELLS", shownAt(kEntranceBlock));
    define(text, "EXIT_ROOMS", shownAt(kExitRoom));
    define(text, "EXIT_ENTRANCES", shownAt(kExitEntrance));

    define(text, "OVERWORLD_BANK", kOverworldBank);
    define(text, "MAP_COLUMNS", kMapColumns);
    define(text, "MAP_ROWS", kMapRows);
    define(text, "MAP_TILES", shownAt(kMapTiles));
    define(text, "MAP_ATTRIBUTES", shownAt(kMapAttributes));
    define(text, "MAP_PALETTES", shownAt(kMapPalettes));
    define(text, "AREA_POSITIONS", shownAt(kAreaPositions));
    define(text, "TRUCK_STARTS", shownAt(kTruckStarts));
    define(text, "TRUCK_POINTERS", kTruckPointers);
    define(text, "TRUCK_PATTERNS", kTruckData);
    define(text, "QUAD_SPRITES", shownAt(kQuadSprites));
    return text;
}

std::string programUnits(const World& world)
{
    std::vector<std::uint32_t> registers;
    std::vector<std::uint32_t> low;
    std::vector<std::uint32_t> high;
    for (std::size_t i = 0; i < kSpriteUnits.size(); ++i) {
        registers.push_back(world.unitTypes[i].spriteRegister);
        low.push_back(world.unitTypes[i].script & 0xFFU);
        high.push_back(world.unitTypes[i].script >> 8U);
    }
    std::string text = "; 1 is animated, 2 stands still\n";
    bytes(text, "sprite_register", registers);
    bytes(text, "script_low", low);
    bytes(text, "script_high", high);
    return text;
}

std::string programIcons(const World& world)
{
    std::vector<std::uint32_t> tiles;
    for (const Area& area : world.overworld.areas)
        tiles.insert(tiles.end(), area.icon.begin(), area.icon.end());
    std::string text;
    bytes(text, "area_icons", tiles);
    return text;
}

} // namespace velko::demo
