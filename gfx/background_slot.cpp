#include "gfx/background_slot.h"

namespace velko {

namespace {

constexpr std::uint32_t kAttributeStart = kBackgroundSlots;

// An attribute nibble.
constexpr unsigned kBankBits = 3;
constexpr unsigned kMirrorBit = 4;
constexpr unsigned kUnusedBit = 8;

constexpr std::uint32_t attributeIndex(std::uint32_t slot)
{
    return kAttributeStart + slot / 2;
}

constexpr unsigned attributeShift(std::uint32_t slot)
{
    return slot % 2 == 0 ? 4 : 0;
}

} // namespace

BackgroundSlot readBackgroundSlot(const PointerArrayHandler& tileLoad, std::uint32_t slot)
{
    const unsigned attribute = tileLoad.dataByte(attributeIndex(slot)) >> attributeShift(slot);
    BackgroundSlot value;
    value.block = tileLoad.dataByte(slot);
    value.bankOffset = static_cast<std::uint8_t>(attribute & kBankBits);
    value.mirrored = (attribute & kMirrorBit) != 0;
    value.unusedBit = (attribute & kUnusedBit) != 0;
    return value;
}

void writeBackgroundSlot(PointerArrayHandler& tileLoad, std::uint32_t slot,
                         const BackgroundSlot& value)
{
    const unsigned attribute = (value.bankOffset & kBankBits) | (value.mirrored ? kMirrorBit : 0)
        | (value.unusedBit ? kUnusedBit : 0);
    const unsigned shift = attributeShift(slot);
    const unsigned kept = tileLoad.dataByte(attributeIndex(slot)) & ~(0xFU << shift);
    tileLoad.setDataByte(slot, value.block);
    tileLoad.setDataByte(attributeIndex(slot),
                         static_cast<std::uint8_t>(kept | attribute << shift));
}

std::uint32_t backgroundBlockOffset(const GameConfig& config, std::uint32_t bankOffset,
                                    std::uint32_t block)
{
    const std::uint32_t bank = config.value(MiscField::startGfxBg) + bankOffset;
    return bank * kBankSize + block * kBackgroundBlockBytes + kHeaderSize;
}

} // namespace velko
