#include "store/pointer_array_handler.h"

#include <algorithm>

namespace velko {

namespace {

// Entry bytes 0 and 1 are the block's address.
constexpr std::uint32_t kPointerLow = 0;
constexpr std::uint32_t kPointerHigh = 1;

constexpr std::uint16_t wordOf(std::uint8_t low, std::uint8_t high)
{
    return static_cast<std::uint16_t>(low | (high << 8));
}

constexpr std::uint8_t lowByte(std::uint16_t word)
{
    return static_cast<std::uint8_t>(word & 0xFF);
}

constexpr std::uint8_t highByte(std::uint16_t word)
{
    return static_cast<std::uint8_t>(word >> 8);
}

} // namespace

PointerArrayHandler::PointerArrayHandler(RomImage& rom, const PointerArrayDescriptor& descriptor)
    : m_rom(rom), m_descriptor(descriptor)
{
}

std::int32_t PointerArrayHandler::entryCount() const
{
    if (m_descriptor.pointerPad == 0)
        return 0;
    // 64 bits, so that a stride above the signed 32-bit range divides as the number it is.
    const std::int64_t tableBytes = std::int64_t{m_descriptor.pMemEdge} - m_descriptor.pMemStart;
    return static_cast<std::int32_t>(tableBytes / std::int64_t{m_descriptor.pointerPad});
}

std::uint16_t PointerArrayHandler::pointerOf(std::uint32_t room, std::uint32_t offset) const
{
    const std::uint16_t stored =
        wordOf(entryByte(kPointerLow, room), entryByte(kPointerHigh, room));
    return static_cast<std::uint16_t>((stored + offset) & 0xFFFF);
}

void PointerArrayHandler::setPointer(std::uint32_t room, std::uint16_t cpuAddress)
{
    setEntryByte(kPointerLow, lowByte(cpuAddress), room);
    setEntryByte(kPointerHigh, highByte(cpuAddress), room);
}

void PointerArrayHandler::readPointers(std::vector<std::uint16_t>& pointers) const
{
    pointers.resize(static_cast<std::size_t>(std::max(entryCount(), 0)));
    std::uint32_t cpuAddress = m_descriptor.pMemStart;
    for (std::uint16_t& pointer : pointers) {
        const std::uint32_t entry = tableFileOffset(cpuAddress);
        pointer = wordOf(m_rom.readByte(entry + kPointerLow), m_rom.readByte(entry + kPointerHigh));
        cpuAddress += m_descriptor.pointerPad;
    }
}

std::uint8_t PointerArrayHandler::entryByte(std::uint32_t index, std::uint32_t room) const
{
    return m_rom.readByte(entryFileOffset(room) + index);
}

void PointerArrayHandler::setEntryByte(std::uint32_t index, std::uint8_t value, std::uint32_t room)
{
    m_rom.writeByte(entryFileOffset(room) + index, value);
}

std::uint32_t PointerArrayHandler::entryFileOffset(std::uint32_t room) const
{
    return tableFileOffset(m_descriptor.pMemStart + room * m_descriptor.pointerPad);
}

std::uint32_t PointerArrayHandler::dataFileOffset(std::uint16_t cpuAddress) const
{
    return cpuToFileOffset(m_descriptor.dBank, cpuAddress);
}

std::uint8_t PointerArrayHandler::byteAt(std::uint16_t cpuAddress) const
{
    return m_rom.readByte(dataFileOffset(cpuAddress));
}

std::uint16_t PointerArrayHandler::wordAt(std::uint16_t cpuAddress) const
{
    const std::uint32_t fileOffset = dataFileOffset(cpuAddress);
    return wordOf(m_rom.readByte(fileOffset), m_rom.readByte(fileOffset + 1));
}

void PointerArrayHandler::readDataBank(std::uint32_t slot, std::span<std::uint8_t> bytes) const
{
    m_rom.readBlock(dataFileOffset(static_cast<std::uint16_t>(slot * kBankSize)), bytes);
}

std::uint8_t PointerArrayHandler::dataByte(std::uint32_t offset, std::uint32_t room) const
{
    return byteAt(pointerOf(room, offset));
}

std::uint16_t PointerArrayHandler::dataWord(std::uint32_t offset, std::uint32_t room) const
{
    return wordAt(pointerOf(room, offset));
}

void PointerArrayHandler::setDataByte(std::uint32_t offset, std::uint8_t value)
{
    m_rom.writeByte(dataFileOffset(pointerOf(m_currentRoom, offset)), value);
}

void PointerArrayHandler::setDataWord(std::uint32_t offset, std::uint16_t value)
{
    const std::uint32_t fileOffset = dataFileOffset(pointerOf(m_currentRoom, offset));
    m_rom.writeByte(fileOffset, lowByte(value));
    m_rom.writeByte(fileOffset + 1, highByte(value));
}

} // namespace velko
