// Random sequences of operations on random regions, each compared with a model after every step.

#include "store/block_operations.h"
#include "tests/store/random_source.h"
#include "tests/store/region_model.h"
#include "tests/store/small_region.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <string>

namespace velko {
namespace {

using test::RandomSource;
using test::RegionModel;
using test::SmallRegion;
using Bytes = std::vector<std::uint8_t>;

// Gives prepared answers, and notes how many boxes were shown and what the last message said.
class PreparedPrompt : public UserPrompt {
public:
    YesNoCancel adjust = YesNoCancel::kCancel;
    bool copySize = false;
    int boxes = 0;
    std::string message;

    void showMessage(std::string_view text, MessageIcon) override
    {
        ++boxes;
        message = text;
    }
    bool askYesNo(std::string_view, MessageIcon) override
    {
        ++boxes;
        return copySize;
    }
    YesNoCancel askYesNoCancel(std::string_view, MessageIcon) override
    {
        ++boxes;
        return adjust;
    }

protected:
    bool confirm(std::string_view, std::string_view) override { return false; }
};

// A region of layouts, in the image and in the model, and a random operation on both. Blocks may
// be shared, overlap, lie out of order, have bytes between them that nobody owns, have no length,
// and cross from one bank into the next.
class Sequence {
public:
    explicit Sequence(std::uint32_t seed)
        : m_random(seed)
        , m_roomCount(2 + m_random.below(7))
        , m_base(m_random.oneOf<std::uint16_t>({0x8000, 0x9ABC, 0xBF80, 0xBFC0, 0xFE00}))
        , m_capacity(kFloor + 20 + m_random.below(120))
        , m_region(m_roomCount, 4, static_cast<std::uint16_t>(m_base + m_capacity))
    {
        fillRegion();
        if (m_random.oneIn(2))
            placeRooms();
        else
            placeRoomsApart();
        matches("at the start");
    }

    // False once a test has failed.
    bool step()
    {
        const auto before = blocks();
        const Bytes image = tableAndRegion();
        const Touched touched = operate();
        if (!matches(m_what))
            return false;
        const auto after = blocks();
        for (std::uint32_t room = 0; room < m_roomCount; ++room) {
            // Neither the target nor a room whose block has a byte in common with what changed.
            if (room != m_target && !touches(before[room], touched)) {
                EXPECT_EQ(before[room].contents, after[room].contents)
                    << m_what << ", room " << room;
            }
        }
        if (touched.refused) {
            EXPECT_EQ(image, tableAndRegion()) << m_what;
        }
        return !testing::Test::HasFailure();
    }

    // No operation wrote anywhere but into the table and the region.
    bool restIsUntouched() const
    {
        Bytes image = m_region.image();
        const auto blank = [&](std::uint32_t fileOffset, std::uint32_t count) {
            std::fill_n(image.begin() + fileOffset, count, std::uint8_t{0xEE});
        };
        blank(m_region.handler.entryFileOffset(0), 4 * m_roomCount);
        for (std::uint32_t i = 0; i < m_capacity; ++i)
            blank(m_region.handler.dataFileOffset(static_cast<std::uint16_t>(m_base + i)), 1);
        return image == Bytes(image.size(), 0xEE);
    }

    // So many blocks were joined so far.
    int joined() const { return m_joined; }

private:
    // So many bytes at the bottom belong to nobody: a pointer into removed bytes falls below them.
    static constexpr std::uint32_t kFloor = 64;

    struct Block {
        std::size_t start = 0; // position in the region
        bool isWhole = false;
        Bytes contents;
    };
    // Positions that an operation inserted at, removed or wrote to.
    struct Touched {
        std::size_t start = 0;
        std::size_t end = 0;
        bool refused = false;
    };
    static constexpr Touched kRefused{0, 0, true};
    static constexpr Touched kNothing{0, 0, false};
    static constexpr Touched kAnything{0, SIZE_MAX, false};

    void fillRegion()
    {
        const std::uint32_t used = kFloor + m_random.below(m_capacity - kFloor + 1);
        const bool fewValues = m_random.oneIn(2); // so that there are equal blocks
        for (std::uint32_t i = 0; i < used; ++i)
            m_model.used.push_back(fewValues ? m_random.oneOf<std::uint8_t>({0, 1})
                                             : m_random.byte());
        m_model.freeSpace = static_cast<std::int32_t>(m_capacity - used);
        m_region.handler.setFreeSpace(m_model.freeSpace);
        Bytes bytes = modelBytes();
        m_region.setBytes(m_base, bytes);
    }

    void placeRooms()
    {
        for (std::uint32_t room = 0; room < m_roomCount; ++room) {
            const auto used = static_cast<std::uint32_t>(m_model.used.size());
            std::size_t start = kFloor + m_random.below(used - kFloor + 1);
            if (room > 0 && m_random.oneIn(3)) // a block that is shared or follows another at once
                start = m_random.oneIn(2) ? m_model.position(room - 1)
                                          : std::min<std::size_t>(m_model.end(room - 1), used);
            auto width = static_cast<std::uint8_t>(m_random.below(7));
            const auto height = static_cast<std::uint8_t>(m_random.below(5));
            while (std::size_t{width} * height > used - start)
                --width;
            m_model.rooms[room] = {m_model.cell(start), width, height};
            m_region.handler.setPointer(room, static_cast<std::uint16_t>(m_base + start));
            m_region.setSize(room, width, height);
        }
    }

    // Small blocks, of which no two overlap; many are equal where the bytes have few values.
    void placeRoomsApart()
    {
        std::size_t next = kFloor;
        for (std::uint32_t room = 0; room < m_roomCount; ++room) {
            next = std::min(next + m_random.below(4), m_model.used.size());
            const auto width = static_cast<std::uint8_t>(
                std::min<std::size_t>(1 + m_random.below(3), m_model.used.size() - next));
            m_model.rooms[room] = {m_model.cell(next), width, 1};
            if (room > 0 && m_random.oneIn(4))
                m_model.rooms[room] = m_model.rooms[room - 1];
            const auto start = static_cast<std::uint16_t>(m_base + m_model.position(room));
            m_region.handler.setPointer(room, start);
            m_region.setSize(room, m_model.rooms[room].width, m_model.rooms[room].height);
            next = std::max(next, m_model.end(room));
        }
    }

    Touched operate()
    {
        m_target = m_random.below(m_roomCount);
        m_region.handler.selectRoom(m_target);
        m_prompt.adjust =
            m_random.oneOf({YesNoCancel::kYes, YesNoCancel::kNo, YesNoCancel::kCancel});
        m_prompt.copySize = m_random.oneIn(2);
        m_prompt.boxes = 0;
        switch (m_random.below(9)) {
        case 0:
        case 1:
            return insertBytes();
        case 2:
            return deleteBytes();
        case 3:
            return setPointerToRoom();
        case 4:
            return allocateUniqueData();
        case 5:
            return deleteData();
        case 6:
            return deleteUnusedData();
        case 7:
            return joinIdenticalData();
        default:
            return cloneData();
        }
    }

    Touched insertBytes()
    {
        m_what = "insertBytes";
        const std::size_t start = m_model.position(m_target);
        if (!m_model.isWhole(m_target))
            return {};
        const std::size_t offset =
            m_random.below(static_cast<std::uint32_t>(m_model.rooms.at(m_target).length()) + 1);
        const Bytes bytes = m_random.bytes(m_random.below(12));
        const std::int32_t freeSpace = m_model.freeSpace;
        const bool done = m_model.insert(m_target, offset, bytes);
        const EditResult result =
            m_region.handler.insertBytes(static_cast<std::uint32_t>(offset), bytes);
        const auto count = static_cast<std::uint32_t>(bytes.size());
        EXPECT_EQ(result.code,
                  done ? 0 : ((count - static_cast<std::uint32_t>(freeSpace)) << 16 | 2));
        if (!done)
            return kRefused;
        // At the head, the bytes change the block of whoever shares it; a block that starts
        // further on, or ends here, keeps its bytes.
        return {start + offset, start + offset + (offset == 0 ? 1 : 0)};
    }

    Touched deleteBytes()
    {
        m_what = "deleteBytes";
        const std::size_t start = m_model.position(m_target);
        if (!m_model.isWhole(m_target))
            return {};
        const auto length = static_cast<std::uint32_t>(m_model.rooms.at(m_target).length());
        const std::uint32_t offset = m_random.below(length + 1);
        const std::uint32_t count = m_random.below(length - offset + 1);
        m_region.handler.selectRoom(m_random.below(m_roomCount)); // the room is told
        EXPECT_TRUE(m_region.handler.deleteBytes(offset, count, m_target).ok());
        m_model.remove(start + offset, count);
        return {start + offset, start + offset + count};
    }

    Touched setPointerToRoom()
    {
        m_what = "setPointerToRoom";
        const std::uint32_t roomB = m_random.below(m_roomCount);
        m_model.rooms.at(m_target).start = m_model.rooms.at(roomB).start;
        copySizeIfWanted(roomB);
        m_operations.setPointerToRoom(roomB);
        EXPECT_EQ(m_prompt.boxes, 1);
        return {};
    }

    Touched allocateUniqueData()
    {
        m_what = "allocateUniqueData";
        const Bytes bytes = m_random.bytes(1 + m_random.below(8));
        const std::size_t top = m_model.used.size();
        const bool done = m_model.allocate(m_target, bytes);
        if (done) {
            m_model.rooms.at(m_target).width = 3;
            m_model.rooms.at(m_target).height = 1;
        }
        EXPECT_EQ(m_operations.allocateUniqueData(bytes), done);
        EXPECT_EQ(m_prompt.boxes, done ? 0 : 1);
        return done ? Touched{top, top + bytes.size()} : kRefused;
    }

    Touched deleteData()
    {
        m_what = "deleteData";
        if (!m_model.isWhole(m_target))
            return {};
        const std::size_t start = m_model.position(m_target);
        RegionModel::Room& room = m_model.rooms.at(m_target);
        const std::size_t length = room.length();
        m_model.remove(start, length);
        if (room.start == m_model.used.end())
            m_model.leaveFreeSpace(m_target);
        room.width = 0;
        room.height = 0;
        m_operations.deleteData();
        EXPECT_EQ(m_prompt.boxes, 0);
        return {start, start + length};
    }

    Touched cloneData()
    {
        m_what = "cloneDataOfRoom";
        const std::uint32_t roomB = m_random.below(m_roomCount);
        if (!m_model.isWhole(m_target) || !m_model.isWhole(roomB))
            return {};
        const std::size_t start = m_model.position(m_target);
        const std::size_t own = m_model.rooms.at(m_target).length();
        const CloneResult expected = cloneInModel(roomB);
        EXPECT_EQ(m_operations.cloneDataOfRoom(roomB), expected);
        return expected == CloneResult::kNothing ? kRefused : Touched{start, start + own};
    }

    CloneResult cloneInModel(std::uint32_t roomB)
    {
        const std::size_t own = m_model.rooms.at(m_target).length();
        const std::size_t other = m_model.rooms.at(roomB).length();
        if (m_model.position(roomB) == m_model.position(m_target) || own == 0 || other == 0)
            return CloneResult::kNothing;
        if (own == other || m_prompt.adjust == YesNoCancel::kYes) {
            if (other > own && !m_model.insert(m_target, 0, Bytes(other - own)))
                return CloneResult::kNothing;
            if (other < own)
                m_model.remove(m_model.position(m_target), own - other);
            m_model.copy(roomB, m_target, other);
            copySizeIfWanted(roomB);
            return CloneResult::kWholeBlock;
        }
        if (m_prompt.adjust == YesNoCancel::kCancel)
            return CloneResult::kNothing;
        m_model.copy(roomB, m_target, std::min(own, other));
        if (other > own)
            return CloneResult::kPartOfLonger;
        copySizeIfWanted(roomB);
        return CloneResult::kWholeIntoLonger;
    }

    // Where blocks overlap in part, closing a gap behind one may cut into another.
    Touched deleteUnusedData()
    {
        m_what = "deleteUnusedData";
        m_target = m_roomCount; // no room may change
        const Touched touched = m_model.blocksAreApart() ? kNothing : kAnything;
        const std::int32_t freeSpace = m_model.freeSpace;
        std::uint32_t chunks = 0;
        for (std::uint32_t room = 0; room < m_roomCount; ++room)
            chunks += m_model.closeGapBehind(room) > 0 ? 1 : 0;
        m_operations.deleteUnusedData();
        EXPECT_EQ(m_prompt.boxes, 1);
        if (chunks == 0) {
            EXPECT_EQ(m_prompt.message, "No unused data found between normal data.");
            return kRefused;
        }
        EXPECT_EQ(std::stoi(m_prompt.message), m_region.handler.freeSpace() - freeSpace);
        EXPECT_TRUE(
            m_prompt.message.ends_with(" bytes removed in " + std::to_string(chunks) + " chunks."))
            << m_prompt.message;
        return touched;
    }

    Touched joinIdenticalData()
    {
        m_what = "joinIdenticalData";
        m_target = m_roomCount;
        if (!m_model.blocksAreApart())
            return kNothing;
        const int joined = m_model.joinEqualBlocks();
        m_operations.joinIdenticalData({});
        EXPECT_EQ(m_prompt.boxes, std::max(joined, 1));
        EXPECT_EQ(m_prompt.message == "Found no identical Rooms with different pointers.",
                  joined == 0);
        const auto all = blocks();
        for (std::uint32_t room = 0; room < m_roomCount; ++room) {
            for (std::uint32_t other = 0; other < room; ++other) {
                if (!all[room].contents.empty() && all[room].contents == all[other].contents) {
                    EXPECT_EQ(m_region.handler.pointerOf(room), m_region.handler.pointerOf(other));
                }
            }
        }
        m_joined += joined;
        return joined == 0 ? kRefused : kNothing;
    }

    void copySizeIfWanted(std::uint32_t roomB)
    {
        if (!m_prompt.copySize)
            return;
        m_model.rooms.at(m_target).width = m_model.rooms.at(roomB).width;
        m_model.rooms.at(m_target).height = m_model.rooms.at(roomB).height;
    }

    // The used part, the free space as zeros, and a few bytes behind the region.
    Bytes modelBytes() const
    {
        Bytes bytes(m_model.used.begin(), m_model.used.end());
        bytes.resize(m_capacity);
        bytes.insert(bytes.end(), 8, 0xEE);
        return bytes;
    }

    Bytes tableAndRegion() const
    {
        Bytes bytes = m_region.bytes(m_base, m_capacity);
        for (std::uint32_t i = 0; i < 4 * m_roomCount; ++i)
            bytes.push_back(m_region.handler.entryByte(i, 0));
        return bytes;
    }

    // The image holds exactly what the model says.
    bool matches(const std::string& after)
    {
        EXPECT_EQ(m_region.handler.freeSpace(), m_model.freeSpace) << after;
        EXPECT_EQ(m_model.used.size() + static_cast<std::size_t>(m_model.freeSpace), m_capacity);
        EXPECT_EQ(m_region.bytes(m_base, m_capacity + 8), modelBytes()) << after;
        for (std::uint32_t room = 0; room < m_roomCount; ++room) {
            EXPECT_EQ(m_region.handler.pointerOf(room),
                      static_cast<std::uint16_t>(m_base + m_model.position(room)))
                << after << ", room " << room << " of " << m_target;
            EXPECT_EQ(m_region.size(room),
                      (Bytes{m_model.rooms.at(room).width, m_model.rooms.at(room).height}))
                << after << ", room " << room;
        }
        return !testing::Test::HasFailure();
    }

    // What each room reads in the image.
    std::vector<Block> blocks()
    {
        std::vector<Block> all;
        for (std::uint32_t room = 0; room < m_roomCount; ++room) {
            Block block{m_model.position(room), m_model.isWhole(room), {}};
            for (std::uint32_t i = 0; i < m_model.rooms.at(room).length(); ++i)
                block.contents.push_back(m_region.handler.dataByte(i, room));
            all.push_back(block);
        }
        return all;
    }
    // A room that reads past the used part has no block of its own to keep there.
    static bool touches(const Block& block, const Touched& touched)
    {
        const std::size_t end = block.start + block.contents.size();
        if (!block.isWhole)
            return true;
        if (touched.start == touched.end) // an insertion between two bytes
            return block.start < touched.start && touched.start < end;
        return block.start < touched.end && touched.start < end;
    }

    RandomSource m_random;
    std::uint32_t m_roomCount;
    std::uint16_t m_base;
    std::uint32_t m_capacity;
    SmallRegion m_region;
    RegionModel m_model;
    PreparedPrompt m_prompt;
    BlockOperations m_operations{m_region.handler, blockKind(RoomDataKind::kMapLayout), m_prompt};
    std::uint32_t m_target = 0;
    std::string m_what;
    int m_joined = 0;
};

class BlockProperties : public testing::TestWithParam<std::uint32_t> { };

TEST_P(BlockProperties, EverySequenceOfOperationsDoesWhatTheModelDoes)
{
    constexpr std::uint32_t kSequences = 2500;
    constexpr int kSteps = 12;
    int joined = 0;
    for (std::uint32_t i = 0; i < kSequences; ++i) {
        const std::uint32_t seed = GetParam() * kSequences + i;
        Sequence sequence(seed);
        for (int step = 0; step < kSteps; ++step) {
            ASSERT_TRUE(sequence.step()) << "seed " << seed << ", step " << step;
        }
        ASSERT_TRUE(sequence.restIsUntouched()) << "seed " << seed;
        joined += sequence.joined();
    }
    EXPECT_GT(joined, 50); // equal blocks are no rarity
}

INSTANTIATE_TEST_SUITE_P(Shards, BlockProperties, testing::Range(0U, 4U));

} // namespace
} // namespace velko
