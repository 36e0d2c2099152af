#pragma once

#include "rom/rom_image.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace velko {

inline constexpr std::size_t kUnitTypes = 144;
inline constexpr std::size_t kItems = 26;
inline constexpr std::uint32_t kMostRooms = 256;

// Where one table of room pointers and the data it points at lie. Addresses are CPU addresses.
struct PointerArrayDescriptor {
    BankPair dBank{};             // banks of the data region
    std::uint8_t pBank = 0;       // bank of the pointer table
    std::uint16_t pMemStart = 0;  // first table entry
    std::uint16_t pMemEdge = 0;   // one past the last table entry
    std::uint16_t dEdge = 0;      // one past the end of the data region
    std::uint32_t pointerPad = 2; // bytes from one table entry to the next

    bool operator==(const PointerArrayDescriptor&) const = default;
};

// The loose numbers of `miscData`, in storage order: a sequence that starts at one of them runs
// on into the next. Those that begin with ptr are file offsets; the header counts.
enum class MiscField : std::uint8_t {
    startGfxBg,
    bgTileBanks,
    startGfxType2,
    mapAllocDataStart,
    rooms,
    mapIndexes,
    mapPtrStart,
    ptrEntranceScreen,
    ptrEntranceBlock,
    ptrExitRoom,
    ptrExitEntrance,
    roomEntrances,
    roomExits,
    ptrTileLoadType2,
    ptrRoomMusic,
    areas,
    firstNeutralArea,
    ptrAreaEndItem,
    ptrAreaParachute,
    areaFirstNAchamber,
    areaLastNAchamber,
    ptrNA_ChamberItem,
    ptrNA_ChItemAddress,
    ptrMapAreaXY,
    ptrMapTruckInit,
    numOfMapTrucks,
    ptrMapPalette,
    ptrMapTileMap,
    ptrMapPathPreviewSpriteAddr,
    ptrMapQuadSpriteTable,
    ptrMapAttributeTable,
    bpahTruckMovement_bank,
    bpahTruckMovement_dMemStart,
    bpahTruckMovement_dMemEdge,
    bpahTruckMovement_pMemStart,
    bpahTruckMovement_pMemEdge,
};
inline constexpr std::size_t kMiscFields = 36;
static_assert(kMiscFields == static_cast<std::size_t>(MiscField::bpahTruckMovement_pMemEdge) + 1);

// Everything `data.yaml` tells about the game. A key that the file does not give leaves its
// field at the value below.
struct GameConfig {
    // One entry per unit type: 0 no sprite, 1 animated sprite, other values a still one. The
    // table is longer than the list of unit types so that any type byte can index it.
    std::array<std::uint8_t, 256> unitSpriteReg{};
    std::array<std::uint16_t, kUnitTypes> unitSpriteAddress{}; // CPU addresses of sprite scripts
    // Four 8x8 tiles per 16x16 piece of the overworld map, in column order.
    std::array<std::uint8_t, 1024> gameMapTileChunks{};
    std::array<std::uint16_t, kItems> itemInGameSpriteAddress{}; // CPU addresses

    PointerArrayDescriptor pahMapAlloc;
    PointerArrayDescriptor pahTileLoad;
    PointerArrayDescriptor pahPal;
    PointerArrayDescriptor pahMapLayout;
    PointerArrayDescriptor pahTile32;
    PointerArrayDescriptor pahUnit;
    PointerArrayDescriptor pahTileLoadType2;
    PointerArrayDescriptor pahMapAreaMovement;

    BankPair phSprite{};        // banks of the sprite scripts
    BankPair phMapScreenData{}; // banks of the screens

    std::array<std::uint32_t, kMiscFields> misc{};

    std::uint32_t value(MiscField field) const { return misc[static_cast<std::size_t>(field)]; }
    void setValue(MiscField field, std::uint32_t v) { misc[static_cast<std::size_t>(field)] = v; }

    // The number of rooms in use, 0 to kMostRooms, whatever `rooms` says.
    std::uint32_t roomCount() const;

    bool operator==(const GameConfig&) const = default;
};

} // namespace velko
