#include "pages/map_edit_pictures.h"

#include "gfx/grey_colours.h"
#include "tests/pages/map_edit_rom.h"

namespace velko::test {
namespace {

using Point = RoomView::Position;

Pixel colour(std::uint32_t number)
{
    return TestRom::colour(number);
}

PixelImage scaledTo(std::uint32_t width, std::uint32_t height, const PixelImage& source)
{
    PixelImage image(width, height);
    copyScaled(image, source);
    return image;
}

class MapEditPicturesTest : public MapEditTest {
protected:
    PixelImage tiles() const
    {
        PixelImage image;
        drawTileSelector(state, model, image);
        return image;
    }
    PixelImage palettes() const
    {
        PixelImage image;
        drawPaletteSelector(state, model, image);
        return image;
    }
    PixelImage physics() const
    {
        PixelImage image;
        drawPhysicsSelector(state, model, image);
        return image;
    }
    PixelImage map(std::optional<Point> hero = std::nullopt) const
    {
        PixelImage image;
        drawMapView(state, model, image, hero);
        return image;
    }
    // The middle of a block of the tile selector.
    static Pixel blockPixel(const PixelImage& image, std::uint32_t block)
    {
        return image.at(block % 8 * 282 / 8 + 17, block / 8 * 282 / 8 + 17);
    }
    // The middle of a cell of the map view, which shows the room's top-left corner.
    static Pixel cellPixel(const PixelImage& image, std::uint32_t row, std::uint32_t column)
    {
        return image.at((column * 16 + 8) * 448 / 320, (row * 16 + 8) * 420 / 320);
    }
    // The room as the ROM tells it, as large as the view's region.
    PixelImage region(std::uint32_t scrollX, std::uint32_t scrollY) const
    {
        PixelImage image(320, 320);
        state.renderer.renderRoomRegion(image, scrollX, scrollY, 0);
        return image;
    }
    void useFullMap()
    {
        game.setLayout(0, 3, 2, {0, 1, 2, 1, 2, 1});
        start();
    }
};

// Tile selector

TEST_F(MapEditPicturesTest, BlocksAreDrawnInTheirPalettesInTheCombinedMode)
{
    const PixelImage image = tiles();
    ASSERT_EQ(image.width(), 282U);
    ASSERT_EQ(image.height(), 282U);
    EXPECT_EQ(blockPixel(image, 5), colour(5));   // value 1 of palette 1
    EXPECT_EQ(blockPixel(image, 2), colour(10));  // value 2 of palette 2
    EXPECT_EQ(blockPixel(image, 3), colour(7));   // value 3 of palette 1
    EXPECT_EQ(blockPixel(image, 63), colour(3));  // not in the room: palette 0
    EXPECT_EQ(blockPixel(image, 60), colour(16)); // value 0
}

TEST_F(MapEditPicturesTest, BlocksAreGreyInTheOtherModes)
{
    for (const MapEditMode mode :
         {MapEditMode::kTile, MapEditMode::kPalette, MapEditMode::kPhysics}) {
        model.setMode(mode);
        const PixelImage image = tiles();
        EXPECT_EQ(blockPixel(image, 60), 0x000000U);
        EXPECT_EQ(blockPixel(image, 61), 0xF0F0F0U);
        EXPECT_EQ(blockPixel(image, 62), 0x909090U);
        EXPECT_EQ(blockPixel(image, 63), 0x404040U);
    }
}

TEST_F(MapEditPicturesTest, SelectedBlockIsFramed)
{
    model.setMode(MapEditMode::kTile);
    selectBlock(11); // row 1, column 3
    PixelImage expected(128, 128);
    for (int block = 0; block < 64; ++block) {
        fillRectangle(expected, block / 8 * 16, block % 8 * 16, 16, 16,
                      kGreyColours[static_cast<std::size_t>(block % 4)]);
    }
    drawSelectionFrame(expected, 13, 45, 22, 22);
    EXPECT_EQ(tiles(), scaledTo(282, 282, expected));
}

// Palette selector

TEST_F(MapEditPicturesTest, PalettesShowTheirFourEntries)
{
    const PixelImage image = palettes();
    ASSERT_EQ(image.width(), 256U);
    ASSERT_EQ(image.height(), 282U);
    for (std::uint32_t entry = 0; entry < 16; ++entry) {
        EXPECT_EQ(image.at(entry % 4 * 64 + 32, entry / 4 * 282 / 4 + 35), colour(entry));
    }
}

TEST_F(MapEditPicturesTest, OnlyTheLowBitsOfAnEntryAreItsColour)
{
    state.store.pahPal.setDataByte(6, 0xC1);
    EXPECT_EQ(palettes().at(2 * 64 + 32, 105), colour(1));
}

TEST_F(MapEditPicturesTest, SelectedPaletteIsFramed)
{
    selectPalette(2);
    PixelImage expected(256, 256);
    for (int entry = 0; entry < 16; ++entry) {
        fillRectangle(expected, entry / 4 * 64, entry % 4 * 64, 64, 64,
                      colour(static_cast<std::uint32_t>(entry)));
    }
    drawSelectionFrame(expected, 128, 0, 64, 256);
    EXPECT_EQ(palettes(), scaledTo(256, 282, expected));
}

// Physics selector

constexpr Pixel kPaper = 0xABCDEF;

class PhysicsSelectorTest : public MapEditPicturesTest {
protected:
    PhysicsSelectorTest() { state.backgroundColour = kPaper; }

    static Pixel valueColour(std::uint32_t value) { return value << 20 | 0x55; }
    // Pictures of one colour each.
    void setPictures(std::uint32_t width, std::uint32_t height)
    {
        for (std::uint32_t value = 0; value < 16; ++value)
            state.resources.physicsBitmaps[value] = PixelImage(width, height, valueColour(value));
    }
};

TEST_F(PhysicsSelectorTest, PicturesFillTheCellsWhereTheyAreSelected)
{
    for (const auto& [width, height] : {std::pair{141U, 40U}, {15U, 15U}, {400U, 100U}}) {
        setPictures(width, height);
        const PixelImage image = physics();
        ASSERT_EQ(image.width(), 282U);
        ASSERT_EQ(image.height(), 322U);
        int seen = 0;
        for (int y = 0; y < 322; ++y) {
            for (int x = 0; x < 282; ++x) {
                // Towards the next picture the last pixel, as large as it became, fades.
                const auto value = kPhysicsSelector.cellAt({x, y});
                if (value == 0U || kPhysicsSelector.cellAt({x + 10, y + 3}) != value)
                    continue;
                ASSERT_EQ(image.at(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)),
                          valueColour(*value))
                    << x << ", " << y;
                ++seen;
            }
        }
        EXPECT_GT(seen, 15 * 131 * 37) << width << " x " << height;
    }
}

TEST_F(PhysicsSelectorTest, PicturesAreStretchedTogether)
{
    // Value 6 is of stripes, to tell its pixels apart.
    setPictures(100, 30);
    PixelImage& striped = state.resources.physicsBitmaps[6];
    for (std::uint32_t i = 0; i < 100 * 30; ++i)
        striped.pixels()[i] = (i % 3 + i % 7) * 0x101010;
    PixelImage expected(200, 240);
    for (int value = 0; value < 16; ++value) {
        blit(expected, state.resources.physicsBitmaps[static_cast<std::size_t>(value)],
             value % 2 * 100, value / 2 * 30);
    }
    expected = scaledTo(282, 322, expected);
    drawSelectionFrame(expected, 0, 0, 41, 141); // 322 / 8 is 40.25
    EXPECT_EQ(physics(), expected);
}

TEST_F(PhysicsSelectorTest, PictureThatIsSmallerThanTheOthersFillsItsCellToo)
{
    setPictures(141, 40);
    state.resources.physicsBitmaps[9] = PixelImage(2, 2, 0xFF0000);
    const PixelImage image = physics();
    // Row 4, column 1.
    EXPECT_EQ(image.at(141, 161), 0xFF0000U);
    EXPECT_EQ(image.at(141 + 70, 161 + 19), 0xFF0000U);
    EXPECT_EQ(image.at(141 + 105, 161 + 10) & 0xFFFF, 0U); // beyond its edge is black
    EXPECT_EQ(image.at(141, 203), valueColour(11));
}

TEST_F(PhysicsSelectorTest, SelectedValueIsFramed)
{
    setPictures(15, 15);
    model.setMode(MapEditMode::kPhysics);
    selectPhysics(3); // row 1, column 1
    const PixelImage image = physics();
    for (const auto& [x, y] : {std::pair{141U, 41U}, {281U, 41U}, {141U, 80U}, {281U, 80U}})
        EXPECT_EQ(image.at(x, y), 0x000000U);
    for (const auto& [x, y] : {std::pair{142U, 42U}, {143U, 43U}, {280U, 79U}, {279U, 78U}})
        EXPECT_EQ(image.at(x, y), 0xFFFFFFU);
    EXPECT_EQ(image.at(144, 44), valueColour(3));
    EXPECT_NE(image.at(140, 60), 0U); // not the neighbour
}

TEST_F(PhysicsSelectorTest, MissingPicturesLeaveTheirCellsEmpty)
{
    EXPECT_EQ(physics().at(200, 100), kPaper);
    setPictures(141, 40);
    state.resources.physicsBitmaps[5] = PixelImage();
    EXPECT_EQ(physics().at(200, 100), kPaper);
    EXPECT_EQ(physics().at(100, 100), valueColour(4));
}

TEST_F(PhysicsSelectorTest, LargePictureIsScaledDown)
{
    setPictures(15, 15);
    state.resources.physicsBitmaps[5] = PixelImage(2000, 10000, 0xFF0000);
    const PixelImage image = physics();
    EXPECT_EQ(image.at(200, 100), 0xFF0000U);
    EXPECT_EQ(image.at(200, 140), valueColour(7));
}

// Map view

TEST_F(MapEditPicturesTest, MapViewShowsTheRoomStretched)
{
    useFullMap();
    const PixelImage image = map();
    ASSERT_EQ(image.width(), 448U);
    ASSERT_EQ(image.height(), 420U);
    EXPECT_EQ(image, scaledTo(448, 420, region(0, 0)));
    EXPECT_EQ(cellPixel(image, 0, 0), colour(16));
    EXPECT_EQ(cellPixel(image, 0, 16), colour(1));  // block 1, palette 0
    EXPECT_EQ(cellPixel(image, 1, 16), colour(10)); // block 2, palette 2
    EXPECT_EQ(cellPixel(image, 15, 1), colour(7));  // block 3, palette 1
}

TEST_F(MapEditPicturesTest, MapViewIsScrolledInRoomPixels)
{
    useFullMap();
    model.view().scrollToStep({448, 160});
    EXPECT_EQ(map(), scaledTo(448, 420, region(448, 160)));
    model.view().scrollToStep({240, 48});
    EXPECT_EQ(map(), scaledTo(448, 420, region(240, 48)));
}

TEST_F(MapEditPicturesTest, SmallRoomFillsTheView)
{
    game.setLayout(0, 1, 1, {1});
    start();
    PixelImage room(256, 240);
    state.renderer.drawScreen(room, 0, 0, 0x8640);
    EXPECT_EQ(map(), scaledTo(448, 420, room));
}

TEST_F(MapEditPicturesTest, PaintedCellsShowBeforeTheyAreWritten)
{
    useFullMap();
    selectBlock(11); // value 3
    selectPalette(3);
    model.applyLeft({(256 + 8) * 448 / 320, 8});
    for (const MapEditMode mode :
         {MapEditMode::kTileCombined, MapEditMode::kTile, MapEditMode::kPalette}) {
        model.setMode(mode);
        EXPECT_EQ(cellPixel(map(), 0, 16), colour(15));
    }
}

TEST_F(MapEditPicturesTest, PhysicsModeShowsPhysicsColoursInTheShadesOfTheTile)
{
    useFullMap();
    model.setMode(MapEditMode::kPhysics);
    const PixelImage image = map();
    EXPECT_EQ(cellPixel(image, 0, 0), 0x0F0F0FU);  // value 0, physics 0 ($989898): a tenth
    EXPECT_EQ(cellPixel(image, 0, 16), 0x80F080U); // value 1, physics 1: whole
    EXPECT_EQ(cellPixel(image, 1, 16), 0xA8A859U); // value 2, physics 2 ($F0F080): 0.7
    EXPECT_EQ(cellPixel(image, 15, 1), 0x1C2660U); // value 3, physics 3 ($4860F0): 0.4
}

TEST_F(MapEditPicturesTest, CellsPastTheListLookFaded)
{
    // Position 4 is screen 2 in the ROM: block 5 of palette 1, colour 5 = $452A0F. In the light
    // grey of the background that is $40270E, mixed half and half with $404040.
    const PixelImage image = map();
    for (const std::uint32_t row : {15U, 19U}) {
        for (const std::uint32_t column : {16U, 19U})
            EXPECT_EQ(cellPixel(image, row, column), 0x403327U);
    }
    model.setMode(MapEditMode::kPhysics); // in no mode are they drawn in another way
    EXPECT_EQ(cellPixel(map(), 15, 16), 0x403327U);
    EXPECT_EQ(cellPixel(image, 0, 16), colour(1));
}

TEST_F(MapEditPicturesTest, FadedCellsTakeTheirPlaceInTheScreen)
{
    game.setScreenList(0, {0x8600, 0x8640, 0x8680});
    game.setScreenList(1, {0x8640}); // right behind it: position 4 of room 0
    start();
    state.backgroundColour = 0xFFFFFF; // a tint without effect
    const PixelImage image = map();
    const auto halfGrey = [](Pixel pixel) {
        PixelImage faded(1, 1, 0x404040);
        blit(faded, PixelImage(1, 1, pixel), 0, 0, 0.5F);
        return faded.at(0, 0);
    };
    EXPECT_EQ(cellPixel(image, 15, 16), halfGrey(colour(1)));
    EXPECT_EQ(cellPixel(image, 16, 16), halfGrey(colour(10)));
    EXPECT_EQ(cellPixel(image, 15, 17), halfGrey(colour(7)));
    EXPECT_EQ(cellPixel(image, 16, 17), halfGrey(colour(16)));
}

// The hero

class MapEditHeroTest : public MapEditPicturesTest {
protected:
    // Sprite tile 128 is of value 1, tile 131 of value 2, tile 1 of value 3. The hero's frame is
    // one tile, at (+4, -6), in sprite set 2.
    MapEditHeroTest()
    {
        Bytes script(0x171 + 42);
        for (const int byte : {1, 1, 4, 0xFA, 2, 0})
            script.push_back(static_cast<std::uint8_t>(byte));
        game.addSprite(script);
        game.setType2Graphics(0, solidTile(1));
        game.setType2Graphics(16, solidTile(2));
        game.setType2Graphics(32, solidTile(3));
        game.setLoadRecord(0, 0, 128 * 16, 1);
        game.setLoadRecord(1, 16, 131 * 16, 1);
        game.setLoadRecord(2, 32, 16, 1);
        game.setType2Loads(0, {0, 1, 2});
        useFullMap();
    }

    PixelImage withHero(int x, int y) const
    {
        PixelImage expected = region(0, 0);
        fillRectangle(expected, y - 67, x - 66, 8, 8, colour(17));
        for (int i = 1; i <= 6; ++i)
            fillRectangle(expected, y - 67 + 8 * i, x - 66 + 8 * i, 8, 8, colour(18));
        fillRectangle(expected, y - 6, x + 4, 8, 8, colour(27));
        return scaledTo(448, 420, expected);
    }
};

TEST_F(MapEditHeroTest, HeroStandsAtTheEndOfALine)
{
    EXPECT_EQ(map(Point{150, 170}), withHero(150, 170));
    EXPECT_NE(map(), withHero(150, 170));
}

TEST_F(MapEditHeroTest, HeroIsCutAtTheEdgesOfTheView)
{
    for (const Point point : {Point{6, 6}, {325, 325}, {6, 325}, {70, 30}})
        EXPECT_EQ(map(point), withHero(point.x, point.y)) << point.x << ", " << point.y;
}

TEST_F(MapEditHeroTest, HeroFollowsTheMouseInPixelsOfTheRegion)
{
    EXPECT_EQ(heroPosition(model.view(), {0, 0}), (Point{6, 6}));
    EXPECT_EQ(heroPosition(model.view(), {447, 419}), (Point{325, 325}));
    EXPECT_EQ(heroPosition(model.view(), {224, 210}), (Point{166, 166}));
    model.view().scrollToStep({96, 96}); // the region is what the hero stands on
    EXPECT_EQ(heroPosition(model.view(), {224, 210}), (Point{166, 166}));
    selectRoom(1); // 256 x 240
    EXPECT_EQ(heroPosition(model.view(), {224, 210}), (Point{134, 126}));
}

} // namespace
} // namespace velko::test
