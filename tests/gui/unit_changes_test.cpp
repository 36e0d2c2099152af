#include "tests/gui/unit_page_fixture.h"

namespace velko {
namespace {

using namespace test;

const std::string kNoSpaceForUnit =
    "No free space. You must first remove one or more unit from any room.";
const std::string kNoSpaceForLoad = "Not enough free space. You must first remove entries of "
                                    "loaded Id's in the data of any room.";

using UnitPlacementPageTest = UnitPageTest;

// Changing units

TEST_F(UnitPlacementPageTest, TypeIsWrittenIntoByte0)
{
    choose(units(), 1);
    const Bytes expected = imageExcept(unitData(), 5, 143);
    pick(type(), 143);
    EXPECT_EQ(image(), expected);
    EXPECT_EQ(lines(units()), (QStringList{"0 : Unit 3", "1 : Unit 143", "2 : Unit 4"}));
    EXPECT_EQ(chosen(units()), 1);
    EXPECT_EQ(at(260, 118), markerColour(143));
}

TEST_F(UnitPlacementPageTest, NumbersAreWrittenIntoTheirBytes)
{
    choose(units(), 1);
    const struct {
        int box;
        const char* keys;
        std::uint32_t offset;
        std::uint8_t byte;
    } numbers[] = {
        {kPixelX, "1c", 6, 0x1C},
        {kScreenX, "1", 7, 2},
        {kPixelY, "0x2D", 8, 0x2D},
        {kScreenY, "1", 9, 1},
    };
    for (const auto& number : numbers) {
        const Bytes expected = imageExcept(unitData(), number.offset, number.byte);
        typeInto(number.box, number.keys);
        EXPECT_EQ(image(), expected) << number.box;
    }
}

TEST_F(UnitPlacementPageTest, OfNumbersTheLowBitsAreWrittenAndShownAfterwards)
{
    const Bytes expected = imageExcept(unitData(), 1, 0x34);
    typeInto(kPixelX, "1234");
    EXPECT_EQ(image(), expected);
    EXPECT_EQ(text(kPixelX), "1234");
    QTest::keyClick(&control(kPixelX), Qt::Key_Return);
    EXPECT_EQ(text(kPixelX), "34");
}

TEST_F(UnitPlacementPageTest, ScreenXFFTakesThePlacementAway)
{
    const Bytes expected = imageExcept(unitData(), 2, 0);
    typeInto(kScreenX, "ff");
    EXPECT_EQ(image(), expected);
    EXPECT_TRUE(control(kScreenX).isEnabled()); // the user may go on typing
    EXPECT_EQ(at(132, 62), colour(16));
    QTest::keyClick(&control(kScreenX), Qt::Key_Return);
    expectStats(0, 3, false, {"", "", "", ""});
}

TEST_F(UnitPlacementPageTest, NumbersMoveTheUnitInTheView)
{
    typeInto(kPixelX, "c8");
    typeInto(kPixelY, "c8");
    EXPECT_EQ(at(132, 62), colour(16));
    EXPECT_EQ(at(263, 240), colour(17)); // (202, 204)
}

TEST_F(UnitPlacementPageTest, TextsThatThePageSetsWriteNothing)
{
    const Bytes before = image();
    for (const int line : {1, 2, 0, 1}) {
        choose(units(), line);
        choose(loads(), line);
    }
    page->refresh();
    tick(3);
    EXPECT_EQ(image(), before);
}

TEST_F(UnitPlacementPageTest, PlacementIsTakenAwayAndGiven)
{
    click(kPlaced);
    EXPECT_EQ(unitBytes(15), (Bytes{3, 0, 0, 0, 0, 10, 200, 1, 100, 0, 4, 7, 0, 8, 1}));
    expectStats(0, 3, false, {"", "", "", ""});
    EXPECT_EQ(at(132, 62), colour(16));
    choose(units(), 2);
    click(kPlaced);
    EXPECT_EQ(unitBytes(15), (Bytes{3, 0, 0, 0, 0, 10, 200, 1, 100, 0, 4, 7, 1, 8, 1}));
    expectStats(2, 4, true, {"0", "1", "7", "8"});
    EXPECT_EQ(at(13, 293), colour(22)); // (10, 250): the unit is at (7, 249)
}

TEST_F(UnitPlacementPageTest, NewUnitComesBeforeTheSelectedOneInTheMiddleOfTheView)
{
    choose(units(), 1);
    scrollTo(160, 144);
    click(kNew);
    // (160 + 160, 144 + 160)
    EXPECT_EQ(unitBytes(20),
              (Bytes{3, 100, 1, 50, 0, 0, 64, 2, 64, 1, 10, 200, 1, 100, 0, 4, 7, 0, 8, 1}));
    expectStats(1, 0, true, {"1", "1", "40", "40"});
    EXPECT_EQ(lines(units()),
              (QStringList{"0 : Unit 3", "1 : Unit 0", "2 : Unit 10", "3 : Unit 4"}));
    EXPECT_EQ(at(208, 188), 0x000000U); // its marker
}

TEST_F(UnitPlacementPageTest, FullRegionIsToldAndNothingChanges)
{
    unitData().setFreeSpace(4);
    const Bytes before = image();
    prompt.expect(kNoSpaceForUnit, MessageIcon::kExclamation);
    click(kNew);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), before);
    EXPECT_EQ(units().model()->rowCount(), 3);
    loadData().setFreeSpace(0);
    prompt.expect(kNoSpaceForLoad, MessageIcon::kExclamation);
    click(kInsert);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), before);
    EXPECT_EQ(loads().model()->rowCount(), 3);
}

TEST_F(UnitPlacementPageTest, UnknownFreeSpaceIsToldAsNone)
{
    unitData().setFreeSpace(PointerArrayHandler::kFreeSpaceUnknown);
    loadData().setFreeSpace(PointerArrayHandler::kFreeSpaceUnknown);
    const Bytes before = image();
    prompt.expect(kNoSpaceForUnit, MessageIcon::kExclamation);
    click(kNew);
    prompt.expect(kNoSpaceForLoad, MessageIcon::kExclamation);
    click(kInsert);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), before);
}

TEST_F(UnitPlacementPageTest, RegionIsFilledToItsLastByte)
{
    unitData().setFreeSpace(12);
    click(kNew);
    click(kNew);
    EXPECT_EQ(unitData().freeSpace(), 2);
    prompt.expect(kNoSpaceForUnit, MessageIcon::kExclamation);
    click(kNew);
    EXPECT_EQ(units().model()->rowCount(), 5);
}

TEST_F(UnitPlacementPageTest, UnitsAreRemovedUntilThereIsNone)
{
    choose(units(), 2);
    click(kRemove);
    expectStats(1, 10, true, {"0", "0", "c8", "64"});
    choose(units(), 0);
    click(kRemove);
    EXPECT_EQ(unitBytes(6), (Bytes{10, 200, 1, 100, 0, 0xFF}));
    expectStats(0, 10, true, {"0", "0", "c8", "64"});
    click(kRemove);
    EXPECT_EQ(unitBytes(1), (Bytes{0xFF}));
    expectStats(-1, -1, false, {"", "", "", ""});
    EXPECT_FALSE(type().isEnabled());
    click(kRemove);
    click(kNew);
    EXPECT_EQ(unitBytes(6), (Bytes{0, 160, 1, 160, 0, 0xFF}));
    expectStats(0, 0, true, {"0", "0", "a0", "a0"});
}

// Sprite graphics

TEST_F(UnitPlacementPageTest, LoadsIdIsWrittenAndItsTilesShown)
{
    choose(loads(), 1);
    EXPECT_EQ(loadId().currentIndex(), 1);
    const Bytes expected = imageExcept(loadData(), 1, 2);
    pick(loadId(), 2);
    EXPECT_EQ(image(), expected);
    EXPECT_EQ(lines(loads()), (QStringList{"0: - Load 0", "1: - Load 2", "2: - Load 2"}));
    EXPECT_EQ(chosen(loads()), 1);
    const PixelImage& tiles = control<PictureView>(kVramSetup).picture();
    EXPECT_EQ(tiles.at(31, 6), colour(16)); // tile 2 is loaded no more
}

TEST_F(UnitPlacementPageTest, LoadsAreInsertedAndDeleted)
{
    choose(loads(), 2);
    click(kInsert);
    EXPECT_EQ(loadBytes(5), (Bytes{0, 1, 0, 2, 0xFF}));
    EXPECT_EQ(chosen(loads()), 2);
    EXPECT_EQ(loadId().currentIndex(), 0);
    choose(loads(), 3);
    click(kDelete);
    EXPECT_EQ(loadBytes(4), (Bytes{0, 1, 0, 0xFF}));
    EXPECT_EQ(chosen(loads()), 2);
    EXPECT_EQ(control<PictureView>(kVramSetup).picture().at(44, 6), colour(16));
    for (int i = 0; i < 3; ++i)
        click(kDelete);
    EXPECT_EQ(loadBytes(1), (Bytes{0xFF}));
    EXPECT_FALSE(loadId().isEnabled());
    EXPECT_EQ(at(132, 62), colour(16)); // the unit has no tiles
    click(kInsert);
    EXPECT_EQ(loadBytes(2), (Bytes{0, 0xFF}));
    EXPECT_TRUE(loadId().isEnabled());
    EXPECT_EQ(chosen(loads()), 0);
    EXPECT_EQ(at(132, 62), colour(17));
}

TEST_F(UnitPlacementPageTest, IdFrom80OnEndsTheShownList)
{
    choose(loads(), 1);
    pick(loadId(), 128);
    EXPECT_EQ(loadBytes(4), (Bytes{0, 128, 2, 0xFF}));
    EXPECT_EQ(lines(loads()), QStringList{"0: - Load 0"});
    EXPECT_EQ(chosen(loads()), -1);
    EXPECT_EQ(loadId().currentIndex(), 128);
    EXPECT_TRUE(loadId().isEnabled());
    click(kDelete);
    EXPECT_EQ(loadBytes(3), (Bytes{0, 2, 0xFF}));
    EXPECT_EQ(chosen(loads()), 1);
}

TEST_F(UnitPlacementPageTest, ListThatBeginsWith80HasNothingToSet)
{
    setLoads({0x80, 1});
    page->refresh();
    EXPECT_EQ(loads().model()->rowCount(), 0);
    EXPECT_FALSE(loadId().isEnabled());
    click(kInsert);
    EXPECT_EQ(loadBytes(4), (Bytes{0, 0x80, 1, 0xFF}));
    EXPECT_TRUE(loadId().isEnabled());
}

} // namespace
} // namespace velko
