#include "gfx/resources.h"

#include "tests/gfx/bmp_builder.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_rom.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace velko {
namespace {

using test::BmpBuilder;
using ::testing::Each;
using ::testing::ElementsAre;

// Colour n is red n, green n + 64, blue n + 128.
std::vector<std::uint8_t> paletteFile()
{
    std::vector<std::uint8_t> bytes;
    for (int n = 0; n < 64; ++n) {
        for (const int channel : {n, n + 64, n + 128})
            bytes.push_back(static_cast<std::uint8_t>(channel));
    }
    return bytes;
}

TEST(DecodePalette, ReadsRedGreenBlueTriples)
{
    std::array<Pixel, 64> colours{};
    EXPECT_TRUE(decodePalette(paletteFile(), colours));
    EXPECT_EQ(colours[0], 0x004080U);
    EXPECT_EQ(colours[1], 0x014181U);
    EXPECT_EQ(colours[63], 0x3F7FBFU);
}

TEST(DecodePalette, IgnoresWhatFollows192Bytes)
{
    std::vector<std::uint8_t> file = paletteFile();
    file.resize(1536, 0xFF); // as palette files with emphasis colours have it
    std::array<Pixel, 64> colours{};
    EXPECT_TRUE(decodePalette(file, colours));
    EXPECT_EQ(colours[63], 0x3F7FBFU);
}

TEST(DecodePalette, ShortFileChangesNothing)
{
    for (const std::size_t size : {0U, 1U, 3U, 190U, 191U}) {
        std::vector<std::uint8_t> file = paletteFile();
        file.resize(size);
        std::array<Pixel, 64> colours{};
        colours.fill(0x123456);
        EXPECT_FALSE(decodePalette(file, colours)) << size;
        EXPECT_THAT(colours, Each(0x123456U));
    }
}

TEST(PhysicsColours, AreFixed)
{
    test::TestCore core;
    setPhysicsColours(core.graphics);
    EXPECT_THAT(core.graphics.physicsBaseColour,
                ElementsAre(0x989898U, 0x80F080U, 0xF0F080U, 0x4860F0U, 0xA060F0U, 0xF0A000U,
                            0x80E0F0U, 0x282828U, 0xF09090U, 0x282828U, 0xF03018U, 0x282828U,
                            0x282828U, 0x282828U, 0x282828U, 0x282828U));
}

TEST(PhysicsColours, HaveShadesOfATenthAllSevenAndFourTenths)
{
    test::TestCore core;
    setPhysicsColours(core.graphics);
    const auto& shades = core.graphics.physicsShades;
    EXPECT_THAT(shades[5], ElementsAre(0x181000U, 0xF0A000U, 0xA87000U, 0x604000U));
    // 152 x 0.1 = 15.2, x 0.7 = 106.4, x 0.4 = 60.8
    EXPECT_THAT(shades[0], ElementsAre(0x0F0F0FU, 0x989898U, 0x6A6A6AU, 0x3C3C3CU));
    // 72, 96, 240: 7.2, 9.6, 24; 50.4, 67.2, 168; 28.8, 38.4, 96
    EXPECT_THAT(shades[3], ElementsAre(0x070918U, 0x4860F0U, 0x3243A8U, 0x1C2660U));
    // 240, 48, 24: 24, 4.8, 2.4; 168, 33.6, 16.8; 96, 19.2, 9.6
    EXPECT_THAT(shades[10], ElementsAre(0x180402U, 0xF03018U, 0xA82110U, 0x601309U));
    EXPECT_THAT(shades[15], ElementsAre(0x040404U, 0x282828U, 0x1C1C1CU, 0x101010U));
}

// A work folder with a palette and white bitmaps of 10 x 10 and 6 x 4 pixels.
class LoadResources : public ::testing::Test {
protected:
    LoadResources()
    {
        folder.write("fr_nesB.pal", paletteFile());
        for (int value = 0; value < 16; ++value)
            writeBitmap(std::to_string(value), BmpBuilder::flat24(10, 10, 0xFFFFFF));
        for (int slot = 1; slot <= 4; ++slot)
            writeBitmap("door" + std::to_string(slot), BmpBuilder::flat24(6, 4, 0x6496C8));
    }

    void writeBitmap(const std::string& name, const std::vector<std::uint8_t>& bytes) const
    {
        folder.write("bitmap/" + name + ".bmp", bytes);
    }
    void remove(const std::string& name) const
    {
        std::filesystem::remove_all(folder.path() / name);
    }
    // The message of a failure, empty for success.
    std::string load()
    {
        return loadResources(folder.path(), core.graphics, resources).value_or("");
    }

    test::TemporaryFolder folder;
    test::TestCore core;
    Resources resources;
};

TEST_F(LoadResources, FillsEverything)
{
    EXPECT_EQ(load(), "");
    EXPECT_EQ(core.graphics.colourTable[63], 0x3F7FBFU);
    EXPECT_EQ(core.graphics.physicsBaseColour[1], 0x80F080U);
    EXPECT_EQ(core.graphics.physicsShades[5][0], 0x181000U);
    EXPECT_THAT(resources.editorColours,
                ElementsAre(0x000000U, 0xF0F0F0U, 0x909090U, 0x404040U, 0x700040U, 0xF0F0F0U,
                            0x686868U, 0x000000U));
    for (const PixelImage& image : resources.physicsBitmaps)
        EXPECT_FALSE(image.empty());
    for (const PixelImage& image : resources.doorBitmaps)
        EXPECT_FALSE(image.empty());
}

TEST_F(LoadResources, PhysicsBitmapsAreScaledTo57PerCentAndTinted)
{
    writeBitmap("0", BmpBuilder::flat24(10, 10, 0x6496C8));
    EXPECT_EQ(load(), "");
    EXPECT_EQ(resources.physicsBitmaps[5], PixelImage(5, 5, 0xF0A000));
    // 100, 150, 200 x 152 / 255 = 59.6, 89.4, 119.2
    EXPECT_EQ(resources.physicsBitmaps[0], PixelImage(5, 5, 0x3B5977));
}

TEST_F(LoadResources, PhysicsBitmapSizesAreTruncated)
{
    writeBitmap("2", BmpBuilder::flat24(28, 64, 0xFFFFFF)); // 15.96, 36.48
    writeBitmap("3", BmpBuilder::flat24(100, 2, 0xFFFFFF)); // 57 less a rounding error, 1.14
    EXPECT_EQ(load(), "");
    EXPECT_EQ(resources.physicsBitmaps[2].width(), 15U);
    EXPECT_EQ(resources.physicsBitmaps[2].height(), 36U);
    EXPECT_EQ(resources.physicsBitmaps[3].width(), 56U);
    EXPECT_EQ(resources.physicsBitmaps[3].height(), 1U);
}

TEST_F(LoadResources, TinyPhysicsBitmapsBecomeEmpty)
{
    writeBitmap("9", BmpBuilder::flat24(1, 1, 0xFFFFFF));
    writeBitmap("10", BmpBuilder::flat24(1, 4, 0xFFFFFF));
    EXPECT_EQ(load(), "");
    EXPECT_TRUE(resources.physicsBitmaps[9].empty());
    EXPECT_TRUE(resources.physicsBitmaps[10].empty());
}

TEST_F(LoadResources, EachBitmapGoesToItsPlace)
{
    writeBitmap("15", BmpBuilder::flat24(20, 10, 0xFFFFFF));
    writeBitmap("door3", BmpBuilder::flat24(3, 9, 0x112233));
    EXPECT_EQ(load(), "");
    EXPECT_EQ(resources.physicsBitmaps[15], PixelImage(11, 5, 0x282828));
    EXPECT_EQ(resources.physicsBitmaps[14], PixelImage(5, 5, 0x282828));
    EXPECT_EQ(resources.doorBitmaps[2], PixelImage(3, 9, 0x112233));
    EXPECT_EQ(resources.doorBitmaps[0], PixelImage(6, 4, 0x6496C8));
}

TEST_F(LoadResources, StopsAtTheFirstFileAtFault)
{
    remove("bitmap/door2.bmp");
    remove("bitmap/door1.bmp");
    EXPECT_NE(load(), "");
    EXPECT_EQ(resources.physicsBitmaps[15], PixelImage(5, 5, 0x282828));
    EXPECT_EQ(resources.editorColours[4], 0x700040U); // set between physics bitmaps and doors
    EXPECT_TRUE(resources.doorBitmaps[2].empty());

    remove("bitmap/15.bmp");
    resources = Resources();
    EXPECT_NE(load(), "");
    EXPECT_EQ(resources.physicsBitmaps[14], PixelImage(5, 5, 0x282828));
    EXPECT_EQ(resources.editorColours[4], 0U);
}

TEST_F(LoadResources, MissingPaletteIsNamed)
{
    remove("fr_nesB.pal");
    remove("bitmap"); // the palette comes first
    EXPECT_EQ(load(),
              "Can't load \"fr_nesB.pal\": the file is missing, empty or unreadable. Quitting.");
}

TEST_F(LoadResources, ShortPaletteIsNamed)
{
    std::vector<std::uint8_t> file = paletteFile();
    file.pop_back();
    folder.write("fr_nesB.pal", file);
    EXPECT_EQ(load(), "Can't load \"fr_nesB.pal\": shorter than 64 colours of 3 bytes. Quitting.");
    EXPECT_THAT(core.graphics.colourTable, Each(0U));
}

TEST_F(LoadResources, EveryMissingBitmapIsNamed)
{
    // From the last to the first, so that each is the first one missing.
    for (const char* name :
         {"door4", "door3", "door2", "door1", "15", "14", "13", "12", "11", "10",
          "9",     "8",     "7",     "6",     "5",  "4",  "3",  "2",  "1",  "0"}) {
        remove(std::string("bitmap/") + name + ".bmp");
        EXPECT_EQ(load(),
                  std::string("Can't load \"bitmap/") + name
                      + ".bmp\": the file is missing, empty or unreadable. Quitting.");
    }
}

TEST_F(LoadResources, OddBitmapsAreNamedWithTheReason)
{
    struct Case {
        BmpBuilder bmp;
        const char* reason;
    };
    const Case cases[] = {
        {BmpBuilder(10, 10, 24).setByte(0, 'X'), "not a BMP, or cut short"},
        {BmpBuilder(10, 10, 24), "not a BMP, or cut short"}, // no pixels follow
        {BmpBuilder(10, 10, 24).setU32(14, 124), "not a BMP with an info header of 40 bytes"},
        {BmpBuilder(10, 10, 32), "not a bottom-up BMP of 8 or 24 bits"},
        {BmpBuilder(10, 0xFFFFFFF6, 24), "not a bottom-up BMP of 8 or 24 bits"},
    };
    for (const Case& c : cases) {
        writeBitmap("3", c.bmp.bytes());
        EXPECT_EQ(load(), "Can't load \"bitmap/3.bmp\": " + std::string(c.reason) + ". Quitting.");
    }
    writeBitmap("3", {});
    EXPECT_EQ(load(),
              "Can't load \"bitmap/3.bmp\": the file is missing, empty or unreadable. Quitting.");
}

TEST_F(LoadResources, BitmapOfTooManyPixelsIsToldToBeTooLarge)
{
    const std::uint32_t side = 8193; // 8193 x 8193 > 2^26
    BmpBuilder bmp(side, side, 8);
    bmp.cutTo(54 + std::size_t{8196} * side);
    writeBitmap("door1", bmp.bytes());
    EXPECT_EQ(load(), "Can't load \"bitmap/door1.bmp\": too large. Quitting.");
}

TEST_F(LoadResources, FolderInAFilesPlaceIsNamed)
{
    remove("bitmap/7.bmp");
    std::filesystem::create_directory(folder.path() / "bitmap" / "7.bmp");
    EXPECT_EQ(load(),
              "Can't load \"bitmap/7.bmp\": the file is missing, empty or unreadable. Quitting.");
}

} // namespace
} // namespace velko
