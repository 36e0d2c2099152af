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
    std::uint32_t length = 0;             // bytes; 0 without a pointer
    std::vector<std::uint32_t> sharedWith;
};

// The blocks of one kind of all rooms, or of one.
std::vector<ListedBlock> listBlocks(const EditorState& state, const BlockKind& kind,
                                    std::optional<std::uint32_t> onlyRoom = std::nullopt);

void writeListing(std::ostream& out, const std::vector<ListedBlock>& blocks,
                  std::int32_t freeSpace);
void writeListingAsJson(std::ostream& out, const std::vector<ListedBlock>& blocks,
                        std::int32_t freeSpace);

} // namespace velko
