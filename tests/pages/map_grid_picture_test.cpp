#include "pages/map_grid_picture.h"

#include "gfx/text_drawing.h"
#include "tests/pages/map_layout_rom.h"

#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using test::Bytes;
using test::ColouredMapTest;
using test::TestRom;
using Pitch = MapGridPicture::Pitch;

class MapGridPictureTest : public ColouredMapTest {
protected:
    MapGridPictureTest()
    {
        grid.setViewSize(300, 300);
        grid.refresh();
    }
    PixelImage drawn()
    {
        PixelImage picture;
        grid.draw(picture);
        return picture;
    }

    MapGridPicture grid{state, model};
};

TEST_F(MapGridPictureTest, CellsAreAsLargeAsTheViewAllows)
{
    struct Case {
        int width;
        int height;
        Pitch pitch;
    };
    // Three columns and two rows.
    for (const Case& c :
         {Case{300, 300, {96, 90}}, Case{288, 180, {96, 90}}, Case{287, 180, {80, 75}},
          Case{288, 179, {80, 75}}, Case{144, 90, {48, 45}}, Case{143, 1000, {48, 45}},
          Case{0, 0, {48, 45}}, Case{-5, -5, {48, 45}}, Case{384, 240, {128, 120}},
          Case{4000, 4000, {128, 120}}}) {
        grid.setViewSize(c.width, c.height);
        EXPECT_EQ(grid.pitch(), c.pitch) << c.width << " x " << c.height;
    }
}

TEST_F(MapGridPictureTest, PictureIsAsLargeAsWhatShows)
{
    EXPECT_EQ(drawn().width(), 288U);
    EXPECT_EQ(drawn().height(), 180U);
    grid.setViewSize(100, 50);
    EXPECT_EQ(drawn().width(), 100U);
    EXPECT_EQ(drawn().height(), 50U);
    grid.setViewSize(0, 50);
    EXPECT_TRUE(drawn().empty());
}

TEST_F(MapGridPictureTest, CellsShowTheirScreens)
{
    const PixelImage picture = drawn();
    // Away from captions and the selection: the lower right part of each cell. Colour 0 of a
    // palette is always entry 16.
    EXPECT_EQ(picture.at(80, 80), TestRom::colour(16));
    EXPECT_EQ(picture.at(96 + 80, 80), TestRom::colour(1));
    EXPECT_EQ(picture.at(192 + 80, 80), TestRom::colour(2));
    EXPECT_EQ(picture.at(80, 90 + 80), TestRom::colour(3));
    EXPECT_EQ(picture.at(96 + 80, 90 + 80), TestRom::colour(5));
}

TEST_F(MapGridPictureTest, CellIsTheScreenReducedWithItsNumberOnIt)
{
    PixelImage screen(256, 240);
    state.renderer.drawScreen(screen, 0, 0, 0x8700);
    PixelImage expected(96, 90);
    copyScaled(expected, screen);
    // Entry 2 of the palette is colour 2: 0x422406 + 0xC0C0C0 in each channel's upper bits, told
    // blue first.
    static_assert(TestRom::colour(2) == 0x422406);
    drawText("4", expected, 6, 6, 18, 24, 0xC6E4C2, kTextOutline);

    const PixelImage picture = drawn();
    for (std::uint32_t y = 0; y < 90; ++y) {
        for (std::uint32_t x = 0; x < 96; ++x)
            ASSERT_EQ(picture.at(96 + x, 90 + y), expected.at(x, y)) << x << ", " << y;
    }
}

TEST_F(MapGridPictureTest, InvalidCellIsGreyWithARedNumber)
{
    PixelImage expected(96, 90, 0x988898);
    drawText("5", expected, 6, 6, 18, 24, 0x3030F0, kTextOutline);
    const PixelImage picture = drawn();
    bool red = false;
    for (std::uint32_t y = 0; y < 90; ++y) {
        for (std::uint32_t x = 0; x < 96; ++x) {
            ASSERT_EQ(picture.at(192 + x, 90 + y), expected.at(x, y)) << x << ", " << y;
            red = red || picture.at(192 + x, 90 + y) == 0xF03030;
        }
    }
    EXPECT_TRUE(red);
}

TEST_F(MapGridPictureTest, NumberIsHexadecimalAndFitsTheSmallestCell)
{
    model.selectCell({1, 2});
    model.assignScreen(0xFB);
    model.selectCell({0, 0});
    grid.setViewSize(144, 90);
    PixelImage expected(48, 45, 0x988898);
    drawText("fb", expected, 6, 6, 18, 24, 0x3030F0, kTextOutline);
    const PixelImage picture = drawn();
    for (std::uint32_t y = 0; y < 45; ++y) {
        for (std::uint32_t x = 0; x < 48; ++x)
            ASSERT_EQ(picture.at(96 + x, 45 + y), expected.at(x, y)) << x << ", " << y;
    }
    // The last column before the cell's edge is the number's ground again.
    for (std::uint32_t y = 0; y < 45; ++y)
        EXPECT_EQ(picture.at(96 + 47, 45 + y), 0x988898U);
}

TEST_F(MapGridPictureTest, SelectedCellIsFramed)
{
    model.selectCell({1, 2});
    const PixelImage picture = drawn();
    EXPECT_EQ(picture.at(192, 90), 0x000000U);
    EXPECT_EQ(picture.at(193, 91), 0xFFFFFFU);
    EXPECT_EQ(picture.at(194, 92), 0xFFFFFFU);
    EXPECT_EQ(picture.at(287, 179), 0x000000U);
    EXPECT_EQ(picture.at(286, 178), 0xFFFFFFU);
    model.selectCell({0, 0});
    EXPECT_EQ(drawn().at(192, 90), 0x988898U);
}

// A game changed behind the picture's back shows at the next refresh, as each screen is drawn once.
TEST_F(MapGridPictureTest, ScreensAreDrawnOncePerRefresh)
{
    EXPECT_EQ(drawn().at(80, 90 + 80), TestRom::colour(3));
    state.store.pahPal.setDataByte(3, 30);
    EXPECT_EQ(drawn().at(80, 90 + 80), TestRom::colour(3));
    grid.refresh();
    EXPECT_EQ(drawn().at(80, 90 + 80), TestRom::colour(30));
}

TEST_F(MapGridPictureTest, AssignedScreenShowsWithoutARefresh)
{
    drawn();
    model.assignScreen(3);
    EXPECT_EQ(drawn().at(80, 80), TestRom::colour(3));
}

TEST_F(MapGridPictureTest, ShorterScreenListMakesCellsInvalidAtTheNextRefresh)
{
    state.store.pahMapAlloc.setDataWord(6, 0xFFFF);
    grid.refresh();
    EXPECT_EQ(drawn().at(80, 80), TestRom::colour(16));
    EXPECT_EQ(drawn().at(80, 90 + 80), 0x988898U);
}

TEST_F(MapGridPictureTest, LargerMapIsScrolled)
{
    grid.setViewSize(100, 80);
    EXPECT_EQ(grid.horizontalScroll().range, 144);
    EXPECT_EQ(grid.horizontalScroll().page, 100);
    EXPECT_EQ(grid.verticalScroll().range, 90);
    EXPECT_EQ(grid.verticalScroll().page, 80);
    const PixelImage unscrolled = drawn();
    grid.scrollTo(30, 7);
    const PixelImage scrolled = drawn();
    EXPECT_EQ(grid.horizontalScroll().position, 30);
    EXPECT_EQ(grid.verticalScroll().position, 7);
    for (std::uint32_t y = 0; y < 73; ++y) {
        for (std::uint32_t x = 0; x < 70; ++x)
            ASSERT_EQ(scrolled.at(x, y), unscrolled.at(x + 30, y + 7)) << x << ", " << y;
    }
}

TEST_F(MapGridPictureTest, ScrollingStopsAtTheEdges)
{
    grid.setViewSize(100, 80);
    grid.scrollTo(1000, 1000);
    EXPECT_EQ(grid.horizontalScroll().position, 44);
    EXPECT_EQ(grid.verticalScroll().position, 10);
    grid.scrollTo(-1, -1);
    EXPECT_EQ(grid.horizontalScroll().position, 0);
    EXPECT_EQ(grid.verticalScroll().position, 0);
    grid.scrollTo(40, 10);
    setStoredSize(0, 4, 1);
    EXPECT_EQ(grid.horizontalScroll().position, 0);
    EXPECT_EQ(grid.verticalScroll().position, 0);
}

TEST_F(MapGridPictureTest, SelectedCellIsScrolledIntoView)
{
    grid.setViewSize(100, 80);
    model.selectCell({1, 2});
    grid.scrollToSelectedCell();
    EXPECT_EQ(grid.horizontalScroll().position, 44);
    EXPECT_EQ(grid.verticalScroll().position, 10);
    model.selectCell({1, 1});
    grid.scrollToSelectedCell(); // shows already
    EXPECT_EQ(grid.horizontalScroll().position, 44);
    model.selectCell({0, 0});
    grid.scrollToSelectedCell();
    EXPECT_EQ(grid.horizontalScroll().position, 0);
    EXPECT_EQ(grid.verticalScroll().position, 0);
}

TEST_F(MapGridPictureTest, PointOutsideTheMapIsTheNearestCell)
{
    EXPECT_EQ(grid.cellAt(0, 0), (MapCell{0, 0}));
    EXPECT_EQ(grid.cellAt(95, 89), (MapCell{0, 0}));
    EXPECT_EQ(grid.cellAt(96, 90), (MapCell{1, 1}));
    EXPECT_EQ(grid.cellAt(287, 179), (MapCell{1, 2}));
    EXPECT_EQ(grid.cellAt(299, 299), (MapCell{1, 2}));
    EXPECT_EQ(grid.cellAt(-50, -1), (MapCell{0, 0}));
}

// The pixel where a cell is drawn is a point of that cell, wherever the view is scrolled to.
RC_GTEST_PROP(MapGridPictureProperty, HitTestInvertsTheDrawing,
              (std::uint8_t width, std::uint8_t height, std::uint16_t viewWidth,
               std::uint16_t viewHeight, std::uint16_t scrollX, std::uint16_t scrollY))
{
    TestRom game;
    game.setStoredSize(0, width, height);
    EditorState state;
    game.loadInto(state);
    const MapLayoutModel model(state);
    RC_PRE(model.hasMap());
    MapGridPicture grid(state, model);
    grid.setViewSize(viewWidth % 700, viewHeight % 700);
    grid.scrollTo(scrollX, scrollY);
    const Pitch pitch = grid.pitch();
    const int left = grid.horizontalScroll().position;
    const int top = grid.verticalScroll().position;
    const auto column = *rc::gen::inRange(0U, model.columns());
    const auto row = *rc::gen::inRange(0U, model.rows());
    const int x = static_cast<int>(column) * pitch.width - left;
    const int y = static_cast<int>(row) * pitch.height - top;
    RC_ASSERT(grid.cellAt(x + *rc::gen::inRange(0, pitch.width), y) == (MapCell{row, column}));
    RC_ASSERT(grid.cellAt(x, y + *rc::gen::inRange(0, pitch.height)) == (MapCell{row, column}));
    RC_ASSERT(left >= 0 && left + grid.horizontalScroll().page <= grid.horizontalScroll().range);
    RC_ASSERT(top >= 0 && top + grid.verticalScroll().page <= grid.verticalScroll().range);
}

// Maps of any stored size

TEST_F(MapGridPictureTest, LargestMapIsAViewOfItsPart)
{
    setStoredSize(0, 255, 255);
    grid.setViewSize(600, 400);
    grid.refresh();
    EXPECT_EQ(grid.horizontalScroll().range, 253 * 48);
    EXPECT_EQ(grid.verticalScroll().range, 255 * 45);
    grid.scrollTo(1 << 30, 1 << 30);
    EXPECT_EQ(drawn().width(), 600U);
    EXPECT_EQ(drawn().height(), 400U);
    EXPECT_EQ(grid.cellAt(599, 399), (MapCell{254, 252}));
}

TEST_F(MapGridPictureTest, DamagedSizesShowOneColumnOrRow)
{
    for (const auto& [width, height] : {std::pair{0, 1}, {1, 1}, {2, 1}, {3, 0}}) {
        setStoredSize(0, static_cast<std::uint8_t>(width), static_cast<std::uint8_t>(height));
        grid.refresh();
        EXPECT_EQ(drawn().width(), 128U) << width << " x " << height;
        EXPECT_EQ(drawn().height(), 120U) << width << " x " << height;
    }
}

TEST_F(MapGridPictureTest, WithoutAMapThePictureIsEmpty)
{
    setStoredSize(0, 0, 0);
    grid.refresh();
    EXPECT_TRUE(drawn().empty());
    EXPECT_EQ(grid.cellAt(50, 50), (MapCell{0, 0}));
    grid.scrollToSelectedCell();
    EXPECT_EQ(grid.horizontalScroll().position, 0);
}

TEST_F(MapGridPictureTest, ImageOfNoBytesIsSurvived)
{
    state.rom.setBytes({});
    state.prepareRoomData();
    grid.refresh();
    EXPECT_EQ(drawn().width(), 300U); // a map of 0x55 x 0x55
}

} // namespace
} // namespace velko
