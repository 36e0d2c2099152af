#include "demo/tileset.h"

#include <gtest/gtest.h>

namespace velko::demo {
namespace {

ArtFile twoMetatiles()
{
    std::string text;
    for (const char* name : {"first", "second"}) {
        text += std::string("#@ palette=1 physics=5\nmetatile ") + name + "\n";
        for (int row = 0; row < 16; ++row)
            text += "2...............\n";
    }
    return parseArt(text);
}

class TilesetTest : public ::testing::Test {
protected:
    TilesetTest() { banks.addArt(2, twoMetatiles()); }

    BackgroundBanks banks;
};

TEST_F(TilesetTest, LoadBlockHoldsNumbersThenAttributeNibbles)
{
    const Tileset tileset(banks, {"first", "second", "second~"});
    EXPECT_EQ(tileset.loadBlock().size(), 96U);
    EXPECT_EQ(tileset.loadBlock()[0], 0);
    EXPECT_EQ(tileset.loadBlock()[1], 1);
    EXPECT_EQ(tileset.loadBlock()[2], 1);
    EXPECT_EQ(tileset.loadBlock()[64], 0x22); // bank 2 twice
    EXPECT_EQ(tileset.loadBlock()[65], 0x60); // bank 2, mirrored
}

TEST_F(TilesetTest, CellsHaveTheArtsPaletteUnlessAnotherIsAskedFor)
{
    const Tileset tileset(banks, {"first", "second@3", "roof=second@2~"});
    EXPECT_EQ(tileset.cell("first"), (Cell{0, 1, 5}));
    EXPECT_EQ(tileset.cell("second"), (Cell{1, 3, 5}));
    EXPECT_EQ(tileset.cell("roof"), (Cell{2, 2, 5}));
    EXPECT_EQ(tileset.emptyCell(), (Cell{0, 1, 5}));
    EXPECT_THROW(tileset.cell("third"), DemoError);
}

TEST_F(TilesetTest, BlocksAreStoredColumnByColumn)
{
    Bytes prg(4 * kBankBytes);
    banks.write(prg);
    const auto block = prg.begin() + 2 * kBankBytes;
    EXPECT_EQ(block[0], 0);          // plane 0 of value 2
    EXPECT_EQ(block[8], 0x80);       // plane 1, leftmost pixel
    EXPECT_EQ(block[24], 0x80);      // the tile below
    EXPECT_EQ(block[40], 0);         // the right column
    EXPECT_EQ(block[72], 0x80);      // the next block
    EXPECT_EQ(block[64 * 64], 0x80); // in shade value 2 becomes 3: both planes
    EXPECT_EQ(block[64 * 64 + 8], 0x80);
    EXPECT_EQ(block[128 * 64], 0x80); // in mist it becomes 1
    EXPECT_EQ(block[128 * 64 + 8], 0);
}

TEST_F(TilesetTest, OtherPageShowsTheSameSlotsWithLaterBlocks)
{
    const Tileset tileset(banks, {"second", "first~"});
    const Tileset mist = tileset.onPage(BlockPage::kMist);
    EXPECT_EQ(mist.loadBlock()[0], 129);
    EXPECT_EQ(mist.loadBlock()[1], 128);
    EXPECT_EQ(mist.loadBlock()[64], tileset.loadBlock()[64]);
    EXPECT_EQ(mist.cell("second"), tileset.cell("second"));
}

TEST_F(TilesetTest, NamesMustExistAndFit)
{
    EXPECT_THROW(Tileset(banks, {"third"}), DemoError);
    EXPECT_THROW(Tileset(banks, std::vector<std::string>(65, "first")), DemoError);
    EXPECT_THROW(banks.addArt(3, twoMetatiles()), DemoError); // the names are taken
}

} // namespace
} // namespace velko::demo
