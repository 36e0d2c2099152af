#pragma once

#include "rom/game_config.h"
#include "store/room_data_store.h"

#include <array>
#include <cstdint>
#include <vector>

namespace velko {

// A kind of room data, in words and with the rule of its length.
struct RegionKind {
    const char* block; // "palette"
    const char* blocks;
    PointerArrayHandler RoomDataStore::*handler;
    PointerArrayDescriptor GameConfig::*descriptor;
    bool isList; // runs up to an end mark
};
inline constexpr std::size_t kRegionKinds = 7;
extern const std::array<RegionKind, kRegionKinds> kRegionKindTable;

// A block as a table entry describes it.
struct SurveyedBlock {
    std::uint32_t entry = 0;
    std::int32_t start = 0; // CPU address
    std::int32_t end = 0;   // may exceed 0xFFFF; of a list without an end mark it always does
};

// A table with more entries than this is misdescribed; the rest is left out.
inline constexpr std::uint32_t kMostSurveyedEntries = 1024;

// The blocks of all rooms and of what else the table has, in the order of the entries. Entries
// without a block (a map of width or height 0) are left out.
std::vector<SurveyedBlock> surveyBlocks(const RoomDataStore& store, const RegionKind& kind,
                                        std::uint32_t rooms);

// The lowest address that a region can start at. A module tells where a region ends only; it
// starts behind whatever else the module describes below it in the same bank: another region, a
// table, the screens.
std::int32_t lowestAddress(const GameConfig& config, const RegionKind& kind);

} // namespace velko
