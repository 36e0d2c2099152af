#include "demo/yaml_writer.h"

#include <array>
#include <sstream>
#include <string_view>

namespace velko::demo {

namespace {

std::string hex(std::uint32_t value)
{
    std::ostringstream out;
    out << "0x" << std::hex << std::uppercase << value;
    return out.str();
}

// Writes the file key by key, with the comment lines above them.
class YamlText {
public:
    void comment(std::string_view text) { m_out << m_indent << "# " << text << '\n'; }
    void blank() { m_out << '\n'; }

    void open(std::string_view key)
    {
        m_out << m_indent << key << ":\n";
        m_indent += "  ";
    }
    void close() { m_indent.resize(m_indent.size() - 2); }

    void address(std::string_view key, std::uint32_t value, std::string_view note = {})
    {
        line(key, hex(value), note);
    }
    void number(std::string_view key, std::uint32_t value, std::string_view note = {})
    {
        line(key, std::to_string(value), note);
    }
    void pair(std::string_view key, std::uint32_t first, std::uint32_t second)
    {
        line(key, "[" + std::to_string(first) + ", " + std::to_string(second) + "]", {});
    }

    // A sequence, `perLine` elements to the line.
    void sequence(std::string_view key, const std::vector<std::uint32_t>& values,
                  std::size_t perLine, bool inHex)
    {
        m_out << m_indent << key << ": [";
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (i % perLine == 0)
                m_out << '\n' << m_indent << "  ";
            m_out << (inHex ? hex(values[i]) : std::to_string(values[i]))
                  << (i + 1 < values.size() ? ", " : "");
        }
        m_out << "]\n";
    }

    std::string text() const { return m_out.str(); }

private:
    void line(std::string_view key, const std::string& value, std::string_view note)
    {
        m_out << m_indent << key << ": " << value;
        if (!note.empty())
            m_out << " # " << note;
        m_out << '\n';
    }

    std::ostringstream m_out;
    std::string m_indent;
};

void writeHandler(YamlText& yaml, const RegionPlan& plan, std::string_view what)
{
    yaml.comment(what);
    yaml.open(plan.key);
    yaml.number("pBank", plan.tableBank);
    yaml.address("pMemStart", plan.tableStart);
    yaml.address("pMemEdge", plan.tableEdge());
    yaml.pair("dBank", plan.dataBanks[0], plan.dataBanks[1]);
    yaml.address("dEdge", plan.dataEdge);
    if (plan.stride != 2)
        yaml.number("pointerPad", plan.stride, "two bytes more: width and height in screens");
    yaml.close();
}

void writeHandlers(YamlText& yaml)
{
    yaml.comment("Where each kind of room data lies. pBank, pMemStart, pMemEdge: the bank and the");
    yaml.comment("CPU addresses of the table of pointers, one entry per room (the end is");
    yaml.comment("exclusive). dBank: the banks in which $8000-$BFFF and $C000-$FFFF of the data");
    yaml.comment("lie. dEdge: the end of the room for data. pointerPad: bytes per table entry, 2");
    yaml.comment("unless told. A table at $C000 or above lies one bank above its pBank.");
    yaml.open("levelPointerArrayHandlers");
    writeHandler(yaml, kMapAllocPlan, "the screens that a room is made of, up to 0xFFFF");
    writeHandler(yaml, kTileLoadPlan, "the 64 background blocks of a room");
    writeHandler(yaml, kPalettePlan, "the 32 colours of a room");
    writeHandler(yaml, kMapLayoutPlan, "which screen stands where");
    writeHandler(yaml, kTile32Plan, "32x32 blocks; two banks, one after the other");
    writeHandler(yaml, kUnitPlan, "creatures, people, things and doors");
    writeHandler(yaml, kType2Plan, "which sprite graphics a room loads");
    yaml.close();
    yaml.blank();
    yaml.open("otherPointerArrayHandlers");
    writeHandler(yaml, kAreaMovementPlan, "where the kite flies to from each area");
    yaml.close();
}

void writeBanks(YamlText& yaml)
{
    yaml.comment("The banks of sprite scripts and of screens, as dBank above.");
    yaml.open("pointerHandlersBanks");
    yaml.pair("phSprite", kSpriteBank, kFixedBank);
    yaml.pair("phMapScreenData", kScreenBank, kFixedBank);
    yaml.close();
}

void writeRoomMisc(YamlText& yaml)
{
    yaml.number("startGfxBg", kBackgroundBank, "first bank of background blocks");
    yaml.number("bgTileBanks", kBackgroundBanks);
    yaml.number("startGfxType2", kGraphicsBank, "sprite graphics; runs on into the next bank");
    yaml.address("mapAllocDataStart", kScreenStart, "CPU address of the first screen");
    yaml.number("rooms", kRooms);
    yaml.number("mapIndexes", kScreens, "how many screens there are");
    yaml.address("mapPtrStart", kMapAllocPlan.tableStart, "kept for the game, not used here");
    yaml.comment("Doors, four of each kind per room.");
    yaml.address("ptrEntranceScreen", kEntranceScreen);
    yaml.address("ptrEntranceBlock", kEntranceBlock);
    yaml.address("ptrExitRoom", kExitRoom);
    yaml.address("ptrExitEntrance", kExitEntrance);
    yaml.number("roomEntrances", kDoorSlots);
    yaml.number("roomExits", kDoorSlots);
    yaml.address("ptrTileLoadType2", kLoadRecords, "128 records of five bytes");
    yaml.address("ptrRoomMusic", kRoomMusic);
}

void writeAreaMisc(YamlText& yaml)
{
    yaml.comment("Areas are counted from 1 here and from 0 in the tables.");
    yaml.number("areas", kAreas);
    yaml.number("firstNeutralArea", kFirstNeutralArea);
    yaml.address("ptrAreaEndItem", kAreaEndItem);
    yaml.address("ptrAreaParachute", kAreaParachute);
    yaml.comment("The tea rooms of the neutral areas may hold an item.");
    yaml.number("areaFirstNAchamber", kFirstChamber);
    yaml.number("areaLastNAchamber", kLastChamber);
    yaml.address("ptrNA_ChamberItem", kChamberItem);
    yaml.address("ptrNA_ChItemAddress", kChamberItemAddress);
}

void writeMapMisc(YamlText& yaml)
{
    yaml.comment("The overworld map of 26 x 18 tiles, and what moves over it.");
    yaml.address("ptrMapAreaXY", kAreaPositions);
    yaml.address("ptrMapTruckInit", kTruckStarts, "one byte per mail cart");
    yaml.number("numOfMapTrucks", kTrucks);
    yaml.address("ptrMapPalette", kMapPalettes);
    yaml.address("ptrMapTileMap", kMapTiles);
    yaml.address("ptrMapPathPreviewSpriteAddr", kPreviewAddresses);
    yaml.address("ptrMapQuadSpriteTable", kQuadSprites);
    yaml.address("ptrMapAttributeTable", kMapAttributes);
    yaml.comment("The mail carts' routes: one byte of pointer each, in one bank.");
    yaml.number("bpahTruckMovement_bank", kOverworldBank);
    yaml.address("bpahTruckMovement_dMemStart", kTruckData);
    yaml.address("bpahTruckMovement_dMemEdge", kTruckDataEdge);
    yaml.address("bpahTruckMovement_pMemStart", kTruckPointers);
    yaml.address("bpahTruckMovement_pMemEdge", kTruckPointers + kTruckPatterns);
}

void writeTables(YamlText& yaml, const World& world)
{
    std::vector<std::uint32_t> registers;
    std::vector<std::uint32_t> scripts;
    for (const UnitType& type : world.unitTypes) {
        registers.push_back(type.spriteRegister);
        scripts.push_back(type.script);
    }
    std::vector<std::uint32_t> chunks;
    for (const Area& area : world.overworld.areas)
        chunks.insert(chunks.end(), area.icon.begin(), area.icon.end());
    for (const auto& preset : world.overworld.presets)
        chunks.insert(chunks.end(), preset.begin(), preset.end());
    std::vector<std::uint32_t> items;
    for (const Item& item : world.items)
        items.push_back(item.frame);

    yaml.comment("Per unit type: 0 without a sprite, 1 animated, 2 still.");
    yaml.sequence("unitSpriteReg", registers, 16, false);
    yaml.comment("Per unit type: the CPU address of its sprite script.");
    yaml.sequence("unitSpriteAddress", scripts, 8, true);
    yaml.comment("16x16 pieces of the overworld, four tiles each, column by column: the icons of");
    yaml.comment("the areas first (one more than there are areas), then pieces to build with.");
    yaml.sequence("gameMapTileChunks", chunks, 4, true);
    yaml.comment("Per item: the CPU address of the frame that shows it in a room.");
    yaml.sequence("itemInGameSpriteAddress", items, 8, true);
}

} // namespace

std::string dataYaml(const World& world)
{
    YamlText yaml;
    yaml.comment("Lantern Vale, the demo game: where its ROM keeps what the editor edits.");
    yaml.comment("Written by the generator; docs/demo.md tells the same bank by bank. Names that");
    yaml.comment("begin with ptr are offsets in the file, the 16 bytes of its header included.");
    yaml.blank();
    writeHandlers(yaml);
    yaml.blank();
    writeBanks(yaml);
    yaml.blank();
    yaml.open("miscData");
    writeRoomMisc(yaml);
    writeAreaMisc(yaml);
    writeMapMisc(yaml);
    yaml.close();
    yaml.blank();
    writeTables(yaml, world);
    return yaml.text();
}

} // namespace velko::demo
