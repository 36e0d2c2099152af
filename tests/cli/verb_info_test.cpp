#include "tests/cli/cli_fixture.h"

namespace velko {
namespace {

using ::testing::HasSubstr;

class InfoVerb : public test::CliTest {
protected:
    // The facts of a ROM of these bytes.
    nlohmann::json infoOf(const std::vector<std::uint8_t>& bytes) const
    {
        const auto outcome = run({"info", "--json", write("test.nes", bytes)});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.err, "");
        return outcome.json();
    }
};

TEST_F(InfoVerb, TellsSizeBanksRoomsAndRegions)
{
    const auto outcome = run({"info", "demo.nes"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, HasSubstr("size: 262160 bytes, 16 banks of 16 KB\n"));
    EXPECT_THAT(outcome.out, HasSubstr("header: 16 program banks, 0 tile banks, mapper 2\n"));
    EXPECT_THAT(outcome.out, HasSubstr("rooms: 111, 105 of them with a map\n"));
    EXPECT_THAT(outcome.out, HasSubstr("areas: 12\n"));
    EXPECT_THAT(outcome.out, HasSubstr("\npahMapAlloc           3d010      113"));
}

TEST_F(InfoVerb, JsonHoldsTheSameFacts)
{
    const auto info = infoOf(demoBytes());
    EXPECT_EQ(info["size"], 262160);
    EXPECT_EQ(info["banks"], 16);
    EXPECT_EQ(info["excessBytes"], 0);
    EXPECT_EQ(info["header"]["mapper"], 2);
    EXPECT_EQ(info["rooms"], 111);
    EXPECT_EQ(info["roomsWithMap"], 105);
    EXPECT_EQ(info["areas"], 12);
    EXPECT_EQ(info["regions"].size(), 8U);
    EXPECT_EQ(info["regions"][4]["region"], "pahPal");
    EXPECT_EQ(info["regions"][4]["tableOffset"], 0x2C010);
}

// The regions' sizes, from the addresses where their first blocks lie up to dEdge.
TEST_F(InfoVerb, UsedUnusedAndFreeBytesMakeUpEachRegion)
{
    const auto regions = infoOf(demoBytes())["regions"];
    const std::map<std::string, int> sizes = {
        {"pahMapAlloc", 0x9000 - 0x8000},      {"pahMapLayout", 0xA400 - 0x9000},
        {"pahTile32", 0xFC00 - 0x8000},        {"pahTileLoad", 0xA800 - 0x9000},
        {"pahPal", 0x8E00 - 0x8200},           {"pahUnit", 0xA800 - 0x8200},
        {"pahTileLoadType2", 0xB800 - 0xB000}, {"pahMapAreaMovement", 0x8300 - 0x8100},
    };
    for (const auto& region : regions) {
        EXPECT_EQ(region["used"].get<int>() + region["unused"].get<int>()
                      + region["free"].get<int>(),
                  sizes.at(region["region"]))
            << region["region"];
        EXPECT_GT(region["unused"].get<int>(), 0) << region["region"];
    }
}

TEST_F(InfoVerb, SharedBlocksNameTheirEntries)
{
    const auto screenLists = infoOf(demoBytes())["regions"][0];
    const auto first = screenLists["shared"][0];
    EXPECT_EQ(first["address"], 0x8000);
    EXPECT_EQ(first["entries"], nlohmann::json({0x00, 0x31, 111, 112}));
}

TEST_F(InfoVerb, FixedLengthBlocksAreCountedOnce)
{
    const auto palettes = infoOf(demoBytes())["regions"][4];
    EXPECT_EQ(palettes["used"].get<int>(), 32 * palettes["blocks"].get<int>());
}

TEST_F(InfoVerb, OverlappingBlocksAreCountedOnce)
{
    auto bytes = demoBytes();
    // Every palette pointer to $8200, but room 1's 16 bytes into that block.
    for (std::size_t entry = 0; entry < 113; ++entry) {
        bytes[0x2C010 + 2 * entry] = entry == 1 ? 0x10 : 0x00;
        bytes[0x2C010 + 2 * entry + 1] = 0x82;
    }
    const auto palettes = infoOf(bytes)["regions"][4];
    EXPECT_EQ(palettes["blocks"], 2);
    EXPECT_EQ(palettes["used"], 48);
    EXPECT_EQ(palettes["unused"], 0);
    EXPECT_EQ(palettes["free"], 0x8E00 - 0x8230);
    EXPECT_EQ(palettes["shared"].size(), 1U);
}

TEST_F(InfoVerb, BlocksBeyondTheRegionShowAsNegativeFreeSpace)
{
    auto bytes = demoBytes();
    bytes[0x2C010] = 0xF0; // room 0's palette at $8DF0
    bytes[0x2C011] = 0x8D;
    EXPECT_EQ(infoOf(bytes)["regions"][4]["free"], -16);
}

TEST_F(InfoVerb, PointersPastTheFileAreNoFailure)
{
    auto bytes = demoBytes();
    std::fill(bytes.begin() + 0x2C010, bytes.begin() + 0x2C0F2, std::uint8_t{0xFF});
    std::fill(bytes.begin() + 0x3D010, bytes.begin() + 0x3D2D4, std::uint8_t{0xFF});
    const auto info = infoOf(bytes);
    EXPECT_EQ(info["regions"][4]["blocks"], 1);
    EXPECT_EQ(info["regions"][4]["free"], 0x8E00 - 0x1001F);
}

TEST_F(InfoVerb, CutRomIsToldAsItIs)
{
    auto bytes = demoBytes();
    bytes.resize(16 + 3 * 0x4000 + 5);
    const auto info = infoOf(bytes);
    EXPECT_EQ(info["banks"], 3);
    EXPECT_EQ(info["excessBytes"], 5);
    EXPECT_EQ(info["header"]["programBanks"], 16);
    EXPECT_EQ(info["regions"].size(), 8U);
    EXPECT_THAT(run({"info", path("test.nes")}).out,
                HasSubstr("size: 49173 bytes, 3 banks of 16 KB and 5 bytes\n"));
}

TEST_F(InfoVerb, WhatIsPastTheEndOfTheFileIsNotTold)
{
    auto bytes = demoBytes();
    bytes.resize(0x28100); // of the tables, that of the Tile32 sets is left
    const auto info = infoOf(bytes);
    EXPECT_EQ(info["roomsWithMap"], 0);
    for (const auto& region : info["regions"]) {
        const bool isThere = region["region"] == "pahTile32";
        EXPECT_EQ(region["blocks"], isThere ? 29 : 0) << region;
        EXPECT_EQ(region["used"], isThere ? 29 * 1024 : 0) << region;
        EXPECT_EQ(region["unused"], isThere ? nlohmann::json(1024) : nlohmann::json()) << region;
        EXPECT_EQ(region["free"], isThere ? nlohmann::json(1024) : nlohmann::json()) << region;
    }
    EXPECT_THAT(run({"info", path("test.nes")}).out,
                HasSubstr("\npahMapAlloc           3d010      113       0       0        0"
                          "        -        -\n"));
}

TEST_F(InfoVerb, BlocksInTheFileAreCountedWhereOthersAreNot)
{
    auto bytes = demoBytes();
    bytes.resize(0x2C010 + 0x240); // the palettes of rooms 0 to 3, and of 4, are left
    const auto palettes = infoOf(bytes)["regions"][4];
    EXPECT_EQ(palettes["blocks"], 2);
    EXPECT_EQ(palettes["used"], 64);
    EXPECT_TRUE(palettes["unused"].is_null());
    EXPECT_TRUE(palettes["free"].is_null());
}

TEST_F(InfoVerb, RoomsAreCountedAsFarAsTheTableGoes)
{
    auto bytes = demoBytes();
    bytes.resize(0x3D110 + 4 * 2 + 3); // room 2's height is missing
    EXPECT_EQ(infoOf(bytes)["roomsWithMap"], 2);
}

TEST_F(InfoVerb, HalfAHeaderIsNone)
{
    EXPECT_TRUE(infoOf({'N', 'E', 'S', 0x1A, 16, 0}).at("header").is_null());
}

TEST_F(InfoVerb, OneByteIsARomWithoutHeader)
{
    const auto info = infoOf({0x4E});
    EXPECT_EQ(info["size"], 1);
    EXPECT_EQ(info["banks"], 0);
    EXPECT_TRUE(info["header"].is_null());
    EXPECT_THAT(run({"info", path("test.nes")}).out, HasSubstr("header: none\n"));
}

TEST_F(InfoVerb, EveryByteFF)
{
    const auto info = infoOf(std::vector<std::uint8_t>(0x4010, 0xFF));
    EXPECT_EQ(info["rooms"], 111);
}

TEST_F(InfoVerb, EveryByteZero)
{
    const auto info = infoOf(std::vector<std::uint8_t>(0x40010, 0));
    EXPECT_EQ(info["roomsWithMap"], 0);
    EXPECT_EQ(info["regions"][1]["blocks"], 0); // no room has a layout
}

} // namespace
} // namespace velko
