#include "tests/gui/main_map_editor_fixture.h"

namespace velko::test::main_map_editor {
namespace {

// Areas

TEST_F(MainMapEditorDialogTest, AreaSliderShowsTheAreasFields)
{
    openIn(kAreaMode);
    EXPECT_EQ(textOf(kAreaValue), "0");
    EXPECT_EQ(textOf(kChopper) + textOf(kPreview) + textOf(kFirstDigit) + textOf(kSecondDigit),
              "def0");
    EXPECT_FALSE(slider(kMovement).isEnabled()) << "one entry only";
    drag(kArea, 1);
    EXPECT_EQ(textOf(kAreaValue), "1");
    EXPECT_TRUE(slider(kMovement).isEnabled());
    EXPECT_EQ(slider(kMovement).maximum(), 1);
    EXPECT_EQ(textOf(kChopper) + textOf(kPreview) + textOf(kFirstDigit) + textOf(kSecondDigit),
              "1234");
    EXPECT_EQ(control<ArrowSpin>(kChopperSpin).position(), 1);
    EXPECT_EQ(control<ArrowSpin>(kPreviewSpin).position(), 2);
    EXPECT_EQ(state.store.pahMapAreaMovement.currentRoom(), 1U);

    drag(kMovement, 1);
    EXPECT_EQ(textOf(kChopper) + textOf(kPreview) + textOf(kFirstDigit) + textOf(kSecondDigit),
              "5678");
    drag(kArea, 2);
    EXPECT_EQ(slider(kMovement).value(), 0) << "another area starts at its first entry";
    EXPECT_EQ(textOf(kChopper), "9");
}

TEST_F(MainMapEditorDialogTest, ManyAreasAreShownInHexadecimal)
{
    state.config.setValue(MiscField::areas, 20);
    openIn(kAreaMode);
    EXPECT_EQ(slider(kArea).maximum(), 20);
    drag(kArea, 18);
    EXPECT_EQ(textOf(kAreaValue), "12");
}

TEST_F(MainMapEditorDialogTest, MovementSliderIsOnlyForAreaMode)
{
    openIn(kAreaMode);
    drag(kArea, 1);
    EXPECT_TRUE(slider(kMovement).isEnabled());
    click(kTruckMode);
    EXPECT_FALSE(slider(kMovement).isEnabled());
    click(kAreaMode);
    EXPECT_TRUE(slider(kMovement).isEnabled());
}

TEST_F(MainMapEditorDialogTest, EditsWriteTheNibblesOfTheEntry)
{
    openIn(kAreaMode);
    drag(kArea, 1);
    drag(kMovement, 1);
    type(kChopper, "c");
    EXPECT_EQ(image(), loadedExcept(overworld::kMovement + 4, {0xC6, 0x78}));
    type(kPreview, "1f"); // the last digit counts
    EXPECT_EQ(image(), loadedExcept(overworld::kMovement + 4, {0xCF, 0x78}));
    type(kFirstDigit, "0xA");
    EXPECT_EQ(image(), loadedExcept(overworld::kMovement + 4, {0xCF, 0xA8}));
    type(kSecondDigit, "9");
    EXPECT_EQ(image(), loadedExcept(overworld::kMovement + 4, {0xCF, 0xA9}));
    EXPECT_EQ(control<ArrowSpin>(kChopperSpin).position(), 12);
    EXPECT_EQ(control<ArrowSpin>(kPreviewSpin).position(), 15);
}

TEST_F(MainMapEditorDialogTest, EmptiedEditIsZero)
{
    openIn(kAreaMode);
    edit(kChopper).setFocus();
    edit(kChopper).selectAll();
    QTest::keyClick(&edit(kChopper), Qt::Key_Delete);
    EXPECT_EQ(bytesAt(overworld::kMovement + 12, 2), (Bytes{0x0E, 0xF0}));
    QTest::keyClick(&edit(kChopper), Qt::Key_7);
    EXPECT_EQ(bytesAt(overworld::kMovement + 12, 2), (Bytes{0x7E, 0xF0}));
}

TEST_F(MainMapEditorDialogTest, SecondDigitTakesThePlaceOfTheFirstAtOnce)
{
    openIn(kAreaMode);
    edit(kChopper).setFocus();
    QTest::keyClick(&edit(kChopper), Qt::Key_End);
    QTest::keyClicks(&edit(kChopper), "5"); // behind the d
    EXPECT_EQ(textOf(kChopper), "5");
    QTest::keyClicks(&edit(kChopper), "A");
    EXPECT_EQ(textOf(kChopper), "a");
    EXPECT_EQ(bytesAt(overworld::kMovement + 12, 2), (Bytes{0xAE, 0xF0}));
    for (const int id : {kPreview, kFirstDigit, kSecondDigit}) {
        type(id, "12");
        EXPECT_EQ(textOf(id), "2") << id;
    }
    EXPECT_EQ(bytesAt(overworld::kMovement + 12, 2), (Bytes{0xA2, 0x22}));
}

TEST_F(MainMapEditorDialogTest, EditEndsUpWithItsDigit)
{
    openIn(kAreaMode);
    type(kPreview, "0x2");
    EXPECT_EQ(textOf(kPreview), "0x2");
    QTest::keyClick(&edit(kPreview), Qt::Key_Tab);
    EXPECT_EQ(textOf(kPreview), "2");
    EXPECT_EQ(bytesAt(overworld::kMovement + 12, 2), (Bytes{0xD2, 0xF0}));
}

TEST_F(MainMapEditorDialogTest, EnterEndsTypingAndNotTheWindow)
{
    openIn(kAreaMode);
    type(kPreview, "02");
    QTest::keyClick(&edit(kPreview), Qt::Key_Return);
    EXPECT_EQ(textOf(kPreview), "2");
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(MainMapEditorDialogTest, SpinsStepTheirSprites)
{
    openIn(kAreaMode);
    pressArrow(kChopperSpin, true);
    EXPECT_EQ(bytesAt(overworld::kMovement + 12, 2), (Bytes{0xEE, 0xF0}));
    EXPECT_EQ(textOf(kChopper), "e");
    pressArrow(kChopperSpin, true);
    pressArrow(kChopperSpin, true); // 15 is the last
    pressArrow(kPreviewSpin, false);
    EXPECT_EQ(bytesAt(overworld::kMovement + 12, 2), (Bytes{0xFD, 0xF0}));
    EXPECT_EQ(textOf(kChopper) + textOf(kPreview), "fd");
}

TEST_F(MainMapEditorDialogTest, EntryIsAddedBehindTheCurrentOne)
{
    openIn(kAreaMode);
    drag(kArea, 1);
    click(kMovementPlus);
    EXPECT_EQ(
        bytesAt(overworld::kMovement, 16),
        (Bytes{6, 0x77, 0x12, 0x34, 0, 0, 0x56, 0x78, 2, 0x88, 0x9A, 0xBC, 2, 0x99, 0xDE, 0xF0}));
    EXPECT_EQ(slider(kMovement).maximum(), 2);
    EXPECT_EQ(slider(kMovement).value(), 0);
    drag(kArea, 2);
    EXPECT_EQ(textOf(kChopper), "9") << "the areas above follow";
}

TEST_F(MainMapEditorDialogTest, FullMovementRegionIsTold)
{
    openIn(kAreaMode);
    for (int i = 0; i < 5; ++i)
        click(kMovementPlus);
    EXPECT_EQ(slider(kMovement).maximum(), 5);
    const Bytes full = image();
    prompt.expect(kNoEntrySpace);
    click(kMovementPlus);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), full);
}

TEST_F(MainMapEditorDialogTest, EntryIsRemovedAndTheFirstShown)
{
    openIn(kAreaMode);
    drag(kArea, 1);
    drag(kMovement, 1);
    click(kMovementMinus);
    EXPECT_EQ(bytesAt(overworld::kMovement, 8), (Bytes{2, 0x77, 0x12, 0x34, 2, 0x88, 0x9A, 0xBC}));
    EXPECT_EQ(slider(kMovement).value(), 0);
    EXPECT_FALSE(slider(kMovement).isEnabled());
    EXPECT_EQ(textOf(kChopper), "1");
}

TEST_F(MainMapEditorDialogTest, OnlyEntryOfAnAreaStays)
{
    openIn(kAreaMode);
    click(kMovementMinus);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(MainMapEditorDialogTest, ClickPlacesTheArea)
{
    openIn(kAreaMode);
    drag(kArea, 2);
    // 100 display pixels are 44 of the map; 44 + 26 is 70, rounded down to 64.
    clickMap({100, 200}); // 88 + 26 is 114: 112
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 4, {64, 112}));
    pressPicture(map(), {100, 200});
    moveOnMap({467, 323}, Qt::LeftButton); // 207 + 26: 232, 143 + 26: 168
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 4, {232, 168}));
    moveOnMap({468, 323}, Qt::LeftButton);
    moveOnMap({100, -1}, Qt::LeftButton);
    clickMap({30, 30}, Qt::RightButton);
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 4, {232, 168}));
}

TEST_F(MainMapEditorDialogTest, CurrentAreaIsFramed)
{
    openIn(kAreaMode);
    const auto isFramed = [this](int centreX, int centreY) {
        // The frame is 22 map pixels high; its second and third rows are white.
        const QPoint inFrame(centreX * 468 / 208, (centreY - 10) * 324 / 144 + 1);
        return mapPixel(inFrame) == 0xFFFFFF;
    };
    EXPECT_TRUE(isFramed(40, 48));
    EXPECT_FALSE(isFramed(104, 48));
    drag(kArea, 1);
    EXPECT_FALSE(isFramed(40, 48));
    EXPECT_TRUE(isFramed(104, 48));
    click(kTileMode);
    EXPECT_FALSE(isFramed(104, 48));
}

// Trucks

TEST_F(MainMapEditorDialogTest, TruckSliderShowsTheTrucksFields)
{
    openIn(kTruckMode);
    EXPECT_EQ(litDirection(), 4) << "right";
    drag(kTruck, 2);
    EXPECT_EQ(slider(kStartingArea).value(), 2);
    EXPECT_EQ(textOf(kStartingAreaValue), "2");
    EXPECT_EQ(slider(kPatternSet).value(), 2);
    EXPECT_EQ(textOf(kPatternSetValue), "2");
    EXPECT_EQ(slider(kPhase).maximum(), 1);
    EXPECT_EQ(litDirection(), 1) << "up";
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(MainMapEditorDialogTest, EachDirectionLightsItsButton)
{
    // Codes 0 to 7, and 15, which is taken modulo 8.
    const int places[] = {4, 7, 6, 5, 3, 0, 1, 2};
    for (int code = 0; code < 8; ++code) {
        state.rom.writeByte(overworld::kPatterns, static_cast<std::uint8_t>(code));
        openIn(kTruckMode);
        EXPECT_EQ(litDirection(), places[code]) << code;
    }
    state.rom.writeByte(overworld::kPatterns, 0x0F);
    openIn(kTruckMode);
    EXPECT_EQ(litDirection(), 2);
}

TEST_F(MainMapEditorDialogTest, StartingAreaIsTheLowNibble)
{
    openIn(kTruckMode);
    drag(kTruck, 1);
    drag(kStartingArea, 15);
    EXPECT_EQ(image(), loadedExcept(overworld::kTrucks + 1, {0x1F}));
    EXPECT_EQ(textOf(kStartingAreaValue), "f");
    EXPECT_EQ(textOf(kPatternSetValue), "1");
}

TEST_F(MainMapEditorDialogTest, PatternSetIsTheHighNibble)
{
    openIn(kTruckMode);
    drag(kTruck, 2);
    drag(kPhase, 1);
    EXPECT_EQ(litDirection(), 2);
    drag(kPatternSet, 0);
    EXPECT_EQ(image(), loadedExcept(overworld::kTrucks + 2, {0x02}));
    EXPECT_EQ(slider(kPhase).value(), 0) << "another set starts at its first phase";
    EXPECT_EQ(slider(kPhase).maximum(), 2);
    EXPECT_EQ(textOf(kPatternSetValue), "0");
}

TEST_F(MainMapEditorDialogTest, DirectionKeepsTheEndMark)
{
    openIn(kTruckMode);
    QTest::mouseClick(&direction(0), Qt::LeftButton); // top left
    EXPECT_EQ(image(), loadedExcept(overworld::kPatterns, {0x05}));
    EXPECT_EQ(litDirection(), 0);
    drag(kPhase, 2);
    QTest::mouseClick(&direction(7), Qt::LeftButton); // bottom right
    EXPECT_EQ(image(), loadedExcept(overworld::kPatterns, {0x05, 0x01, 0x81}));
}

TEST_F(MainMapEditorDialogTest, PhaseAddedToTheEndBecomesTheLast)
{
    openIn(kTruckMode);
    drag(kPhase, 2);
    click(kPhasePlus);
    EXPECT_EQ(bytesAt(overworld::kPatterns, 9),
              (Bytes{0x00, 0x01, 0x02, 0x82, 0x84, 0x06, 0x87, 0x03, 0x85}));
    EXPECT_EQ(bytesAt(overworld::kPatternTable, 4), (Bytes{0, 4, 5, 7}));
    EXPECT_EQ(slider(kPhase).maximum(), 3);
    EXPECT_EQ(slider(kPhase).value(), 2);

    drag(kPhase, 3);
    click(kPhaseMinus);
    EXPECT_EQ(image(), game.bytes) << "the mark is back where it was";
    EXPECT_EQ(slider(kPhase).maximum(), 2);
    EXPECT_EQ(slider(kPhase).value(), 2);
}

TEST_F(MainMapEditorDialogTest, OtherPatternsKeepTheirPhases)
{
    openIn(kTruckMode);
    click(kPhasePlus);
    drag(kTruck, 1);
    EXPECT_EQ(litDirection(), 3) << "left";
    EXPECT_EQ(slider(kPhase).maximum(), 0);
    drag(kTruck, 2);
    EXPECT_EQ(litDirection(), 1);
    EXPECT_EQ(slider(kPhase).maximum(), 1);
}

TEST_F(MainMapEditorDialogTest, OnlyPhaseOfAPatternStays)
{
    openIn(kTruckMode);
    drag(kTruck, 1);
    click(kPhaseMinus);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(MainMapEditorDialogTest, FullPatternRegionIsTold)
{
    openIn(kTruckMode);
    for (int i = 0; i < 4; ++i)
        click(kPhasePlus);
    const Bytes full = image();
    prompt.expect(kNoPhaseSpace);
    click(kPhasePlus);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), full);
    EXPECT_EQ(slider(kPhase).maximum(), 6);
}

TEST_F(MainMapEditorDialogTest, UnknownFreeSpaceIsTold)
{
    state.config.setValue(MiscField::bpahTruckMovement_pMemEdge, 0x8600); // no pattern sets
    openIn(kTruckMode);
    const Bytes before = image();
    prompt.expect(kNoPhaseSpace);
    click(kPhasePlus);
    click(kPhaseMinus);
    EXPECT_EQ(image(), before);
}

TEST_F(MainMapEditorDialogTest, PathOfTheTruckIsDrawn)
{
    openIn(kTruckMode);
    // From area 0, whose centre is (40, 48), to the right as far as area 1.
    EXPECT_EQ(mapPixel({72 * 468 / 208, 48 * 324 / 144}), 0x4040FFU);
    drag(kPhase, 1);
    EXPECT_EQ(mapPixel({72 * 468 / 208, 48 * 324 / 144}), 0xFF4040U);
}

} // namespace
} // namespace velko::test::main_map_editor
