#include "rom/rom_image.h"

#include "rom/file_io.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes copyOf(const RomImage& rom)
{
    return Bytes(rom.bytes().begin(), rom.bytes().end());
}

TEST(RomImage, StartsEmptyWithoutPath)
{
    const RomImage rom;
    EXPECT_EQ(rom.size(), 0U);
    EXPECT_TRUE(rom.path().empty());
    EXPECT_EQ(rom.readByte(0), 0x55);
}

TEST(RomImage, ReadsUpToTheLastByteAndFillerFromThereOn)
{
    RomImage rom;
    rom.setBytes({0x10, 0x20, 0x30});
    EXPECT_EQ(rom.readByte(0), 0x10);
    EXPECT_EQ(rom.readByte(2), 0x30);
    EXPECT_EQ(rom.readByte(3), 0x55);
    EXPECT_EQ(rom.readByte(3 + 1000), 0x55);
}

// What readBlock gives for `count` bytes from `offset` on.
Bytes blockOf(const RomImage& rom, std::uint32_t offset, std::size_t count)
{
    Bytes block(count, 0xEE);
    rom.readBlock(offset, block);
    return block;
}

TEST(RomImage, BlockInsideTheImageIsItsBytes)
{
    RomImage rom;
    rom.setBytes({0x10, 0x20, 0x30, 0x40});
    EXPECT_EQ(blockOf(rom, 0, 4), (Bytes{0x10, 0x20, 0x30, 0x40}));
    EXPECT_EQ(blockOf(rom, 1, 2), (Bytes{0x20, 0x30}));
    EXPECT_EQ(blockOf(rom, 1, 0), Bytes{});
}

TEST(RomImage, BlockPastTheEndIsFiller)
{
    RomImage rom;
    rom.setBytes({0x10, 0x20, 0x30});
    EXPECT_EQ(blockOf(rom, 2, 3), (Bytes{0x30, 0x55, 0x55}));
    EXPECT_EQ(blockOf(rom, 3, 2), (Bytes{0x55, 0x55}));
    EXPECT_EQ(blockOf(rom, 0x80000000, 2), (Bytes{0x55, 0x55}));
    EXPECT_EQ(blockOf(RomImage(), 0, 2), (Bytes{0x55, 0x55}));
}

TEST(RomImage, BlockWrapsAt32Bits)
{
    RomImage rom;
    rom.setBytes({0x10, 0x20, 0x30});
    EXPECT_EQ(blockOf(rom, 0xFFFFFFFE, 6), (Bytes{0x55, 0x55, 0x10, 0x20, 0x30, 0x55}));
    EXPECT_EQ(blockOf(rom, 0xFFFFFFFF, 2), (Bytes{0x55, 0x10}));
    EXPECT_EQ(blockOf(rom, 0xFFFFFFFF, 1), Bytes{0x55});
}

TEST(RomImage, NegativeOffsetWrapsAndReadsAsFiller)
{
    RomImage rom;
    rom.setBytes({0x10, 0x20, 0x30});
    EXPECT_EQ(rom.readByte(static_cast<std::uint32_t>(-1)), 0x55);
}

TEST(RomImage, WriteStoresOneByte)
{
    RomImage rom;
    rom.setBytes({1, 2, 3});
    rom.writeByte(2, 0xAB);
    EXPECT_EQ(copyOf(rom), (Bytes{1, 2, 0xAB}));
}

TEST(RomImage, WritePastEndIsDropped)
{
    RomImage rom;
    rom.setBytes({1, 2, 3});
    rom.writeByte(3, 0xAB);
    rom.writeByte(0xFFFFFFFF, 0xAB);
    EXPECT_EQ(copyOf(rom), (Bytes{1, 2, 3}));
}

TEST(RomImage, DroppedWritesAreCountedUntilTheImageIsReplaced)
{
    RomImage rom;
    rom.setBytes({1, 2, 3});
    rom.writeByte(2, 0xAB);
    EXPECT_EQ(rom.droppedWrites(), 0U);
    rom.writeByte(3, 0xAB);
    EXPECT_EQ(rom.droppedWrites(), 1U);
    rom.moveBytes(1, 0, 4); // offsets 3 and 4 are past the end
    EXPECT_EQ(rom.droppedWrites(), 3U);
    rom.moveBytes(9, 0, 5);
    EXPECT_EQ(rom.droppedWrites(), 8U);
    rom.setBytes({1, 2, 3});
    EXPECT_EQ(rom.droppedWrites(), 0U);
}

TEST(RomImage, MovedRangesMayOverlap)
{
    RomImage rom;
    rom.setBytes({1, 2, 3, 4, 5});
    rom.moveBytes(1, 0, 3);
    EXPECT_EQ(copyOf(rom), (Bytes{1, 1, 2, 3, 5}));
    rom.setBytes({1, 2, 3, 4, 5});
    rom.moveBytes(0, 2, 3);
    EXPECT_EQ(copyOf(rom), (Bytes{3, 4, 5, 4, 5}));
}

TEST(RomImage, BytesMovedInFromPastTheEndAreFillerAndOutOfItAreDropped)
{
    RomImage rom;
    rom.setBytes({1, 2, 3, 4, 5});
    rom.moveBytes(1, 3, 4);
    EXPECT_EQ(copyOf(rom), (Bytes{1, 4, 5, 0x55, 0x55}));
    rom.moveBytes(3, 1, 4);
    EXPECT_EQ(copyOf(rom), (Bytes{1, 4, 5, 4, 5}));
    rom.moveBytes(0, 0xFFFFFFF0, 2);
    EXPECT_EQ(copyOf(rom), (Bytes{0x55, 0x55, 5, 4, 5}));
    rom.moveBytes(5, 0, 0xFFFFFFFF);
    rom.moveBytes(0, 4, 0);
    EXPECT_EQ(copyOf(rom), (Bytes{0x55, 0x55, 5, 4, 5}));
}

// What a loop over the accessors does when it starts at the end that is not overwritten first.
RC_GTEST_PROP(RomImageProperty, MovingIsReadingAllAndThenWritingAll,
              (Bytes bytes, std::uint8_t to, std::uint8_t from, std::uint8_t count))
{
    RomImage byLoop;
    byLoop.setBytes(bytes);
    Bytes buffer;
    for (std::uint32_t i = 0; i < count; ++i)
        buffer.push_back(byLoop.readByte(from + i));
    for (std::uint32_t i = 0; i < count; ++i)
        byLoop.writeByte(to + i, buffer[i]);

    RomImage moved;
    moved.setBytes(bytes);
    moved.moveBytes(to, from, count);
    RC_ASSERT(copyOf(moved) == copyOf(byLoop));
    RC_ASSERT(moved.droppedWrites() == byLoop.droppedWrites());
}

TEST(RomImage, SaveWritesEveryByteAndLoadReadsThemBack)
{
    const test::TemporaryFolder folder;
    RomImage rom;
    rom.setPath(folder.path() / "saved.nes");
    rom.setBytes({'N', 'E', 'S', 0x1A, 0x00, 0xFF, '\r', '\n'});
    rom.save();

    RomImage again;
    again.setPath(folder.path() / "saved.nes");
    ASSERT_TRUE(again.load());
    EXPECT_EQ(copyOf(again), (Bytes{'N', 'E', 'S', 0x1A, 0x00, 0xFF, '\r', '\n'}));
}

TEST(RomImage, SaveTruncatesALongerFile)
{
    const test::TemporaryFolder folder;
    RomImage rom;
    rom.setPath(folder.write("game.nes", std::string_view("0123456789")));
    rom.setBytes({'a', 'b'});
    rom.save();
    EXPECT_EQ(std::filesystem::file_size(rom.path()), 2U);
}

TEST(RomImage, SaveToAnImpossiblePathSaysNothing)
{
    const test::TemporaryFolder folder;
    RomImage rom;
    rom.setBytes({1, 2, 3});
    rom.setPath(folder.path() / "no such folder" / "game.nes");
    rom.save();
    EXPECT_FALSE(std::filesystem::exists(rom.path()));
    EXPECT_EQ(copyOf(rom), (Bytes{1, 2, 3}));
}

TEST(RomImage, ANewPathIsWhereSaveAndLoadGoFromThenOn)
{
    const test::TemporaryFolder folder;
    RomImage rom;
    rom.setPath(folder.write("old.nes", std::string_view("old")));
    ASSERT_TRUE(rom.load());
    rom.setPath(folder.path() / "new.nes");
    rom.writeByte(0, 'c');
    rom.save();
    rom.writeByte(1, 'x'); // not saved
    ASSERT_TRUE(rom.load());
    EXPECT_EQ(copyOf(rom), (Bytes{'c', 'l', 'd'}));
    EXPECT_EQ(loadFile(folder.path() / "old.nes"), (Bytes{'o', 'l', 'd'}));
}

TEST(RomImage, FailedLoadLeavesNoImage)
{
    const test::TemporaryFolder folder;
    RomImage rom;
    rom.setBytes({1, 2, 3});
    rom.setPath(folder.path() / "missing.nes");
    EXPECT_FALSE(rom.load());
    EXPECT_EQ(rom.size(), 0U);
    EXPECT_EQ(rom.readByte(0), 0x55);
}

TEST(RomImage, EmptyFileIsRefused)
{
    const test::TemporaryFolder folder;
    RomImage rom;
    rom.setPath(folder.write("empty.nes", std::string_view()));
    EXPECT_FALSE(rom.load());
}

TEST(RomImage, FileOfOneByteIsAnImage)
{
    const test::TemporaryFolder folder;
    RomImage rom;
    rom.setPath(folder.write("one.nes", std::string_view("N")));
    ASSERT_TRUE(rom.load());
    EXPECT_EQ(rom.size(), 1U);
    EXPECT_EQ(rom.readByte(0), 'N');
    EXPECT_EQ(rom.readByte(1), 0x55);
}

TEST(CpuToFileOffset, BothSlotsOfTheWindow)
{
    EXPECT_EQ(cpuToFileOffset({3, 7}, 0x8000), 49168U);
    EXPECT_EQ(cpuToFileOffset({3, 7}, 0xBFFF), 49168U + 0x3FFF);
    EXPECT_EQ(cpuToFileOffset({3, 7}, 0xC000), 114704U);
    EXPECT_EQ(cpuToFileOffset({3, 7}, 0xC123), 114995U);
    EXPECT_EQ(cpuToFileOffset({3, 7}, 0xFFFF), 114704U + 0x3FFF);
}

TEST(CpuToFileOffset, LowAddressesMapLikeTheWindow)
{
    EXPECT_EQ(cpuToFileOffset({3, 7}, 0x0000), 49168U);
    EXPECT_EQ(cpuToFileOffset({3, 7}, 0x4123), 114995U);
}

TEST(CpuToFileOffset, OnlyTheLowSixteenBitsCount)
{
    EXPECT_EQ(cpuToFileOffset({3, 7}, 0x12345), 3U * 16384 + 0x2345 + 16);
    EXPECT_EQ(cpuToFileOffset({3, 7}, 0xFFFFC123), 114995U);
}

TEST(CpuToFileOffset, HighestBankIsUnsigned)
{
    EXPECT_EQ(cpuToFileOffset({0xFF, 0}, 0x8000), 4177936U);
}

RC_GTEST_PROP(CpuToFileOffset, StaysInsideTheBankOfItsSlot,
              (std::uint8_t low, std::uint8_t high, std::uint32_t address))
{
    const std::uint32_t offset = cpuToFileOffset({low, high}, address) - 16;
    const bool upperSlot = (address / 16384) % 2 == 1;
    RC_ASSERT(offset / 16384 == (upperSlot ? high : low));
    RC_ASSERT(offset % 16384 == address % 16384);
}

} // namespace
} // namespace velko
