#pragma once

#include "rom/user_prompt.h"
#include "store/block_kinds.h"
#include "store/pointer_array_handler.h"

#include <cstdint>
#include <span>
#include <string>

namespace velko {

// What cloneDataOfRoom() did.
enum class CloneResult : std::uint8_t {
    kNothing = 0,
    kWholeBlock = 1,
    kPartOfLonger = 2,    // room B's block is longer than the room's own
    kWholeIntoLonger = 3, // room B's block is no longer than the room's own
};

// Operations on whole blocks of one kind of data, for the handler's current room. Messages and
// questions go through the prompt; refreshing pages and rebuilding the room's pattern memory
// after a change is up to the caller. `roomB` is taken as it comes: an index outside the table
// addresses the bytes that lie there.
class BlockOperations {
public:
    BlockOperations(PointerArrayHandler& handler, const BlockKind& kind, UserPrompt& prompt);

    // Makes the room use the block of room B; the room's own block stays where it is.
    void setPointerToRoom(std::uint32_t roomB);

    // Gives the room a block of its own, `initialBytes`, at the start of the free space. The old
    // block stays in the region until deleteUnusedData() reclaims it. Returns false, changing
    // nothing, when the free space is too small, which is told.
    bool allocateUniqueData(std::span<const std::uint8_t> initialBytes);

    // Removes the room's block. Rooms that shared it keep their pointers, to what followed it.
    // Where nothing followed, the room takes over the pointer of the next room that has another.
    void deleteData();

    // Copies the block of room B over the room's own, which is asked for when they differ in
    // length: adjust the room's block, copy what fits, or do nothing.
    CloneResult cloneDataOfRoom(std::uint32_t roomB);

    // Closes the gaps between blocks, of every table entry, rooms or not, and tells how much that
    // was. What lies below the lowest block and above the highest is left alone. While the free
    // space is not known nothing can be removed, and what was found is told all the same.
    void deleteUnusedData();

    // Makes all entries with identical blocks share one. `roomNames` word the messages; entries
    // past it have empty names.
    void joinIdenticalData(std::span<const std::string> roomNames);

private:
    std::uint32_t entryCount() const;
    std::uint32_t length(std::uint32_t room) const { return m_kind.length(m_handler, room); }

    void askToCopySize(std::uint32_t roomB);
    void setRoomSize(std::uint8_t width, std::uint8_t height);
    void leaveFreeSpace();
    bool adjustLength(std::uint32_t from, std::uint32_t to);
    void copyFrom(std::uint32_t roomB, std::uint32_t count);
    void join(std::uint32_t keeper, std::uint32_t joined, std::uint32_t blockLength);

    PointerArrayHandler& m_handler;
    const BlockKind& m_kind;
    UserPrompt& m_prompt;
};

} // namespace velko
