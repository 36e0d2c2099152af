#include "gfx/room_renderer.h"

#include "gfx/text_drawing.h"
#include "tests/support/test_rom.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

using test::Bytes;
using test::solidTile;
using test::TestCore;
using test::TestRom;
using test::Tile32Record;

constexpr Pixel kPaper = 0xABCDEF;

constexpr Pixel nes(std::uint32_t number)
{
    return TestRom::colour(number);
}

// Tile32 number 1 has four different quadrants; 0 and 2 are plain. The screen holds number 1 in
// its corners and 2 besides.
class ScreenTest : public testing::Test {
protected:
    ScreenTest()
    {
        Bytes numbers(64, 2);
        numbers[0] = 1;
        numbers[7] = 1;
        numbers[56] = 1;
        numbers[63] = 1;
        screen = game.addScreen(numbers);
        game.setTile32(0,
                       {Tile32Record{},
                        {0x10, 0x14, 0x18, 0x1C, 0b00'01'10'11, 0x12, 0x34},
                        {0x40, 0x40, 0x40, 0x40, 0b01'01'01'01, 0x55, 0x55}});
    }

    TestRom game;
    std::uint16_t screen = 0;
};

TEST_F(ScreenTest, QuadrantsOfARecord)
{
    const TestCore core(game);
    const auto expectCell = [&](std::uint32_t row, std::uint32_t column, int metatile, int palette,
                                int physics) {
        const MetatileCell cell = core.renderer.screenCell(screen, row, column);
        EXPECT_EQ(cell.metatile, metatile) << row << ' ' << column;
        EXPECT_EQ(cell.palette, palette) << row << ' ' << column;
        EXPECT_EQ(cell.physics, physics) << row << ' ' << column;
    };
    expectCell(0, 0, 0x10, 3, 1); // top left
    expectCell(1, 0, 0x14, 1, 2); // bottom left
    expectCell(0, 1, 0x18, 2, 3); // top right
    expectCell(1, 1, 0x1C, 0, 4); // bottom right
    expectCell(0, 2, 0x40, 1, 5);
    expectCell(0, 15, 0x18, 2, 3);
}

TEST_F(ScreenTest, Row14IsTheUpperHalfOfTheLastRecords)
{
    const TestCore core(game);
    EXPECT_EQ(core.renderer.screenCell(screen, 14, 0).metatile, 0x10);
    EXPECT_EQ(core.renderer.screenCell(screen, 14, 15).metatile, 0x18);
    ScreenMap16 map;
    core.renderer.decodeScreen(screen, map);
    EXPECT_EQ(map.metatile[14 * 16], 0x10);
    EXPECT_EQ(map.metatile[14 * 16 + 1], 0x18);
    EXPECT_EQ(map.metatile[239], 0x18);
    for (const std::uint8_t metatile : std::span(map.metatile).subspan(13 * 16))
        EXPECT_TRUE(metatile != 0x14 && metatile != 0x1C) << "a lower half shows";
}

TEST_F(ScreenTest, DecodedScreenHoldsEveryCell)
{
    const TestCore core(game);
    ScreenMap16 map;
    core.renderer.decodeScreen(screen, map);
    for (std::uint32_t cell = 0; cell < kScreenCells; ++cell) {
        const MetatileCell one = core.renderer.screenCell(screen, cell / 16, cell % 16);
        EXPECT_EQ(map.metatile[cell], one.metatile) << cell;
        EXPECT_EQ(map.palette[cell], one.palette) << cell;
        EXPECT_EQ(map.physics[cell], one.physics) << cell;
    }
}

TEST_F(ScreenTest, BlocksTakeTheValuesOfTheirFirstCell)
{
    // Block 4 (metatiles 10 to 13) first shows in cell (0, 1), then with other values in the
    // cells below and in the next record of the same row.
    game.setTile32(0,
                   {{0x20, 0x12, 0x11, 0x13, 0b11'10'01'00, 0x1A, 0x2B},
                    {0x10, 0x10, 0x10, 0x10, 0b11'11'11'11, 0xFF, 0xFF}});
    Bytes numbers(64, 1);
    numbers[0] = 0;
    const std::uint16_t mixed = game.addScreen(numbers);
    const TestCore core(game);
    TsaTable table{};
    table[9] = {3, 9, true};
    ScreenMap16 map;
    core.renderer.decodeScreen(mixed, map, &table);
    EXPECT_TRUE(table[4].seen);
    EXPECT_EQ(table[4].palette, 1);
    EXPECT_EQ(table[4].physics, 2);
    EXPECT_TRUE(table[8].seen);
    EXPECT_EQ(table[8].palette, 0);
    EXPECT_EQ(table[8].physics, 1);
    EXPECT_FALSE(table[5].seen);
    EXPECT_EQ(table[9].physics, 9) << "what no cell uses is left alone";

    core.renderer.decodeScreen(screen, map, &table);
    EXPECT_EQ(table[4].palette, 1) << "a later screen does not replace a block's values";
}

TEST_F(ScreenTest, CellsAreCountedByRowsNotByRecords)
{
    // Both cells of block 4 lie in row 1 and row 0: the record to the left has it in its lower
    // row, the one to the right in its upper row, which comes first.
    game.setTile32(0,
                   {{0x20, 0x10, 0x20, 0x20, 0b00'10'00'00, 0x05, 0x00},
                    {0x10, 0x20, 0x20, 0x20, 0b00'00'00'01, 0x60, 0x00},
                    {0x20, 0x20, 0x20, 0x20, 0, 0, 0}});
    Bytes numbers(64, 2);
    numbers[0] = 0;
    numbers[1] = 1;
    const std::uint16_t mixed = game.addScreen(numbers);
    const TestCore core(game);
    TsaTable table{};
    ScreenMap16 map;
    core.renderer.decodeScreen(mixed, map, &table);
    EXPECT_EQ(table[4].palette, 1);
    EXPECT_EQ(table[4].physics, 6);
}

TEST_F(ScreenTest, ScreenIsMappedOnceAndRunsOnInTheFile)
{
    // The screen starts in the last bytes of its bank and goes on in the next bank of the file.
    game.write(kHeaderSize + test::layout::kScreenBank * kBankSize + 0x3FFE, {1, 1, 1, 2});
    const TestCore core(game);
    EXPECT_EQ(core.renderer.screenFileOffset(0xBFFE),
              kHeaderSize + test::layout::kScreenBank * kBankSize + 0x3FFE);
    EXPECT_EQ(core.renderer.screenCell(0xBFFE, 0, 4).metatile, 0x10);
    EXPECT_EQ(core.renderer.screenCell(0xBFFE, 0, 6).metatile, 0x40);
}

TEST_F(ScreenTest, UpperAddressesUseTheSecondBank)
{
    game.write(kHeaderSize + test::layout::kFixedBank * kBankSize + 0x808, {1});
    const TestCore core(game);
    EXPECT_EQ(core.renderer.screenCell(0xC808, 0, 0).metatile, 0x10);
}

// Screens of one colour: screen n (0 to 3) shows palette n's colour 1, which is the colour 1 + n.
class RoomTest : public testing::Test {
protected:
    RoomTest()
    {
        game.setBackgroundBlock(0, 1, [] {
            Bytes block;
            for (int i = 0; i < 4; ++i) {
                const Bytes tile = solidTile(1);
                block.insert(block.end(), tile.begin(), tile.end());
            }
            return block;
        }());
        Bytes tileLoad(96);
        tileLoad[1] = 1;
        std::vector<Tile32Record> records;
        std::vector<std::uint16_t> screens;
        for (std::uint8_t n = 0; n < 4; ++n) {
            records.push_back({4, 4, 4, 4, static_cast<std::uint8_t>(n * 0b01'01'01'01), 0, 0});
            screens.push_back(game.addScreen(Bytes(64, n)));
        }
        Bytes palette(32, 0x3F);
        for (std::uint8_t n = 0; n < 4; ++n)
            palette[4 * n + 1U] = static_cast<std::uint8_t>(1 + n);
        for (std::uint32_t room : {0U, 1U}) {
            game.setTileLoad(room, tileLoad);
            game.setTile32(room, records);
            game.setScreenList(room, screens);
            game.setPalette(room, palette);
        }
    }

    TestRom game;
};

TEST_F(RoomTest, ScreenIs256By240)
{
    TestCore core(game);
    PixelImage image(260, 250, kPaper);
    core.renderer.drawScreen(image, 6, 3, core.renderer.screenAddress(2));
    PixelImage expected(260, 250, kPaper);
    fillRectangle(expected, 6, 3, 240, 256, nes(3));
    EXPECT_EQ(image, expected);
}

TEST_F(RoomTest, MetatilesPastTheImageAreSkipped)
{
    TestCore core(game);
    PixelImage image(32, 16, kPaper);
    core.renderer.drawScreen(image, 0, 16, core.renderer.screenAddress(0));
    PixelImage expected(32, 16, kPaper);
    fillRectangle(expected, 0, 16, 16, 16, nes(1));
    EXPECT_EQ(image, expected);
    core.renderer.drawScreen(image, 16, 0, core.renderer.screenAddress(1));
    core.renderer.drawScreen(image, 0, 32, core.renderer.screenAddress(1));
    core.renderer.drawScreen(image, 2'000'000'000, 2'000'000'000, core.renderer.screenAddress(1));
    core.renderer.drawScreen(image, -1, 0, core.renderer.screenAddress(1));
    EXPECT_EQ(image, expected);
    PixelImage empty;
    core.renderer.drawScreen(empty, 0, 0, core.renderer.screenAddress(0));
    EXPECT_TRUE(empty.empty());
}

TEST_F(RoomTest, PictureShowsEveryCellOfTheLayout)
{
    game.setLayout(1, 2, 3, {0, 1, 2, 3, 1, 0});
    TestCore core(game);
    PixelImage image;
    core.renderer.renderRoomPicture(1, image);
    EXPECT_EQ(core.graphics.currentRoom(), 1);
    ASSERT_EQ(image.width(), 512U);
    ASSERT_EQ(image.height(), 720U);
    PixelImage expected(512, 720);
    const Pixel colours[] = {nes(1), nes(2), nes(3), nes(4), nes(2), nes(1)};
    for (int cell = 0; cell < 6; ++cell)
        fillRectangle(expected, 240 * (cell / 2), 256 * (cell % 2), 240, 256, colours[cell]);
    EXPECT_EQ(image, expected);
}

TEST_F(RoomTest, RoomWithoutALayoutShowsOneScreen)
{
    game.setLayout(1, 1, 1, {3});
    game.setStoredSize(1, 0, 0);
    TestCore core(game);
    PixelImage image;
    core.renderer.renderRoomPicture(1, image);
    EXPECT_EQ(image, PixelImage(256, 240, nes(4)));
}

TEST_F(RoomTest, CellsPastTheListShowWhatTheDataHoldsThere)
{
    // Room 0's list is written right behind room 1's empty one: FF FF, then four addresses.
    game.setScreenList(1, {});
    game.setScreenList(0, {0x8640, 0x8680});
    game.setLayout(1, 1, 1, {1});
    TestCore core(game);
    PixelImage image;
    core.renderer.renderRoomPicture(1, image);
    EXPECT_EQ(image.at(0, 0), nes(1)); // the screen at $8640, the first that was added
}

TEST_F(RoomTest, RoomTooLargeForAPictureGivesNone)
{
    game.setStoredSize(1, 255, 255);
    TestCore core(game);
    PixelImage image(10, 10);
    core.renderer.renderRoomPicture(1, image);
    EXPECT_TRUE(image.empty());
}

TEST_F(RoomTest, RegionShowsTheRoomFromTheScrollPosition)
{
    game.setLayout(0, 2, 2, {0, 1, 2, 3});
    const TestCore core(game);
    PixelImage image(20, 10, 0);
    core.renderer.renderRoomRegion(image, 249, 235, kPaper); // the four screens meet at (7, 5)
    PixelImage expected(20, 10);
    fillRectangle(expected, 0, 0, 5, 7, nes(1));
    fillRectangle(expected, 0, 7, 5, 13, nes(2));
    fillRectangle(expected, 5, 0, 5, 7, nes(3));
    fillRectangle(expected, 5, 7, 5, 13, nes(4));
    EXPECT_EQ(image, expected);
}

TEST_F(RoomTest, RegionOutsideTheRoomIsBackground)
{
    const TestCore core(game); // one screen
    PixelImage image(20, 10);
    core.renderer.renderRoomRegion(image, 250, 236, kPaper);
    PixelImage expected(20, 10, kPaper);
    fillRectangle(expected, 0, 0, 4, 6, nes(1));
    EXPECT_EQ(image, expected);
    for (const auto& [x, y] :
         {std::pair<std::uint32_t, std::uint32_t>{256, 0}, {0, 240}, {0xFFFFFFFF, 0xFFFFFFFF}}) {
        core.renderer.renderRoomRegion(image, x, y, kPaper);
        EXPECT_EQ(image, PixelImage(20, 10, kPaper));
    }
    PixelImage empty;
    core.renderer.renderRoomRegion(empty, 0, 0, kPaper);
    EXPECT_TRUE(empty.empty());
}

TEST_F(RoomTest, RegionThatLeavesTheRoomByOnePixelShowsBackgroundThere)
{
    const TestCore core(game); // one screen
    PixelImage image(20, 10, 0x123456);
    core.renderer.renderRoomRegion(image, 256 - 19, 0, kPaper);
    PixelImage expected(20, 10, nes(1));
    fillRectangle(expected, 0, 19, 10, 1, kPaper);
    EXPECT_EQ(image, expected);

    fill(image, 0x123456);
    core.renderer.renderRoomRegion(image, 0, 240 - 9, kPaper);
    expected = PixelImage(20, 10, nes(1));
    fillRectangle(expected, 9, 0, 1, 20, kPaper);
    EXPECT_EQ(image, expected);

    core.renderer.renderRoomRegion(image, 256 - 20, 240 - 10, kPaper);
    EXPECT_EQ(image, PixelImage(20, 10, nes(1)));
}

TEST_F(RoomTest, RegionReachesTheFarEndOfTheLargestRoom)
{
    // Every cell of the layout reads as 3 behind the block's start.
    game.config.pahMapLayout.dBank = {test::layout::kFixedBank, test::layout::kFixedBank};
    game.write(kHeaderSize + test::layout::kFixedBank * kBankSize, Bytes(kBankSize, 3));
    game.setStoredSize(0, 255, 255);
    const TestCore core(game);
    PixelImage image(30, 20);
    core.renderer.renderRoomRegion(image, 253 * 256 - 13, 255 * 240 - 9, kPaper);
    PixelImage expected(30, 20, kPaper);
    fillRectangle(expected, 0, 0, 9, 13, nes(4));
    EXPECT_EQ(image, expected);
}

TEST_F(RoomTest, ThumbnailGivesEveryScreenItsTruncatedShare)
{
    game.setLayout(1, 3, 2, {0, 1, 2, 3, 1, 0});
    TestCore core(game);
    PixelImage image(230, 231);
    core.renderer.renderRoomThumbnail(1, image, "", kPaper);
    EXPECT_EQ(core.graphics.currentRoom(), 1);
    // 76 x 115 pixels each. What bilinear scaling mixes at a share's far edges is left out here.
    const Pixel colours[] = {nes(1), nes(2), nes(3), nes(4), nes(2), nes(1)};
    for (std::uint32_t cell = 0; cell < 6; ++cell) {
        const std::uint32_t left = cell % 3 * 76;
        const std::uint32_t top = cell / 3 * 115;
        EXPECT_EQ(image.at(left, top), colours[cell]) << cell;
        EXPECT_EQ(image.at(left + 70, top + 110), colours[cell]) << cell;
    }
    for (std::uint32_t y = 0; y < 231; ++y)
        EXPECT_EQ(image.at(228, y), kPaper) << y;
    for (std::uint32_t x = 0; x < 230; ++x)
        EXPECT_EQ(image.at(x, 230), kPaper) << x;
}

TEST_F(RoomTest, ThumbnailEqualsItsScreensScaledOneByOne)
{
    game.setLayout(1, 4, 2, {0, 1, 2, 9, 1, 0, 3, 3});
    TestCore core(game);
    PixelImage image(230, 230);
    core.renderer.renderRoomThumbnail(1, image, "", kPaper);

    PixelImage expected(230, 230, kPaper);
    for (std::uint32_t row = 0; row < 2; ++row) {
        for (std::uint32_t column = 0; column < 4; ++column) {
            PixelImage screen(256, 240);
            core.renderer.drawScreen(
                screen, 0, 0, core.renderer.screenAddress(core.renderer.layoutCell(row, column)));
            PixelImage share(57, 115);
            copyScaled(share, screen);
            blit(expected, share, static_cast<int>(57 * column), static_cast<int>(115 * row));
        }
    }
    EXPECT_EQ(image, expected);
}

TEST_F(RoomTest, ThumbnailIsCaptionedInOutlinedWhite)
{
    TestCore core(game);
    PixelImage plain(230, 230);
    PixelImage captioned(230, 230);
    core.renderer.renderRoomThumbnail(1, plain, "", kPaper);
    core.renderer.renderRoomThumbnail(1, captioned, "Old mill", kPaper);
    drawText("Old mill", plain, 3, 4, 10, 15, 0xFFFFFF, 2);
    EXPECT_EQ(captioned, plain);
    const auto pixels = std::as_const(captioned).pixels();
    EXPECT_GT(std::count(pixels.begin(), pixels.end(), 0xFFFFFFU), 0);
    EXPECT_GT(std::count(pixels.begin(), pixels.end(), 0x000000U), 0);
}

TEST_F(RoomTest, ThumbnailTooSmallForItsScreensShowsBackground)
{
    game.setStoredSize(1, 255, 255);
    TestCore core(game);
    for (const auto& [width, height] :
         {std::pair<std::uint32_t, std::uint32_t>{252, 255}, {253, 254}, {1, 1}}) {
        PixelImage image(width, height);
        core.renderer.renderRoomThumbnail(1, image, "", kPaper);
        EXPECT_EQ(image, PixelImage(width, height, kPaper));
    }
    PixelImage empty;
    core.renderer.renderRoomThumbnail(1, empty, "Old mill", kPaper);
    EXPECT_TRUE(empty.empty());
}

TEST_F(RoomTest, NothingIsKeptBetweenPictures)
{
    TestCore core(game);
    PixelImage image(16, 16);
    core.renderer.renderRoomRegion(image, 0, 0, kPaper);
    EXPECT_EQ(image.at(0, 0), nes(1));
    core.rom.writeByte(core.renderer.screenFileOffset(core.renderer.screenAddress(0)), 2);
    core.renderer.renderRoomRegion(image, 0, 0, kPaper);
    EXPECT_EQ(image.at(0, 0), nes(3));
}

} // namespace
} // namespace velko
