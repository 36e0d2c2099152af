#include "pages/unit_view.h"

#include "tests/pages/unit_rom.h"

#include <chrono>

namespace velko {
namespace {

using test::Bytes;
using test::UnitRom;

TEST(MarkerColourTest, BitsOfTheTypeAreSpreadOverBlueGreenAndRed)
{
    EXPECT_EQ(markerColour(0x00), 0x000000U);
    EXPECT_EQ(markerColour(0x01), 0x000080U);
    EXPECT_EQ(markerColour(0x02), 0x008000U);
    EXPECT_EQ(markerColour(0x04), 0x800000U);
    EXPECT_EQ(markerColour(0x08), 0x000040U);
    EXPECT_EQ(markerColour(0x10), 0x004000U);
    EXPECT_EQ(markerColour(0x20), 0x400000U);
    EXPECT_EQ(markerColour(0x40), 0x000020U);
    EXPECT_EQ(markerColour(0x80), 0x002000U);
    EXPECT_EQ(markerColour(0xFF), 0xC0E0E0U);
}

// 320 x 320 room pixels in 416 x 375. A picture's pixel (13 i, 75 j) is exactly the room's
// (10 i, 64 j); others mix two pixels each way, so the tests look where these are of one colour.
class UnitViewTest : public test::UnitGameTest {
protected:
    UnitViewTest() { view.showRoom({3, 2}); }

    void draw(bool sprites = true, std::optional<UnitView::Highlight> highlight = {})
    {
        drawer.draw(picture, sprites, highlight);
    }
    // At a display column and row.
    Pixel at(std::uint32_t x, std::uint32_t y) const { return picture.at(x, y); }

    RoomView view{{320, 320}, {416, 375}};
    UnitList units{unitData()};
    UnitView drawer{state, view, units};
    PixelImage picture;
};

// The room

TEST_F(UnitViewTest, RoomIsScaledToTheDisplay)
{
    draw();
    EXPECT_EQ(picture.width(), 416U);
    EXPECT_EQ(picture.height(), 375U);
    EXPECT_EQ(at(0, 0), colour(16));
    EXPECT_EQ(at(331, 278), colour(16)); // 254.6, 237.2
    EXPECT_EQ(at(333, 278), colour(1));  // 256.2
    EXPECT_EQ(at(331, 282), colour(3));  // 240.6
    EXPECT_EQ(at(333, 282), colour(1));
}

TEST_F(UnitViewTest, ScrolledPartShows)
{
    view.scrollTo({448, 160});
    draw();
    EXPECT_EQ(at(0, 0), colour(1));  // 448
    EXPECT_EQ(at(84, 0), colour(2)); // 512.6
    EXPECT_EQ(at(0, 94), colour(1)); // 240.2
    EXPECT_EQ(at(84, 94), colour(16));
}

TEST_F(UnitViewTest, SmallRoomFillsTheDisplay)
{
    view.showRoom({1, 1});
    draw();
    EXPECT_EQ(picture.width(), 416U);
    EXPECT_EQ(at(0, 0), colour(16));
    EXPECT_EQ(at(413, 372), colour(16)); // 254.2, 238.1
}

TEST_F(UnitViewTest, RoomIsDrawnAnewOnlyWhereAnotherPartShows)
{
    draw();
    state.store.pahPal.setDataByte(16, 40);
    draw();
    EXPECT_EQ(at(0, 0), colour(16));
    view.scrollTo({16, 0});
    draw();
    EXPECT_EQ(at(0, 0), colour(40));
    state.store.pahPal.setDataByte(16, 41);
    draw();
    EXPECT_EQ(at(0, 0), colour(40));
    drawer.forgetBackground();
    draw();
    EXPECT_EQ(at(0, 0), colour(41));
}

// Sprites

TEST_F(UnitViewTest, SpriteStandsAtTheUnitsPosition)
{
    setUnits({UnitRom::kStill, 100, 1, 63, 0}); // (100, 64)
    draw();
    EXPECT_EQ(at(130, 75), colour(22)); // exactly the sprite's corner
    EXPECT_EQ(at(138, 82), colour(22)); // 106.2, 70
    EXPECT_EQ(at(128, 78), colour(16)); // 98.5
    EXPECT_EQ(at(134, 73), colour(16)); // 62.3
    EXPECT_EQ(at(141, 78), colour(16)); // 108.5
    EXPECT_EQ(at(134, 85), colour(16)); // 72.5
}

TEST_F(UnitViewTest, ScrolledSpriteIsCutAtTheEdge)
{
    setUnits({UnitRom::kStill, 100, 1, 63, 0});
    view.scrollTo({96, 64});
    draw();
    EXPECT_EQ(at(8, 0), colour(22)); // 102.2
    view.scrollTo({104, 64});
    draw();
    EXPECT_EQ(at(0, 0), colour(22)); // 104 of 100 to 107
    EXPECT_EQ(at(3, 0), colour(22)); // 106.3
    EXPECT_EQ(at(6, 0), colour(16)); // 108.6
}

TEST_F(UnitViewTest, AnimatedSpriteShowsItsCurrentFrame)
{
    setUnits({UnitRom::kAnimated, 100, 1, 63, 0});
    std::vector<Pixel> frames;
    for (int i = 0; i < 8; ++i) {
        draw();
        frames.push_back(at(130, 75));
        state.graphics.stepUnitAnimation();
    }
    const Pixel a = colour(17);
    const Pixel b = colour(19);
    EXPECT_EQ(frames, (std::vector<Pixel>{a, a, b, b, b, a, a, b}));
}

TEST_F(UnitViewTest, UnitWithoutAPlacementIsNotDrawn)
{
    draw();
    const PixelImage empty = picture;
    setUnits({UnitRom::kStill, 100, 0, 63, 0, UnitRom::kMarker, 100, 0, 63, 0});
    draw();
    EXPECT_EQ(picture, empty);
}

TEST_F(UnitViewTest, LaterUnitsLieAboveEarlierOnes)
{
    setUnits({UnitRom::kStill, 100, 1, 63, 0, UnitRom::kAnimated, 100, 1, 63, 0});
    draw();
    EXPECT_EQ(at(130, 75), colour(17));
    setUnits({UnitRom::kAnimated, 100, 1, 63, 0, UnitRom::kStill, 100, 1, 63, 0});
    draw();
    EXPECT_EQ(at(130, 75), colour(22));
}

// The highlight replaces entry 3 of each sprite set.
TEST_F(UnitViewTest, MovedUnitGlows)
{
    setUnits({UnitRom::kAnimated, 100, 1, 63, 0, UnitRom::kAnimated, 200, 1, 63, 0});
    state.graphics.unitAnimation[UnitRom::kAnimated].frameOffset = 6; // entry 19
    draw(true, UnitView::Highlight{1, 1.0F});
    EXPECT_EQ(at(130, 75), colour(19));
    EXPECT_EQ(at(260, 75), 0xFF5F3FU);
    draw(true, UnitView::Highlight{1, 0.5F});
    EXPECT_EQ(at(260, 75), 0x7F2F1FU);
    draw(true, UnitView::Highlight{0, 0.0F});
    EXPECT_EQ(at(130, 75), 0x000000U);
    EXPECT_EQ(at(260, 75), colour(19));
    draw();
    EXPECT_EQ(at(130, 75), colour(19));
}

// Markers

TEST_F(UnitViewTest, UnitWithoutASpriteIsAFramedSquare)
{
    setUnits({UnitRom::kMarker, 201, 1, 129, 0}); // (201, 130)
    draw();
    EXPECT_EQ(at(260, 150), 0x008040U);  // (200, 128), in the square
    EXPECT_EQ(at(252, 150), 0x008040U);  // 193.8
    EXPECT_EQ(at(270, 150), 0x008040U);  // 207.7: from 193 to 208
    EXPECT_EQ(at(247, 150), 0x000000U);  // 190: 11 left of the position
    EXPECT_EQ(at(273, 150), 0xFFFFFFU);  // 210: two pixels of white
    EXPECT_EQ(at(245, 150), colour(16)); // 188.5
    EXPECT_EQ(at(276, 150), colour(16)); // 212.3
    EXPECT_EQ(at(260, 138), colour(16)); // 117.8, above the frame at 119
    EXPECT_EQ(at(260, 141), 0xFFFFFFU);  // 120.3
    EXPECT_EQ(at(260, 144), 0x008040U);  // 122.9: from 122 on
    EXPECT_EQ(at(260, 160), 0x008040U);  // 136.5: to 137
    EXPECT_EQ(at(260, 166), colour(16)); // 141.7, below the frame's 140
}

TEST_F(UnitViewTest, WithoutSpritesAllUnitsAreMarkers)
{
    setUnits({UnitRom::kStill, 100, 1, 63, 0, UnitRom::kAnimated, 200, 1, 63, 0});
    draw(false, UnitView::Highlight{0, 1.0F}); // markers do not glow
    EXPECT_EQ(at(130, 75), 0x800000U);
    EXPECT_EQ(at(260, 75), 0x008080U);
}

TEST_F(UnitViewTest, TypesPastTheTableOfSpritesAreMarkers)
{
    state.config.unitSpriteReg.fill(1);
    setUnits({143, 100, 1, 63, 0, 144, 200, 1, 63, 0});
    state.config.unitSpriteReg.fill(1);
    draw();
    EXPECT_EQ(at(130, 75), colour(17)); // address 0 means the same place as $8000
    EXPECT_EQ(at(260, 75), 0x006000U);
}

// What shows

class UnitCullingTest : public UnitViewTest {
protected:
    // Whether a unit at a position relative to the view changes the picture. Its sprite reaches
    // far to all sides.
    bool shows(int x, int y)
    {
        view.scrollTo({128, 96});
        setUnits({});
        drawer.forgetBackground();
        draw();
        const PixelImage without = picture;
        game.config.unitSpriteReg[20] = 1;
        game.config.unitSpriteAddress[20] = script;
        UnitRecord unit{.type = 20};
        unit.putAt({128 + x, 96 + y - 1});
        setUnits({unit.type, unit.pixelX, unit.column, unit.pixelY, unit.screenY});
        draw();
        return picture != without;
    }
    const std::uint16_t script =
        game.addSprite({4, 1, 30, 0, 0, 1, 0xE2, 0, 0, 1, 0, 30, 0, 1, 0, 0xE2, 0, 1});
};

TEST_F(UnitCullingTest, OnlyUnitsInTheViewOrLessThan16BeforeItAreDrawn)
{
    EXPECT_TRUE(shows(100, 100));
    EXPECT_TRUE(shows(-15, 100));
    EXPECT_FALSE(shows(-16, 100));
    EXPECT_TRUE(shows(319, 100));
    EXPECT_FALSE(shows(320, 100));
    EXPECT_TRUE(shows(100, -15));
    EXPECT_FALSE(shows(100, -16));
    EXPECT_TRUE(shows(100, 319));
    EXPECT_FALSE(shows(100, 320));
}

// Damaged games

TEST_F(UnitViewTest, RoomWithoutUnitsShowsNone)
{
    draw();
    for (std::uint32_t y = 0; y < 270; ++y) {
        for (std::uint32_t x = 0; x < 320; ++x)
            ASSERT_EQ(at(x, y), colour(16));
    }
}

TEST_F(UnitViewTest, EndlessListOfLargestSpritesIsDrawnInBoundedTime)
{
    // Each byte of the region's banks is 1: unit 1 at (1, 242), 6553 times. Its script, of the
    // same bytes, is a frame of 255 pieces.
    Bytes script = {255};
    for (int i = 0; i < 255; ++i)
        script.insert(script.end(), {1, 0, 0, 0});
    game.config.unitSpriteReg[1] = 1;
    game.config.unitSpriteAddress[1] = game.addSprite(script);
    game.loadInto(state);
    for (const std::uint8_t bank : {test::layout::kBlockBank, test::layout::kFixedBank}) {
        for (std::uint32_t i = 0; i < kBankSize; ++i)
            state.rom.writeByte(kHeaderSize + bank * kBankSize + i, 1);
    }
    const auto start = std::chrono::steady_clock::now();
    draw();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

TEST_F(UnitViewTest, ScriptsOutsideTheFileAndLoopsAreDrawn)
{
    const auto jumpingToItself = [this](Bytes frame) {
        const std::uint16_t address = game.addSprite(Bytes(frame.size() + 3));
        frame.insert(frame.end(),
                     {0x81, static_cast<std::uint8_t>(address & 0xFF),
                      static_cast<std::uint8_t>(address >> 8)});
        game.write(cpuToFileOffset(game.config.phSprite, address), frame);
        return address;
    };
    for (const std::size_t type : {1U, 2U, 5U})
        game.config.unitSpriteReg[type] = 1;
    game.config.unitSpriteAddress[1] = 0xFFFF;
    game.config.unitSpriteAddress[2] = jumpingToItself({0}); // no pieces
    game.config.unitSpriteAddress[5] = jumpingToItself({1, 1, 0, 0, 0});
    game.config.phSprite = {test::layout::kSpriteBank, 200}; // past the end of the file
    setUnits({1, 50, 1, 63, 0, 2, 150, 1, 63, 0, 5, 200, 1, 63, 0});
    for (int i = 0; i < 1000; ++i)
        state.graphics.stepUnitAnimation();
    draw();
    EXPECT_EQ(at(260, 75), colour(17));
    EXPECT_EQ(at(195, 75), colour(16));
}

TEST_F(UnitViewTest, WithoutARomThereIsAPicture)
{
    EditorState empty;
    UnitList none(empty.store.pahUnit);
    UnitView other(empty, view, none);
    view.showRoom(empty.renderer.roomSize(0));
    other.draw(picture, true, {});
    EXPECT_EQ(picture.width(), 416U);
}

} // namespace
} // namespace velko
