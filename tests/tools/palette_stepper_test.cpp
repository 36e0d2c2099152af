#include "tools/palette_stepper.h"

#include "tests/tools/overworld_rom.h"

namespace velko {
namespace {

class PaletteStepperTest : public test::OverworldTest {
protected:
    OverworldMap map{state.rom, state.config};
    PaletteStepper stepper{map};
};

TEST_F(PaletteStepperTest, PressesStepAroundTheFourPalettes)
{
    for (const int palette : {1, 2, 3, 0}) {
        stepper.press(MapButton::kLeft, {3, 3});
        EXPECT_EQ(map.palette({3, 3}), palette);
    }
    for (const int palette : {3, 2, 1, 0}) {
        stepper.press(MapButton::kRight, {3, 3});
        EXPECT_EQ(map.palette({3, 3}), palette);
    }
}

TEST_F(PaletteStepperTest, PressChangesTheFourTilesAroundAndNoOther)
{
    stepper.press(MapButton::kLeft, {4, 2});
    for (const OverworldCell cell : {OverworldCell{3, 1}, {4, 1}, {3, 2}, {4, 2}})
        EXPECT_EQ(map.palette(cell), 1);
    for (const OverworldCell cell : {OverworldCell{2, 1}, {5, 1}, {3, 0}, {3, 3}})
        EXPECT_EQ(map.palette(cell), 0);
}

TEST_F(PaletteStepperTest, DragWithinTheFourTilesDoesNotStepAgain)
{
    stepper.press(MapButton::kLeft, {3, 1});
    for (const OverworldCell cell : {OverworldCell{3, 1}, {4, 1}, {4, 2}, {3, 2}})
        EXPECT_FALSE(stepper.drag(MapButton::kLeft, cell));
    EXPECT_EQ(map.palette({3, 1}), 1);
}

TEST_F(PaletteStepperTest, DragStepsEachGroupItEnters)
{
    stepper.press(MapButton::kLeft, {3, 1});
    EXPECT_TRUE(stepper.drag(MapButton::kLeft, {5, 1}));
    EXPECT_FALSE(stepper.drag(MapButton::kLeft, {6, 1}));
    EXPECT_TRUE(stepper.drag(MapButton::kLeft, {4, 1})); // back again
    EXPECT_EQ(map.palette({3, 1}), 2);
    EXPECT_EQ(map.palette({5, 1}), 1);
}

TEST_F(PaletteStepperTest, TheFirstColumnAndRowAreGroupsOfTheirOwn)
{
    stepper.press(MapButton::kLeft, {0, 0});
    EXPECT_TRUE(stepper.drag(MapButton::kLeft, {1, 0}));
    EXPECT_TRUE(stepper.drag(MapButton::kLeft, {0, 1}));
    EXPECT_EQ(map.palette({0, 0}), 1);
    EXPECT_EQ(map.palette({1, 0}), 1);
    EXPECT_EQ(map.palette({0, 1}), 1);
    EXPECT_EQ(map.palette({1, 1}), 0);
}

TEST_F(PaletteStepperTest, EachButtonRemembersItsOwnLastTiles)
{
    stepper.press(MapButton::kLeft, {3, 1});
    EXPECT_TRUE(stepper.drag(MapButton::kRight, {3, 1}));
    EXPECT_EQ(map.palette({3, 1}), 0);
    EXPECT_FALSE(stepper.drag(MapButton::kLeft, {3, 1}));
    EXPECT_FALSE(stepper.drag(MapButton::kRight, {3, 1}));
}

TEST_F(PaletteStepperTest, ALaterDragThatStartsOnTheLastTilesDoesNotStep)
{
    stepper.press(MapButton::kLeft, {3, 1});
    stepper.press(MapButton::kRight, {9, 9});
    // The next press was outside the map, the move comes in over the tiles stepped last.
    EXPECT_FALSE(stepper.drag(MapButton::kLeft, {4, 2}));
    EXPECT_EQ(map.palette({4, 2}), 1);
}

TEST_F(PaletteStepperTest, DragWithoutAPressStepsAtOnce)
{
    EXPECT_TRUE(stepper.drag(MapButton::kRight, {0, 0}));
    EXPECT_EQ(map.palette({0, 0}), 3);
}

} // namespace
} // namespace velko
