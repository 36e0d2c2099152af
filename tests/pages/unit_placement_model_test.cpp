#include "tests/pages/unit_placement_model_fixture.h"

namespace velko {
namespace {

using Position = RoomView::Position;
using Size = RoomView::Size;
using test::Bytes;
using test::UnitPlacementModelTest;

// Selecting

TEST_F(UnitPlacementModelTest, RefreshShowsTheRoomFromItsCornerAndSelectsTheFirst)
{
    EXPECT_EQ(model.view().room(), (Size{768, 480}));
    EXPECT_EQ(model.view().region(), (Size{320, 320}));
    model.view().scrollTo({100, 100});
    model.selectUnit(1);
    model.selectLoad(2);
    model.startMoving(1);
    model.refresh();
    EXPECT_EQ(model.view().scroll(), (Position{0, 0}));
    EXPECT_EQ(model.selectedUnit(), 0);
    EXPECT_EQ(model.selectedLoad(), 0);
    EXPECT_FALSE(model.isMoving());
}

TEST_F(UnitPlacementModelTest, RoomOfWidth2OrHeight0IsOneScreen)
{
    game.setStoredSize(0, 2, 0);
    game.loadInto(state);
    model.refresh();
    EXPECT_EQ(model.view().room(), (Size{256, 240}));
    game.setStoredSize(0, 1, 2);
    game.loadInto(state);
    model.refresh();
    EXPECT_EQ(model.view().room(), (Size{256, 480}));
}

TEST_F(UnitPlacementModelTest, AnotherRoomIsDrawnAnew)
{
    game.setLayout(1, 3, 2, {2, 2, 2, 2, 2, 2});
    game.loadInto(state);
    model.refresh();
    EXPECT_EQ(at(0, 0), colour(16));
    state.graphics.selectRoom(1);
    model.refresh();
    EXPECT_EQ(at(0, 0), colour(2));
}

TEST_F(UnitPlacementModelTest, OnlyWhatIsListedIsSelected)
{
    for (const int index : {-1, 2, 1000}) {
        model.selectUnit(index);
        EXPECT_EQ(model.selectedUnit(), 0);
    }
    for (const int index : {-1, 3, 1000}) {
        model.selectLoad(index);
        EXPECT_EQ(model.selectedLoad(), 0);
    }
    model.selectUnit(1);
    EXPECT_EQ(model.unit(), (UnitRecord{10, 200, 1, 100, 0}));
    model.selectLoad(2);
    EXPECT_EQ(model.loadId(), 2);
}

// The selected unit's bytes

TEST_F(UnitPlacementModelTest, EachNumberIsWrittenIntoItsByte)
{
    model.selectUnit(1);
    model.setType(143);
    EXPECT_EQ(unitBytes(11), (Bytes{3, 100, 1, 50, 0, 143, 200, 1, 100, 0, 0xFF}));
    model.setPixelX(0x12);
    EXPECT_EQ(unitBytes(11), (Bytes{3, 100, 1, 50, 0, 143, 0x12, 1, 100, 0, 0xFF}));
    model.setScreenX(0x34);
    EXPECT_EQ(unitBytes(11), (Bytes{3, 100, 1, 50, 0, 143, 0x12, 0x35, 100, 0, 0xFF}));
    model.setPixelY(0x56);
    EXPECT_EQ(unitBytes(11), (Bytes{3, 100, 1, 50, 0, 143, 0x12, 0x35, 0x56, 0, 0xFF}));
    model.setScreenY(0x78);
    EXPECT_EQ(unitBytes(11), (Bytes{3, 100, 1, 50, 0, 143, 0x12, 0x35, 0x56, 0x78, 0xFF}));
}

TEST_F(UnitPlacementModelTest, OfNumbersTheLowBitsCount)
{
    model.setPixelX(0x1FE);
    model.setScreenX(0x1FE);
    model.setPixelY(0xFFFFFFFF);
    model.setScreenY(0x100);
    EXPECT_EQ(unitBytes(5), (Bytes{3, 0xFE, 0xFF, 0xFF, 0}));
    model.setScreenX(0xFFFFFFFF);
    EXPECT_EQ(unitBytes(5), (Bytes{3, 0xFE, 0, 0xFF, 0}));
}

TEST_F(UnitPlacementModelTest, PlacementIsTakenAwayWithAllNumbersAndGivenAlone)
{
    setRecords({3, 100, 5, 50, 2});
    model.setPlaced(false);
    EXPECT_EQ(unitBytes(6), (Bytes{3, 0, 0, 0, 0, 0xFF}));
    model.setPlaced(true);
    EXPECT_EQ(unitBytes(6), (Bytes{3, 0, 1, 0, 0, 0xFF}));
    setRecords({3, 100, 0, 50, 2});
    model.setPlaced(true);
    EXPECT_EQ(unitBytes(6), (Bytes{3, 100, 1, 50, 2, 0xFF}));
}

TEST_F(UnitPlacementModelTest, WithoutUnitsNothingIsWritten)
{
    setRecords({});
    const Bytes before = image();
    EXPECT_EQ(model.unit(), std::nullopt);
    model.setType(3);
    model.setPlaced(true);
    model.setPlaced(false);
    model.setScreenX(1);
    model.setScreenY(1);
    model.setPixelX(1);
    model.setPixelY(1);
    model.startMoving(0);
    model.movePointer({200, 200});
    model.press({200, 200});
    model.removeUnit();
    EXPECT_EQ(image(), before);
    EXPECT_FALSE(model.isMoving());
}

// New and Remove

TEST_F(UnitPlacementModelTest, NewUnitStandsInTheMiddleOfTheViewBeforeTheSelectedOne)
{
    model.selectUnit(1);
    model.view().scrollTo({208, 144});
    ASSERT_TRUE(model.addUnit().ok());
    // 208 + 160 = 368, 144 + 160 = 304
    EXPECT_EQ(unitBytes(16), (Bytes{3, 100, 1, 50, 0, 0, 112, 2, 64, 1, 10, 200, 1, 100, 0, 0xFF}));
    EXPECT_EQ(model.selectedUnit(), 1);
    EXPECT_EQ(model.unit(), (UnitRecord{0, 112, 2, 64, 1}));
}

TEST_F(UnitPlacementModelTest, MiddleOfASmallRoom)
{
    setRecords({});
    game.setLayout(0, 1, 1, {0});
    game.loadInto(state);
    model.refresh();
    ASSERT_TRUE(model.addUnit().ok());
    EXPECT_EQ(unitBytes(6), (Bytes{0, 128, 1, 120, 0, 0xFF}));
}

TEST_F(UnitPlacementModelTest, NewUnitOfAnEmptyListIsSelected)
{
    setRecords({});
    const std::int32_t free = unitData().freeSpace();
    ASSERT_TRUE(model.addUnit().ok());
    EXPECT_EQ(unitBytes(6), (Bytes{0, 160, 1, 160, 0, 0xFF}));
    EXPECT_EQ(model.selectedUnit(), 0);
    EXPECT_EQ(unitData().freeSpace(), free - 5);
}

TEST_F(UnitPlacementModelTest, NewUnitNeedsFiveFreeBytes)
{
    unitData().setFreeSpace(4);
    model.selectUnit(1);
    const Bytes before = image();
    EXPECT_FALSE(model.addUnit().ok());
    EXPECT_EQ(image(), before);
    EXPECT_EQ(model.selectedUnit(), 1);
    unitData().setFreeSpace(5);
    EXPECT_TRUE(model.addUnit().ok());
    EXPECT_EQ(unitData().freeSpace(), 0);
}

TEST_F(UnitPlacementModelTest, RemovingTheLastUnitSelectsTheOneBefore)
{
    model.selectUnit(1);
    model.removeUnit();
    EXPECT_EQ(unitBytes(6), (Bytes{3, 100, 1, 50, 0, 0xFF}));
    EXPECT_EQ(model.selectedUnit(), 0);
}

TEST_F(UnitPlacementModelTest, RemovingAnotherUnitSelectsTheNext)
{
    model.removeUnit();
    EXPECT_EQ(unitBytes(6), (Bytes{10, 200, 1, 100, 0, 0xFF}));
    EXPECT_EQ(model.selectedUnit(), 0);
    EXPECT_EQ(model.unit(), (UnitRecord{10, 200, 1, 100, 0}));
}

TEST_F(UnitPlacementModelTest, AfterTheOnlyUnitWasRemovedNewInsertsAtTheStart)
{
    setRecords({3, 100, 1, 50, 0});
    model.removeUnit();
    EXPECT_EQ(unitBytes(1), (Bytes{0xFF}));
    EXPECT_EQ(model.selectedUnit(), -1);
    EXPECT_EQ(model.unit(), std::nullopt);
    model.removeUnit();
    EXPECT_EQ(model.selectedUnit(), -1);
    ASSERT_TRUE(model.addUnit().ok());
    EXPECT_EQ(model.selectedUnit(), 0);
    EXPECT_EQ(unitBytes(6), (Bytes{0, 160, 1, 160, 0, 0xFF}));
}

TEST_F(UnitPlacementModelTest, NothingIsRemovedWhileTheFreeSpaceIsUnknown)
{
    unitData().setFreeSpace(PointerArrayHandler::kFreeSpaceUnknown);
    loadData().setFreeSpace(PointerArrayHandler::kFreeSpaceUnknown);
    model.selectUnit(1);
    model.selectLoad(2);
    const Bytes before = image();
    model.removeUnit();
    model.deleteLoad();
    EXPECT_EQ(image(), before);
    EXPECT_EQ(model.selectedUnit(), 1);
    EXPECT_EQ(model.selectedLoad(), 2);
}

// Sprite graphics

TEST_F(UnitPlacementModelTest, LoadIsWrittenAndLoadedAnew)
{
    model.selectLoad(2);
    const Bytes expected = imageExcept(loadData(), 2, 0);
    model.setLoadId(0);
    EXPECT_EQ(image(), expected);
    EXPECT_EQ(model.loadLines(),
              (std::vector<std::string>{"0: - Load 0", "1: - Load 1", "2: - Load 0"}));
    EXPECT_EQ(state.graphics.patternMemory[0x30], 0); // tile 3 is not loaded any more
    model.setLoadId(2);
    EXPECT_EQ(state.graphics.patternMemory[0x30], 0xFF);
}

TEST_F(UnitPlacementModelTest, UnitShowsTheGraphicsThatAreLoaded)
{
    model.setLoadId(2); // tile 1 stays empty
    EXPECT_EQ(at(132, 62), colour(16));
    model.drawVramSetup(picture);
    EXPECT_EQ(picture.at(18, 6), colour(16));
}

TEST_F(UnitPlacementModelTest, EntryIsInsertedBeforeTheSelectedOne)
{
    model.selectLoad(1);
    const std::int32_t free = loadData().freeSpace();
    state.graphics.patternMemory.fill(9);
    ASSERT_TRUE(model.insertLoad().ok());
    EXPECT_EQ(loadBytes(5), (Bytes{0, 0, 1, 2, 0xFF}));
    EXPECT_EQ(model.selectedLoad(), 1);
    EXPECT_EQ(loadData().freeSpace(), free - 1);
    EXPECT_EQ(state.graphics.patternMemory[0], 0);
}

TEST_F(UnitPlacementModelTest, InsertingWithoutSpaceChangesNothing)
{
    loadData().setFreeSpace(0);
    const Bytes before = image();
    EXPECT_FALSE(model.insertLoad().ok());
    EXPECT_EQ(image(), before);
}

TEST_F(UnitPlacementModelTest, DeletingTheLastEntrySelectsTheOneBefore)
{
    model.selectLoad(2);
    model.deleteLoad();
    EXPECT_EQ(loadBytes(3), (Bytes{0, 1, 0xFF}));
    EXPECT_EQ(model.selectedLoad(), 1);
    EXPECT_EQ(state.graphics.patternMemory[0x30], 0);
    model.selectLoad(0);
    model.deleteLoad();
    EXPECT_EQ(loadBytes(2), (Bytes{1, 0xFF}));
    EXPECT_EQ(model.selectedLoad(), 0);
}

TEST_F(UnitPlacementModelTest, AfterTheOnlyEntryWasDeletedInsertingStartsTheList)
{
    setIds({2});
    model.deleteLoad();
    EXPECT_EQ(loadBytes(1), (Bytes{0xFF}));
    EXPECT_EQ(model.selectedLoad(), -1);
    EXPECT_FALSE(model.hasLoads());
    EXPECT_EQ(model.loadId(), std::nullopt);
    model.deleteLoad();
    model.setLoadId(1);
    EXPECT_EQ(loadBytes(1), (Bytes{0xFF}));
    ASSERT_TRUE(model.insertLoad().ok());
    EXPECT_EQ(loadBytes(2), (Bytes{0, 0xFF}));
    EXPECT_EQ(model.selectedLoad(), 0);
    EXPECT_TRUE(model.hasLoads());
}

TEST_F(UnitPlacementModelTest, EntryFrom80OnEndsWhatIsLoadedButCanBeSetBackOrDeleted)
{
    model.selectLoad(1);
    model.setLoadId(0x80);
    EXPECT_EQ(model.loadLines(), (std::vector<std::string>{"0: - Load 0"}));
    EXPECT_EQ(state.graphics.patternMemory[0x30], 0);
    EXPECT_EQ(model.loadId(), 0x80);
    model.setLoadId(1);
    EXPECT_EQ(loadBytes(4), (Bytes{0, 1, 2, 0xFF}));
    model.setLoadId(0x80);
    model.deleteLoad();
    EXPECT_EQ(loadBytes(3), (Bytes{0, 2, 0xFF}));
    EXPECT_EQ(model.selectedLoad(), 1);
}

TEST_F(UnitPlacementModelTest, EntryIsInsertedBeforeOneThatIsNotShown)
{
    model.selectLoad(1);
    model.setLoadId(0x80);
    ASSERT_TRUE(model.insertLoad().ok());
    EXPECT_EQ(loadBytes(5), (Bytes{0, 0, 0x80, 2, 0xFF}));
    EXPECT_EQ(model.selectedLoad(), 1);
    EXPECT_EQ(model.loadLines(), (std::vector<std::string>{"0: - Load 0", "1: - Load 0"}));
}

TEST_F(UnitPlacementModelTest, ListThatBeginsWith80HasNoLoadsButCanBeDeletedFrom)
{
    setIds({0x80, 1});
    EXPECT_FALSE(model.hasLoads());
    model.deleteLoad();
    EXPECT_EQ(loadBytes(2), (Bytes{1, 0xFF}));
    EXPECT_EQ(model.selectedLoad(), 0);
    EXPECT_TRUE(model.hasLoads());
}

TEST_F(UnitPlacementModelTest, LongListsAreEditedWithinTheirFirst4096Entries)
{
    for (std::uint32_t i = 0; i < 5000; ++i)
        loadData().setDataByte(i, 1);
    loadData().setFreeSpace(10);
    model.refresh();
    EXPECT_EQ(model.loadLines().size(), 4096U);
    model.selectLoad(4095);
    EXPECT_EQ(model.selectedLoad(), 4095);
    model.deleteLoad();
    EXPECT_EQ(model.selectedLoad(), 4094);
    ASSERT_TRUE(model.insertLoad().ok());
    EXPECT_EQ(loadData().dataByte(4094), 0);
    model.setLoadId(0x7F);
    EXPECT_EQ(loadData().dataByte(4094), 0x7F);
}

TEST_F(UnitPlacementModelTest, EverythingWorksWithoutARom)
{
    EditorState empty;
    UnitPlacementModel other(empty);
    other.refresh();
    EXPECT_EQ(other.unitLines().size(), 6553U);
    EXPECT_EQ(other.loadLines().size(), 4096U);
    other.startMoving(6552);
    other.movePointer({415, 0});
    for (int i = 0; i < 100; ++i)
        other.tick();
    other.removeUnit();
    other.deleteLoad();
    (void)other.addUnit();
    (void)other.insertLoad();
    other.draw(picture);
    EXPECT_EQ(picture.width(), 416U);
}

TEST_F(UnitPlacementModelTest, RefusalsAreTold)
{
    EXPECT_EQ(UnitPlacementModel::noSpaceForUnitText(),
              "No free space. You must first remove one or more unit from any room.");
    EXPECT_EQ(UnitPlacementModel::noSpaceForLoadText(),
              "Not enough free space. You must first remove entries of loaded Id's in the data of "
              "any room.");
}

} // namespace
} // namespace velko
