#include "tests/pages/unit_placement_model_fixture.h"

namespace velko {
namespace {

using Position = RoomView::Position;
using Size = RoomView::Size;
using test::Bytes;
using test::UnitPlacementModelTest;
using test::UnitRom;

// Moving

TEST_F(UnitPlacementModelTest, PressedUnitIsSelectedMovedAndDropped)
{
    model.press({260, 118}); // (200, 100)
    EXPECT_TRUE(model.isMoving());
    EXPECT_EQ(model.selectedUnit(), 1);
    model.movePointer({130, 118});
    model.press({130, 118});
    EXPECT_FALSE(model.isMoving());
    EXPECT_EQ(unitBytes(11), (Bytes{3, 100, 1, 50, 0, 10, 100, 1, 101, 0, 0xFF}));
}

TEST_F(UnitPlacementModelTest, PressBesideAllUnitsDoesNothing)
{
    model.selectUnit(1);
    model.press({10, 300});
    EXPECT_FALSE(model.isMoving());
    EXPECT_EQ(model.selectedUnit(), 1);
}

TEST_F(UnitPlacementModelTest, AnotherUnitsSelectionLeavesTheMovedOneWhereItIs)
{
    model.press({260, 118});
    model.movePointer({130, 118});
    const Bytes moved = image();
    model.selectUnit(1); // the same
    EXPECT_TRUE(model.isMoving());
    model.selectUnit(0);
    EXPECT_FALSE(model.isMoving());
    model.revertMove();
    EXPECT_EQ(image(), moved);
}

TEST_F(UnitPlacementModelTest, NewAndRemoveEndAMove)
{
    model.startMoving(1);
    ASSERT_TRUE(model.addUnit().ok());
    EXPECT_FALSE(model.isMoving());
    model.startMoving(1);
    model.removeUnit();
    EXPECT_FALSE(model.isMoving());
    EXPECT_EQ(unitBytes(11), (Bytes{3, 100, 1, 50, 0, 10, 200, 1, 100, 0, 0xFF}));
}

TEST_F(UnitPlacementModelTest, AnotherRoomEndsAMove)
{
    model.press({260, 118});
    model.movePointer({410, 118});
    state.graphics.selectRoom(1);
    model.refresh();
    const Bytes before = image();
    model.movePointer({10, 10});
    for (int i = 0; i < 10; ++i)
        model.tick();
    model.revertMove();
    EXPECT_EQ(image(), before);
    EXPECT_EQ(model.view().scroll(), (Position{0, 0}));
    EXPECT_EQ(model.view().room(), (Size{256, 240}));
}

// Ticks and pictures

TEST_F(UnitPlacementModelTest, TickAnimatesSprites)
{
    EXPECT_EQ(at(132, 62), colour(17)); // (101.5, 52.9)
    model.tick();
    EXPECT_EQ(at(132, 62), colour(17));
    model.tick();
    EXPECT_EQ(at(132, 62), colour(19));
}

TEST_F(UnitPlacementModelTest, SwitchingTheAnimationStartsItAnew)
{
    model.tick();
    model.tick();
    EXPECT_EQ(at(132, 62), colour(19));
    model.setAnimated(false);
    for (int i = 0; i < 4; ++i)
        model.tick();
    EXPECT_EQ(at(132, 62), colour(17));
    model.setAnimated(true);
    model.tick();
    EXPECT_EQ(at(132, 62), colour(17));
    model.tick();
    EXPECT_EQ(at(132, 62), colour(19));
}

TEST_F(UnitPlacementModelTest, WithoutSpritesThereAreMarkers)
{
    model.setSprites(false);
    EXPECT_EQ(at(132, 62), 0x008080U);
    model.setSprites(true);
    EXPECT_EQ(at(132, 62), colour(17));
}

TEST_F(UnitPlacementModelTest, PausedTicksDoNothingUntilTheNextRefresh)
{
    model.startMoving(0);
    model.movePointer({410, 118});
    model.pause();
    for (int i = 0; i < 5; ++i)
        EXPECT_FALSE(model.tick());
    EXPECT_EQ(model.view().scroll(), (Position{0, 0}));
    EXPECT_EQ(state.graphics.unitAnimation[UnitRom::kAnimated].delay, 2);
    model.refresh();
    EXPECT_TRUE(model.tick());
    EXPECT_EQ(state.graphics.unitAnimation[UnitRom::kAnimated].delay, 1);
}

TEST_F(UnitPlacementModelTest, ResumedTicksGoOn)
{
    model.pause();
    EXPECT_FALSE(model.tick());
    model.resume();
    EXPECT_TRUE(model.tick());
    EXPECT_EQ(state.graphics.unitAnimation[UnitRom::kAnimated].delay, 1);
}

TEST_F(UnitPlacementModelTest, PausedPointerMovesNothing)
{
    model.startMoving(0);
    model.movePointer({260, 118});
    const Bytes moved = image();
    model.pause();
    model.movePointer({130, 118});
    EXPECT_EQ(image(), moved);
    model.resume();
    model.movePointer({130, 118});
    EXPECT_EQ(unitBytes(5), (Bytes{3, 100, 1, 100, 0}));
}

TEST_F(UnitPlacementModelTest, NewModelIsPausedUntilItShowsARoom)
{
    UnitPlacementModel fresh(state);
    EXPECT_FALSE(fresh.tick());
    EXPECT_EQ(state.graphics.unitAnimation[UnitRom::kAnimated].delay, 2);
}

// In single precision the phase is a little below 0.4 after ten ticks.
TEST_F(UnitPlacementModelTest, MovedUnitGlowsByThePhase)
{
    model.setAnimated(false);
    state.graphics.unitAnimation[UnitRom::kAnimated].frameOffset = 6; // entry 19
    model.tick();
    EXPECT_EQ(at(132, 62), colour(19));
    model.press({130, 60});
    EXPECT_EQ(at(132, 62), 0x000000U);
    for (int i = 0; i < 10; ++i)
        model.tick();
    EXPECT_EQ(at(132, 62), 0x652519U);
    for (int i = 0; i < 15; ++i)
        model.tick();
    EXPECT_EQ(at(132, 62), 0xFE5E3EU);
    for (int i = 0; i < 25; ++i)
        model.tick();
    EXPECT_EQ(at(132, 62), 0x000000U);
    model.press({130, 60}); // dropped one pixel down
    EXPECT_EQ(at(132, 64), colour(19));
}

TEST_F(UnitPlacementModelTest, RefreshStartsTheGlowAnew)
{
    model.setAnimated(false);
    state.graphics.unitAnimation[UnitRom::kAnimated].frameOffset = 6; // entry 19
    for (int i = 0; i < 10; ++i)
        model.tick();
    model.refresh();
    model.startMoving(0);
    EXPECT_EQ(at(132, 62), 0x000000U);
}

TEST_F(UnitPlacementModelTest, TickScrollsAndShowsTheOtherPart)
{
    model.setSprites(false);
    model.press({260, 118});
    model.movePointer({412, 188});
    for (int i = 0; i < 100; ++i)
        model.tick();
    EXPECT_EQ(model.view().scroll(), (Position{448, 0}));
    EXPECT_EQ(at(0, 0), colour(1));
    EXPECT_EQ(at(200, 0), colour(2));
}

} // namespace
} // namespace velko
