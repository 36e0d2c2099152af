#pragma once

#include "store/length_table.h"
#include "store/room_data_store.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>

namespace velko {

// Whose blocks a table points at. Entries behind those of the owners may follow.
enum class BlockOwner : std::uint8_t { kRoom, kArea, kPatternSet };

// A kind of data behind a table of pointers, in words and with the rule of its length.
struct RegionKind {
    const char* key;   // as in data.yaml
    const char* block; // "palette"
    const char* blocks;
    PointerArrayHandler RoomDataStore::*handler;
    PointerArrayDescriptor GameConfig::*descriptor;
    bool isList; // runs up to an end mark
    BlockOwner owner;
};
inline constexpr std::size_t kRegionKinds = 8;
extern const std::array<RegionKind, kRegionKinds> kRegionKindTable;
// The one of the areas.
extern const RegionKind& kAreaMovementKind;

struct BlockLength {
    std::uint32_t bytes = 0; // 0: there is no block
    // Of a list that never ends, `bytes` is what the editor reads of it.
    bool hasEnd = true;
};

// The length of any entry's block. A list may take thousands of steps, so those that entries share
// are walked once.
class BlockLengths {
public:
    // `handler` must be one of that kind, and stay.
    BlockLengths(const PointerArrayHandler& handler, const RegionKind& kind);

    // `pointer` is the entry's.
    BlockLength of(std::uint32_t entry, std::uint16_t pointer);

private:
    using Rule = BlockLength (*)(PointerArrayHandler, std::uint32_t entry);

    const PointerArrayHandler& m_handler;
    Rule m_rule = nullptr;
    std::optional<LengthTable> m_table;
    std::unordered_map<std::uint16_t, BlockLength> m_known;
};

} // namespace velko
