#include "store/pointer_array_handler.h"

#include <array>
#include <vector>

// The two operations that change the size of a block. They walk file offsets, not addresses, as
// the region is one run of bytes in the file.

namespace velko {

namespace {

constexpr EditResult kDone{0};
constexpr EditResult kFreeSpaceNotKnown{1};

EditResult notEnoughFreeSpace(std::int64_t shortfall)
{
    return {(static_cast<std::uint32_t>(shortfall) << 16) | 2};
}

} // namespace

// File offset just behind the byte that lies before an address: the end of a run of bytes, which
// may be the end of a bank.
std::uint32_t PointerArrayHandler::endOffset(std::uint16_t cpuAddress) const
{
    return dataFileOffset(static_cast<std::uint16_t>(cpuAddress - 1)) + 1;
}

void PointerArrayHandler::movePointers(std::uint32_t lowest, std::uint32_t distance)
{
    const std::uint32_t stride = m_descriptor.pointerPad;
    if (stride == 0)
        return;
    // In 64 bits, so that neither a table that ends at $FFFF nor a huge stride wraps.
    for (std::uint64_t address = m_descriptor.pMemStart; address < m_descriptor.pMemEdge;
         address += stride) {
        const std::uint32_t entry = tableFileOffset(static_cast<std::uint32_t>(address));
        const std::uint32_t pointer =
            m_rom.readByte(entry) | std::uint32_t{m_rom.readByte(entry + 1)} << 8;
        // Without a jump, which in a table of random pointers would cost more than the writes.
        const std::uint32_t moved = pointer + (pointer < lowest ? 0 : distance);
        m_rom.writeByte(entry, static_cast<std::uint8_t>(moved & 0xFF));
        m_rom.writeByte(entry + 1, static_cast<std::uint8_t>(moved >> 8 & 0xFF));
    }
}

EditResult PointerArrayHandler::insertBytes(std::uint32_t offset,
                                            std::span<const std::uint8_t> bytes)
{
    if (m_freeSpace == kFreeSpaceUnknown)
        return kFreeSpaceNotKnown;
    const auto count = static_cast<std::uint32_t>(bytes.size());
    const std::int64_t shortfall = std::int64_t{count} - m_freeSpace;
    if (shortfall > 0)
        return notEnoughFreeSpace(shortfall);

    const std::uint32_t first = dataFileOffset(pointerOf(m_currentRoom, offset));
    const std::uint32_t usedEnd = endOffset(freeSpaceStart());
    if (first < usedEnd)
        m_rom.moveBytes(first + count, first, usedEnd - first);
    m_freeSpace -= static_cast<std::int32_t>(count);
    for (std::uint32_t i = 0; i < count; ++i)
        m_rom.writeByte(first + i, bytes[i]);

    // Inside a block, the block that starts exactly here is the one behind it.
    const std::uint32_t place = pointerOf(m_currentRoom, offset);
    movePointers(offset >= 1 ? place : place + 1, count);
    return kDone;
}

EditResult PointerArrayHandler::insertByte(std::uint32_t offset, std::uint8_t value)
{
    return insertBytes(offset, {&value, 1});
}

EditResult PointerArrayHandler::insertWord(std::uint32_t offset, std::uint16_t value)
{
    const std::array<std::uint8_t, 2> bytes = {static_cast<std::uint8_t>(value & 0xFF),
                                               static_cast<std::uint8_t>(value >> 8)};
    return insertBytes(offset, bytes);
}

EditResult PointerArrayHandler::insertBlank(std::uint32_t offset, std::uint32_t count)
{
    if (m_freeSpace == kFreeSpaceUnknown)
        return kFreeSpaceNotKnown;
    // Asked here as well, before memory for an absurd count is taken.
    const std::int64_t shortfall = std::int64_t{count} - m_freeSpace;
    if (shortfall > 0)
        return notEnoughFreeSpace(shortfall);
    return insertBytes(offset, std::vector<std::uint8_t>(count));
}

EditResult PointerArrayHandler::deleteBytes(std::uint32_t offset, std::uint32_t count,
                                            std::uint32_t room)
{
    if (m_freeSpace == kFreeSpaceUnknown)
        return kFreeSpaceNotKnown;
    closeGap(pointerOf(room, offset), count);
    // Read again, in case the table itself lies among the bytes that moved.
    lowerPointersAbove(pointerOf(room, offset), count);
    return kDone;
}

EditResult PointerArrayHandler::deleteBytesAt(std::uint32_t cpuAddress, std::uint32_t count)
{
    if (m_freeSpace == kFreeSpaceUnknown)
        return kFreeSpaceNotKnown;
    const auto place = static_cast<std::uint16_t>(cpuAddress & 0xFFFF);
    closeGap(place, count);
    lowerPointersAbove(place, count);
    return kDone;
}

void PointerArrayHandler::closeGap(std::uint16_t place, std::uint32_t count)
{
    // No bytes have no last one: its address might map to another bank, far behind the first.
    if (count == 0)
        return;
    const std::uint16_t usedEnd = freeSpaceStart();
    const auto newUsedEnd = static_cast<std::uint16_t>(usedEnd - count);
    const std::uint32_t first = dataFileOffset(place);
    const std::uint32_t movedEnd = endOffset(newUsedEnd);
    if (first < movedEnd)
        m_rom.moveBytes(first, first + count, movedEnd - first);
    const std::uint32_t freedEnd = endOffset(usedEnd);
    for (std::uint32_t i = dataFileOffset(newUsedEnd); i < freedEnd; ++i)
        m_rom.writeByte(i, 0);
    m_freeSpace = static_cast<std::int32_t>(static_cast<std::uint32_t>(m_freeSpace) + count);
}

std::uint16_t PointerArrayHandler::freeSpaceStart() const
{
    return static_cast<std::uint16_t>(m_descriptor.dEdge - static_cast<std::uint32_t>(m_freeSpace));
}

} // namespace velko
