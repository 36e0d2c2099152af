#include "pages/tile32_packing.h"

namespace velko {

namespace {

// A cell within a group.
constexpr unsigned kCellBits = 14;
constexpr unsigned kPaletteShift = 8;
constexpr unsigned kPhysicsShift = 10;
constexpr std::uint64_t kCellMask = (1U << kCellBits) - 1;

// What a group of the last row is compared by.
constexpr std::uint64_t kLastRowMask =
    kCellMask | kCellMask << kCellBits | std::uint64_t{15} << (2 * kCellBits + kPhysicsShift);

constexpr std::uint64_t cellBits(std::uint8_t metatile, std::uint8_t palette, std::uint8_t physics)
{
    return metatile | (palette & 3U) << kPaletteShift | (physics & 15U) << kPhysicsShift;
}

constexpr std::uint64_t cellBits(const MetatileCell& cell)
{
    return cellBits(cell.metatile, cell.palette, cell.physics);
}

std::uint64_t cellBits(const ScreenMap16& screen, std::size_t cell)
{
    return cellBits(screen.metatile[cell], screen.palette[cell], screen.physics[cell]);
}

// Two cells side by side.
std::uint64_t pairBits(const ScreenMap16& screen, std::size_t leftCell)
{
    return cellBits(screen, leftCell) | cellBits(screen, leftCell + 1) << kCellBits;
}

} // namespace

Tile32Group Tile32Group::of(const MetatileCell& topLeft, const MetatileCell& topRight,
                            const MetatileCell& bottomLeft, const MetatileCell& bottomRight)
{
    return {cellBits(topLeft) | cellBits(topRight) << kCellBits
            | cellBits(bottomLeft) << (2 * kCellBits) | cellBits(bottomRight) << (3 * kCellBits)};
}

MetatileCell Tile32Group::cell(std::uint32_t row, std::uint32_t column) const
{
    const std::uint64_t cell = bits >> ((2 * (row & 1) + (column & 1)) * kCellBits);
    return {static_cast<std::uint8_t>(cell & 0xFF),
            static_cast<std::uint8_t>(cell >> kPaletteShift & 3),
            static_cast<std::uint8_t>(cell >> kPhysicsShift & 15)};
}

Tile32 Tile32Group::record() const
{
    Tile32 record;
    for (std::uint32_t row = 0; row < 2; ++row) {
        for (std::uint32_t column = 0; column < 2; ++column) {
            const MetatileCell quadrant = cell(row, column);
            record.enter(row, column, quadrant.metatile, quadrant.palette, quadrant.physics);
        }
    }
    return record;
}

Tile32Group groupOf(const ScreenMap16& screen, std::uint32_t row, std::uint32_t column)
{
    const std::uint32_t top = 2 * row;
    const std::uint32_t bottom = top + 1 < kScreenRows ? top + 1 : top;
    return {pairBits(screen, top * kScreenColumns + 2 * column)
            | pairBits(screen, bottom * kScreenColumns + 2 * column) << (2 * kCellBits)};
}

ScreenGroups groupsOf(const ScreenMap16& screen)
{
    ScreenGroups groups;
    for (std::uint32_t row = 0, i = 0; row < kTile32Rows; ++row) {
        for (std::uint32_t column = 0; column < kTile32Columns; ++column, ++i)
            groups[i] = groupOf(screen, row, column);
    }
    return groups;
}

Tile32Packer::FirstBlocks::FirstBlocks()
{
    m_keys.fill(kNoKey);
}

std::size_t Tile32Packer::FirstBlocks::slotOf(std::uint64_t key) const
{
    constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15; // odd, its bits without a pattern
    std::size_t slot = static_cast<std::size_t>(key * kSpread >> (64 - kSlotBits));
    while (m_keys[slot] != kNoKey && m_keys[slot] != key)
        slot = (slot + 1) % kSlots;
    return slot;
}

void Tile32Packer::FirstBlocks::enter(std::size_t slot, std::uint64_t key, std::uint8_t number)
{
    m_keys[slot] = key;
    m_numbers[slot] = number;
}

Tile32Packer::Tile32Packer() = default;

Tile32Numbers Tile32Packer::pack(const ScreenGroups& screen)
{
    Tile32Numbers numbers;
    std::size_t i = 0;
    for (; i < kTile32PerScreen - kTile32Columns; ++i)
        numbers[i] = numberOf(screen[i]);
    for (; i < kTile32PerScreen; ++i)
        numbers[i] = numberInLastRow(screen[i]);
    return numbers;
}

std::uint8_t Tile32Packer::numberOf(Tile32Group group)
{
    const std::size_t slot = m_byGroup.slotOf(group.bits);
    return m_byGroup.holds(slot) ? m_byGroup.number(slot) : append(group);
}

std::uint8_t Tile32Packer::numberInLastRow(Tile32Group group)
{
    const std::size_t slot = m_byLastRow.slotOf(group.bits & kLastRowMask);
    return m_byLastRow.holds(slot) ? m_byLastRow.number(slot) : append(group);
}

std::uint8_t Tile32Packer::append(Tile32Group group)
{
    if (m_used == kMostTile32) {
        m_limitExceeded = true;
        return 0;
    }
    const auto number = static_cast<std::uint8_t>(m_used++);
    m_set[number] = group;
    // Several blocks may look alike in a last row, where the first of them counts.
    const std::uint64_t inLastRow = group.bits & kLastRowMask;
    m_byGroup.enter(m_byGroup.slotOf(group.bits), group.bits, number);
    if (const std::size_t slot = m_byLastRow.slotOf(inLastRow); !m_byLastRow.holds(slot))
        m_byLastRow.enter(slot, inLastRow, number);
    return number;
}

} // namespace velko
