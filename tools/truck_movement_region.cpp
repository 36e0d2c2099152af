#include "tools/truck_movement_region.h"

namespace velko {

namespace {

constexpr EditResult kDone{0};
constexpr EditResult kFreeBytesNotKnown{1};

// The configuration's numbers are wider than the addresses they tell.
std::uint32_t address(const GameConfig& config, MiscField field)
{
    return config.value(field) & 0xFFFF;
}

} // namespace

TruckMovementRegion::TruckMovementRegion(RomImage& rom, const GameConfig& config)
    : m_rom(rom), m_config(config)
{
    if (patternSets() == 0)
        return;
    const std::uint32_t last = patternSets() - 1;
    const std::uint32_t end = address(config, MiscField::bpahTruckMovement_dMemStart)
        + pointer(last) + lastPhase(last) + 1;
    m_freeBytes =
        static_cast<std::int16_t>(address(config, MiscField::bpahTruckMovement_dMemEdge) - end);
}

std::uint32_t TruckMovementRegion::patternSets() const
{
    const std::uint32_t start = address(m_config, MiscField::bpahTruckMovement_pMemStart);
    const std::uint32_t edge = address(m_config, MiscField::bpahTruckMovement_pMemEdge);
    return edge > start ? edge - start : 0;
}

std::uint32_t TruckMovementRegion::fileOffset(const GameConfig& config, std::uint32_t cpuAddress)
{
    return config.value(MiscField::bpahTruckMovement_bank) * kBankSize + (cpuAddress & 0x7FFF)
        + kHeaderSize;
}

std::uint32_t TruckMovementRegion::pointerOffset(std::uint32_t patternSet) const
{
    return fileOffset(m_config.value(MiscField::bpahTruckMovement_pMemStart) + patternSet);
}

std::uint8_t TruckMovementRegion::pointer(std::uint32_t patternSet) const
{
    return m_rom.readByte(pointerOffset(patternSet));
}

std::uint32_t TruckMovementRegion::dataOffset(std::uint32_t position) const
{
    return fileOffset(m_config.value(MiscField::bpahTruckMovement_dMemStart) + position);
}

std::uint32_t TruckMovementRegion::usedEnd() const
{
    const std::uint32_t size = m_config.value(MiscField::bpahTruckMovement_dMemEdge)
        - m_config.value(MiscField::bpahTruckMovement_dMemStart);
    return (size - static_cast<std::uint32_t>(m_freeBytes)) & 0xFFFF;
}

std::uint32_t TruckMovementRegion::phaseOffset(std::uint32_t patternSet, std::uint32_t index) const
{
    return dataOffset(pointer(patternSet) + index);
}

std::uint8_t TruckMovementRegion::phase(std::uint32_t patternSet, std::uint32_t index) const
{
    return m_rom.readByte(phaseOffset(patternSet, index));
}

void TruckMovementRegion::setPhase(std::uint32_t index, std::uint8_t value)
{
    m_rom.writeByte(phaseOffset(m_currentSet, index), value);
}

std::uint32_t TruckMovementRegion::lastPhase(std::uint32_t patternSet) const
{
    std::uint32_t index = 0;
    while (index < kMostPhases - 1 && (phase(patternSet, index) & kLastPhaseMark) == 0)
        ++index;
    return index;
}

bool TruckMovementRegion::canEdit() const
{
    return m_freeBytes != kFreeBytesUnknown && m_currentSet < patternSets();
}

template <typename Follows>
void TruckMovementRegion::movePointers(std::uint32_t distance, Follows follows)
{
    for (std::uint32_t set = 0; set < patternSets(); ++set) {
        const std::uint8_t old = pointer(set);
        if (follows(old))
            m_rom.writeByte(pointerOffset(set), static_cast<std::uint8_t>(old + distance));
    }
}

EditResult TruckMovementRegion::insertBytes(std::uint32_t offset,
                                            std::span<const std::uint8_t> bytes)
{
    if (!canEdit())
        return kFreeBytesNotKnown;
    const auto count = static_cast<std::uint32_t>(bytes.size());
    const std::int64_t shortfall = std::int64_t{count} - m_freeBytes;
    if (shortfall > 0)
        return {(static_cast<std::uint32_t>(shortfall) << 16) | 2};

    const std::uint32_t place = pointer(m_currentSet) + offset;
    for (std::uint32_t from = usedEnd(); from > place; --from)
        m_rom.writeByte(dataOffset(from - 1 + count), m_rom.readByte(dataOffset(from - 1)));
    m_freeBytes = static_cast<std::int16_t>(m_freeBytes - static_cast<std::int32_t>(count));
    for (std::uint32_t i = 0; i < count; ++i)
        m_rom.writeByte(dataOffset(place + i), bytes[i]);
    movePointers(count, [&](std::uint8_t pointer) {
        return pointer > place || (pointer == place && offset >= 1);
    });
    return kDone;
}

EditResult TruckMovementRegion::deleteBytes(std::uint32_t offset, std::uint32_t count)
{
    if (!canEdit())
        return kFreeBytesNotKnown;
    const std::uint32_t place = pointer(m_currentSet) + offset;
    const std::uint32_t oldEnd = usedEnd();
    // Where more is removed than is in use, nothing below the region may be cleared.
    const std::uint32_t newEnd = oldEnd > count ? oldEnd - count : 0;
    for (std::uint32_t to = place; to < newEnd; ++to)
        m_rom.writeByte(dataOffset(to), m_rom.readByte(dataOffset(to + count)));
    for (std::uint32_t freed = newEnd; freed < oldEnd; ++freed)
        m_rom.writeByte(dataOffset(freed), 0);
    movePointers(0 - count, [&](std::uint8_t pointer) { return pointer > place; });
    m_freeBytes = static_cast<std::int16_t>(static_cast<std::uint32_t>(m_freeBytes) + count);
    return kDone;
}

} // namespace velko
