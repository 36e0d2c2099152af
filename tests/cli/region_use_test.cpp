#include "cli/region_use.h"

#include "check/region_survey.h"
#include "store/block_lengths.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <vector>

namespace velko {
namespace {

// A ROM of four banks whose eight tables all lie at the start of bank 0.
class RegionUseTest : public ::testing::Test {
protected:
    RegionUseTest()
    {
        state.rom.setBytes(std::vector<std::uint8_t>(kHeaderSize + 4 * kBankSize, 0));
        describe(3, 2);
    }

    // `rooms` entries of `pad` bytes in every table.
    void describe(std::uint32_t rooms, std::uint32_t pad)
    {
        PointerArrayDescriptor table;
        table.dBank = {1, 2};
        table.pMemStart = 0x8000;
        table.pMemEdge = static_cast<std::uint16_t>(0x8000 + rooms * pad);
        table.dEdge = 0x9000;
        table.pointerPad = pad;
        state.config.setValue(MiscField::rooms, rooms);
        for (PointerArrayDescriptor GameConfig::*handler :
             {&GameConfig::pahMapAlloc, &GameConfig::pahTileLoad, &GameConfig::pahPal,
              &GameConfig::pahMapLayout, &GameConfig::pahTile32, &GameConfig::pahUnit,
              &GameConfig::pahTileLoadType2, &GameConfig::pahMapAreaMovement})
            state.config.*handler = table;
        state.store.configure(state.config);
    }
    void setPointers(std::initializer_list<std::uint16_t> pointers)
    {
        std::uint32_t room = 0;
        for (const std::uint16_t pointer : pointers)
            state.store.pahPal.setPointer(room++, pointer);
    }
    void setData(std::uint16_t cpuAddress, std::initializer_list<std::uint8_t> bytes)
    {
        std::uint32_t offset = state.store.pahPal.dataFileOffset(cpuAddress);
        for (const std::uint8_t byte : bytes)
            state.rom.writeByte(offset++, byte);
    }
    RegionUse use(std::string_view key)
    {
        state.prepareRoomData();
        for (RegionUse& region : regionUses(state)) {
            if (region.key == key)
                return region;
        }
        ADD_FAILURE() << key;
        return {};
    }

    EditorState state;
};

TEST_F(RegionUseTest, PalettesWithAGapAndASharer)
{
    setPointers({0x8000, 0x8030, 0x8000});
    const RegionUse palettes = use("pahPal");
    EXPECT_EQ(palettes.tableOffset, 0x10U);
    EXPECT_EQ(palettes.entries, 3U);
    EXPECT_EQ(palettes.blocks.size(), 2U);
    EXPECT_EQ(palettes.sharedBlocks(), 1U);
    EXPECT_EQ(palettes.blocks.at(0x8000).entries, (std::vector<std::uint32_t>{0, 2}));
    EXPECT_EQ(palettes.usedBytes, 64U);
    EXPECT_EQ(palettes.unusedBytes, 16U);
    EXPECT_EQ(palettes.freeBytes, 0x9000 - 0x8050);
}

TEST_F(RegionUseTest, UnitListsEndAtTheTypeFF)
{
    setPointers({0x8000, 0x8000, 0x8000});
    setData(0x8000, {0x03, 0xFF, 0xFF, 0xFF, 0xFF, 0x04, 0, 0, 0, 0, 0xFF});
    const RegionUse units = use("pahUnit");
    EXPECT_EQ(units.usedBytes, 11U);
    // The editor's rule: two bytes, whatever follows.
    EXPECT_EQ(units.freeBytes, 0x9000 - 0x8002);
}

TEST_F(RegionUseTest, LoadListsEndAtTheFirstByteFrom80)
{
    setPointers({0x8000, 0x8000, 0x8000});
    setData(0x8000, {0x7F, 0x00, 0x80, 0x01, 0xFF});
    EXPECT_EQ(use("pahTileLoadType2").usedBytes, 3U);
}

TEST_F(RegionUseTest, AreaMovementTellsItsLength)
{
    setPointers({0x8000, 0x8000, 0x8000});
    setData(0x8000, {0x04});
    const RegionUse movement = use("pahMapAreaMovement");
    EXPECT_EQ(movement.usedBytes, 6U);
    EXPECT_EQ(movement.freeBytes, 0x9000 - 0x8006);
}

TEST_F(RegionUseTest, ListsWithoutAnEndAreBounded)
{
    setPointers({0x8000, 0x8000, 0x8000});       // zeros up to the file's end
    EXPECT_EQ(use("pahUnit").usedBytes, 32765U); // 6553 records
    EXPECT_EQ(use("pahTileLoadType2").usedBytes, 4096U);
    EXPECT_EQ(use("pahMapAlloc").usedBytes, 0x10002U);
}

TEST_F(RegionUseTest, RoomsWithoutALayoutHaveNoBlock)
{
    describe(2, 4);
    state.store.pahMapLayout.setEntryByte(kMapWidthByte, 5, 1);
    state.store.pahMapLayout.setEntryByte(kMapHeightByte, 2, 1);
    const RegionUse layouts = use("pahMapLayout");
    EXPECT_EQ(layouts.blocks.size(), 1U);
    EXPECT_EQ(layouts.usedBytes, 10U);
}

// Two rooms may read one layout in two sizes.
TEST_F(RegionUseTest, TheLargestOfSeveralSizesCounts)
{
    describe(2, 4);
    for (std::uint8_t room = 0; room < 2; ++room) {
        state.store.pahMapLayout.setPointer(room, 0x8000);
        state.store.pahMapLayout.setEntryByte(kMapWidthByte, 4, room);
        state.store.pahMapLayout.setEntryByte(kMapHeightByte, static_cast<std::uint8_t>(3 - room),
                                              room);
    }
    EXPECT_EQ(use("pahMapLayout").usedBytes, 12U);
}

TEST_F(RegionUseTest, BlockAcrossTheEndOfAddresses)
{
    setPointers({0xFFF0, 0xFFF0, 0xFFF0});
    const RegionUse palettes = use("pahPal");
    EXPECT_EQ(palettes.usedBytes, 32U);
    EXPECT_EQ(palettes.freeBytes, 0x9000 - 0x10010);
}

TEST_F(RegionUseTest, HugeTableIsCutOff)
{
    describe(0x7FFF, 1);
    const RegionUse palettes = use("pahPal");
    EXPECT_EQ(palettes.entries, 0x7FFFU);
    ASSERT_EQ(palettes.blocks.size(), 1U);
    EXPECT_EQ(palettes.blocks.begin()->second.entries.size(), kMostSurveyedEntries);
}

TEST_F(RegionUseTest, NoRoomsNoBlocks)
{
    describe(0, 2);
    const RegionUse palettes = use("pahPal");
    EXPECT_EQ(palettes.entries, 0U);
    EXPECT_TRUE(palettes.blocks.empty());
    EXPECT_EQ(palettes.usedBytes, 0U);
}

TEST_F(RegionUseTest, StrideOfZero)
{
    describe(3, 0);
    EXPECT_EQ(use("pahPal").entries, 0U);
    EXPECT_EQ(use("pahPal").blocks.size(), 1U); // all rooms read one entry
}

} // namespace
} // namespace velko
