// Closing gaps and joining blocks of random regions: no room may notice.

#include "store/block_operations.h"
#include "tests/store/random_source.h"
#include "tests/store/small_region.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace velko {
namespace {

using test::RandomSource;
using test::SmallRegion;
using Bytes = std::vector<std::uint8_t>;
// What each room reads.
using Contents = std::map<std::uint32_t, Bytes>;

class CountingPrompt : public UserPrompt {
public:
    std::vector<std::string> texts;

    void showMessage(std::string_view text, MessageIcon) override { texts.emplace_back(text); }
    bool askYesNo(std::string_view, MessageIcon) override { return false; }
    YesNoCancel askYesNoCancel(std::string_view, MessageIcon) override
    {
        return YesNoCancel::kCancel;
    }

protected:
    bool confirm(std::string_view, std::string_view) override { return false; }
};

// A region of one kind of data. Blocks do not overlap; they may be shared, be copies of one
// another, lie out of order and have orphaned bytes between, below and above them.
class RandomRegion {
public:
    RandomRegion(std::uint32_t seed, RoomDataKind kind)
        : m_random(seed), m_kind(kind), m_rooms(2 + m_random.below(8)), m_region(m_rooms, 4, kEdge)
    {
        place();
    }

    PointerArrayHandler& handler() { return m_region.handler; }
    std::uint32_t rooms() const { return m_rooms; }

    Contents contents() const
    {
        Contents all;
        for (std::uint32_t room = 0; room < m_rooms; ++room) {
            for (std::uint32_t i = 0; i < blockKind(m_kind).length(m_region.handler, room); ++i)
                all[room].push_back(m_region.handler.dataByte(i, room));
        }
        return all;
    }

    // Bytes from the lowest block's start to the highest block's end that no block holds.
    std::size_t orphansBetweenBlocks(const Contents& blocks) const
    {
        std::vector<bool> owned(0x10000);
        std::size_t lowest = owned.size();
        std::size_t highest = 0;
        for (const auto& [room, bytes] : blocks) {
            const std::size_t start = m_region.handler.pointerOf(room);
            std::fill_n(owned.begin() + static_cast<std::ptrdiff_t>(start), bytes.size(), true);
            lowest = std::min(lowest, start);
            highest = std::max(highest, start + bytes.size());
        }
        return static_cast<std::size_t>(
            std::count(owned.begin() + static_cast<std::ptrdiff_t>(lowest),
                       owned.begin() + static_cast<std::ptrdiff_t>(highest), false));
    }

private:
    static constexpr std::uint16_t kEdge = 0xC060;

    void place()
    {
        std::vector<Bytes> blocks;
        const std::uint32_t count = 1 + m_random.below(m_rooms);
        for (std::uint32_t i = 0; i < count; ++i)
            blocks.push_back(i > 0 && m_random.oneIn(3) ? blocks[m_random.below(i)] : newBlock());
        std::uint16_t next = m_kind == RoomDataKind::kTile32 ? 0x9800 : 0xBC00;
        std::vector<std::uint16_t> starts;
        for (const Bytes& block : blocks) {
            if (m_random.oneIn(2))
                next = static_cast<std::uint16_t>(next + m_random.below(20));
            starts.push_back(next);
            m_region.setBytes(next, block);
            next = static_cast<std::uint16_t>(next + block.size());
        }
        next = static_cast<std::uint16_t>(next + m_random.below(10));
        m_region.handler.setFreeSpace(kEdge - next);
        for (std::uint32_t room = 0; room < m_rooms; ++room) {
            const std::uint32_t block = m_random.below(count);
            m_region.handler.setPointer(room, starts[block]);
            const auto length = static_cast<std::uint8_t>(blocks[block].size());
            if (m_kind != RoomDataKind::kMapLayout || m_random.oneIn(2))
                m_region.setSize(room, length, 1);
            else
                m_region.setSize(room, 1, length);
        }
    }

    Bytes newBlock()
    {
        switch (m_kind) {
        case RoomDataKind::kMapLayout:
            return m_random.bytes(1 + m_random.below(12));
        case RoomDataKind::kMapAlloc: {
            Bytes list = m_random.bytes(2 * m_random.below(5));
            for (std::uint8_t& byte : list)
                byte &= 0x7F; // no terminator within
            list.insert(list.end(), 2, 0xFF);
            return list;
        }
        default:
            return m_random.bytes(fixedLength());
        }
    }

    std::uint32_t fixedLength() const
    {
        switch (m_kind) {
        case RoomDataKind::kTile32:
            return 1024;
        case RoomDataKind::kTileLoad:
            return 96;
        default:
            return 32;
        }
    }

    RandomSource m_random;
    RoomDataKind m_kind;
    std::uint32_t m_rooms;
    SmallRegion m_region;
};

class TidyingProperties : public testing::TestWithParam<std::tuple<RoomDataKind, std::uint32_t>> {
};

TEST_P(TidyingProperties, NoRoomNoticesThatGapsWereClosedAndBlocksJoined)
{
    const auto [kind, shard] = GetParam();
    // Measuring screen lists takes a pass over the whole region.
    const std::uint32_t regions = kind == RoomDataKind::kMapAlloc ? 60 : 300;
    for (std::uint32_t seed = shard * regions; seed < (shard + 1) * regions; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomRegion region(seed, kind);
        CountingPrompt prompt;
        BlockOperations operations(region.handler(), blockKind(kind), prompt);
        const Contents before = region.contents();

        std::int32_t freeSpace = region.handler().freeSpace();
        const auto orphans = static_cast<std::int32_t>(region.orphansBetweenBlocks(before));
        operations.deleteUnusedData();
        ASSERT_EQ(region.contents(), before);
        ASSERT_EQ(region.orphansBetweenBlocks(before), 0U);
        ASSERT_EQ(region.handler().freeSpace(), freeSpace + orphans);
        ASSERT_EQ(prompt.texts.size(), 1U);
        ASSERT_EQ(prompt.texts[0] == "No unused data found between normal data.", orphans == 0);

        operations.deleteUnusedData();
        ASSERT_EQ(prompt.texts[1], "No unused data found between normal data.");

        freeSpace = region.handler().freeSpace();
        prompt.texts.clear();
        operations.joinIdenticalData({});
        ASSERT_EQ(region.contents(), before);
        for (const auto& [room, bytes] : before) {
            for (const auto& [other, otherBytes] : before) {
                ASSERT_EQ(bytes == otherBytes,
                          region.handler().pointerOf(room) == region.handler().pointerOf(other));
            }
        }
        ASSERT_EQ(region.orphansBetweenBlocks(before), 0U);
        ASSERT_GE(region.handler().freeSpace(), freeSpace);

        prompt.texts.clear();
        operations.joinIdenticalData({});
        ASSERT_EQ(prompt.texts,
                  std::vector<std::string>{"Found no identical Rooms with different pointers."});
    }
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, TidyingProperties,
    testing::Combine(testing::Values(RoomDataKind::kMapLayout, RoomDataKind::kMapAlloc,
                                     RoomDataKind::kPalette, RoomDataKind::kTileLoad,
                                     RoomDataKind::kTile32),
                     testing::Range(0U, 2U)));

} // namespace
} // namespace velko
