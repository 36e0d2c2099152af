#pragma once

#include <array>
#include <cstdint>

// Where everything lies in the demo ROM. `data.yaml` is written from these numbers, and
// docs/demo.md tells them bank by bank.
namespace velko::demo {

inline constexpr std::uint32_t kBankBytes = 0x4000;
inline constexpr std::uint32_t kBanks = 16;
inline constexpr std::uint32_t kFixedBank = 15; // always at $C000
inline constexpr std::uint32_t kHeaderBytes = 16;

inline constexpr std::uint32_t kRooms = 111;
// Room tables go on two entries past the rooms: the overworld and the title screen.
inline constexpr std::uint32_t kTableEntries = 113;
inline constexpr std::uint32_t kOverworldEntry = 111;
inline constexpr std::uint32_t kTitleEntry = 112;
inline constexpr std::uint32_t kAreas = 12;
inline constexpr std::uint32_t kFirstNeutralArea = 9;
inline constexpr std::uint32_t kFirstChamber = 37;
inline constexpr std::uint32_t kLastChamber = 44;
inline constexpr std::uint32_t kTrucks = 8;
inline constexpr std::uint32_t kUnitTypeCount = 144;
inline constexpr std::uint32_t kItemCount = 26;
inline constexpr std::uint32_t kDoorSlots = 4; // entrances, and exits, per room

inline constexpr std::uint32_t kBackgroundBank = 0; // banks 0 to 3
inline constexpr std::uint32_t kBackgroundBanks = 4;
inline constexpr std::uint32_t kGraphicsBank = 4; // sprite and overworld tiles, banks 4 and 5
inline constexpr std::uint32_t kSpriteBank = 6;
inline constexpr std::uint32_t kScreenBank = 7;
inline constexpr std::uint32_t kTile32Bank = 8; // and 9
inline constexpr std::uint32_t kMapBank = 10;
inline constexpr std::uint32_t kLookBank = 11;
inline constexpr std::uint32_t kUnitBank = 12;
inline constexpr std::uint32_t kOverworldBank = 13;

// Screens of 64 bytes; the signature lies in the hole after the first 264.
inline constexpr std::uint32_t kScreenStart = 0x8600;
inline constexpr std::uint32_t kScreens = 288;
inline constexpr std::uint32_t kScreensBeforeHole = 264;
inline constexpr std::uint32_t kHole = 0xC800;
inline constexpr std::uint32_t kHoleBytes = 8;

constexpr std::uint16_t screenAddress(std::uint32_t index)
{
    const std::uint32_t hole = index >= kScreensBeforeHole ? kHoleBytes : 0;
    return static_cast<std::uint16_t>(kScreenStart + 64 * index + hole);
}

// One region of blocks with the table that points into it. All addresses are CPU addresses, ends
// are exclusive.
struct RegionPlan {
    const char* key;
    std::uint8_t tableBank;
    std::uint16_t tableStart;
    std::uint16_t tableEntries;
    std::uint8_t stride;
    std::array<std::uint8_t, 2> dataBanks;
    std::uint16_t dataStart;
    std::uint16_t dataEdge;

    constexpr std::uint16_t tableEdge() const
    {
        return static_cast<std::uint16_t>(tableStart + tableEntries * stride);
    }
};

// Tables in the fixed bank are described with bank 14: $D000 lies 16 KB above its start.
inline constexpr RegionPlan kMapAllocPlan{"pahMapAlloc", 14,     0xD000, kTableEntries, 2,
                                          {10, 15},      0x8000, 0x9000};
inline constexpr RegionPlan kMapLayoutPlan{"pahMapLayout", 14,     0xD100, kTableEntries, 4,
                                           {10, 15},       0x9000, 0xA400};
inline constexpr RegionPlan kPalettePlan{"pahPal", 11,       0x8000, kTableEntries,
                                         2,        {11, 15}, 0x8200, 0x8E00};
inline constexpr RegionPlan kTileLoadPlan{"pahTileLoad", 11,     0x8100, kTableEntries, 2,
                                          {11, 15},      0x9000, 0xA800};
// Two adjacent banks: what is past the first 16 sets has addresses from $C000 on.
inline constexpr RegionPlan kTile32Plan{"pahTile32", 8,      0xFE00, kTableEntries,
                                        2,           {8, 9}, 0x8000, 0xFC00};
inline constexpr RegionPlan kUnitPlan{"pahUnit", 12,       0x8000, kTableEntries,
                                      2,         {12, 15}, 0x8200, 0xA800};
inline constexpr RegionPlan kType2Plan{"pahTileLoadType2", 12,     0x8100, kTableEntries, 2,
                                       {12, 15},           0xB000, 0xB800};
inline constexpr RegionPlan kAreaMovementPlan{
    "pahMapAreaMovement", 13, 0x8000, kAreas + 3, 2, {13, 15}, 0x8100, 0x8300};

// File offset of a CPU address in the switched window of a bank.
constexpr std::uint32_t fileOffset(std::uint32_t bank, std::uint32_t cpuAddress)
{
    return bank * kBankBytes + (cpuAddress & 0x3FFF) + kHeaderBytes;
}

// Bank 7, below the screens.
inline constexpr std::uint32_t kLoadRecords = fileOffset(kScreenBank, 0x8000);        // 128 x 5
inline constexpr std::uint32_t kRoomMusic = fileOffset(kScreenBank, 0x8300);          // 111
inline constexpr std::uint32_t kChamberItem = fileOffset(kScreenBank, 0x8380);        // 8
inline constexpr std::uint32_t kChamberItemAddress = fileOffset(kScreenBank, 0x8390); // 8 x 2
inline constexpr std::uint32_t kAreaEndItem = fileOffset(kScreenBank, 0x83B0);
inline constexpr std::uint32_t kAreaParachute = fileOffset(kScreenBank, 0x83C0);

// The fixed bank, above its screens and tables: 111 x 4 bytes each.
inline constexpr std::uint32_t kEntranceScreen = fileOffset(kFixedBank, 0xD300);
inline constexpr std::uint32_t kEntranceBlock = fileOffset(kFixedBank, 0xD4C0);
inline constexpr std::uint32_t kExitRoom = fileOffset(kFixedBank, 0xD680);
inline constexpr std::uint32_t kExitEntrance = fileOffset(kFixedBank, 0xD840);
// The game's program; the interrupt vectors follow at the very end.
inline constexpr std::uint32_t kProgramStart = 0xE000;
inline constexpr std::uint32_t kProgramBytes = 0x1800;
inline constexpr std::uint32_t kVectors = 0xFFFA;
inline constexpr std::uint32_t kVectorBytes = 6;

// The sprite bank: the hero's script and the fourth item lie where the editor expects them.
inline constexpr std::uint16_t kHeroScript = 0x8171;
inline constexpr std::uint8_t kHeroPreviewFrame = 42;
inline constexpr std::uint16_t kUnitScripts = 0x8300;
inline constexpr std::uint16_t kItemFrames = 0xAB00;
inline constexpr std::uint16_t kDefaultItemFrame = 0xAB06;
inline constexpr std::uint8_t kDefaultItem = 4;

// The overworld bank.
inline constexpr std::uint32_t kMapColumns = 26;
inline constexpr std::uint32_t kMapRows = 18;
inline constexpr std::uint32_t kMapTiles = fileOffset(kOverworldBank, 0x8800);      // 26 x 18
inline constexpr std::uint32_t kMapAttributes = fileOffset(kOverworldBank, 0x8A00); // 8 x 8
inline constexpr std::uint32_t kMapPalettes = fileOffset(kOverworldBank, 0x8A40);   // 8 x 4
inline constexpr std::uint32_t kAreaPositions = fileOffset(kOverworldBank, 0x8A60); // 13 x 2
inline constexpr std::uint32_t kTruckStarts = fileOffset(kOverworldBank, 0x8A80);   // 8
inline constexpr std::uint32_t kQuadSprites = fileOffset(kOverworldBank, 0x8B00);
inline constexpr std::uint32_t kPreviewAddresses = fileOffset(kOverworldBank, 0x8A90); // 16 x 2
inline constexpr std::uint16_t kPreviewFrames = 0x8000; // in the sprite bank
inline constexpr std::uint16_t kTruckPointers = 0x8C00;
inline constexpr std::uint8_t kTruckPatterns = 12;
inline constexpr std::uint16_t kTruckData = 0x8C10;
inline constexpr std::uint16_t kTruckDataEdge = 0x8D00;

} // namespace velko::demo
