#include "demo/rom_packer.h"

#include "demo/room_tables.h"

#include <algorithm>
#include <array>

namespace velko::demo {

namespace {

// Mapper 2, 16 KB banks, tiles in RAM, four nametables: room to scroll in all directions.
constexpr std::array<std::uint8_t, kHeaderBytes> kHeader = {'N', 'E', 'S', 0x1A, kBanks, 0, 0x28};
// Tells an emulator's memory viewer what it is looking at.
constexpr std::array<std::uint8_t, kHoleBytes> kSignature = {'L', 'A', 'N', 'T',
                                                             'E', 'R', 'N', 'S'};
constexpr std::uint8_t kUnused = 0xFF;

// The whole file, written by file offset.
class RomWriter {
public:
    RomWriter() : m_bytes(kHeaderBytes + kBanks * kBankBytes, kUnused)
    {
        std::copy(kHeader.begin(), kHeader.end(), m_bytes.begin());
    }

    void put(std::uint32_t offset, std::uint32_t value)
    {
        m_bytes.at(offset) = static_cast<std::uint8_t>(value);
    }
    void putWord(std::uint32_t offset, std::uint32_t value)
    {
        put(offset, value & 0xFF);
        put(offset + 1, value >> 8);
    }
    template <typename Range> void putAll(std::uint32_t offset, const Range& values)
    {
        for (const std::uint8_t value : values)
            put(offset++, value);
    }
    // Puts program banks in place, bank by bank, where `prg` differs from kUnused.
    void overlay(const Bytes& prg)
    {
        std::copy(prg.begin(), prg.end(), m_bytes.begin() + kHeaderBytes);
    }

    Bytes take() { return std::move(m_bytes); }

private:
    Bytes m_bytes;
};

void writeScreens(const World& world, RomWriter& rom)
{
    if (world.screens.size() > kScreens)
        throw DemoError("too many screens: " + std::to_string(world.screens.size()));
    const ScreenBytes blank{};
    for (std::uint32_t i = 0; i < kScreens; ++i) {
        const std::uint32_t address = screenAddress(i);
        const std::uint32_t bank = address < 0xC000 ? kScreenBank : kFixedBank;
        rom.putAll(fileOffset(bank, address), i < world.screens.size() ? world.screens[i] : blank);
    }
    rom.putAll(fileOffset(kFixedBank, kHole), kSignature);
}

void writeLoads(const World& world, RomWriter& rom)
{
    for (std::uint32_t i = 0; i < 128; ++i) {
        const LoadRecord record = i < world.loads.size() ? world.loads[i] : LoadRecord{};
        const std::uint32_t at = kLoadRecords + 5 * i;
        rom.putWord(at, record.source);
        rom.put(at + 2, record.destination >> 8); // this one word is big-endian
        rom.put(at + 3, record.destination & 0xFF);
        rom.put(at + 4, record.tiles);
    }
}

void writeDoors(const Room& room, std::uint32_t number, RomWriter& rom)
{
    for (std::uint32_t slot = 0; slot < kDoorSlots; ++slot) {
        const std::uint32_t at = number * kDoorSlots + slot;
        const Entrance& entrance = room.entrances[slot];
        const bool set = entrance.column >= 0;
        const int screen = (entrance.column / kScreenColumns + 1) << 4 | entrance.row / kScreenRows;
        const int block = (entrance.column % kScreenColumns) << 4 | entrance.row % kScreenRows;
        rom.put(kEntranceScreen + at, set ? static_cast<std::uint32_t>(screen) : 0);
        rom.put(kEntranceBlock + at, set ? static_cast<std::uint32_t>(block) : 0);
        rom.put(kExitRoom + at, room.exits[slot].room);
        rom.put(kExitEntrance + at, room.exits[slot].entrance);
    }
}

void writeRoomSettings(const World& world, RomWriter& rom)
{
    for (std::uint32_t i = 0; i < kRooms; ++i) {
        writeDoors(world.rooms[i], i, rom);
        rom.put(kRoomMusic + i, world.rooms[i].music);
    }
    for (std::uint32_t i = 0; i < world.chamberItems.size(); ++i) {
        const std::uint8_t item = world.chamberItems[i];
        rom.put(kChamberItem + i, item);
        rom.putWord(kChamberItemAddress + 2 * i, item == 0xFF ? 0xFFFF : world.items[item].frame);
    }
}

void writeOverworld(const Overworld& overworld, RomWriter& rom)
{
    rom.putAll(kMapTiles, overworld.tiles);
    rom.putAll(kMapAttributes, overworld.attributes);
    rom.putAll(kMapPalettes, overworld.palettes);
    for (std::uint32_t i = 0; i < overworld.areas.size(); ++i) {
        const Area& area = overworld.areas[i];
        rom.put(kAreaPositions + 2 * i, area.x);
        rom.put(kAreaPositions + 2 * i + 1, area.y);
        if (i < kAreas) {
            rom.put(kAreaEndItem + i, area.clearItem);
            rom.put(kAreaParachute + i, area.parachute ? 1 : 0);
        }
    }
    for (std::uint32_t i = 0; i < overworld.previewFrames.size(); ++i)
        rom.putWord(kPreviewAddresses + 2 * i, overworld.previewFrames[i]);
    rom.putAll(kQuadSprites, overworld.quadSprites);
    rom.putAll(kTruckStarts, overworld.truckStarts);
    rom.putAll(fileOffset(kOverworldBank, kTruckPointers), overworld.truckPointers);
    Bytes patterns = overworld.truckPatterns;
    if (patterns.size() + kLeastFreeBytes > kTruckDataEdge - kTruckData)
        throw DemoError("too many truck movements");
    patterns.resize(kTruckDataEdge - kTruckData);
    rom.putAll(fileOffset(kOverworldBank, kTruckData), patterns);
}

void writeProgram(const Bytes& program, RomWriter& rom)
{
    if (program.size() != kProgramBytes + kVectorBytes)
        throw DemoError("the program has " + std::to_string(program.size()) + " bytes");
    const auto vectors = program.begin() + kProgramBytes;
    rom.putAll(fileOffset(kFixedBank, kProgramStart), Bytes(program.begin(), vectors));
    rom.putAll(fileOffset(kFixedBank, kVectors), Bytes(vectors, program.end()));
}

} // namespace

Bytes packRom(const World& world, const Bytes& program)
{
    if (world.rooms.size() != kRooms)
        throw DemoError("the demo has " + std::to_string(world.rooms.size()) + " rooms");
    Bytes prg(kBanks * kBankBytes, kUnused);
    world.backgrounds.write(prg);
    RoomTables(world).write(prg);
    RomWriter rom;
    rom.overlay(prg);
    if (world.graphics.size() > 2 * kBankBytes || world.spriteBank.size() > kBankBytes)
        throw DemoError("too many sprite graphics or scripts");
    rom.putAll(fileOffset(kGraphicsBank, 0), world.graphics);
    rom.putAll(fileOffset(kSpriteBank, 0), world.spriteBank);
    writeScreens(world, rom);
    writeLoads(world, rom);
    writeRoomSettings(world, rom);
    writeOverworld(world.overworld, rom);
    writeProgram(program, rom);
    return rom.take();
}

} // namespace velko::demo
