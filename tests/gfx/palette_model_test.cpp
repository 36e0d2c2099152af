#include "tests/gfx/palette_model_fixture.h"

#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using test::PaletteModelTest;
using test::PaletteRom;

// What is selected

TEST_F(PaletteModelTest, StartsAtEntryZero)
{
    EXPECT_EQ(model.selectedEntry(), 0);
    EXPECT_EQ(model.value(), 0x01);
}

TEST_F(PaletteModelTest, EntriesComeFromTheRoomOnShow)
{
    model.selectEntry(2);
    EXPECT_EQ(model.value(), 0x03);
    state.graphics.selectRoom(PaletteRom::kFourByThree);
    EXPECT_EQ(model.selectedEntry(), 2);
    EXPECT_EQ(model.value(), 0x3D);
}

TEST_F(PaletteModelTest, EntriesOutsideTheBlockCannotBeSelected)
{
    model.selectEntry(31);
    EXPECT_EQ(model.selectedEntry(), 31);
    model.selectEntry(32);
    EXPECT_EQ(model.selectedEntry(), 31);
    model.selectEntry(-1);
    EXPECT_EQ(model.selectedEntry(), 31);
}

TEST_F(PaletteModelTest, ArrowsMoveTheSelectionAndStopAtTheEdges)
{
    model.moveSelection(0, 1);
    EXPECT_EQ(model.selectedEntry(), 1);
    model.moveSelection(1, 0);
    EXPECT_EQ(model.selectedEntry(), 17);
    model.moveSelection(1, 0);
    EXPECT_EQ(model.selectedEntry(), 17);
    model.moveSelection(0, 100);
    EXPECT_EQ(model.selectedEntry(), 31);
    model.moveSelection(-1, 0);
    EXPECT_EQ(model.selectedEntry(), 15);
    model.moveSelection(-1, -100);
    EXPECT_EQ(model.selectedEntry(), 0);
    EXPECT_EQ(image(), game.bytes);
}

// Points of the pictures

TEST(PaletteModelPoints, EntriesRunDownTheLeftColumnThenTheRightOne)
{
    EXPECT_EQ(PaletteModel::entryAt(0, 0), 0);
    EXPECT_EQ(PaletteModel::entryAt(27, 27), 0);
    EXPECT_EQ(PaletteModel::entryAt(0, 28), 1);
    EXPECT_EQ(PaletteModel::entryAt(27, 447), 15);
    EXPECT_EQ(PaletteModel::entryAt(28, 0), 16);
    EXPECT_EQ(PaletteModel::entryAt(55, 447), 31);
}

TEST(PaletteModelPoints, ColoursRunAlongTheRows)
{
    EXPECT_EQ(PaletteModel::colourAt(0, 0), 0x00);
    EXPECT_EQ(PaletteModel::colourAt(19, 27), 0x00);
    EXPECT_EQ(PaletteModel::colourAt(20, 0), 0x01);
    EXPECT_EQ(PaletteModel::colourAt(0, 28), 0x10);
    EXPECT_EQ(PaletteModel::colourAt(319, 0), 0x0F);
    EXPECT_EQ(PaletteModel::colourAt(319, 111), 0x3F);
}

TEST(PaletteModelPoints, NothingLiesOutsideThePictures)
{
    EXPECT_EQ(PaletteModel::entryAt(-1, 0), std::nullopt);
    EXPECT_EQ(PaletteModel::entryAt(0, -1), std::nullopt);
    EXPECT_EQ(PaletteModel::entryAt(56, 0), std::nullopt);
    EXPECT_EQ(PaletteModel::entryAt(0, 448), std::nullopt);
    EXPECT_EQ(PaletteModel::colourAt(-1, 0), std::nullopt);
    EXPECT_EQ(PaletteModel::colourAt(0, -1), std::nullopt);
    EXPECT_EQ(PaletteModel::colourAt(320, 0), std::nullopt);
    EXPECT_EQ(PaletteModel::colourAt(0, 112), std::nullopt);
}

RC_GTEST_PROP(PaletteModelPoints, AnyPointGivesAnEntryAndAColourInRangeOrNothing, ())
{
    const int x = *rc::gen::inRange(-50, 400);
    const int y = *rc::gen::inRange(-50, 500);
    const int entry = PaletteModel::entryAt(x, y).value_or(0);
    const int number = PaletteModel::colourAt(x, y).value_or(0);
    RC_ASSERT(entry >= 0 && entry < 32);
    RC_ASSERT(number >= 0 && number < 64);
}

// Writing

TEST_F(PaletteModelTest, AValueIsWrittenAsAWholeByteAndNothingElseChanges)
{
    model.selectEntry(19);
    model.setValue(0xC5);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 19, 0xC5));
    EXPECT_EQ(model.value(), 0xC5);
    EXPECT_EQ(model.colourNumber(), 0x05);
}

TEST_F(PaletteModelTest, AWriteGoesToThePaletteOfTheRoomOnShow)
{
    state.graphics.selectRoom(PaletteRom::kFourByThree);
    model.selectEntry(31);
    model.setValue(0x16);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kFalling + 31, 0x16));
}

TEST_F(PaletteModelTest, BlackIsColourFifteen)
{
    model.selectEntry(7);
    model.setBlack();
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 7, 0x0F));
}

TEST_F(PaletteModelTest, BrightnessBelowTheDarkestRowIsTheBrightest)
{
    poke(0x05);
    model.stepBrightness(-1);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x35));
}

TEST_F(PaletteModelTest, StepsWrapWithinTheSixtyFourColours)
{
    struct Row {
        std::uint8_t before;
        int brightness;
        int hue;
        std::uint8_t after;
    };
    const Row rows[] = {
        {0x05, 1, 0, 0x15},  {0x35, 1, 0, 0x05},  {0x15, -1, 0, 0x05},
        {0x05, 0, 1, 0x06},  {0x05, 0, -1, 0x04}, {0x0F, 0, 1, 0x10},
        {0x10, 0, -1, 0x0F}, {0x3F, 0, 1, 0x00},  {0x00, 0, -1, 0x3F},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << "from " << int{row.before} << " brightness "
                                        << row.brightness << " hue " << row.hue);
        poke(row.before);
        if (row.brightness != 0)
            model.stepBrightness(row.brightness);
        else
            model.stepHue(row.hue);
        EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, row.after));
    }
}

TEST_F(PaletteModelTest, AStepClearsTheUpperTwoBits)
{
    poke(0xC5);
    model.stepHue(1);
    EXPECT_EQ(byteOfEntry(0), 0x06);
    poke(0xFF);
    model.stepBrightness(1);
    EXPECT_EQ(byteOfEntry(0), 0x0F);
}

TEST_F(PaletteModelTest, ArrowsMoveTheColourAndStopAtTheGridsEdges)
{
    poke(0x00);
    model.moveColour(1, 0);
    EXPECT_EQ(byteOfEntry(0), 0x01);
    model.moveColour(0, 1);
    EXPECT_EQ(byteOfEntry(0), 0x11);
    model.moveColour(-1, 0);
    EXPECT_EQ(byteOfEntry(0), 0x10);
    model.moveColour(-1, 0);
    EXPECT_EQ(byteOfEntry(0), 0x10);
    model.moveColour(100, 100);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x3F));
}

TEST_F(PaletteModelTest, AnArrowAgainstTheGridsEdgeWritesNothing)
{
    poke(0xC0); // the game sees colour 0, the grid's corner
    model.moveColour(-1, -1);
    EXPECT_EQ(byteOfEntry(0), 0xC0);
}

TEST_F(PaletteModelTest, PaletteOutsideTheRomReadsFillerAndDropsWrites)
{
    state.graphics.selectRoom(PaletteRom::kOutside);
    model.selectEntry(31);
    EXPECT_EQ(model.value(), 0x55);
    model.setValue(0x01);
    model.stepHue(1);
    model.stepBrightness(1);
    model.setBlack();
    EXPECT_EQ(model.value(), 0x55);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(PaletteModelTest, PaletteCutOffByTheRomsEndTakesWhatFits)
{
    state.graphics.selectRoom(PaletteRom::kCutOff);
    EXPECT_EQ(model.entryValue(3), 0x24);
    EXPECT_EQ(model.entryValue(4), 0x55);
    model.selectEntry(4);
    model.setBlack();
    EXPECT_EQ(image(), game.bytes);
    model.selectEntry(3);
    model.setBlack();
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kCutOffPalette + 3, 0x0F));
}

TEST(PaletteModelWithoutRom, NothingIsAskedOfAnEmptyImage)
{
    EditorState state;
    PaletteModel model(state);
    model.setBlack();
    model.stepHue(-1);
    model.setPreviewSize(32, 32);
    PixelImage picture;
    model.drawEntries(picture);
    model.drawColourGrid(picture);
    model.drawPreview(picture);
    EXPECT_EQ(model.value(), 0x55);
    EXPECT_TRUE(state.rom.bytes().empty());
}

} // namespace
} // namespace velko
