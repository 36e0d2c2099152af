#include "tools/area_movement.h"

#include "tests/tools/overworld_rom.h"

#include <numeric>
#include <rapidcheck/gtest.h>

// Random blocks, some shared, in random order but for area 0's, which lies highest, edited beside
// a plain model: every area must go on reading its own entries.

namespace velko {
namespace {

using test::Bytes;
using test::OverworldRom;
namespace overworld = test::overworld;

constexpr std::size_t kAreas = 6;
constexpr std::size_t kRegionBytes = 0x80;

class Rehearsal {
public:
    Rehearsal()
    {
        const auto count = *rc::gen::inRange<std::size_t>(1, kAreas + 1);
        for (std::size_t i = 0; i < count; ++i)
            m_blocks.push_back(someBlock());
        m_blockOfArea.assign(1, count - 1);
        for (std::size_t area = 1; area < kAreas; ++area)
            m_blockOfArea.push_back(*rc::gen::inRange<std::size_t>(0, count));

        OverworldRom game;
        Bytes data;
        std::vector<std::uint8_t> starts;
        for (const Bytes& block : m_blocks) {
            starts.push_back(static_cast<std::uint8_t>(data.size()));
            data.insert(data.end(), block.begin(), block.end());
        }
        data.resize(kRegionBytes);
        data.push_back(0xEE); // of somebody else
        game.write(overworld::kMovement, data);
        // Of the table only the first entries are areas; the others must follow all the same.
        for (std::uint32_t area = 0; area < kAreas; ++area)
            game.write(overworld::kMovementTable + 2 * area, {starts[m_blockOfArea[area]], 0x81});
        game.config.pahMapAreaMovement.pMemEdge = 0x8000 + 2 * kAreas;
        game.config.pahMapAreaMovement.dEdge = 0x8100 + kRegionBytes;
        game.config.setValue(MiscField::areas, 2);
        m_rom.setBytes(game.bytes);
        m_handler.setDescriptor(game.config.pahMapAreaMovement);
        m_movement.open();
    }

    void add()
    {
        Bytes& block = chosenBlock();
        const auto index = *rc::gen::inRange(0, block[0] / 2);
        const bool fits = usedBytes() + 2 <= kRegionBytes;
        RC_ASSERT(m_movement.addEntry(index) == fits);
        if (!fits)
            return;
        block.insert(block.begin() + 2 * index + 4, 2, 0);
        block[0] = static_cast<std::uint8_t>(block[0] + 2);
    }
    void remove()
    {
        Bytes& block = chosenBlock();
        const auto index = *rc::gen::inRange(0, block[0] / 2);
        RC_ASSERT(m_movement.removeEntry(index) == (block[0] >= 4));
        if (block[0] < 4)
            return;
        block.erase(block.begin() + 2 * index + 2, block.begin() + 2 * index + 4);
        block[0] = static_cast<std::uint8_t>(block[0] - 2);
    }
    void change()
    {
        Bytes& block = chosenBlock();
        const auto index = *rc::gen::inRange(0, block[0] / 2);
        const auto value = *rc::gen::inRange(0, 16);
        m_movement.setChopperSprite(index, value);
        m_movement.setSecondDigit(index, value);
        std::uint8_t& sprites = block[static_cast<std::size_t>(2 * index + 2)];
        std::uint8_t& digits = block[static_cast<std::size_t>(2 * index + 3)];
        sprites = static_cast<std::uint8_t>((sprites & 0x0F) | value << 4);
        digits = static_cast<std::uint8_t>((digits & 0xF0) | value);
    }

    void checkAll()
    {
        for (std::uint32_t area = 0; area < kAreas; ++area) {
            const Bytes& block = m_blocks[m_blockOfArea[area]];
            Bytes read;
            for (std::uint32_t i = 0; i < block.size(); ++i)
                read.push_back(m_handler.dataByte(i, area));
            RC_ASSERT(read == block);
        }
        RC_ASSERT(m_handler.freeSpace() == static_cast<int>(kRegionBytes - usedBytes()));
        for (std::size_t i = usedBytes(); i < kRegionBytes; ++i)
            RC_ASSERT(byteOfRegion(i) == 0);
        RC_ASSERT(byteOfRegion(kRegionBytes) == 0xEE);
    }

private:
    static Bytes someBlock()
    {
        const auto entries = *rc::gen::inRange<std::size_t>(1, 5);
        Bytes block =
            *rc::gen::container<Bytes>(2 + 2 * entries, rc::gen::arbitrary<std::uint8_t>());
        block[0] = static_cast<std::uint8_t>(2 * entries);
        return block;
    }
    Bytes& chosenBlock()
    {
        const auto area = *rc::gen::inRange<std::size_t>(0, kAreas);
        m_movement.selectArea(static_cast<std::uint32_t>(area));
        return m_blocks[m_blockOfArea[area]];
    }
    std::size_t usedBytes() const
    {
        return std::accumulate(m_blocks.begin(), m_blocks.end(), std::size_t{0},
                               [](std::size_t sum, const Bytes& b) { return sum + b.size(); });
    }
    std::uint8_t byteOfRegion(std::size_t position) const
    {
        return m_rom.readByte(overworld::kMovement + static_cast<std::uint32_t>(position));
    }

    std::vector<Bytes> m_blocks;
    std::vector<std::size_t> m_blockOfArea;
    RomImage m_rom;
    PointerArrayHandler m_handler{m_rom};
    AreaMovement m_movement{m_handler};
};

RC_GTEST_PROP(AreaMovementProperty, EveryAreaKeepsItsEntriesThroughAnyEdits, ())
{
    Rehearsal rehearsal;
    rehearsal.checkAll();
    const auto edits = *rc::gen::inRange(0, 60);
    for (int i = 0; i < edits; ++i) {
        switch (*rc::gen::weightedElement<int>({{3, 0}, {2, 1}, {1, 2}})) {
        case 0:
            rehearsal.add();
            break;
        case 1:
            rehearsal.remove();
            break;
        default:
            rehearsal.change();
        }
        rehearsal.checkAll();
    }
}

} // namespace
} // namespace velko
