#include "store/pointer_array_handler.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <vector>

namespace velko {
namespace {

// Two 16 KB banks; the table lies at the start of bank 0, the data in bank 1.
class PointerArrayHandlerTest : public testing::Test {
protected:
    PointerArrayHandlerTest()
    {
        rom.setBytes(std::vector<std::uint8_t>(16 + 2 * 0x4000));
        handler.setDescriptor({.dBank = {1, 1},
                               .pBank = 0,
                               .pMemStart = 0x8000,
                               .pMemEdge = 0x8010,
                               .dEdge = 0xC000,
                               .pointerPad = 4});
    }

    RomImage rom;
    PointerArrayHandler handler{rom};
};

TEST_F(PointerArrayHandlerTest, FreshHandlerHasNoFreeSpaceAndTwoByteEntries)
{
    const PointerArrayHandler fresh(rom);
    EXPECT_EQ(fresh.freeSpace(), -1);
    EXPECT_EQ(fresh.currentRoom(), 0U);
    EXPECT_EQ(fresh.descriptor().pointerPad, 2U);
    EXPECT_EQ(fresh.descriptor().dBank, (BankPair{0, 0}));
    EXPECT_EQ(fresh.descriptor().pBank, 0);
    EXPECT_EQ(fresh.descriptor().pMemStart, 0);
    EXPECT_EQ(fresh.descriptor().pMemEdge, 0);
    EXPECT_EQ(fresh.descriptor().dEdge, 0);
}

TEST_F(PointerArrayHandlerTest, NewDescriptorKeepsRoomAndFreeSpace)
{
    handler.selectRoom(3);
    handler.setFreeSpace(77);
    handler.setDescriptor({});
    EXPECT_EQ(handler.currentRoom(), 3U);
    EXPECT_EQ(handler.freeSpace(), 77);
}

TEST_F(PointerArrayHandlerTest, PointerIsStoredLowByteFirst)
{
    handler.setPointer(2, 0x9ABC);
    EXPECT_EQ(rom.readByte(16 + 8), 0xBC);
    EXPECT_EQ(rom.readByte(16 + 9), 0x9A);
    EXPECT_EQ(handler.pointerOf(2), 0x9ABC);
}

TEST_F(PointerArrayHandlerTest, PointerPlusOffsetWrapsAt65536)
{
    handler.setPointer(0, 0xFFF0);
    EXPECT_EQ(handler.pointerOf(0, 0x20), 0x0010);
    EXPECT_EQ(handler.pointerOf(0, 0x10010), 0x0000);
}

TEST_F(PointerArrayHandlerTest, WithoutARoomTheCurrentOneIsUsed)
{
    handler.setPointer(1, 0x8123);
    handler.setEntryByte(2, 9, 1);
    handler.selectRoom(1);
    EXPECT_EQ(handler.pointerOf(), 0x8123);
    EXPECT_EQ(handler.entryByte(2), 9);
    handler.setEntryByte(3, 5);
    EXPECT_EQ(handler.entryByte(3, 1), 5);
    EXPECT_EQ(rom.readByte(16 + 4 + 3), 5);
}

TEST_F(PointerArrayHandlerTest, DataAddressPicksTheBankOfItsHalf)
{
    handler.setDescriptor({.dBank = {5, 7}});
    EXPECT_EQ(handler.dataFileOffset(0xC123), 7U * 0x4000 + 0x0123 + 16);
    EXPECT_EQ(handler.dataFileOffset(0x8123), 5U * 0x4000 + 0x0123 + 16);
    EXPECT_EQ(handler.dataFileOffset(0x4123), 7U * 0x4000 + 0x0123 + 16);
}

TEST_F(PointerArrayHandlerTest, TableIsMaskedTo32Kilobytes)
{
    handler.setDescriptor({.pBank = 3, .pMemStart = 0xBFFE, .pointerPad = 2});
    EXPECT_EQ(handler.entryFileOffset(0), 3U * 0x4000 + 0x3FFE + 16);
    EXPECT_EQ(handler.entryFileOffset(1), 3U * 0x4000 + 0x4000 + 16);

    handler.setDescriptor({.pBank = 3, .pMemStart = 0xFFFE, .pointerPad = 2});
    EXPECT_EQ(handler.entryFileOffset(1), 3U * 0x4000 + 16);
}

TEST_F(PointerArrayHandlerTest, EntryCountDividesTheTable)
{
    struct Case {
        std::uint16_t start;
        std::uint16_t edge;
        std::uint32_t pad;
        std::int32_t count;
    };
    for (const Case& c :
         {Case{0x8000, 0x8000, 2, 0}, Case{0x8000, 0x8009, 2, 4}, Case{0x8000, 0x8010, 4, 4},
          Case{0x8000, 0x8010, 0, 0}, Case{0x8008, 0x8001, 2, -3},
          Case{0x8008, 0x8000, 0xFFFFFFFF, 0}, Case{0, 0xFFFF, 1, 65535}}) {
        handler.setDescriptor({.pMemStart = c.start, .pMemEdge = c.edge, .pointerPad = c.pad});
        EXPECT_EQ(handler.entryCount(), c.count) << c.start << ' ' << c.edge << ' ' << c.pad;
    }
}

TEST_F(PointerArrayHandlerTest, DataIsReadThroughTheRoomsPointer)
{
    handler.setPointer(1, 0x8100);
    rom.writeByte(16 + 0x4000 + 0x105, 0x34);
    rom.writeByte(16 + 0x4000 + 0x106, 0x12);
    EXPECT_EQ(handler.dataByte(5, 1), 0x34);
    EXPECT_EQ(handler.dataWord(5, 1), 0x1234);
    EXPECT_EQ(handler.dataWord(5), 0x0000); // room 0 points elsewhere
}

TEST_F(PointerArrayHandlerTest, DataIsWrittenIntoTheCurrentRoomsBlock)
{
    handler.setPointer(1, 0x8100);
    handler.selectRoom(1);
    handler.setDataByte(0, 0xAA);
    handler.setDataWord(1, 0xBEEF);
    EXPECT_EQ(rom.readByte(16 + 0x4000 + 0x100), 0xAA);
    EXPECT_EQ(rom.readByte(16 + 0x4000 + 0x101), 0xEF);
    EXPECT_EQ(rom.readByte(16 + 0x4000 + 0x102), 0xBE);
}

TEST_F(PointerArrayHandlerTest, WordTakesItsSecondByteFromTheNextByteOfTheFile)
{
    // $BFFF is the last byte of the first window. $C000 would be bank 0, the file goes on with
    // bank 2.
    rom.setBytes(std::vector<std::uint8_t>(16 + 3 * 0x4000));
    handler.setDescriptor({.dBank = {1, 0}, .pMemStart = 0x8000});
    handler.setPointer(0, 0xBFFF);
    handler.setDataWord(0, 0x5678);
    EXPECT_EQ(rom.readByte(16 + 2 * 0x4000 - 1), 0x78);
    EXPECT_EQ(rom.readByte(16 + 2 * 0x4000), 0x56);
    EXPECT_EQ(handler.dataWord(0), 0x5678);
    EXPECT_EQ(handler.dataByte(1), 0xFF); // one address on is bank 0, where the table lies
}

TEST_F(PointerArrayHandlerTest, TableAndDataPastTheFileReadAsFillerAndDropWrites)
{
    rom.setBytes({1, 2, 3});
    handler.setPointer(0, 0x1234);
    handler.setDataByte(0, 7);
    handler.setDataWord(0, 7);
    EXPECT_EQ(handler.pointerOf(0), 0x5555);
    EXPECT_EQ(handler.dataWord(0, 0), 0x5555);
    EXPECT_EQ(handler.entryByte(2, 0), 0x55);
    EXPECT_EQ(std::vector<std::uint8_t>(rom.bytes().begin(), rom.bytes().end()),
              (std::vector<std::uint8_t>{1, 2, 3}));
}

TEST_F(PointerArrayHandlerTest, RoomsPastTheTableReadWhatFollows)
{
    rom.writeByte(16 + 4 * 100, 0x21);
    rom.writeByte(16 + 4 * 100 + 1, 0x43);
    EXPECT_EQ(handler.pointerOf(100), 0x4321);
}

TEST_F(PointerArrayHandlerTest, NothingIsCached)
{
    handler.setPointer(0, 0x8000);
    EXPECT_EQ(handler.dataByte(0), 0);
    rom.writeByte(16 + 0x4000, 0x42);
    EXPECT_EQ(handler.dataByte(0), 0x42);
}

RC_GTEST_PROP(PointerArrayHandlerProperty, TableEntryIsTheStartModulo32KilobytesAboveItsBank,
              (std::uint8_t bank, std::uint16_t start, std::uint16_t room, std::uint8_t pad))
{
    RomImage rom;
    const PointerArrayHandler handler(rom, {.pBank = bank, .pMemStart = start, .pointerPad = pad});
    const std::uint32_t offset = handler.entryFileOffset(room);
    const std::uint32_t bankStart = bank * 16384U + 16;
    RC_ASSERT(offset >= bankStart);
    RC_ASSERT(offset < bankStart + 32768);
    RC_ASSERT((offset - bankStart) % 32768 == (std::uint32_t{start} + room * pad) % 32768);
}

RC_GTEST_PROP(PointerArrayHandlerProperty, WrittenDataReadsBack,
              (std::uint16_t address, std::uint16_t offset, std::uint16_t value))
{
    RomImage rom;
    rom.setBytes(std::vector<std::uint8_t>(16 + 3 * 0x4000));
    // The table is in bank 2 of the file, the data in banks 0 and 1: they never meet.
    PointerArrayHandler handler(rom, {.dBank = {0, 1}, .pBank = 2, .pMemStart = 0x8800});
    handler.setPointer(0, address);
    handler.setDataWord(offset, value);
    RC_ASSERT(handler.pointerOf(0) == address);
    RC_ASSERT(handler.dataWord(offset, 0) == value);
}

} // namespace
} // namespace velko
