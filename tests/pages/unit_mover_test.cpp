#include "pages/unit_mover.h"

#include "tests/pages/unit_rom.h"

#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using Position = RoomView::Position;
using test::Bytes;

// A room of 768 x 480 pixels, 320 x 320 of which show in a view of 416 x 375: one room pixel is 1.3
// pixels of the view each way to the right, and 1.171875 down.
class UnitMoverTest : public test::UnitGameTest {
protected:
    UnitMoverTest()
    {
        view.showRoom({3, 2});
        setUnits({3, 100, 1, 50, 0}); // at (100, 51)
    }
    // Picks up unit 0 at exactly its position: view pixel 130 is 100 / 1, 60 is 51.2.
    void pickFirst()
    {
        mover.pick({130, 60});
        ASSERT_EQ(mover.unit(), 0U);
    }
    void tick(int times)
    {
        for (int i = 0; i < times; ++i)
            mover.tick();
    }
    // Where five ticks, which are three steps, lead from (224, 80).
    Position scrolledFromMiddle(Position pointer)
    {
        view.scrollTo({224, 80});
        mover.moveTo(pointer);
        tick(5);
        return view.scroll();
    }

    RoomView view{{320, 320}, {416, 375}};
    UnitList units{unitData()};
    UnitMover mover{units, view};
};

// Picking

TEST_F(UnitMoverTest, UnitIsHitInABoxOf24Pixels)
{
    const struct {
        Position point;
        bool hit;
    } presses[] = {
        {{114, 60}, false}, // 87
        {{115, 60}, true},  // 88
        {{145, 60}, true},  // 111
        {{146, 60}, false}, // 112
        {{130, 45}, false}, // 38
        {{130, 46}, true},  // 39
        {{130, 73}, true},  // 62
        {{130, 74}, false}, // 63
    };
    for (const auto& press : presses) {
        EXPECT_EQ(mover.pick(press.point).has_value(), press.hit)
            << press.point.x << ", " << press.point.y;
        mover.stop();
    }
}

TEST_F(UnitMoverTest, PickingWritesNothing)
{
    const Bytes before = image();
    pickFirst();
    EXPECT_EQ(image(), before);
}

TEST_F(UnitMoverTest, LastOfOverlappingUnitsIsPicked)
{
    setUnits({3, 100, 1, 50, 0, 4, 105, 1, 50, 0, 5, 200, 1, 50, 0});
    EXPECT_EQ(mover.pick({130, 60}), 1U);
}

TEST_F(UnitMoverTest, UnitWithoutAPlacementCannotBePicked)
{
    setUnits({3, 100, 0, 50, 0});
    for (int x = 0; x < 416; x += 4)
        EXPECT_EQ(mover.pick({x, 60}), std::nullopt);
}

TEST_F(UnitMoverTest, ScrolledViewIsPickedFrom)
{
    setUnits({3, 100, 2, 250, 0}); // at (356, 251)
    view.scrollTo({160, 144});
    EXPECT_EQ(mover.pick({255, 126}), 0U); // 160 + 196, 144 + 107
    mover.stop();
    EXPECT_EQ(mover.pick({130, 60}), std::nullopt);
}

TEST_F(UnitMoverTest, PressesOutsideTheViewPickNothing)
{
    setUnits({3, 0, 1, 0, 0, 3, 64, 2, 64, 1}); // reach over the view's corners
    for (const Position outside : {Position{-1, 0}, {0, -1}, {416, 374}, {415, 375}})
        EXPECT_EQ(mover.pick(outside), std::nullopt);
    EXPECT_EQ(mover.pick({0, 0}), 0U);
}

TEST_F(UnitMoverTest, NothingIsPickedWhileMoving)
{
    setUnits({3, 100, 1, 50, 0, 4, 200, 1, 50, 0});
    pickFirst();
    EXPECT_EQ(mover.pick({260, 60}), std::nullopt);
    EXPECT_EQ(mover.unit(), 0U);
}

// Moving

TEST_F(UnitMoverTest, UnitFollowsThePointer)
{
    const Bytes expected = imageExcept(unitData(), 1, 200);
    pickFirst();
    mover.moveTo({260, 60});
    EXPECT_EQ(unitBytes(6), (Bytes{3, 200, 1, 51, 0, 0xFF}));
    mover.moveTo({338, 337});
    EXPECT_EQ(unitBytes(6), (Bytes{3, 4, 2, 47, 1, 0xFF})); // (260, 287)
    mover.moveTo({260, 59});
    EXPECT_EQ(image(), expected); // nothing else was touched
}

TEST_F(UnitMoverTest, UnitKeepsItsDistanceToThePointer)
{
    ASSERT_EQ(mover.pick({140, 66}), 0U); // (107, 56): 7 and 5 past its position
    mover.moveTo({260, 150});             // (200, 128)
    EXPECT_EQ(unitBytes(5), (Bytes{3, 193, 1, 123, 0}));
}

TEST_F(UnitMoverTest, UnitStartedFromTheListComesExactlyUnderThePointer)
{
    mover.start(0);
    mover.moveTo({260, 150});
    EXPECT_EQ(unitBytes(5), (Bytes{3, 200, 1, 128, 0}));
}

TEST_F(UnitMoverTest, NoDistanceIsLeftOverFromAnEarlierMove)
{
    ASSERT_EQ(mover.pick({140, 66}), 0U);
    mover.revert();
    mover.start(0);
    mover.moveTo({260, 150});
    EXPECT_EQ(unitBytes(5), (Bytes{3, 200, 1, 128, 0}));
}

TEST_F(UnitMoverTest, ScrollPositionCounts)
{
    view.scrollTo({160, 144});
    mover.start(0);
    mover.moveTo({255, 126});
    EXPECT_EQ(unitBytes(5), (Bytes{3, 100, 2, 11, 1})); // (356, 251)
}

TEST_F(UnitMoverTest, DraggedLeftOfTheRoomItLosesItsPlacement)
{
    setUnits({3, 5, 1, 50, 0});
    ASSERT_EQ(mover.pick({13, 60}), 0U); // 10
    mover.moveTo({0, 60});
    EXPECT_EQ(unitBytes(5), (Bytes{3, 0xFB, 0, 51, 0}));
    mover.moveTo({13, 60});
    EXPECT_EQ(unitBytes(5), (Bytes{3, 5, 1, 51, 0}));
}

TEST_F(UnitMoverTest, DraggedAboveTheRoomYKeepsItsLowBits)
{
    setUnits({3, 100, 1, 4, 0});
    ASSERT_EQ(mover.pick({130, 12}), 0U); // (100, 10)
    mover.moveTo({130, 0});
    EXPECT_EQ(unitBytes(5), (Bytes{3, 100, 1, 0xFB, 0}));
}

TEST_F(UnitMoverTest, OutsideTheViewTheUnitStays)
{
    pickFirst();
    mover.moveTo({260, 60});
    const Bytes before = image();
    for (const Position outside : {Position{-1, 60}, {416, 60}, {260, -1}, {260, 375}})
        mover.moveTo(outside);
    EXPECT_EQ(image(), before);
}

TEST_F(UnitMoverTest, PointsAreScaledFromSmallRoomsToo)
{
    view.showRoom({1, 1}); // 256 x 240
    mover.start(0);
    mover.moveTo({415, 374});
    EXPECT_EQ(unitBytes(5), (Bytes{3, 255, 1, 239, 0}));
    mover.moveTo({13, 25});
    EXPECT_EQ(unitBytes(5), (Bytes{3, 8, 1, 16, 0}));
}

// Ending

TEST_F(UnitMoverTest, PickedAndDroppedInPlaceItMovesOnePixelDown)
{
    pickFirst();
    mover.drop({130, 60});
    EXPECT_FALSE(mover.isMoving());
    EXPECT_EQ(unitBytes(5), (Bytes{3, 100, 1, 51, 0}));
    pickFirst();
    mover.moveTo({130, 60}); // told by the window system, or not
    mover.drop({130, 60});
    EXPECT_EQ(unitBytes(5), (Bytes{3, 100, 1, 52, 0}));
}

TEST_F(UnitMoverTest, OnePixelDownMayBeTheNextScreen)
{
    setUnits({3, 100, 1, 239, 0}); // at (100, 240)
    ASSERT_EQ(mover.pick({130, 282}), 0U);
    mover.drop({130, 282});
    EXPECT_EQ(unitBytes(5), (Bytes{3, 100, 1, 0, 1}));
}

TEST_F(UnitMoverTest, DropLeavesAMovedUnitWhereItIs)
{
    pickFirst();
    mover.moveTo({410, 60}); // (315, 51), at the border
    tick(5);
    mover.drop({410, 60});
    EXPECT_EQ(view.scroll(), (Position{48, 0}));
    EXPECT_EQ(unitBytes(5), (Bytes{3, 59, 2, 51, 0}));
    mover.moveTo({130, 60});
    EXPECT_EQ(unitBytes(5), (Bytes{3, 59, 2, 51, 0}));
}

TEST_F(UnitMoverTest, RevertPutsTheFiveBytesBack)
{
    const Bytes before = image();
    pickFirst();
    mover.moveTo({260, 300});
    ASSERT_NE(image(), before);
    mover.revert();
    EXPECT_EQ(image(), before);
    EXPECT_FALSE(mover.isMoving());
}

TEST_F(UnitMoverTest, RevertWhileIdleChangesNothing)
{
    pickFirst();
    mover.moveTo({260, 300});
    mover.drop({260, 300});
    const Bytes before = image();
    mover.revert();
    EXPECT_EQ(image(), before);
}

TEST_F(UnitMoverTest, PointerMovesNothingWhileIdle)
{
    const Bytes before = image();
    mover.moveTo({410, 370});
    mover.drop({410, 370});
    tick(10);
    EXPECT_EQ(image(), before);
    EXPECT_EQ(view.scroll(), (Position{0, 0}));
}

// Scrolling at the border

TEST_F(UnitMoverTest, ViewScrollsThreeStepsOf16InFiveTicks)
{
    pickFirst();
    mover.moveTo({410, 188});
    std::vector<int> positions;
    for (int i = 0; i < 10; ++i) {
        mover.tick();
        positions.push_back(view.scroll().x);
    }
    EXPECT_EQ(positions, (std::vector<int>{0, 16, 16, 32, 48, 48, 64, 64, 80, 96}));
}

TEST_F(UnitMoverTest, ViewScrolls120StepsIn200Ticks)
{
    view.showRoom({20, 2});
    pickFirst();
    mover.moveTo({410, 188});
    tick(200);
    EXPECT_EQ(view.scroll().x, 120 * 16);
}

TEST_F(UnitMoverTest, BorderInsideTheViewIs12RoomPixelsWide)
{
    pickFirst();
    EXPECT_EQ(scrolledFromMiddle({208, 188}), (Position{224, 80}));
    EXPECT_EQ(scrolledFromMiddle({15, 188}), (Position{176, 80}));   // 11
    EXPECT_EQ(scrolledFromMiddle({16, 188}), (Position{224, 80}));   // 12
    EXPECT_EQ(scrolledFromMiddle({401, 188}), (Position{224, 80}));  // 308
    EXPECT_EQ(scrolledFromMiddle({402, 188}), (Position{272, 80}));  // 309
    EXPECT_EQ(scrolledFromMiddle({208, 14}), (Position{224, 32}));   // 11
    EXPECT_EQ(scrolledFromMiddle({208, 15}), (Position{224, 80}));   // 12
    EXPECT_EQ(scrolledFromMiddle({208, 362}), (Position{224, 80}));  // 308
    EXPECT_EQ(scrolledFromMiddle({208, 363}), (Position{224, 128})); // 309
    EXPECT_EQ(scrolledFromMiddle({0, 374}), (Position{176, 128}));
}

TEST_F(UnitMoverTest, OutsideTheBorderIs12PixelsOfTheView)
{
    pickFirst();
    EXPECT_EQ(scrolledFromMiddle({-1, 12}), (Position{176, 80}));
    EXPECT_EQ(scrolledFromMiddle({-500, 11}), (Position{176, 32}));
    EXPECT_EQ(scrolledFromMiddle({416, 363}), (Position{272, 80}));
    EXPECT_EQ(scrolledFromMiddle({9999, 364}), (Position{272, 128}));
    EXPECT_EQ(scrolledFromMiddle({12, -1}), (Position{224, 32}));
    EXPECT_EQ(scrolledFromMiddle({11, -1}), (Position{176, 32}));
    EXPECT_EQ(scrolledFromMiddle({404, 375}), (Position{224, 128}));
    EXPECT_EQ(scrolledFromMiddle({405, 375}), (Position{272, 128}));
}

TEST_F(UnitMoverTest, ScrollingStopsAtTheRoomsEdges)
{
    pickFirst();
    mover.moveTo({415, 374});
    tick(200);
    EXPECT_EQ(view.scroll(), (Position{448, 160}));
    mover.moveTo({-1, -1});
    tick(200);
    EXPECT_EQ(view.scroll(), (Position{0, 0}));
}

TEST_F(UnitMoverTest, ScrollingDoesNotMoveTheUnit)
{
    pickFirst();
    mover.moveTo({410, 188});
    const Bytes before = image();
    tick(10);
    EXPECT_EQ(image(), before);
    mover.moveTo({410, 188});
    EXPECT_EQ(unitBytes(3), (Bytes{3, 155, 2})); // 315 + 96
}

TEST_F(UnitMoverTest, ScrollingStopsWhenThePointerLeavesTheBorder)
{
    pickFirst();
    mover.moveTo({410, 188});
    tick(5);
    mover.moveTo({208, 188});
    tick(10);
    EXPECT_EQ(view.scroll(), (Position{48, 0}));
}

TEST_F(UnitMoverTest, ScrollingEndsWithTheMove)
{
    const auto scrolledAfter = [this](auto end) {
        view.scrollTo({0, 0});
        mover.start(0);
        mover.moveTo({410, 188});
        end();
        tick(10);
        return view.scroll();
    };
    EXPECT_EQ(scrolledAfter([this] { mover.drop({410, 188}); }), (Position{0, 0}));
    EXPECT_EQ(scrolledAfter([this] { mover.revert(); }), (Position{0, 0}));
    EXPECT_EQ(scrolledAfter([this] { mover.reset(); }), (Position{0, 0}));
}

TEST_F(UnitMoverTest, PartOfAStepIsKeptUntilReset)
{
    pickFirst();
    mover.moveTo({410, 188});
    tick(1); // 0.6 of a step
    mover.moveTo({208, 188});
    mover.moveTo({410, 188});
    tick(1);
    EXPECT_EQ(view.scroll().x, 16);
    tick(1); // 0.8
    mover.reset();
    mover.start(0);
    mover.moveTo({410, 188});
    tick(1);
    EXPECT_EQ(view.scroll().x, 16);
}

// The glow

TEST_F(UnitMoverTest, GlowGoesUpAndDown)
{
    EXPECT_EQ(mover.glow(), 0.0F);
    tick(10);
    EXPECT_NEAR(mover.glow(), 0.4F, 1e-5);
    tick(15);
    EXPECT_NEAR(mover.glow(), 1.0F, 1e-5);
    tick(10);
    EXPECT_NEAR(mover.glow(), 0.6F, 1e-5);
    tick(26); // 61: 2.44 - 2
    EXPECT_NEAR(mover.glow(), 0.44F, 1e-5);
}

TEST_F(UnitMoverTest, PickingStartsTheGlowAnewAndTheListDoesNot)
{
    tick(10);
    mover.start(0);
    EXPECT_NEAR(mover.glow(), 0.4F, 1e-5);
    mover.stop();
    pickFirst();
    EXPECT_EQ(mover.glow(), 0.0F);
}

TEST_F(UnitMoverTest, AnotherRoomStartsTheGlowAnew)
{
    tick(10);
    mover.reset();
    EXPECT_EQ(mover.glow(), 0.0F);
}

// Whatever the mouse does

RC_GTEST_FIXTURE_PROP(UnitMoverTest, OnlyTheBytesOfPositionsChangeAndTheViewStaysInTheRoom, ())
{
    setUnits({3, 100, 1, 50, 0, 10, 0, 2, 30, 0, 4, 20, 0, 20, 0});
    view.showRoom({3, 2});
    mover.reset();
    const Bytes before = image();
    const auto steps = *rc::gen::container<std::vector<std::tuple<int, int, int>>>(rc::gen::tuple(
        rc::gen::inRange(0, 6), rc::gen::inRange(-100, 520), rc::gen::inRange(-100, 480)));
    for (const auto& [event, x, y] : steps) {
        switch (event) {
        case 0:
            mover.pick({x, y});
            break;
        case 1:
            mover.start(static_cast<std::uint32_t>((x + 100) % 3));
            break;
        case 2:
            mover.drop({x, y});
            break;
        case 3:
            mover.revert();
            break;
        case 4:
            tick((y + 100) % 20);
            break;
        default:
            mover.moveTo({x, y});
        }
        RC_ASSERT(view.scroll().x >= 0 && view.scroll().x <= 448);
        RC_ASSERT(view.scroll().y >= 0 && view.scroll().y <= 160);
    }
    Bytes after = image();
    const std::uint32_t first = unitData().dataFileOffset(unitData().pointerOf(0));
    for (const std::uint32_t unit : {0U, 1U, 2U}) {
        for (const std::uint32_t byte : {1U, 2U, 3U, 4U})
            after[first + 5 * unit + byte] = before[first + 5 * unit + byte];
    }
    RC_ASSERT(after == before);
}

} // namespace
} // namespace velko
