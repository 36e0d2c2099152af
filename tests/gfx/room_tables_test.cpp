// How the renderer reads a room's tables.

#include "gfx/room_renderer.h"
#include "tests/support/test_rom.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

using test::Bytes;
using test::TestCore;
using test::TestRom;

class ScreenIndexTest : public testing::Test {
protected:
    void startAreaAt(std::uint32_t cpuAddress)
    {
        game.config.setValue(MiscField::mapAllocDataStart, cpuAddress);
    }
    std::uint32_t indexOf(std::uint16_t screenAddress) const
    {
        return TestCore(game).renderer.screenIndex(screenAddress);
    }

    TestRom game;
};

TEST_F(ScreenIndexTest, AddressesCountScreensOf64Bytes)
{
    startAreaAt(0x8600);
    EXPECT_EQ(indexOf(0x8600), 0U);
    EXPECT_EQ(indexOf(0x863F), 0U);
    EXPECT_EQ(indexOf(0x8640), 1U);
    EXPECT_EQ(indexOf(0xC000), 232U);
}

TEST_F(ScreenIndexTest, AddressesBelowTheAreaGive0)
{
    startAreaAt(0x8600);
    EXPECT_EQ(indexOf(0x85FF), 0U);
    EXPECT_EQ(indexOf(0x0000), 0U);
}

TEST_F(ScreenIndexTest, ScreensAboveTheHoleLieEightBytesFurther)
{
    startAreaAt(0x8000);
    EXPECT_EQ(indexOf(0xC7FF), 287U);
    EXPECT_EQ(indexOf(0xC800), 288U);
    EXPECT_EQ(indexOf(0xC801), 287U); // inside the hole
    EXPECT_EQ(indexOf(0xC807), 287U);
    EXPECT_EQ(indexOf(0xC808), 288U);
    EXPECT_EQ(indexOf(0xC848), 289U);
}

TEST_F(ScreenIndexTest, AnyStartOfTheAreaIsSurvived)
{
    startAreaAt(0xC805);
    EXPECT_EQ(indexOf(0xC806), 0U); // 7 bytes before the area
    startAreaAt(0xFFFFFFFF);
    EXPECT_EQ(indexOf(0xFFFF), 0U);
    startAreaAt(0);
    EXPECT_EQ(indexOf(0xFFFF), 1023U);
}

TEST(ScreenListTest, ScreensAreCountedUpToTheTerminator)
{
    TestRom game;
    game.setScreenList(1, {0x8600, 0x8640, 0x8680});
    game.setScreenList(2, {});
    TestCore core(game);
    EXPECT_EQ(core.renderer.screenCount(1), 3U);
    EXPECT_EQ(core.renderer.screenCount(2), 0U);
    core.graphics.selectRoom(1);
    EXPECT_EQ(core.renderer.screenAddress(2), 0x8680);
    EXPECT_EQ(core.renderer.screenAddress(3), 0xFFFF);
}

TEST(ScreenListTest, ListWithoutAnEndCounts65536Screens)
{
    TestRom game;
    game.bytes.resize(kHeaderSize);
    EXPECT_EQ(TestCore(game).renderer.screenCount(0), 65536U);
}

TEST(RoomSizeTest, BordersDoNotShowAndNothingIsSmallerThanOneScreen)
{
    struct Case {
        std::uint8_t width, height;
        std::uint32_t columns, rows;
    };
    for (const Case& c : {Case{0, 0, 1, 1}, Case{1, 1, 1, 1}, Case{2, 3, 1, 3}, Case{3, 1, 1, 1},
                          Case{4, 2, 2, 2}, Case{255, 255, 253, 255}}) {
        TestRom game;
        game.setStoredSize(1, c.width, c.height);
        const RoomSize size = TestCore(game).renderer.roomSize(1);
        EXPECT_EQ(size.columns, c.columns) << int{c.width};
        EXPECT_EQ(size.rows, c.rows) << int{c.height};
        EXPECT_EQ(size.width(), 256 * c.columns);
        EXPECT_EQ(size.height(), 240 * c.rows);
    }
}

TEST(RoomSizeTest, LayoutCellSkipsTheBorderColumn)
{
    TestRom game;
    game.setLayout(0, 3, 2, {10, 11, 12, 20, 21, 22});
    const TestCore core(game);
    EXPECT_EQ(core.renderer.layoutCell(0, 0), 10);
    EXPECT_EQ(core.renderer.layoutCell(0, 2), 12);
    EXPECT_EQ(core.renderer.layoutCell(1, 1), 21);
}

TEST(RoomSizeTest, LayoutOfBordersOnlyShowsTheByteBehindTheFirst)
{
    TestRom game;
    game.setLayout(0, 6, 1, {1, 2, 3, 4, 5, 6}); // EE 1 2 3 4 5 6 EE
    const std::uint8_t expected[3][3] = {{1, 1, 1}, {1, 2, 3}, {1, 3, 5}};
    for (const std::uint8_t width : Bytes{0, 1, 2}) {
        game.setStoredSize(0, width, 3);
        const TestCore core(game);
        for (std::uint32_t row = 0; row < 3; ++row)
            EXPECT_EQ(core.renderer.layoutCell(row, 0), expected[width][row]) << int{width};
    }
}

} // namespace
} // namespace velko
