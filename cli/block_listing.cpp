#include "cli/block_listing.h"

#include "cli/json.h"
#include "rom/number_text.h"
#include "store/length_table.h"

#include <iomanip>
#include <map>

namespace velko {

std::vector<ListedBlock> listBlocks(const EditorState& state, const BlockKind& kind,
                                    std::optional<std::uint32_t> onlyRoom)
{
    const PointerArrayHandler& handler = state.store.*kind.handler;
    std::map<std::uint16_t, std::vector<std::uint32_t>> users; // of each pointer
    for (std::uint32_t room = 0; room < state.config.roomCount(); ++room)
        users[handler.pointerOf(room)].push_back(room);
    const LengthTable lengths(handler, kind);
    std::vector<ListedBlock> blocks;
    for (std::uint32_t room = 0; room < state.config.roomCount(); ++room) {
        if (onlyRoom && room != *onlyRoom)
            continue;
        const std::uint16_t pointer = handler.pointerOf(room);
        ListedBlock block{room, pointer, lengths.of(room), users[pointer]};
        std::erase(block.sharedWith, room);
        blocks.push_back(std::move(block));
    }
    return blocks;
}

void writeListing(std::ostream& out, const std::vector<ListedBlock>& blocks, std::int32_t freeSpace)
{
    out << "room  pointer  length  shared with\n";
    for (const ListedBlock& block : blocks) {
        out << std::setw(4) << hexText(block.room) << "  " << std::setw(7) << hexText(block.pointer)
            << "  " << std::setw(6) << block.length;
        const char* separator = "  ";
        for (const std::uint32_t room : block.sharedWith) {
            out << separator << hexText(room);
            separator = ", ";
        }
        out << '\n';
    }
    out << "free: " << freeSpace << " bytes\n";
}

void writeListingAsJson(std::ostream& out, const std::vector<ListedBlock>& blocks,
                        std::int32_t freeSpace)
{
    Json list = Json::array();
    for (const ListedBlock& block : blocks)
        list.push_back({{"room", block.room},
                        {"pointer", block.pointer},
                        {"length", block.length},
                        {"sharedWith", block.sharedWith}});
    writeJson(out, {{"free", freeSpace}, {"blocks", std::move(list)}});
}

} // namespace velko
