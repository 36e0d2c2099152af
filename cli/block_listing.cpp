#include "cli/block_listing.h"

#include "check/region_survey.h"
#include "cli/file_offsets.h"
#include "cli/json.h"
#include "rom/number_text.h"
#include "store/length_table.h"

#include <algorithm>
#include <iomanip>
#include <map>

namespace velko {

namespace {

using Users = std::map<std::uint16_t, std::vector<std::uint32_t>>; // of each pointer

bool hasPointer(const EditorState& state, const PointerArrayHandler& handler, std::uint32_t entry)
{
    return liesInFile(state.rom, entryOffsets(handler, entry));
}

Users usersOfPointers(const EditorState& state, const PointerArrayHandler& handler)
{
    const auto entries = static_cast<std::uint32_t>(std::max(handler.entryCount(), 0));
    const std::uint32_t count =
        std::min(std::max(entries, state.config.roomCount()), kMostSurveyedEntries);
    Users users;
    for (std::uint32_t entry = 0; entry < count; ++entry) {
        if (hasPointer(state, handler, entry))
            users[handler.pointerOf(entry)].push_back(entry);
    }
    return users;
}

} // namespace

std::vector<ListedBlock> listBlocks(const EditorState& state, const BlockKind& kind,
                                    std::optional<std::uint32_t> onlyRoom)
{
    const PointerArrayHandler& handler = state.store.*kind.handler;
    const Users users = usersOfPointers(state, handler);
    LengthTable lengths(handler, kind);
    std::vector<ListedBlock> blocks;
    for (std::uint32_t room = 0; room < state.config.roomCount(); ++room) {
        if (onlyRoom && room != *onlyRoom)
            continue;
        ListedBlock& block = blocks.emplace_back();
        block.room = room;
        if (!hasPointer(state, handler, room))
            continue;
        block.pointer = handler.pointerOf(room);
        block.length = lengths.of(room);
        block.sharedWith = users.at(*block.pointer);
        std::erase(block.sharedWith, room);
    }
    return blocks;
}

void writeListing(std::ostream& out, const std::vector<ListedBlock>& blocks, std::int32_t freeSpace)
{
    out << "room  pointer  length  shared with\n";
    for (const ListedBlock& block : blocks) {
        out << std::setw(4) << hexText(block.room) << "  ";
        if (!block.pointer) {
            out << "past the end of the file\n";
            continue;
        }
        out << std::setw(7) << hexText(*block.pointer) << "  " << std::setw(6) << block.length;
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
                        {"pointer", block.pointer ? Json(*block.pointer) : Json(nullptr)},
                        {"length", block.length},
                        {"sharedWith", block.sharedWith}});
    writeJson(out, {{"free", freeSpace}, {"blocks", std::move(list)}});
}

} // namespace velko
