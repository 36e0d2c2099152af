#include "tests/gfx/palette_model_fixture.h"

#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using test::PaletteModelTest;
using test::PaletteRom;

// Pictures. A frame is a black line around a band of two white pixels.

TEST_F(PaletteModelTest, SwatchesShowEveryEntryInItsPlace)
{
    PixelImage picture;
    model.drawEntries(picture);
    ASSERT_EQ(picture.width(), 56u);
    ASSERT_EQ(picture.height(), 448u);
    EXPECT_EQ(picture.at(14, 14), colour(1));
    EXPECT_EQ(picture.at(0, 28), colour(2));
    EXPECT_EQ(picture.at(27, 447), colour(16));
    EXPECT_EQ(picture.at(28, 0), colour(17));
    EXPECT_EQ(picture.at(55, 447), colour(32));
}

TEST_F(PaletteModelTest, SwatchesShowTheLowSixBits)
{
    poke(0xC5);
    PixelImage picture;
    model.drawEntries(picture);
    EXPECT_EQ(picture.at(14, 14), colour(5));
}

TEST_F(PaletteModelTest, FrameLiesOnTheSelectedSwatchOnly)
{
    model.selectEntry(17);
    PixelImage picture;
    model.drawEntries(picture);
    EXPECT_EQ(picture.at(28, 28), 0x000000u);
    EXPECT_EQ(picture.at(29, 29), 0xFFFFFFu);
    EXPECT_EQ(picture.at(30, 30), 0xFFFFFFu);
    EXPECT_EQ(picture.at(31, 31), colour(18));
    EXPECT_EQ(picture.at(52, 52), colour(18));
    EXPECT_EQ(picture.at(53, 53), 0xFFFFFFu);
    EXPECT_EQ(picture.at(54, 54), 0xFFFFFFu);
    EXPECT_EQ(picture.at(55, 55), 0x000000u);
    EXPECT_EQ(picture.at(27, 28), colour(2)); // its neighbours are whole
    EXPECT_EQ(picture.at(28, 27), colour(17));
    EXPECT_EQ(picture.at(28, 56), colour(19));
    EXPECT_EQ(picture.at(0, 0), colour(1)); // the entry that was framed before
}

TEST_F(PaletteModelTest, SelectedColourFillsItsSwatch)
{
    model.selectEntry(4);
    poke(0x7C);
    PixelImage picture;
    model.drawSelectedColour(picture);
    EXPECT_EQ(picture, PixelImage(48, 48, colour(0x3C)));
}

TEST_F(PaletteModelTest, GridShowsAllColoursInTheConsolesOrder)
{
    PixelImage picture;
    model.drawColourGrid(picture);
    ASSERT_EQ(picture.width(), 320u);
    ASSERT_EQ(picture.height(), 112u);
    EXPECT_EQ(picture.at(0, 0), colour(0x00));
    EXPECT_EQ(picture.at(19, 27), colour(0x00));
    EXPECT_EQ(picture.at(319, 0), colour(0x0F));
    EXPECT_EQ(picture.at(0, 28), colour(0x10));
    EXPECT_EQ(picture.at(40, 56), colour(0x22));
    EXPECT_EQ(picture.at(319, 111), colour(0x3F));
}

TEST_F(PaletteModelTest, GridFramesTheCellOfTheLowSixBits)
{
    poke(0xD2); // colour 0x12: row 1, column 2
    PixelImage picture;
    model.drawColourGrid(picture);
    EXPECT_EQ(picture.at(40, 28), 0x000000u);
    EXPECT_EQ(picture.at(41, 29), 0xFFFFFFu);
    EXPECT_EQ(picture.at(42, 30), 0xFFFFFFu);
    EXPECT_EQ(picture.at(43, 31), colour(0x12));
    EXPECT_EQ(picture.at(56, 52), colour(0x12));
    EXPECT_EQ(picture.at(57, 53), 0xFFFFFFu);
    EXPECT_EQ(picture.at(59, 55), 0x000000u);
    EXPECT_EQ(picture.at(39, 28), colour(0x11));
    EXPECT_EQ(picture.at(60, 28), colour(0x13));
    EXPECT_EQ(picture.at(40, 27), colour(0x02));
    EXPECT_EQ(picture.at(40, 56), colour(0x22));
}

// The room

TEST_F(PaletteModelTest, PreviewShowsTheRoomInItsColours)
{
    model.setPreviewSize(256, 240);
    const PixelImage picture = preview();
    ASSERT_EQ(picture.width(), 256u);
    ASSERT_EQ(picture.height(), 240u);
    EXPECT_EQ(picture.at(0, 0), colour(2));   // entry 1
    EXPECT_EQ(picture.at(4, 0), colour(17));  // entry 16
    EXPECT_EQ(picture.at(16, 0), colour(6));  // entry 5
    EXPECT_EQ(picture.at(20, 0), colour(17)); // entry 16 again, not entry 4
    EXPECT_EQ(picture.at(255, 239), colour(17));
}

TEST_F(PaletteModelTest, ChangedEntryChangesThePixelsThatUseIt)
{
    model.setPreviewSize(256, 240);
    const PixelImage before = preview();
    model.selectEntry(1);
    model.setValue(0x2A);
    const PixelImage after = preview();
    for (std::uint32_t y = 0; y < 240; ++y)
        for (std::uint32_t x = 0; x < 256; ++x) {
            const bool usesEntry1 = x % 32 < 16 && x % 8 < 4;
            ASSERT_EQ(after.at(x, y), usesEntry1 ? colour(0x2A) : before.at(x, y)) << x << "," << y;
        }
}

TEST_F(PaletteModelTest, EntrySixteenIsTheGroundOfTheWholeRoom)
{
    model.setPreviewSize(256, 240);
    model.selectEntry(16);
    model.setValue(0x30);
    const PixelImage picture = preview();
    for (std::uint32_t y = 0; y < 240; ++y)
        for (std::uint32_t x = 4; x < 256; x += 8)
            ASSERT_EQ(picture.at(x, y), colour(0x30)) << x << "," << y;
}

TEST_F(PaletteModelTest, EntriesZeroAndFourAreNotSeenInARoom)
{
    model.setPreviewSize(256, 240);
    const PixelImage before = preview();
    for (const int entry : {0, 4, 8, 12}) {
        model.selectEntry(entry);
        model.setValue(0x30);
    }
    EXPECT_EQ(preview(), before);
}

TEST_F(PaletteModelTest, ScrollRangesAreTheRoomsSizeAndPagesTheViews)
{
    state.graphics.selectRoom(PaletteRom::kFourByThree);
    model.setPreviewSize(320, 208);
    EXPECT_EQ(model.horizontalScroll().range, 1024);
    EXPECT_EQ(model.horizontalScroll().page, 320);
    EXPECT_EQ(model.verticalScroll().range, 720);
    EXPECT_EQ(model.verticalScroll().page, 208);
}

TEST_F(PaletteModelTest, PagesAreTheRoomsSizeWhereItIsSmaller)
{
    model.setPreviewSize(800, 224);
    EXPECT_EQ(model.horizontalScroll().range, 256);
    EXPECT_EQ(model.horizontalScroll().page, 256);
    EXPECT_EQ(model.verticalScroll().range, 240);
    EXPECT_EQ(model.verticalScroll().page, 224);
}

TEST_F(PaletteModelTest, WhatLiesBesideTheRoomIsBackground)
{
    state.backgroundColour = 0x123456;
    model.setPreviewSize(320, 256);
    const PixelImage picture = preview();
    EXPECT_EQ(picture.at(255, 239), colour(17));
    EXPECT_EQ(picture.at(256, 0), 0x123456u);
    EXPECT_EQ(picture.at(0, 240), 0x123456u);
    EXPECT_EQ(picture.at(319, 255), 0x123456u);
}

TEST_F(PaletteModelTest, PositionsAreRoundedDownToSixteen)
{
    state.graphics.selectRoom(PaletteRom::kFourByThree);
    model.setPreviewSize(320, 208);
    model.scrollPreviewTo(47, 31);
    EXPECT_EQ(model.horizontalScroll().position, 32);
    EXPECT_EQ(model.verticalScroll().position, 16);
    model.scrollPreviewTo(48, 32);
    EXPECT_EQ(model.horizontalScroll().position, 48);
    EXPECT_EQ(model.verticalScroll().position, 32);
}

TEST_F(PaletteModelTest, ScrollingStopsAtTheRoomsEdges)
{
    state.graphics.selectRoom(PaletteRom::kFourByThree);
    model.setPreviewSize(320, 208);
    model.scrollPreviewTo(5000, 5000);
    EXPECT_EQ(model.horizontalScroll().position, 704);
    EXPECT_EQ(model.verticalScroll().position, 512);
    model.scrollPreviewTo(-1, -5000);
    EXPECT_EQ(model.horizontalScroll().position, 0);
    EXPECT_EQ(model.verticalScroll().position, 0);
}

TEST_F(PaletteModelTest, ScrolledPreviewStartsAtItsPosition)
{
    state.graphics.selectRoom(PaletteRom::kFourByThree);
    model.setPreviewSize(64, 64);
    EXPECT_EQ(preview().at(0, 0), colour(0x3E)); // entry 1
    model.scrollPreviewTo(16, 0);
    EXPECT_EQ(preview().at(0, 0), colour(0x3A)); // entry 5
    EXPECT_EQ(preview().at(16, 0), colour(0x3E));
}

TEST_F(PaletteModelTest, ViewScrollsDownToTheScreenBelow)
{
    state.graphics.selectRoom(PaletteRom::kFourByThree);
    model.setPreviewSize(64, 64);
    model.scrollPreviewTo(0, 224);
    EXPECT_EQ(preview().at(0, 15), colour(0x3E)); // entry 1, the first screen's last row
    EXPECT_EQ(preview().at(0, 16), colour(0x36)); // entry 9
    model.scrollPreviewTo(0, 240);
    EXPECT_EQ(preview().at(0, 0), colour(0x36));
    EXPECT_EQ(preview().at(16, 0), colour(0x32)); // entry 13
}

TEST_F(PaletteModelTest, SmallerRoomIsShownFromItsCorner)
{
    state.graphics.selectRoom(PaletteRom::kFourByThree);
    model.setPreviewSize(320, 208);
    model.scrollPreviewTo(640, 512);
    state.graphics.selectRoom(PaletteRom::kOneScreen);
    EXPECT_EQ(model.horizontalScroll().position, 0);
    EXPECT_EQ(model.verticalScroll().position, 32); // 240 - 208
    EXPECT_EQ(preview().at(0, 0), colour(2));
}

TEST_F(PaletteModelTest, LargerViewAtTheRoomsEndStaysFilled)
{
    state.graphics.selectRoom(PaletteRom::kFourByThree);
    model.setPreviewSize(320, 208);
    model.scrollPreviewTo(704, 512);
    model.setPreviewSize(512, 1600);
    EXPECT_EQ(model.horizontalScroll().position, 512);
    EXPECT_EQ(model.verticalScroll().position, 0);
}

TEST_F(PaletteModelTest, RoomWithoutALayoutIsOneScreen)
{
    state.graphics.selectRoom(PaletteRom::kNoLayout);
    model.setPreviewSize(320, 256);
    EXPECT_EQ(model.horizontalScroll().range, 256);
    EXPECT_EQ(model.verticalScroll().range, 240);
    model.scrollPreviewTo(16, 16);
    EXPECT_EQ(model.horizontalScroll().position, 0);
    EXPECT_EQ(preview().width(), 320u);
}

TEST_F(PaletteModelTest, HugeRoomIsDrawnOnlyWhereItIsSeen)
{
    state.graphics.selectRoom(PaletteRom::kHuge);
    model.setPreviewSize(320, 208);
    EXPECT_EQ(model.horizontalScroll().range, 253 * 256);
    EXPECT_EQ(model.verticalScroll().range, 255 * 240);
    model.scrollPreviewTo(100000, 100000);
    EXPECT_EQ(model.horizontalScroll().position, 253 * 256 - 320);
    EXPECT_EQ(model.verticalScroll().position, 255 * 240 - 208);
    EXPECT_EQ(preview().pixels().size(), 320u * 208u);
}

TEST_F(PaletteModelTest, NegativeViewSizesCountAsNone)
{
    model.setPreviewSize(-5, -1);
    EXPECT_EQ(model.horizontalScroll().page, 0);
    EXPECT_TRUE(preview().empty());
}

TEST(PaletteModelPreviewExtent, IsWholeMetatilesAndAtLeastOne)
{
    EXPECT_EQ(PaletteModel::previewExtent(320), 320);
    EXPECT_EQ(PaletteModel::previewExtent(335), 320);
    EXPECT_EQ(PaletteModel::previewExtent(15), 16);
    EXPECT_EQ(PaletteModel::previewExtent(-40), 16);
}

RC_GTEST_PROP(PaletteModelPreviewExtent, LetsTheLastPixelBeReached, ())
{
    EditorState state;
    PaletteRom().loadInto(state);
    state.graphics.selectRoom(PaletteRom::kFourByThree);
    PaletteModel model(state);
    model.setPreviewSize(PaletteModel::previewExtent(*rc::gen::inRange(0, 2000)),
                         PaletteModel::previewExtent(*rc::gen::inRange(0, 2000)));
    model.scrollPreviewTo(1 << 20, 1 << 20);
    const ViewScroll x = model.horizontalScroll();
    const ViewScroll y = model.verticalScroll();
    RC_ASSERT(x.position + x.page == 1024);
    RC_ASSERT(y.position + y.page == 720);
}

} // namespace
} // namespace velko
