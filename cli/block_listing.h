#pragma once

#include "state/editor_state.h"
#include "store/block_kinds.h"

#include <cstdint>
#include <optional>
#include <ostream>
#include <vector>

namespace velko {

// Where the block of a room is, and which other entries of the table have the same pointer: rooms,
// and entries behind those of the rooms.
struct ListedBlock {
    std::uint32_t room = 0;
    std::optional<std::uint16_t> pointer; // nothing when it lies past the end of the file
    // Bytes; nothing where the block, as far as it can be read, does not end in the file.
    std::optional<std::uint32_t> length;
    std::vector<std::uint32_t> sharedWith;
};

struct BlockListing {
    std::vector<ListedBlock> blocks;
    // Bytes, as the editor shows them; nothing where it would count with what is not in the file.
    std::optional<std::int32_t> freeSpace;
};

// The blocks of one kind of all rooms, or of one. The free space is that of all.
BlockListing listBlocks(const EditorState& state, const BlockKind& kind,
                        std::optional<std::uint32_t> onlyRoom = std::nullopt);

void writeListing(std::ostream& out, const BlockListing& listing);
void writeListingAsJson(std::ostream& out, const BlockListing& listing);

} // namespace velko
