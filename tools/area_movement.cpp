#include "tools/area_movement.h"

#include <array>

namespace velko {

namespace {

constexpr std::uint32_t kEntryBytes = 2;

// The bytes of an entry.
constexpr std::uint32_t kSprites = 0;
constexpr std::uint32_t kDigits = 1;

std::uint32_t entryOffset(int index)
{
    return AreaMovement::kHeadBytes + kEntryBytes * static_cast<std::uint32_t>(index);
}

constexpr std::uint8_t highNibble(std::uint8_t byte)
{
    return byte >> 4;
}

constexpr std::uint8_t lowNibble(std::uint8_t byte)
{
    return byte & 15;
}

} // namespace

void AreaMovement::open()
{
    m_handler.selectRoom(0);
    const std::uint16_t end = m_handler.pointerOf(0, m_handler.dataByte(0) + kHeadBytes);
    m_handler.setFreeSpace(m_handler.descriptor().dEdge - end);
}

int AreaMovement::entryCount() const
{
    return m_handler.dataByte(0) / 2;
}

AreaMovement::Entry AreaMovement::entry(int index) const
{
    if (!has(index))
        return {};
    const std::uint8_t sprites = m_handler.dataByte(entryOffset(index) + kSprites);
    const std::uint8_t digits = m_handler.dataByte(entryOffset(index) + kDigits);
    return {highNibble(sprites), lowNibble(sprites), highNibble(digits), lowNibble(digits)};
}

void AreaMovement::setNibble(int index, std::uint32_t byte, Nibble nibble, int value)
{
    if (!has(index))
        return;
    const std::uint32_t offset = entryOffset(index) + byte;
    const int old = m_handler.dataByte(offset);
    const int changed =
        nibble == Nibble::kHigh ? (old & 0x0F) | (value & 15) << 4 : (old & 0xF0) | (value & 15);
    m_handler.setDataByte(offset, static_cast<std::uint8_t>(changed));
}

void AreaMovement::setChopperSprite(int index, int value)
{
    setNibble(index, kSprites, Nibble::kHigh, value);
}

void AreaMovement::setPathPreviewSprite(int index, int value)
{
    setNibble(index, kSprites, Nibble::kLow, value);
}

void AreaMovement::setFirstDigit(int index, int value)
{
    setNibble(index, kDigits, Nibble::kHigh, value);
}

void AreaMovement::setSecondDigit(int index, int value)
{
    setNibble(index, kDigits, Nibble::kLow, value);
}

bool AreaMovement::addEntry(int index)
{
    constexpr std::array<std::uint8_t, kEntryBytes> kZeros{};
    const std::uint32_t count = m_handler.dataByte(0);
    if (count + kEntryBytes > kLargestCount)
        return false;
    // A block without entries ends behind its head: there is none to insert behind.
    const std::uint32_t place = has(index) ? entryOffset(index + 1) : kHeadBytes;
    if (!m_handler.insertBytes(place, kZeros).ok())
        return false;
    m_handler.setDataByte(0, static_cast<std::uint8_t>(count + kEntryBytes));
    return true;
}

bool AreaMovement::removeEntry(int index)
{
    if (entryCount() < 2 || !has(index))
        return false;
    if (!m_handler.deleteBytes(entryOffset(index), kEntryBytes).ok())
        return false;
    m_handler.setDataByte(0, static_cast<std::uint8_t>(m_handler.dataByte(0) - kEntryBytes));
    return true;
}

} // namespace velko
