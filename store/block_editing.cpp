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

template <typename Visit> void PointerArrayHandler::visitEntries(Visit visit)
{
    const std::uint32_t stride = m_descriptor.pointerPad;
    if (stride == 0)
        return;
    // In 64 bits, so that neither a table that ends at $FFFF nor a huge stride wraps.
    std::uint32_t entry = 0;
    for (std::uint64_t address = m_descriptor.pMemStart; address < m_descriptor.pMemEdge;
         address += stride)
        visit(entry++);
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
    const auto lastUsed = static_cast<std::uint16_t>(freeSpaceStart() - 1);
    for (std::uint32_t i = dataFileOffset(lastUsed); i >= first; --i)
        m_rom.writeByte(i + count, m_rom.readByte(i));
    m_freeSpace -= static_cast<std::int32_t>(count);
    for (std::uint32_t i = 0; i < count; ++i)
        m_rom.writeByte(first + i, bytes[i]);

    const std::uint16_t place = pointerOf(m_currentRoom, offset);
    visitEntries([&](std::uint32_t entry) {
        const std::uint16_t pointer = pointerOf(entry);
        if (pointer > place || (pointer == place && offset >= 1))
            setPointer(entry, static_cast<std::uint16_t>(pointer + count));
    });
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
    return deleteBytesAt(pointerOf(room, offset), count);
}

EditResult PointerArrayHandler::deleteBytesAt(std::uint32_t cpuAddress, std::uint32_t count)
{
    if (m_freeSpace == kFreeSpaceUnknown)
        return kFreeSpaceNotKnown;
    if (count == 0)
        return kDone;
    const auto place = static_cast<std::uint16_t>(cpuAddress & 0xFFFF);
    const std::uint16_t usedEnd = freeSpaceStart();
    const auto newUsedEnd = static_cast<std::uint16_t>(usedEnd - count);

    const std::uint32_t last = dataFileOffset(static_cast<std::uint16_t>(newUsedEnd - 1));
    for (std::uint32_t i = dataFileOffset(place); i <= last; ++i)
        m_rom.writeByte(i, m_rom.readByte(i + count));
    const std::uint32_t lastFreed = dataFileOffset(static_cast<std::uint16_t>(usedEnd - 1));
    for (std::uint32_t i = dataFileOffset(newUsedEnd); i <= lastFreed; ++i)
        m_rom.writeByte(i, 0);

    visitEntries([&](std::uint32_t entry) {
        const std::uint16_t pointer = pointerOf(entry);
        if (pointer > place)
            setPointer(entry, static_cast<std::uint16_t>(pointer - count));
    });
    m_freeSpace = static_cast<std::int32_t>(static_cast<std::uint32_t>(m_freeSpace) + count);
    return kDone;
}

std::uint16_t PointerArrayHandler::freeSpaceStart() const
{
    return static_cast<std::uint16_t>(m_descriptor.dEdge - m_freeSpace);
}

} // namespace velko
