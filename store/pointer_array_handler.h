#pragma once

#include "rom/game_config.h"
#include "rom/rom_image.h"

#include <cstdint>
#include <span>
#include <vector>

namespace velko {

// What inserting into or deleting from a block did. Unless ok(), nothing has changed.
struct [[nodiscard]] EditResult {
    // 0 done; 1 the free space is not known; (shortfall << 16) | 2 not enough free space.
    std::uint32_t code = 0;

    bool ok() const { return code == 0; }
    // Bytes that were missing, modulo 65536.
    std::uint32_t shortfall() const { return code >> 16; }
};

// One kind of room data: a table of 16-bit little-endian CPU addresses, one entry per room, that
// points at packed blocks of varying length in a data region. Several rooms may point at the
// same block. A table entry is `pointerPad` bytes long; bytes 0-1 are the address, what follows
// are parameters of the room.
//
// The handler keeps no copy of the data: every query reads the image again, so an edit by one
// page is seen at once by all. The accessors never fail and never check a room number against
// the table: an index past it reads whatever bytes follow.
class PointerArrayHandler {
public:
    static constexpr std::int32_t kFreeSpaceUnknown = -1;

    explicit PointerArrayHandler(RomImage& rom, const PointerArrayDescriptor& descriptor = {});

    const PointerArrayDescriptor& descriptor() const { return m_descriptor; }
    // Replaces the description; room and free space are kept.
    void setDescriptor(const PointerArrayDescriptor& descriptor) { m_descriptor = descriptor; }

    // The room that the operations without a room argument use. Any value is accepted.
    void selectRoom(std::uint32_t room) { m_currentRoom = room; }
    std::uint32_t currentRoom() const { return m_currentRoom; }

    // Unused bytes at the top of the data region, negative when the blocks already reach beyond
    // `dEdge`. Exactly kFreeSpaceUnknown blocks inserting and deleting, even where a region that
    // is over-full by one byte was computed to be just that.
    std::int32_t freeSpace() const { return m_freeSpace; }
    void setFreeSpace(std::int32_t bytes) { m_freeSpace = bytes; }

    // (`pMemEdge` - `pMemStart`) / `pointerPad`, which may exceed the number of rooms; 0 when
    // `pointerPad` is 0, negative when the table's end lies before its start.
    std::int32_t entryCount() const;

    // The room's pointer plus `offset`, modulo 65536: a CPU address.
    std::uint16_t pointerOf(std::uint32_t room, std::uint32_t offset) const;
    std::uint16_t pointerOf(std::uint32_t room) const { return pointerOf(room, 0); }
    std::uint16_t pointerOf() const { return pointerOf(m_currentRoom, 0); }
    void setPointer(std::uint32_t room, std::uint16_t cpuAddress);
    // Makes `pointers` those of entries 0 to entryCount() - 1.
    void readPointers(std::vector<std::uint16_t>& pointers) const;

    // Byte `index` of the room's table entry.
    std::uint8_t entryByte(std::uint32_t index, std::uint32_t room) const;
    std::uint8_t entryByte(std::uint32_t index) const { return entryByte(index, m_currentRoom); }
    void setEntryByte(std::uint32_t index, std::uint8_t value, std::uint32_t room);
    void setEntryByte(std::uint32_t index, std::uint8_t value)
    {
        setEntryByte(index, value, m_currentRoom);
    }

    // File offset of the room's table entry. The whole sum is masked to 32 KB, so a table at
    // $C000-$FFFF lies in the second 16 KB above `pBank`.
    std::uint32_t entryFileOffset(std::uint32_t room) const;
    // File offset of a CPU address in the data region.
    std::uint32_t dataFileOffset(std::uint16_t cpuAddress) const;

    // The byte or little-endian word at an address of the data region. A word's second byte is
    // the next byte of the file, even where the next address would map elsewhere.
    std::uint8_t byteAt(std::uint16_t cpuAddress) const;
    std::uint16_t wordAt(std::uint16_t cpuAddress) const;

    // Fills `bytes` with those of the file from the start of data bank 0 or 1 on.
    void readDataBank(std::uint32_t slot, std::span<std::uint8_t> bytes) const;

    // The same `offset` bytes into the room's block.
    std::uint8_t dataByte(std::uint32_t offset, std::uint32_t room) const;
    std::uint8_t dataByte(std::uint32_t offset) const { return dataByte(offset, m_currentRoom); }
    std::uint16_t dataWord(std::uint32_t offset, std::uint32_t room) const;
    std::uint16_t dataWord(std::uint32_t offset) const { return dataWord(offset, m_currentRoom); }
    void setDataByte(std::uint32_t offset, std::uint8_t value);
    void setDataWord(std::uint32_t offset, std::uint16_t value);

    // Growing and shrinking blocks. Everything above the place moves, the pointers of the whole
    // table (not only those of the rooms) follow, and bytes are only ever taken from, and
    // returned to, the free space below `dEdge`. A region that spans both windows must have its
    // two banks next to one another in the file.
    //
    // The bytes to move are told by the file offsets of addresses, and nothing is checked against
    // the block or the region: a block that reaches into free space, when it is deleted, takes
    // the end of the used part with it.
    //
    // An insertion at offset 0 becomes the head of the block, for every room that shares it: the
    // pointers to the block's start stay. At any other offset a pointer to exactly that place
    // moves too, since it is the start of the block that follows.
    EditResult insertBytes(std::uint32_t offset, std::span<const std::uint8_t> bytes);
    EditResult insertByte(std::uint32_t offset, std::uint8_t value);
    EditResult insertWord(std::uint32_t offset, std::uint16_t value);
    // Inserts zero bytes, for a caller that fills them afterwards.
    EditResult insertBlank(std::uint32_t offset, std::uint32_t count);

    // Pointers above the place move down by `count`; those to the place itself stay, so the room
    // and all that share its block go on with the bytes behind the removed ones. Whether `count`
    // bytes are in use at all is not checked.
    EditResult deleteBytes(std::uint32_t offset, std::uint32_t count, std::uint32_t room);
    EditResult deleteBytes(std::uint32_t offset, std::uint32_t count)
    {
        return deleteBytes(offset, count, m_currentRoom);
    }
    EditResult deleteWord(std::uint32_t offset) { return deleteBytes(offset, 2); }
    // The same at a CPU address, of which the low 16 bits count.
    EditResult deleteBytesAt(std::uint32_t cpuAddress, std::uint32_t count);

    // The first free byte: `dEdge` - freeSpace(), modulo 65536.
    std::uint16_t freeSpaceStart() const;

private:
    // Adds `distance`, modulo 65536, to the pointers that are no lower than `lowest`, entry by
    // entry: where entries overlap, each is read as the ones before it have left it. A last entry
    // that the table's end cuts through is one of them.
    void movePointers(std::uint32_t lowest, std::uint32_t distance);
    // File offset of an address in the table's banks.
    std::uint32_t tableFileOffset(std::uint32_t cpuAddress) const
    {
        return m_descriptor.pBank * kBankSize + (cpuAddress & 0x7FFF) + kHeaderSize;
    }
    std::uint32_t endOffset(std::uint16_t cpuAddress) const;
    // The two halves of a deletion.
    void closeGap(std::uint16_t place, std::uint32_t count);
    void lowerPointersAbove(std::uint32_t place, std::uint32_t count)
    {
        movePointers(place + 1, 0 - count);
    }

    RomImage& m_rom;
    PointerArrayDescriptor m_descriptor;
    std::uint32_t m_currentRoom = 0;
    std::int32_t m_freeSpace = kFreeSpaceUnknown;
};

} // namespace velko
