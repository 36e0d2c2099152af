#include "pages/vram_load_list.h"

#include "tests/pages/unit_rom.h"

namespace velko {
namespace {

using test::Bytes;
using Lines = std::vector<std::string>;

class VramLoadListTest : public test::UnitGameTest {
protected:
    VramLoadList loads{loadData()};
};

TEST_F(VramLoadListTest, LinesAreDecimalIndexAndName)
{
    EXPECT_EQ(loads.lines(state.names), (Lines{"0: - Load 0", "1: - Load 1", "2: - Load 2"}));
    setLoads({5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 127});
    EXPECT_EQ(loads.lines(state.names).back(), "10: - Load 127");
}

TEST_F(VramLoadListTest, ShownPartEndsAtAnyByteFrom80AndTheListAtFF)
{
    EXPECT_EQ(loads.shownCount(), 3U);
    EXPECT_EQ(loads.count(), 3U);
    setLoads({0x7F, 0x80, 1});
    EXPECT_EQ(loads.shownCount(), 1U);
    EXPECT_EQ(loads.count(), 3U);
    setLoads({0xFE});
    EXPECT_EQ(loads.shownCount(), 0U);
    EXPECT_EQ(loads.count(), 1U);
    setLoads({});
    EXPECT_EQ(loads.shownCount(), 0U);
    EXPECT_EQ(loads.count(), 0U);
}

TEST_F(VramLoadListTest, BothRulesStopAfter4096Bytes)
{
    state.store.pahTileLoadType2.setPointer(0, 0x8000);
    for (std::uint32_t i = 0; i < 5000; ++i)
        loads.setId(i, 0x7F);
    EXPECT_EQ(loads.shownCount(), 4096U);
    EXPECT_EQ(loads.count(), 4096U);
    EXPECT_EQ(loads.lines(state.names).size(), 4096U);
    loads.setId(4095, 0x80);
    EXPECT_EQ(loads.shownCount(), 4095U);
    EXPECT_EQ(loads.count(), 4096U);
    loads.setId(4095, 0xFF);
    EXPECT_EQ(loads.count(), 4095U);
}

TEST_F(VramLoadListTest, EntriesAreSetInsertedAndRemoved)
{
    loads.setId(1, 0x12);
    EXPECT_EQ(loadBytes(4), (Bytes{0, 0x12, 2, 0xFF}));
    ASSERT_TRUE(loads.insert(1, 7).ok());
    EXPECT_EQ(loadBytes(5), (Bytes{0, 7, 0x12, 2, 0xFF}));
    ASSERT_TRUE(loads.remove(0).ok());
    EXPECT_EQ(loadBytes(4), (Bytes{7, 0x12, 2, 0xFF}));
    EXPECT_EQ(loads.id(1), 0x12);
}

// The picture

class VramSetupTest : public test::UnitGameTest {
protected:
    // 51 pixels of the picture are four tiles; the points lie in the middle of their tile.
    Pixel tilePixel(std::uint32_t number)
    {
        drawVramSetup(state.graphics, picture);
        const std::uint32_t column = number % 16;
        const std::uint32_t row = number / 16;
        return picture.at(column * 51 / 4 + 6, row * 51 / 4 + 6);
    }

    PixelImage picture;
};

TEST_F(VramSetupTest, TilesShowInRowsOfSixteenInTheFirstSpriteColours)
{
    EXPECT_EQ(tilePixel(0), colour(16));
    EXPECT_EQ(tilePixel(1), colour(17));
    EXPECT_EQ(tilePixel(2), colour(18));
    EXPECT_EQ(tilePixel(3), colour(19));
    EXPECT_EQ(tilePixel(4), colour(16));
    EXPECT_EQ(picture.width(), 204U);
    EXPECT_EQ(picture.height(), 204U);
}

TEST_F(VramSetupTest, EveryTileHasItsPlace)
{
    game.setLoadRecord(0, 0, 0x0FF0, 1);  // tile 255
    game.setLoadRecord(1, 16, 0x0100, 1); // tile 16
    game.setLoadRecord(2, 32, 0x00F0, 1); // tile 15
    game.loadInto(state);
    EXPECT_EQ(tilePixel(255), colour(17));
    EXPECT_EQ(tilePixel(16), colour(18));
    EXPECT_EQ(tilePixel(15), colour(19));
    EXPECT_EQ(tilePixel(254), colour(16));
}

TEST_F(VramSetupTest, PictureIsScaled)
{
    tilePixel(0);
    // Tile 1 begins at 8 x 204 / 128 = 12.75: there 12 mixes the last column of tile 0 (7.53).
    EXPECT_EQ(picture.at(11, 0), colour(16));
    EXPECT_NE(picture.at(12, 0), colour(16));
    EXPECT_NE(picture.at(12, 0), colour(17));
    EXPECT_EQ(picture.at(13, 0), colour(17));
}

TEST_F(VramSetupTest, AnyLoadRecordIsCutAtTheEndOfTheMemory)
{
    game.setRoomLoads({0, 1, 2, 127});
    game.setLoadRecord(0, 0xFFFF, 0x0000, 255);
    game.setLoadRecord(1, 0xFFFF, 0xFFFF, 255);
    game.setLoadRecord(2, 0, 0x1FF8, 1);
    game.setLoadRecord(127, 0, 0x0FF8, 255);
    game.loadInto(state);
    drawVramSetup(state.graphics, picture);
    EXPECT_EQ(state.graphics.patternMemory[0x0FF8], 0xFF); // tile 255's second bit plane
    EXPECT_EQ(tilePixel(255), colour(18));
}

TEST_F(VramSetupTest, WithoutARomThereIsAPicture)
{
    EditorState empty;
    empty.graphics.selectRoom(0);
    drawVramSetup(empty.graphics, picture);
    EXPECT_EQ(picture.pixels().size(), 204U * 204U);
}

} // namespace
} // namespace velko
