#include "cli/block_listing.h"

#include "check/region_survey.h"
#include "cli/known_number.h"
#include "rom/number_text.h"
#include "store/file_offsets.h"
#include "store/length_table.h"

#include <algorithm>
#include <iomanip>
#include <map>

namespace velko {

namespace {

using Users = std::map<std::uint16_t, std::vector<std::uint32_t>>; // of each pointer

Users usersOfPointers(const EditorState& state, const PointerArrayHandler& handler)
{
    const auto entries = static_cast<std::uint32_t>(std::max(handler.entryCount(), 0));
    const std::uint32_t count =
        std::min(std::max(entries, state.config.roomCount()), kMostSurveyedEntries);
    Users users;
    for (std::uint32_t entry = 0; entry < count; ++entry) {
        if (entryLiesInFile(state.rom, handler, entry))
            users[handler.pointerOf(entry)].push_back(entry);
    }
    return users;
}

} // namespace

BlockListing listBlocks(const EditorState& state, const BlockKind& kind,
                        std::optional<std::uint32_t> onlyRoom)
{
    const PointerArrayHandler& handler = state.store.*kind.handler;
    const Users users = usersOfPointers(state, handler);
    LengthTable lengths(handler, kind);
    BlockListing listing;
    bool isWhole = true;
    for (std::uint32_t room = 0; room < state.config.roomCount(); ++room) {
        ListedBlock block{room, std::nullopt, std::nullopt, {}};
        if (entryLiesInFile(state.rom, handler, room)) {
            block.pointer = handler.pointerOf(room);
            const std::uint32_t length = lengths.of(room);
            if (blockLiesInFile(state.rom, handler, *block.pointer, length))
                block.length = length;
            block.sharedWith = users.at(*block.pointer);
            std::erase(block.sharedWith, room);
        }
        isWhole = isWhole && block.length;
        if (!onlyRoom || room == *onlyRoom)
            listing.blocks.push_back(std::move(block));
    }
    if (isWhole)
        listing.freeSpace = handler.freeSpace();
    return listing;
}

void writeListing(std::ostream& out, const BlockListing& listing)
{
    out << "room  pointer  length  shared with\n";
    for (const ListedBlock& block : listing.blocks) {
        out << std::setw(4) << hexText(block.room) << "  ";
        if (!block.pointer) {
            out << "past the end of the file\n";
            continue;
        }
        out << std::setw(7) << hexText(*block.pointer) << "  " << std::setw(6)
            << numberText(block.length);
        const char* separator = "  ";
        for (const std::uint32_t room : block.sharedWith) {
            out << separator << hexText(room);
            separator = ", ";
        }
        out << '\n';
    }
    out << "free: " << numberText(listing.freeSpace) << (listing.freeSpace ? " bytes\n" : "\n");
}

void writeListingAsJson(std::ostream& out, const BlockListing& listing)
{
    Json list = Json::array();
    for (const ListedBlock& block : listing.blocks)
        list.push_back({{"room", block.room},
                        {"pointer", numberJson(block.pointer)},
                        {"length", numberJson(block.length)},
                        {"sharedWith", block.sharedWith}});
    writeJson(out, {{"free", numberJson(listing.freeSpace)}, {"blocks", std::move(list)}});
}

} // namespace velko
