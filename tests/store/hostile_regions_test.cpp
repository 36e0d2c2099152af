// Regions and tables that no game has, compared byte for byte with the rules told one by one.

#include "store/block_lengths.h"
#include "store/block_operations.h"
#include "tests/store/literal_store.h"
#include "tests/store/random_source.h"

#include <gtest/gtest.h>
#include <string>

namespace velko {
namespace {

using test::LiteralStore;
using test::RandomSource;
using Bytes = std::vector<std::uint8_t>;
using Rule = LiteralStore::Rule;

// Notes every message and answers with what the sequence drew. Questions are left out of the
// notes: the order of boxes is told by the tests of the operations.
class NotingPrompt : public UserPrompt {
public:
    std::vector<std::string> messages;
    YesNoCancel adjust = YesNoCancel::kCancel;
    bool copySize = false;

    void showMessage(std::string_view text, MessageIcon) override { messages.emplace_back(text); }
    bool askYesNo(std::string_view, MessageIcon) override { return copySize; }
    YesNoCancel askYesNoCancel(std::string_view, MessageIcon) override { return adjust; }

protected:
    bool confirm(std::string_view, std::string_view) override { return false; }
};

RoomDataKind kindOf(Rule rule)
{
    switch (rule) {
    case Rule::kLayout:
        return RoomDataKind::kMapLayout;
    case Rule::kScreenList:
        return RoomDataKind::kMapAlloc;
    case Rule::kFixed32:
        break;
    }
    return RoomDataKind::kPalette;
}

class HostileSequence {
public:
    HostileSequence(std::uint32_t seed, Rule rule)
        : m_random(seed), m_operations(m_handler, blockKind(kindOf(rule)), m_prompt)
    {
        m_literal.rule = rule;
        m_literal.image = m_random.bytes(imageSize());
        describe();
        placeBlocks();
        m_rom.setBytes(m_literal.image);
        m_handler.setDescriptor({.dBank = m_literal.dBank,
                                 .pBank = static_cast<std::uint8_t>(m_literal.pBank),
                                 .pMemStart = static_cast<std::uint16_t>(m_literal.pMemStart),
                                 .pMemEdge = static_cast<std::uint16_t>(m_literal.pMemEdge),
                                 .dEdge = static_cast<std::uint16_t>(m_literal.dEdge),
                                 .pointerPad = m_literal.pad});
        m_handler.setFreeSpace(static_cast<std::int32_t>(m_literal.freeSpace));
    }

    bool step()
    {
        const std::uint32_t room = m_random.oneIn(30) ? 0xFFFFFFFF : m_random.below(9);
        const std::uint32_t roomB = m_random.oneIn(20) ? 0xFFFFFFFF : m_random.below(9);
        m_literal.room = room;
        m_handler.selectRoom(room);
        operate(roomB);
        EXPECT_EQ(m_handler.freeSpace(), m_literal.freeSpace) << m_what;
        EXPECT_EQ(m_prompt.messages, m_literal.messages) << m_what;
        const bool same = std::ranges::equal(m_rom.bytes(), m_literal.image);
        EXPECT_TRUE(same) << m_what;
        return !testing::Test::HasFailure();
    }

private:
    std::uint32_t imageSize()
    {
        return m_random.oneOf<std::uint32_t>(
            {0, 5, 16 + 0x60, 16 + 0x4000, 16 + 0x4000 + 0x40, 16 + 0x8000, 16 + 0xC000});
    }

    void describe()
    {
        m_literal.dBank = m_random.oneOf<std::array<std::uint8_t, 2>>(
            {{1, 2}, {1, 2}, {0, 1}, {2, 1}, {1, 1}, {0, 2}, {5, 1}});
        m_base = m_random.oneOf<std::uint32_t>({0x8000, 0x8008, 0xBFF0, 0xFFE8, 0x3FF8});
        m_literal.pBank = m_random.below(3);
        m_literal.pad = m_random.oneOf<std::uint32_t>({4, 4, 4, 2, 3, 1, 0, 100, 0xFFFFFFFF});
        m_literal.pMemStart = m_random.oneOf<std::uint32_t>(
            {0x8000, 0x8000, 0x8004, 0xBFFC, 0xFFF0, 0xFFFF, 0x0000, m_base});
        m_literal.pMemEdge = m_random.oneIn(12)
            ? m_random.below(0x10000)
            : std::min(0xFFFFU, m_literal.pMemStart + m_random.below(36));
        // A table of thousands of entries makes the reference slow, not more hostile.
        if (m_literal.entryCount() > 40)
            m_literal.pMemEdge = m_literal.pMemStart + 40;
        m_literal.dEdge = (m_base + m_random.below(80)) & 0xFFFF;
        m_literal.freeSpace = m_random.oneIn(10)
            ? m_random.oneOf<std::int64_t>({-1, -2, -40, 0x8000, 0x1FFFF})
            : std::int64_t{m_random.below(60)};
    }

    // Most pointers into the region, some anywhere; sizes from nothing to more than there is.
    void placeBlocks()
    {
        for (std::uint32_t room = 0; room < 9; ++room) {
            if (m_random.oneIn(10))
                continue; // whatever the bytes say
            m_literal.setPointer(room, (m_base + m_random.below(48)) & 0xFFFF);
            if (m_literal.rule != Rule::kLayout)
                continue;
            const auto extent = [&] { return m_random.oneIn(16) ? 255 : m_random.below(5); };
            m_literal.write(m_literal.entry(room) + 2, extent());
            m_literal.write(m_literal.entry(room) + 3, extent());
        }
        // Few values, so that there are identical blocks; lists end, some of them.
        for (std::uint32_t i = 0; i < 96 && m_random.below(4) != 0; ++i) {
            const std::uint32_t at = m_literal.mapped(m_base + m_random.below(64));
            m_literal.write(at, m_random.oneOf<std::uint32_t>({0, 0, 1, 0xFF}));
        }
        if (m_random.oneIn(2)) {
            for (std::uint32_t i = 0; i < 64; ++i)
                m_literal.write(m_literal.mapped(m_base + i), m_random.oneIn(8) ? 0xFF : 0);
        }
    }

    void operate(std::uint32_t roomB)
    {
        const std::uint32_t offset = m_random.below(20);
        const std::uint32_t count =
            m_random.oneIn(10) ? m_random.below(0x12000) : m_random.below(9);
        const bool copySize = m_random.oneIn(2);
        const std::uint32_t adjust = m_random.below(3);
        m_prompt.copySize = copySize;
        m_prompt.adjust = static_cast<YesNoCancel>(adjust);
        switch (m_random.below(9)) {
        case 0: {
            m_what = "insertBytes";
            const Bytes bytes = m_random.bytes(count % 80);
            EXPECT_EQ(m_handler.insertBytes(offset, bytes).code, m_literal.insert(offset, bytes));
            break;
        }
        case 1:
            m_what = "deleteBytes";
            EXPECT_EQ(m_handler.deleteBytes(offset, count, roomB).code,
                      m_literal.remove(roomB, offset, count));
            break;
        case 2:
            m_what = "deleteBytesAt";
            EXPECT_EQ(m_handler.deleteBytesAt(m_base + offset, count).code,
                      m_literal.removeAt(m_base + offset, count));
            break;
        case 3:
            m_what = "setPointerToRoom";
            m_operations.setPointerToRoom(roomB);
            m_literal.setPointerToRoom(roomB, copySize);
            break;
        case 4: {
            m_what = "allocateUniqueData";
            const Bytes bytes = m_random.bytes(1 + count % 30);
            m_operations.allocateUniqueData(bytes);
            m_literal.allocate(bytes);
            break;
        }
        case 5:
            m_what = "deleteData";
            m_operations.deleteData();
            m_literal.deleteData();
            break;
        case 6: {
            m_what = "cloneDataOfRoom";
            const int expected =
                m_literal.clone(roomB, static_cast<LiteralStore::Adjust>(adjust), copySize);
            EXPECT_EQ(static_cast<int>(m_operations.cloneDataOfRoom(roomB)), expected);
            break;
        }
        case 7:
            m_what = "deleteUnusedData";
            m_operations.deleteUnusedData();
            m_literal.deleteUnused();
            break;
        default:
            m_what = "joinIdenticalData";
            m_operations.joinIdenticalData(m_names);
            m_literal.joinIdentical(m_names);
            break;
        }
    }

    RandomSource m_random;
    LiteralStore m_literal;
    std::uint32_t m_base = 0x8000;
    RomImage m_rom;
    PointerArrayHandler m_handler{m_rom};
    NotingPrompt m_prompt;
    BlockOperations m_operations;
    std::vector<std::string> m_names{"A", "B", "C"};
    std::string m_what;
};

// The prompt's answers and the reference's are drawn as one number.
static_assert(static_cast<int>(YesNoCancel::kYes) == static_cast<int>(LiteralStore::Adjust::kYes));
static_assert(static_cast<int>(YesNoCancel::kNo) == static_cast<int>(LiteralStore::Adjust::kNo));

void runSequences(Rule rule, std::uint32_t first, std::uint32_t count)
{
    constexpr int kSteps = 10;
    for (std::uint32_t seed = first; seed < first + count; ++seed) {
        HostileSequence sequence(seed, rule);
        for (int step = 0; step < kSteps; ++step)
            ASSERT_TRUE(sequence.step()) << "seed " << seed << ", step " << step;
    }
}

class HostileRegions : public testing::TestWithParam<std::uint32_t> { };

TEST_P(HostileRegions, LayoutsFollowTheRulesToTheLetter)
{
    runSequences(Rule::kLayout, 1000 * GetParam(), 500);
}

TEST_P(HostileRegions, BlocksOfOneLengthFollowTheRulesToTheLetter)
{
    runSequences(Rule::kFixed32, 1000 * GetParam(), 200);
}

// Few, as the reference walks every endless list of every pair of rooms.
TEST_P(HostileRegions, ScreenListsFollowTheRulesToTheLetter)
{
    runSequences(Rule::kScreenList, 1000 * GetParam(), 25);
}

// The longest table of plain pointers, each a byte above the one before: overlapping blocks, all
// different but for the last, which repeats the first. Shows that such a table can be tidied.
TEST(HostileTables, TheLongestTableIsTidied)
{
    constexpr std::uint32_t kEntries = 0x7FFF / 2;
    constexpr std::uint32_t kLast = kEntries - 1;
    RandomSource random(1);
    RomImage rom;
    rom.setBytes(random.bytes(kHeaderSize + 4 * kBankSize));
    PointerArrayHandler handler(rom,
                                {.dBank = {2, 3},
                                 .pBank = 0,
                                 .pMemStart = 0x8000,
                                 .pMemEdge = 0xFFFF,
                                 .dEdge = 0xFFFF,
                                 .pointerPad = 2});
    handler.setFreeSpace(0x1000);
    for (std::uint32_t room = 0; room < kEntries; ++room)
        handler.setPointer(room, static_cast<std::uint16_t>(0x8000 + room));
    handler.setPointer(kLast, 0xD000);
    handler.selectRoom(kLast);
    for (std::uint32_t i = 0; i < kPaletteLength; ++i)
        handler.setDataByte(i, handler.dataByte(i, 0));
    NotingPrompt prompt;
    BlockOperations operations(handler, blockKind(RoomDataKind::kPalette), prompt);

    operations.joinIdenticalData({});
    operations.joinIdenticalData({});
    EXPECT_EQ(prompt.messages,
              (std::vector<std::string>{"Room \"\" and Room \"\" had identical data and has been "
                                        "joined to use the same data.",
                                        "Found no identical Rooms with different pointers."}));
    EXPECT_EQ(handler.pointerOf(kLast), 0x8000);
    EXPECT_EQ(handler.pointerOf(kLast - 1), 0x8000 + kLast - 1);
    EXPECT_EQ(handler.freeSpace(), 0x1020);

    prompt.messages.clear();
    operations.deleteUnusedData();
    EXPECT_EQ(prompt.messages,
              std::vector<std::string>{"No unused data found between normal data."});
}

// Every byte of the table but the last starts an entry, so each pointer's high byte is the next
// one's low byte, and the table is walked twice around. All bytes are zero but one, which makes
// one entry point at $2000 and the one behind it at $0020.
TEST(HostileTables, TheLongestTableOfOverlappingEntriesIsTidied)
{
    constexpr std::uint32_t kEntries = 0xFFFF;
    RomImage rom;
    rom.setBytes(Bytes(kHeaderSize + 4 * kBankSize));
    PointerArrayHandler handler(rom,
                                {.dBank = {2, 3},
                                 .pBank = 0,
                                 .pMemStart = 0,
                                 .pMemEdge = 0xFFFF,
                                 .dEdge = 0xFFFF,
                                 .pointerPad = 1});
    ASSERT_EQ(handler.entryCount(), static_cast<std::int32_t>(kEntries));
    handler.setFreeSpace(0x1000);
    handler.setPointer(0x1234, 0x2000);
    ASSERT_EQ(handler.pointerOf(0x1235), 0x0020);
    NotingPrompt prompt;
    BlockOperations operations(handler, blockKind(RoomDataKind::kPalette), prompt);

    operations.joinIdenticalData({});
    EXPECT_EQ(prompt.messages,
              (std::vector<std::string>{"Room \"\" and Room \"\" had identical data and has been "
                                        "joined to use the same data."}));
    EXPECT_EQ(Bytes(rom.bytes().begin(), rom.bytes().end()), Bytes(rom.size()));
    EXPECT_EQ(handler.freeSpace(), 0x1000 + 32);

    prompt.messages.clear();
    operations.joinIdenticalData({});
    operations.deleteUnusedData();
    EXPECT_EQ(prompt.messages,
              (std::vector<std::string>{"Found no identical Rooms with different pointers.",
                                        "No unused data found between normal data."}));
}

// Tables of up to 200 entries, overlapping or not, whose blocks are often the same and have
// gaps behind them: what was remembered between two changes must not outlive them.
class LongHostileTable : public testing::TestWithParam<std::tuple<Rule, std::uint32_t>> { };

TEST_P(LongHostileTable, IsTidiedToTheLetter)
{
    const auto [rule, pad] = GetParam();
    const std::uint32_t entries = rule == Rule::kScreenList ? 40 : pad == 1 ? 60 : 200;
    for (std::uint32_t seed = 0; seed < 4; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomSource random(seed);
        LiteralStore literal;
        literal.rule = rule;
        literal.dBank = {1, 2};
        literal.pad = pad;
        literal.pMemStart = 0x8000;
        literal.pMemEdge = 0x8000 + entries * pad;
        literal.dEdge = 0xFFFF;
        literal.freeSpace = 0x40;
        literal.image = Bytes(kHeaderSize + 3 * kBankSize);
        for (std::uint32_t i = kHeaderSize + kBankSize; i < literal.image.size(); ++i)
            literal.image[i] = random.oneIn(300) ? 0 : 0xFF;
        for (std::uint32_t i = 0; i <= entries * pad; ++i)
            literal.write(literal.entry(0) + i, random.below(seed < 2 ? 0x20 : 6));

        RomImage rom;
        rom.setBytes(literal.image);
        PointerArrayHandler handler(rom,
                                    {.dBank = literal.dBank,
                                     .pBank = 0,
                                     .pMemStart = 0x8000,
                                     .pMemEdge = static_cast<std::uint16_t>(literal.pMemEdge),
                                     .dEdge = 0xFFFF,
                                     .pointerPad = pad});
        handler.setFreeSpace(0x40);
        NotingPrompt prompt;
        BlockOperations operations(handler, blockKind(kindOf(rule)), prompt);
        for (int turn = 0; turn < 2; ++turn) {
            operations.deleteUnusedData();
            literal.deleteUnused();
            ASSERT_TRUE(std::ranges::equal(rom.bytes(), literal.image)) << turn;
            operations.joinIdenticalData({});
            literal.joinIdentical({});
            ASSERT_TRUE(std::ranges::equal(rom.bytes(), literal.image)) << turn;
            ASSERT_EQ(handler.freeSpace(), literal.freeSpace);
            ASSERT_EQ(prompt.messages, literal.messages);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Rules, LongHostileTable,
                         testing::Combine(testing::Values(Rule::kLayout, Rule::kFixed32,
                                                          Rule::kScreenList),
                                          testing::Values(1U, 2U, 3U, 4U)));

INSTANTIATE_TEST_SUITE_P(Shards, HostileRegions, testing::Range(0U, 3U));

} // namespace
} // namespace velko
