#include "pages/unit_list.h"

#include "tests/pages/unit_rom.h"

namespace velko {
namespace {

using Position = RoomView::Position;
using test::Bytes;

// A placed unit's bytes after it was put at a position.
Bytes bytesAt(int x, int y)
{
    UnitRecord unit{.type = 7};
    unit.putAt({x, y});
    return {unit.type, unit.pixelX, unit.column, unit.pixelY, unit.screenY};
}

TEST(UnitRecordTest, PositionIsOnePixelBelowWhatTheBytesSay)
{
    EXPECT_EQ((UnitRecord{0, 100, 1, 50, 0}.position()), (Position{100, 51}));
    EXPECT_EQ((UnitRecord{0, 0, 3, 0, 2}.position()), (Position{512, 481}));
    EXPECT_EQ((UnitRecord{0, 255, 255, 255, 255}.position()), (Position{65279, 61456}));
}

TEST(UnitRecordTest, PositionIsWrittenAsItIs)
{
    EXPECT_EQ(bytesAt(100, 51), (Bytes{7, 100, 1, 51, 0}));
    EXPECT_EQ(bytesAt(255, 239), (Bytes{7, 255, 1, 239, 0}));
    EXPECT_EQ(bytesAt(256, 240), (Bytes{7, 0, 2, 0, 1}));
    EXPECT_EQ(bytesAt(1000, 1000), (Bytes{7, 232, 4, 40, 4}));
}

TEST(UnitRecordTest, LeftOfTheRoomThePlacementIsLost)
{
    EXPECT_EQ(bytesAt(-1, 0), (Bytes{7, 0xFF, 0, 0, 0}));
    EXPECT_EQ(bytesAt(-12, 0), (Bytes{7, 0xF4, 0, 0, 0}));
}

TEST(UnitRecordTest, AboveTheRoomYIsDividedTowardsZero)
{
    EXPECT_EQ(bytesAt(0, -1), (Bytes{7, 0, 1, 0xFF, 0}));
    EXPECT_EQ(bytesAt(0, -12), (Bytes{7, 0, 1, 0xF4, 0}));
    EXPECT_EQ(bytesAt(0, -241), (Bytes{7, 0, 1, 0xFF, 0xFF}));
}

TEST(UnitRecordTest, BytesKeepTheLowBitsOnly)
{
    EXPECT_EQ(bytesAt(65279, 61439), (Bytes{7, 255, 255, 239, 255}));
    EXPECT_EQ(bytesAt(65280, 61440), (Bytes{7, 0, 0, 0, 0}));
}

class UnitListTest : public test::UnitGameTest {
protected:
    UnitList units{unitData()};
};

TEST_F(UnitListTest, FirstByteFFIsAnEmptyList)
{
    EXPECT_EQ(units.count(), 0U);
    EXPECT_TRUE(units.records().empty());
    EXPECT_TRUE(units.lines(state.names).empty());
}

TEST_F(UnitListTest, RecordsEndAtFFInThePlaceOfAType)
{
    setUnits({3, 0xFF, 0xFF, 0xFF, 0xFF, 10, 1, 2, 3, 4});
    EXPECT_EQ(units.count(), 2U);
    EXPECT_EQ(units.record(0), (UnitRecord{3, 0xFF, 0xFF, 0xFF, 0xFF}));
    EXPECT_EQ(units.records(),
              (std::vector<UnitRecord>{{3, 0xFF, 0xFF, 0xFF, 0xFF}, {10, 1, 2, 3, 4}}));
}

TEST_F(UnitListTest, RecordIsWrittenInItsFiveBytes)
{
    setUnits({3, 0, 0, 0, 0, 10, 1, 2, 3, 4, 11, 5, 6, 7, 8});
    units.setRecord(1, {20, 21, 22, 23, 24});
    EXPECT_EQ(unitBytes(16), (Bytes{3, 0, 0, 0, 0, 20, 21, 22, 23, 24, 11, 5, 6, 7, 8, 0xFF}));
}

TEST_F(UnitListTest, RecordsAreInsertedAndRemovedWhole)
{
    setUnits({3, 0, 0, 0, 0, 10, 1, 2, 3, 4});
    const std::int32_t free = unitData().freeSpace();
    ASSERT_TRUE(units.insert(1, {20, 21, 22, 23, 24}).ok());
    EXPECT_EQ(unitBytes(16), (Bytes{3, 0, 0, 0, 0, 20, 21, 22, 23, 24, 10, 1, 2, 3, 4, 0xFF}));
    EXPECT_EQ(unitData().freeSpace(), free - 5);
    ASSERT_TRUE(units.remove(0).ok());
    EXPECT_EQ(unitBytes(11), (Bytes{20, 21, 22, 23, 24, 10, 1, 2, 3, 4, 0xFF}));
    EXPECT_EQ(unitData().freeSpace(), free);
}

TEST_F(UnitListTest, LinesAreDecimalIndexAndName)
{
    Bytes records;
    for (std::uint8_t i = 0; i < 11; ++i)
        records.insert(records.end(), {static_cast<std::uint8_t>(133 + i), 0, 0, 0, 0});
    setUnits(records);
    const std::vector<std::string> lines = units.lines(state.names);
    ASSERT_EQ(lines.size(), 11U);
    EXPECT_EQ(lines[0], "0 : Unit 133");
    EXPECT_EQ(lines[10], "10 : Unit 143");
}

TEST_F(UnitListTest, TypesPastTheNamesGetAFiller)
{
    setUnits({144, 0, 0, 0, 0, 254, 0, 0, 0, 0});
    EXPECT_EQ(units.lines(state.names), (std::vector<std::string>{"0 : 90 : ?? ", "1 : fe : ?? "}));
}

TEST_F(UnitListTest, ListWithoutAnEndStopsWhereItRepeats)
{
    for (const std::uint8_t bank : {test::layout::kBlockBank, test::layout::kFixedBank}) {
        for (std::uint32_t i = 0; i < kBankSize; ++i)
            state.rom.writeByte(kHeaderSize + bank * kBankSize + i, 1);
    }
    EXPECT_EQ(units.count(), 6553U); // 32 KB / 5
    EXPECT_EQ(units.records().size(), 6553U);
    EXPECT_EQ(units.lines(state.names).back(), "6552 : Unit 1");
}

TEST_F(UnitListTest, WithoutARomTheFillerIsAList)
{
    state.rom.setBytes({});
    EXPECT_EQ(units.record(0), (UnitRecord{0x55, 0x55, 0x55, 0x55, 0x55}));
    EXPECT_EQ(units.count(), 6553U);
    units.setRecord(6552, {});
    EXPECT_EQ(units.count(), 6553U);
}

} // namespace
} // namespace velko
