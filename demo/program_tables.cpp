#include "demo/program_tables.h"

#include "demo/unit_types.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <initializer_list>
#include <string>
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

struct Definition {
    std::string name;
    std::uint32_t value;
};

void define(std::string& text, std::initializer_list<Definition> definitions)
{
    for (const auto& [name, value] : definitions)
        text += name + " = " + hex(value) + '\n';
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

struct Region {
    std::string name;
    const RegionPlan& plan;
};

void defineRegion(std::string& text, const Region& region)
{
    const RegionPlan& plan = region.plan;
    const std::uint32_t tableBank = plan.tableBank + ((plan.tableStart & 0x7FFFU) / kBankBytes);
    define(text,
           {{region.name + "_TABLE", shownAt(plan)},
            {region.name + "_TABLE_BANK", tableBank},
            {region.name + "_BANK", plan.dataBanks[0]}});
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
    const auto spriteTypes = static_cast<std::uint32_t>(kSpriteUnits.size());
    std::string text;
    define(text,
           {{"ROOMS", kRooms},
            {"OVERWORLD_ENTRY", kOverworldEntry},
            {"AREAS", kAreas},
            {"CARTS", kTrucks},
            {"EXIT_TYPE", spriteTypes},
            {"SPRITE_TYPES", spriteTypes}});
    for (const Region& region :
         {Region{"LIST", kMapAllocPlan}, Region{"LAYOUT", kMapLayoutPlan},
          Region{"PALETTE", kPalettePlan}, Region{"BACKGROUND", kTileLoadPlan},
          Region{"BLOCK", kTile32Plan}, Region{"UNIT", kUnitPlan}, Region{"LOAD", kType2Plan}})
        defineRegion(text, region);
    define(text,
           {{"SCREEN_BANK", kScreenBank},
            {"TILE_BANK", kBackgroundBank},
            {"GRAPHICS_BANK", kGraphicsBank},
            {"SCRIPT_BANK", kSpriteBank},
            {"HERO_SCRIPT", kHeroScript},
            {"LOAD_RECORD_BANK", kScreenBank},
            {"LOAD_RECORDS", shownAt(kLoadRecords)}});
    define(text,
           {{"ENTRANCE_SCREENS", shownAt(kEntranceScreen)},
            {"ENTRANCE_CELLS", shownAt(kEntranceBlock)},
            {"EXIT_ROOMS", shownAt(kExitRoom)},
            {"EXIT_ENTRANCES", shownAt(kExitEntrance)}});
    define(text,
           {{"OVERWORLD_BANK", kOverworldBank},
            {"MAP_COLUMNS", kMapColumns},
            {"MAP_ROWS", kMapRows},
            {"MAP_TILES", shownAt(kMapTiles)},
            {"MAP_ATTRIBUTES", shownAt(kMapAttributes)},
            {"MAP_PALETTES", shownAt(kMapPalettes)},
            {"AREA_POSITIONS", shownAt(kAreaPositions)},
            {"TRUCK_STARTS", shownAt(kTruckStarts)},
            {"TRUCK_POINTERS", kTruckPointers},
            {"TRUCK_PATTERNS", kTruckData},
            {"QUAD_SPRITES", shownAt(kQuadSprites)}});
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
