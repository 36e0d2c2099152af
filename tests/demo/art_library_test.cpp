#include "demo/art_library.h"

#include <gtest/gtest.h>
#include <string>

namespace velko::demo {
namespace {

std::string rows(int count, const std::string& row)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += row + "\n";
    return text;
}

std::string errorOf(const std::string& text)
{
    try {
        parseArt(text);
    } catch (const DemoError& error) {
        return error.what();
    }
    return "";
}

TEST(ArtLibrary, MetatileTakesTheHintsAboveIt)
{
    const ArtFile art = parseArt("# a stone\n#@ palette=2 physics=15\nmetatile stone\n"
                                 + rows(16, ".123............"));
    ASSERT_EQ(art.metatiles.size(), 1U);
    EXPECT_EQ(art.metatiles[0].picture.name, "stone");
    EXPECT_EQ(art.metatiles[0].palette, 2);
    EXPECT_EQ(art.metatiles[0].physics, 15);
    EXPECT_EQ(art.metatiles[0].picture.at(0, 0), 0);
    EXPECT_EQ(art.metatiles[0].picture.at(3, 15), 3);
}

TEST(ArtLibrary, SpriteTileAndPictureHaveTheirSizes)
{
    const ArtFile art =
        parseArt("#@ set=3\nsprite bee 16 8\n" + rows(8, "1..............2") + "tile sea\n"
                 + rows(8, "........") + "picture solid 2 2\n0f\na9\n");
    EXPECT_EQ(art.sprites.at(0).colourSet, 3);
    EXPECT_EQ(art.sprites.at(0).picture.at(15, 7), 2);
    EXPECT_EQ(art.tiles.at(0).name, "sea");
    EXPECT_EQ(art.pictures.at(0).pixels, (std::vector<std::uint8_t>{0, 15, 10, 9}));
}

TEST(ArtLibrary, PicturesAreGreyUnlessColoursAreTold)
{
    EXPECT_EQ(parseArt("").pictureColours[5], 0x555555U);
    EXPECT_EQ(parseArt("colour 5 a0B0c0\n").pictureColours[5], 0xA0B0C0U);
}

TEST(ArtLibrary, PaletteHasFourHexadecimalColours)
{
    const ArtFile art = parseArt("palette day_0 31 39 29 0B\n");
    EXPECT_EQ(paletteNamed(art, "day_0").colours,
              (std::array<std::uint8_t, 4>{0x31, 0x39, 0x29, 0x0B}));
    EXPECT_THROW(paletteNamed(art, "day_1"), DemoError);
}

TEST(ArtLibrary, FaultsAreToldWithTheirLine)
{
    EXPECT_EQ(errorOf("\nmetatile stone\n" + rows(2, "................") + "...\n"),
              "line 5: row 2 of stone has the wrong length");
    EXPECT_EQ(errorOf("tile sea\n........\n...4....\n"), "line 3: no pixel value: 4");
    EXPECT_EQ(errorOf("sprite bee 12 8\n"), "line 1: sprite sizes are multiples of 8: bee");
    EXPECT_EQ(errorOf("palette day_0 31 40 00 00\n"),
              "line 1: a palette needs four colours up to 3f: day_0");
    EXPECT_EQ(errorOf("#@ palette=4\n"), "line 1: palette, physics or set out of range");
    EXPECT_EQ(errorOf("drawing bee\n"), "line 1: unknown entry drawing");
}

} // namespace
} // namespace velko::demo
