#include "tests/demo/demo_game.h"

#include <set>

namespace velko::test {
namespace {

class DemoOverworld : public DemoGame {
protected:
    int areaX(std::uint32_t area) const
    {
        return byteAt(value(MiscField::ptrMapAreaXY) + 2 * area);
    }
    int areaY(std::uint32_t area) const
    {
        return byteAt(value(MiscField::ptrMapAreaXY) + 2 * area + 1);
    }
    // The area that a mail cart at (x, y) has come to, or -1.
    int areaAt(int x, int y) const
    {
        for (std::uint32_t area = 0; area <= 12; ++area)
            if ((areaX(area) & 0xF0) == (x & 0xF0) && (areaY(area) & 0xF0) == (y & 0xF0))
                return static_cast<int>(area);
        return -1;
    }
};

TEST_F(DemoOverworld, HasTwelveAreasAndOnePlaceMoreEachOnTheMap)
{
    EXPECT_EQ(value(MiscField::areas), 12U);
    EXPECT_EQ(value(MiscField::firstNeutralArea), 9U);
    std::set<std::pair<int, int>> places;
    for (std::uint32_t area = 0; area <= 12; ++area) {
        EXPECT_GE(areaX(area), 32);
        EXPECT_LE(areaX(area), 32 + 208 - 16);
        EXPECT_GE(areaY(area), 32);
        EXPECT_LE(areaY(area), 32 + 144 - 16);
        places.emplace(areaX(area), areaY(area));
    }
    EXPECT_EQ(places.size(), 13U);
}

TEST_F(DemoOverworld, ClearItemsAreSetBeforeTheNeutralAreas)
{
    for (std::uint32_t area = 0; area < 9; ++area)
        EXPECT_LT(byteAt(value(MiscField::ptrAreaEndItem) + area), 26);
    int parachutes = 0;
    for (std::uint32_t area = 0; area < 12; ++area)
        parachutes += byteAt(value(MiscField::ptrAreaParachute) + area);
    EXPECT_EQ(parachutes, 5);
}

TEST_F(DemoOverworld, EightMailCartsComeBackToWhereTheyStarted)
{
    constexpr std::array<int, 8> kStepX = {16, 16, 0, -16, -16, -16, 0, 16};
    constexpr std::array<int, 8> kStepY = {0, 16, 16, 16, 0, -16, -16, -16};
    ASSERT_EQ(value(MiscField::numOfMapTrucks), 8U);
    const std::uint32_t bank = value(MiscField::bpahTruckMovement_bank) * 16384 + 16;
    for (std::uint32_t cart = 0; cart < 8; ++cart) {
        const std::uint8_t start = byteAt(value(MiscField::ptrMapTruckInit) + cart);
        ASSERT_LT(start >> 4, 12);
        ASSERT_LE(start & 15, 12);
        int x = areaX(start & 15);
        int y = areaY(start & 15);
        std::uint32_t at = bank + (value(MiscField::bpahTruckMovement_dMemStart) & 0x7FFF)
            + byteAt(bank + (value(MiscField::bpahTruckMovement_pMemStart) & 0x7FFF)
                     + (start >> 4));
        std::uint8_t phase = 0;
        do {
            phase = byteAt(at++);
            do {
                x += kStepX[phase & 7];
                y += kStepY[phase & 7];
                ASSERT_TRUE(x >= 0 && x < 256 && y >= 0 && y < 256) << "cart " << cart;
            } while (areaAt(x, y) < 0);
        } while (phase < 0x80);
        EXPECT_EQ(areaAt(x, y), start & 15) << "cart " << cart;
    }
}

TEST_F(DemoOverworld, FlightsEndWhereTheySay)
{
    constexpr std::array<int, 8> kStepX = {16, 16, 0, -16, -16, -16, 0, 16};
    constexpr std::array<int, 8> kStepY = {0, 16, 16, 16, 0, -16, -16, -16};
    const PointerArrayHandler& movement = state.store.pahMapAreaMovement;
    for (std::uint32_t area = 0; area < 12; ++area) {
        const std::uint32_t entries = movement.dataByte(0, area) / 2U;
        EXPECT_GE(entries, 1U);
        for (std::uint32_t i = 0; i < entries; ++i) {
            const std::uint8_t direction = movement.dataByte(2 + 2 * i, area) >> 4;
            const std::uint8_t digits = movement.dataByte(3 + 2 * i, area);
            ASSERT_LT(direction, 8);
            int x = areaX(area);
            int y = areaY(area);
            do {
                x += kStepX[direction];
                y += kStepY[direction];
                ASSERT_TRUE(x >= 0 && x < 256 && y >= 0 && y < 256) << "area " << area;
            } while (areaAt(x, y) < 0);
            EXPECT_EQ(areaAt(x, y) + 1, (digits >> 4) * 10 + (digits & 15)) << "area " << area;
        }
    }
}

TEST_F(DemoOverworld, Entry111LoadsSpritesAndMapTiles)
{
    state.graphics.selectRoom(0);
    const auto before = state.graphics.patternMemory;
    state.store.pahTileLoadType2.selectRoom(111);
    state.graphics.applyType2Loads();
    const auto& memory = state.graphics.patternMemory;
    EXPECT_FALSE(std::equal(before.begin(), before.begin() + 0x800, memory.begin()));
    EXPECT_FALSE(std::equal(before.begin() + 0x1000, before.end(), memory.begin() + 0x1000));
}

// What the carts and balloons show comes from entry 111 alone, whatever room was shown before.
TEST_F(DemoOverworld, QuadSpritesUseTilesOfEntry111)
{
    state.store.pahTileLoadType2.selectRoom(111);
    state.graphics.patternMemory.fill(0);
    state.graphics.applyType2Loads();
    const std::uint32_t table = value(MiscField::ptrMapQuadSpriteTable);
    std::set<Bytes> quads;
    for (std::uint32_t quad = 0; quad < 16; ++quad) {
        int shown = 0;
        Bytes bytes;
        for (std::uint32_t part = 0; part < 8; ++part)
            bytes.push_back(byteAt(table + byteAt(table + quad) + part));
        for (std::size_t part = 0; part < 8; part += 2) {
            const auto first = state.graphics.patternMemory.begin() + 16 * bytes[part];
            shown += std::any_of(first, first + 16, [](std::uint8_t b) { return b != 0; }) ? 1 : 0;
        }
        EXPECT_GE(shown, 2) << "quad " << quad;
        quads.insert(bytes);
    }
    EXPECT_EQ(quads.size(), 16U);
}

TEST_F(DemoOverworld, OneLoadRunsAcrossTheEndOfTheGraphicsBank)
{
    bool crosses = false;
    for (std::uint32_t record = 0; record < 128; ++record) {
        const std::uint32_t at = value(MiscField::ptrTileLoadType2) + 5 * record;
        const unsigned source = byteAt(at) + 256U * byteAt(at + 1);
        const unsigned end = source + 16U * byteAt(at + 4);
        EXPECT_LE(end, 0x8000U);
        crosses = crosses || (source < 0x4000 && end > 0x4000);
    }
    EXPECT_TRUE(crosses);
}

TEST_F(DemoOverworld, MapUsesOnlyTilesThatAreLoaded)
{
    state.store.pahTileLoadType2.selectRoom(111);
    state.graphics.patternMemory.fill(0xAA);
    state.graphics.applyType2Loads();
    std::set<std::uint8_t> used;
    for (std::uint32_t cell = 0; cell < 26 * 18; ++cell)
        used.insert(byteAt(value(MiscField::ptrMapTileMap) + cell));
    for (std::size_t i = 0; i < 17 * 4; ++i)
        used.insert(state.config.gameMapTileChunks[i]);
    EXPECT_GE(used.size(), 60U);
    for (const std::uint8_t tile : used) {
        const auto first = state.graphics.patternMemory.begin() + 0x1000 + 16 * tile;
        EXPECT_FALSE(std::all_of(first, first + 16, [](std::uint8_t b) { return b == 0xAA; }));
    }
}

TEST_F(DemoOverworld, BackdropIsTheSameInAllMapPalettes)
{
    const std::uint32_t palettes = value(MiscField::ptrMapPalette);
    for (std::uint32_t palette = 0; palette < 8; ++palette)
        EXPECT_EQ(byteAt(palettes + 4 * palette), byteAt(palettes));
}

} // namespace
} // namespace velko::test
