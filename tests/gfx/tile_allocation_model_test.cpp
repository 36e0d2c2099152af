#include "gfx/tile_allocation_model.h"

#include "tests/support/tile_allocation_rom.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using test::TileAllocationRom;
using BlockPixel = TileAllocationModel::BlockPixel;

constexpr std::uint32_t kAllocation = TileAllocationRom::kAllocation;

class TileAllocationModelTest : public test::TileAllocationGameTest {
protected:
    void setBanks(std::uint32_t banks) { state.config.setValue(MiscField::bgTileBanks, banks); }
    // Paints a pixel of the selected slot's block.
    void paint(int column, int row, int colour)
    {
        model.setCurrentColour(colour);
        model.paint({column, row});
    }

    TileAllocationModel model{state};
    const std::uint32_t block1 = TileAllocationRom::blockOffset(0, 1);
};

// What a slot holds

TEST_F(TileAllocationModelTest, StartsAtSlotZeroWithColourZero)
{
    EXPECT_EQ(model.selectedSlot(), 0);
    EXPECT_EQ(model.currentColour(), 0);
}

TEST_F(TileAllocationModelTest, EvenSlotsHaveTheHighNibble)
{
    EXPECT_EQ(model.slot(), (BackgroundSlot{1, 0, false, false}));
    model.selectSlot(1);
    EXPECT_EQ(model.slot(), (BackgroundSlot{1, 0, true, false}));
    model.selectSlot(2);
    EXPECT_EQ(model.slot(), (BackgroundSlot{0x45, 2, false, true}));
    model.selectSlot(3);
    EXPECT_EQ(model.slot(), (BackgroundSlot{1, 0, false, false}));
}

TEST_F(TileAllocationModelTest, AllBitsOfANibbleAreRead)
{
    state.rom.writeByte(kAllocation + 64, 0xF7);
    EXPECT_EQ(model.slot(), (BackgroundSlot{1, 3, true, true}));
    model.selectSlot(1);
    EXPECT_EQ(model.slot(), (BackgroundSlot{1, 3, true, false}));
}

TEST_F(TileAllocationModelTest, LastSlotIsTheLowNibbleOfTheLastByte)
{
    state.graphics.selectRoom(TileAllocationRom::kOther);
    model.selectSlot(63);
    EXPECT_EQ(model.slot(), (BackgroundSlot{1, 0, false, true}));
}

TEST_F(TileAllocationModelTest, AnotherRoomKeepsTheSelection)
{
    model.selectSlot(2);
    model.setCurrentColour(3);
    state.graphics.selectRoom(TileAllocationRom::kOther);
    EXPECT_EQ(model.selectedSlot(), 2);
    EXPECT_EQ(model.currentColour(), 3);
    EXPECT_EQ(model.slot(), BackgroundSlot{});
}

TEST_F(TileAllocationModelTest, NumbersThatDoNotExistCannotBeSelected)
{
    model.selectSlot(63);
    for (const int slot : {64, -1, 1000}) {
        model.selectSlot(slot);
        EXPECT_EQ(model.selectedSlot(), 63);
    }
    model.setCurrentColour(3);
    for (const int colour : {4, -1}) {
        model.setCurrentColour(colour);
        EXPECT_EQ(model.currentColour(), 3);
    }
    model.selectSlot(0);
    model.selectBlock(64);
    model.selectBlock(-1);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(TileAllocationModelTest, ArrowsMoveTheSlotAndStopAtTheEdges)
{
    model.moveSlot(1, 1);
    EXPECT_EQ(model.selectedSlot(), 9);
    model.moveSlot(100, 0);
    EXPECT_EQ(model.selectedSlot(), 15);
    model.moveSlot(1, 0);
    EXPECT_EQ(model.selectedSlot(), 15); // not the next row's first
    model.moveSlot(0, 100);
    EXPECT_EQ(model.selectedSlot(), 63);
    model.moveSlot(-100, -100);
    EXPECT_EQ(model.selectedSlot(), 0);
    EXPECT_EQ(image(), game.bytes);
}

// Labels

TEST_F(TileAllocationModelTest, LabelsTellSlotAndBlockInHexadecimalAndTheBankInDecimal)
{
    EXPECT_EQ(model.indexText(), "0");
    EXPECT_EQ(model.bankText(), "0");
    EXPECT_EQ(model.tileNumberText(), "1");
    EXPECT_EQ(model.romAddressText(), "$1c050"); // 7 x 16384 + 64 + 16
    model.selectSlot(2);
    EXPECT_EQ(model.indexText(), "2");
    EXPECT_EQ(model.bankText(), "2");
    EXPECT_EQ(model.tileNumberText(), "45");
    EXPECT_EQ(model.romAddressText(), "$25150"); // 9 x 16384 + 0x45 x 64 + 16
    model.selectSlot(62);
    EXPECT_EQ(model.indexText(), "3e");
}

// Changing a slot

TEST_F(TileAllocationModelTest, MirrorTogglesItsBitOnlyAndKeepsTheNeighboursNibble)
{
    model.toggleMirror();
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 64, 0x44}}));
    model.toggleMirror();
    EXPECT_EQ(image(), game.bytes);
    model.selectSlot(1);
    model.toggleMirror();
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 64, 0x00}}));
    model.selectSlot(2);
    model.toggleMirror();
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 64, 0x00}, {kAllocation + 65, 0xE0}}));
}

TEST_F(TileAllocationModelTest, UnusedBitTogglesItsBitOnlyAndKeepsTheNeighboursNibble)
{
    model.selectSlot(1);
    model.toggleUnusedBit();
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 64, 0x0C}}));
    model.selectSlot(2);
    model.toggleUnusedBit();
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 64, 0x0C}, {kAllocation + 65, 0x20}}));
}

TEST_F(TileAllocationModelTest, NeighboursNibbleIsKeptWhateverItIs)
{
    for (int nibbles = 0; nibbles < 256; ++nibbles) {
        const auto before = static_cast<std::uint8_t>(nibbles);
        state.rom.writeByte(kAllocation + 64, before);
        model.selectSlot(0);
        model.toggleMirror();
        ASSERT_EQ(state.rom.readByte(kAllocation + 64), before ^ 0x40);
        model.selectSlot(1);
        model.toggleUnusedBit();
        ASSERT_EQ(state.rom.readByte(kAllocation + 64), before ^ 0x48);
    }
}

TEST_F(TileAllocationModelTest, ToggledMirrorIsSeenInPatternMemory)
{
    EXPECT_EQ(patternByte(0, 0), 0x80);
    model.toggleMirror();
    EXPECT_EQ(patternByte(0, 0), 0x00);
    EXPECT_EQ(patternByte(0, 32), 0x01); // the top right tile, from the right
    EXPECT_EQ(patternByte(3, 0), 0x80);  // another slot of the same block
}

TEST_F(TileAllocationModelTest, ABlockIsChosenWithinItsPage)
{
    model.selectSlot(2);
    EXPECT_EQ(model.blockInPage(), 5);
    model.selectBlock(63);
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 2, 0x7F}}));
    EXPECT_EQ(model.blockInPage(), 63);
    EXPECT_EQ(patternByte(2, 8), 0x00);
    model.selectBlock(5);
    EXPECT_EQ(image(), game.bytes);
    EXPECT_EQ(patternByte(2, 8), 0xFF);
}

TEST_F(TileAllocationModelTest, ArrowsMoveTheBlockAndWriteNothingAtThePagesEdges)
{
    model.selectSlot(2);
    model.moveBlock(1, 1);
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 2, 0x4E}})); // 5 + 1 + 8
    EXPECT_EQ(patternByte(2, 8), 0x00);
    model.moveBlock(100, 100);
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 2, 0x7F}}));
    model.moveBlock(1, 0);
    model.moveBlock(0, 1);
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 2, 0x7F}}));
    model.moveBlock(-100, -100);
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 2, 0x40}}));
}

TEST_F(TileAllocationModelTest, AChangeGoesToTheBlockOfTheRoomOnShow)
{
    state.graphics.selectRoom(TileAllocationRom::kOther);
    model.selectSlot(63);
    model.selectBlock(0x2A);
    EXPECT_EQ(image(), loadedExcept({{TileAllocationRom::kOtherAllocation + 63, 0x2A}}));
}

// Browsing

TEST_F(TileAllocationModelTest, BrowsingRunsOverFourPagesInEachBank)
{
    const struct {
        std::uint32_t banks;
        int last;
    } rows[] = {{0, 0}, {1, 3}, {2, 7}, {3, 11}, {4, 15}, {5, 15}, {255, 15}, {0xFFFFFFFF, 15}};
    for (const auto& row : rows) {
        setBanks(row.banks);
        EXPECT_EQ(model.lastBrowsePosition(), row.last) << row.banks << " banks";
    }
}

TEST_F(TileAllocationModelTest, PositionFiveIsTheSecondPageOfTheSecondBank)
{
    setBanks(2);
    model.browseTo(5);
    EXPECT_EQ(image(), loadedExcept({{kAllocation, 0x41}, {kAllocation + 64, 0x14}}));
    EXPECT_EQ(model.bankText(), "1");
    EXPECT_EQ(model.tileNumberText(), "41");
    EXPECT_EQ(model.browsePosition(), 5);
}

TEST_F(TileAllocationModelTest, BrowsingKeepsTheBlockInItsPageAndTheUpperBits)
{
    model.selectSlot(2);
    model.toggleMirror();
    EXPECT_EQ(model.browsePosition(), 9);
    const struct {
        int position;
        std::uint8_t block;
        std::uint8_t attributes;
    } rows[] = {
        {0, 0x05, 0xC0}, {3, 0xC5, 0xC0}, {4, 0x05, 0xD0}, {10, 0x85, 0xE0}, {15, 0xC5, 0xF0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.position);
        model.browseTo(row.position);
        EXPECT_EQ(model.browsePosition(), row.position);
        EXPECT_EQ(image(),
                  loadedExcept({{kAllocation + 2, row.block}, {kAllocation + 65, row.attributes}}));
    }
}

TEST_F(TileAllocationModelTest, BrowsingIsSeenInPatternMemory)
{
    model.selectSlot(2);
    model.browseTo(8);
    EXPECT_EQ(patternByte(2, 8), 0x00);
    model.browseTo(9);
    EXPECT_EQ(patternByte(2, 8), 0xFF);
}

TEST_F(TileAllocationModelTest, PositionsOutsideTheRangeChangeNothing)
{
    setBanks(2);
    for (const int position : {-1, 8, 1000})
        model.browseTo(position);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(TileAllocationModelTest, BlockInABankBeyondTheLastStandsAtTheEndAndStaysThere)
{
    setBanks(2);
    model.selectSlot(2); // bank 2, page 1
    EXPECT_EQ(model.browsePosition(), 7);
    model.browseTo(7);
    EXPECT_EQ(image(), game.bytes);
    model.browseTo(6);
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 2, 0x85}, {kAllocation + 65, 0x90}}));
    EXPECT_EQ(model.browsePosition(), 6);
}

TEST_F(TileAllocationModelTest, WithoutBanksThereIsNothingToBrowse)
{
    setBanks(0);
    model.selectSlot(2);
    EXPECT_EQ(model.browsePosition(), 0);
    for (const int position : {-1, 0, 1, 4})
        model.browseTo(position);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(TileAllocationModelTest, MoreBanksThanASlotCanNameLeaveTheUpperBitsAlone)
{
    setBanks(255);
    for (const int position : {16, 20, 1019})
        model.browseTo(position);
    EXPECT_EQ(image(), game.bytes);
}

// Painting

TEST_F(TileAllocationModelTest, PixelsAreReadFromTheBlocksFourTilesInColumnOrder)
{
    EXPECT_EQ(model.pixel({0, 0}), 1);
    EXPECT_EQ(model.pixel({8, 0}), 2);
    EXPECT_EQ(model.pixel({0, 8}), 3);
    EXPECT_EQ(model.pixel({8, 8}), 0);
    EXPECT_EQ(model.pixel({1, 0}), 0);
}

TEST_F(TileAllocationModelTest, APixelIsOneBitInEachPlane)
{
    const struct {
        int column;
        int row;
        int colour;
        std::uint32_t low; // offset in the block
        std::uint8_t lowByte;
        std::uint8_t highByte;
    } rows[] = {
        {0, 1, 3, 1, 0x80, 0x80},   {7, 7, 1, 7, 0x01, 0x00},   {3, 8, 2, 16, 0x80, 0x90},
        {15, 0, 1, 32, 0x01, 0x80}, {8, 15, 3, 55, 0x80, 0x80}, {15, 15, 2, 55, 0x00, 0x01},
        {0, 0, 0, 0, 0x00, 0x00},   {0, 0, 2, 0, 0x00, 0x80},   {0, 15, 1, 23, 0x80, 0x00},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.column << ", " << row.row);
        state.rom.setBytes(game.bytes);
        paint(row.column, row.row, row.colour);
        EXPECT_EQ(
            image(),
            loadedExcept({{block1 + row.low, row.lowByte}, {block1 + row.low + 8, row.highByte}}));
        EXPECT_EQ(model.pixel({row.column, row.row}), row.colour);
    }
}

TEST_F(TileAllocationModelTest, PaintTellsWhetherThePixelChanged)
{
    model.setCurrentColour(1);
    EXPECT_FALSE(model.paint({0, 0}));
    EXPECT_EQ(image(), game.bytes);
    EXPECT_TRUE(model.paint({1, 0}));
    EXPECT_FALSE(model.paint({1, 0}));
}

TEST_F(TileAllocationModelTest, AMirroredSlotIsPaintedUnmirroredInTheRom)
{
    model.selectSlot(1);
    paint(2, 3, 1);
    EXPECT_EQ(image(), loadedExcept({{block1 + 3, 0x20}}));
    EXPECT_EQ(model.pixel({2, 3}), 1);
    EXPECT_EQ(patternByte(1, 32 + 3), 0x04); // column 13
    EXPECT_EQ(patternByte(1, 3), 0x00);
}

TEST_F(TileAllocationModelTest, EverySlotOfTheBlockShowsThePaint)
{
    paint(2, 3, 3);
    EXPECT_EQ(patternByte(0, 3), 0x20);
    EXPECT_EQ(patternByte(0, 11), 0x20);
    EXPECT_EQ(patternByte(1, 35), 0x04); // mirrored
    EXPECT_EQ(patternByte(3, 3), 0x20);
    EXPECT_EQ(patternByte(2, 3), 0x00);
    state.graphics.selectRoom(TileAllocationRom::kOther);
    EXPECT_EQ(patternByte(63, 3), 0x20);
}

TEST_F(TileAllocationModelTest, PickedPixelsColourIsTheCurrentOne)
{
    model.pickColour({8, 0});
    EXPECT_EQ(model.currentColour(), 2);
    model.pickColour({0, 8});
    EXPECT_EQ(model.currentColour(), 3);
    model.pickColour({15, 15});
    EXPECT_EQ(model.currentColour(), 0);
    EXPECT_EQ(image(), game.bytes);
}

RC_GTEST_FIXTURE_PROP(TileAllocationModelTest, PaintingChangesOnePixelOfTheBlockAndNothingElse, ())
{
    const BlockPixel place{*rc::gen::inRange(0, 16), *rc::gen::inRange(0, 16)};
    const int colour = *rc::gen::inRange(0, 4);
    model.selectSlot(*rc::gen::inRange(0, 4));
    for (std::uint32_t i = 0; i < 64; ++i)
        state.rom.writeByte(model.blockOffset() + i, *rc::gen::arbitrary<std::uint8_t>());
    state.graphics.buildPatternMemory();
    std::array<int, 256> before{};
    for (int i = 0; i < 256; ++i)
        before[static_cast<std::size_t>(i)] = model.pixel({i % 16, i / 16});
    const test::Bytes beforeBytes = image();
    paint(place.column, place.row, colour);

    for (int i = 0; i < 256; ++i) {
        const bool painted = place == BlockPixel{i % 16, i / 16};
        const int expected = painted ? colour : before[static_cast<std::size_t>(i)];
        RC_ASSERT(model.pixel({i % 16, i / 16}) == expected);
    }
    test::Bytes after = image();
    std::copy_n(beforeBytes.begin() + model.blockOffset(), 64, after.begin() + model.blockOffset());
    RC_ASSERT(after == beforeBytes);
    const auto shown = state.graphics.patternMemory;
    state.graphics.buildPatternMemory();
    RC_ASSERT(state.graphics.patternMemory == shown);
}

// Bad data

TEST_F(TileAllocationModelTest, AllocationOutsideTheRomReadsFillerAndDropsWrites)
{
    state.graphics.selectRoom(TileAllocationRom::kOutside);
    EXPECT_EQ(model.slot(), (BackgroundSlot{0x55, 1, true, false}));
    model.toggleMirror();
    model.toggleUnusedBit();
    model.selectBlock(0);
    model.moveBlock(1, 1);
    model.browseTo(0);
    EXPECT_EQ(model.slot(), (BackgroundSlot{0x55, 1, true, false}));
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(TileAllocationModelTest, BlocksOutsideTheRomReadFillerAndDropPaint)
{
    for (const std::uint32_t firstBank : {19U, 0x3FFFFU, 0xFFFFFFFFU}) {
        state.config.setValue(MiscField::startGfxBg, firstBank);
        EXPECT_EQ(model.pixel({0, 0}), 0) << firstBank;
        EXPECT_EQ(model.pixel({1, 0}), 3) << firstBank;
        paint(0, 0, 3);
        EXPECT_EQ(image(), game.bytes) << firstBank;
    }
}

TEST_F(TileAllocationModelTest, AddressOfAnAbsurdBankWraps)
{
    state.config.setValue(MiscField::startGfxBg, 0xFFFFFFFF);
    EXPECT_EQ(model.romAddressText(), "$ffffc050"); // -16384 + 64 + 16
}

TEST(TileAllocationModelWithoutRom, NothingIsAskedOfAnEmptyImage)
{
    EditorState state;
    TileAllocationModel model(state);
    model.toggleMirror();
    model.selectBlock(3);
    model.browseTo(1);
    model.setCurrentColour(2);
    model.paint({15, 15});
    EXPECT_EQ(model.slot(), (BackgroundSlot{0x55, 1, true, false}));
    EXPECT_TRUE(state.rom.bytes().empty());
}

} // namespace
} // namespace velko
