#include "gfx/graphics_state.h"

#include "tests/support/test_rom.h"

#include <gtest/gtest.h>
#include <limits>

namespace velko {
namespace {

using test::Bytes;
using test::solidTile;
using test::TestCore;
using test::TestRom;

constexpr Pixel nes(std::uint32_t number)
{
    return TestRom::colour(number);
}

// Sixteen different bytes: first, first + 1, ...
Bytes countedTile(unsigned first)
{
    Bytes tile;
    for (unsigned i = 0; i < 16; ++i)
        tile.push_back(static_cast<std::uint8_t>(first + i));
    return tile;
}

Bytes joined(std::initializer_list<Bytes> parts)
{
    Bytes all;
    for (const Bytes& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

Bytes patternBytes(const TestCore& core, std::size_t address, std::size_t count)
{
    const auto first = core.graphics.patternMemory.begin() + static_cast<std::ptrdiff_t>(address);
    return {first, first + static_cast<std::ptrdiff_t>(count)};
}

TEST(GraphicsStateTest, SelectRoomPointsTheLevelHandlersAtIt)
{
    TestCore core(TestRom{});
    core.store.pahMapAreaMovement.selectRoom(9);
    core.graphics.selectRoom(3);
    EXPECT_EQ(core.graphics.currentRoom(), 3);
    for (const PointerArrayHandler* handler : core.store.levelHandlers())
        EXPECT_EQ(handler->currentRoom(), 3U);
    EXPECT_EQ(core.store.pahMapAreaMovement.currentRoom(), 9U);
}

TEST(GraphicsStateTest, SelectRoomClearsWhatTheOldRoomLoaded)
{
    TestRom game;
    game.setType2Graphics(0, solidTile(3));
    game.setLoadRecord(7, 0, 0x0100, 1);
    game.setType2Loads(1, {7});
    TestCore core(game);
    core.graphics.selectRoom(1);
    EXPECT_EQ(core.graphics.patternMemory[0x100], 0xFF);
    core.graphics.selectRoom(0);
    EXPECT_EQ(core.graphics.patternMemory[0x100], 0x00);
}

TEST(Type2LoadsTest, RecordTellsWhatItCopies)
{
    TestRom game;
    game.setLoadRecord(0x7F, 0x1234, 0xFFF0, 255);
    const TestCore core(game);
    EXPECT_EQ(core.graphics.loadRecordOffset(0x7F), 0x3010U + 5 * 0x7F);
    const LoadRecord record = core.graphics.loadRecord(0x7F);
    EXPECT_EQ(record.source, 0x10U + 6 * 0x4000 + 0x1234);
    EXPECT_EQ(record.destination, 0xFFF0U);
    EXPECT_EQ(record.length, 4080U);
}

TEST(Type2LoadsTest, ListThatStartsWithAnEndMarkLoadsNothing)
{
    for (const std::uint8_t endMark : Bytes{0x80, 0x81, 0xFF}) {
        TestRom game;
        game.setType2Graphics(0, solidTile(3));
        for (unsigned id = 0; id < 128; ++id)
            game.setLoadRecord(static_cast<std::uint8_t>(id), 0, 0, 255);
        game.setType2Loads(0, {endMark, 0x00, 0x01});
        const TestCore core(game);
        EXPECT_EQ(patternBytes(core, 0, 0x1000), Bytes(0x1000)) << int{endMark};
    }
}

TEST(Type2LoadsTest, LoadsStopAtTheFirstByteFrom80On)
{
    TestRom game;
    game.setType2Graphics(0, solidTile(3));
    game.setLoadRecord(0x7F, 0, 0x0000, 1);
    game.setLoadRecord(1, 0, 0x0010, 1);
    game.setType2Loads(0, {0x7F, 0x80, 1});
    const TestCore core(game);
    EXPECT_EQ(patternBytes(core, 0x0000, 16), Bytes(16, 0xFF));
    EXPECT_EQ(patternBytes(core, 0x0010, 16), Bytes(16, 0x00));
}

TEST(Type2LoadsTest, SourceIsLittleEndianAndDestinationBigEndian)
{
    TestRom game;
    game.setType2Graphics(0x1230, countedTile(0x40));
    // Source $1230, destination $0560, one tile.
    game.write(test::layout::kLoadRecords + 5 * 2, {0x30, 0x12, 0x05, 0x60, 1});
    game.setType2Loads(0, {2});
    const TestCore core(game);
    EXPECT_EQ(patternBytes(core, 0x0560, 16), countedTile(0x40));
    EXPECT_EQ(core.graphics.patternMemory[0x55F], 0);
    EXPECT_EQ(core.graphics.patternMemory[0x570], 0);
}

TEST(Type2LoadsTest, LaterLoadsOverwriteEarlierOnes)
{
    TestRom game;
    game.setType2Graphics(0, joined({countedTile(0), countedTile(0x20)}));
    game.setLoadRecord(0, 0x00, 0x0000, 2);
    game.setLoadRecord(1, 0x10, 0x0000, 1);
    game.setType2Loads(0, {0, 1});
    const TestCore core(game);
    EXPECT_EQ(patternBytes(core, 0, 32), joined({countedTile(0x20), countedTile(0x20)}));
}

TEST(Type2LoadsTest, BytesPastPatternMemoryAreDropped)
{
    TestRom game;
    game.setType2Graphics(0, countedTile(0x70));
    game.setLoadRecord(0, 0, 0x1FF8, 1);
    game.setType2Loads(0, {0});
    TestCore core(game);
    core.graphics.patternMemory.fill(0);
    core.graphics.applyType2Loads();
    EXPECT_EQ(patternBytes(core, 0x1FF0, 16),
              (Bytes{0, 0, 0, 0, 0, 0, 0, 0, 0x70, 0x71, 0x72, 0x73, 0x74, 0x75, 0x76, 0x77}));
    EXPECT_EQ(patternBytes(core, 0, 16), Bytes(16)); // nothing wraps to the start
}

TEST(Type2LoadsTest, DestinationsPastPatternMemoryDoNotWrap)
{
    for (const std::uint16_t destination : std::vector<std::uint16_t>{0x2000, 0xFFF0, 0xFFFF}) {
        TestRom game;
        game.setType2Graphics(0, Bytes(0x1000, 0xAA));
        game.setLoadRecord(0, 0, destination, 255);
        game.setType2Loads(0, {0});
        const TestCore core(game);
        EXPECT_EQ(patternBytes(core, 0, 0x2000), Bytes(0x2000)) << destination;
    }
}

TEST(Type2LoadsTest, SourceLeadsOnIntoTheFollowingBanks)
{
    TestRom game;
    game.setType2Graphics(0x3FF8, countedTile(0x60)); // the second half lies in the next bank
    game.setLoadRecord(0, 0x3FF8, 0x0000, 1);
    game.setType2Graphics(0x4100, countedTile(0x90)); // wholly in the next bank
    game.setLoadRecord(1, 0x4100, 0x0010, 1);
    game.setType2Loads(0, {0, 1});
    const TestCore core(game);
    EXPECT_EQ(patternBytes(core, 0, 32), joined({countedTile(0x60), countedTile(0x90)}));
}

TEST(Type2LoadsTest, SourcePastTheFileReadsAsFiller)
{
    TestRom game;
    game.config.setValue(MiscField::startGfxType2, test::layout::kBanks - 1);
    game.setLoadRecord(0, 0x3FFC, 0x0000, 1); // 4 bytes before the end of the file
    game.setType2Loads(0, {0});
    const TestCore core(game);
    EXPECT_EQ(patternBytes(core, 0, 4), Bytes(4, 0x00));
    EXPECT_EQ(patternBytes(core, 4, 12), Bytes(12, 0x55));
}

TEST(Type2LoadsTest, SourceOffsetsWrapAt32Bits)
{
    TestRom game;
    // 0x3FFFF x 16384 + 16 + 0x3FEC = 2^32 - 4: four bytes past any file, then its header.
    game.config.setValue(MiscField::startGfxType2, 0x3FFFF);
    game.setLoadRecord(0, 0x3FEC, 0x0000, 1);
    game.setType2Loads(0, {0});
    const TestCore core(game);
    EXPECT_EQ(patternBytes(core, 0, 8), (Bytes{0x55, 0x55, 0x55, 0x55, 'N', 'E', 'S', 0x1A}));
}

TEST(Type2LoadsTest, ListWithoutAnEndMarkIsReadTo4096Bytes)
{
    for (const std::size_t position : {std::size_t{4095}, std::size_t{4096}}) {
        TestRom game;
        game.setType2Graphics(0, solidTile(3));
        game.setLoadRecord(1, 0, 0x0000, 1);
        // Record 0 loads nothing; bank 11 has room for a long list of it.
        game.config.pahTileLoadType2.dBank = {test::layout::kFixedBank, test::layout::kFixedBank};
        game.setPointer(&GameConfig::pahTileLoadType2, 0, 0x8000);
        game.write(cpuToFileOffset({test::layout::kFixedBank, 0},
                                   static_cast<std::uint32_t>(0x8000 + position)),
                   {1});
        const TestCore core(game);
        EXPECT_EQ(core.graphics.patternMemory[0], position < 4096 ? 0xFF : 0x00) << position;
    }
}

TEST(Type2LoadsTest, ApplyingAgainDoesNotClearFirst)
{
    TestRom game;
    game.setType2Graphics(0, solidTile(3));
    game.setLoadRecord(0, 0, 0x0000, 1);
    game.setType2Loads(1, {0});
    TestCore core(game);
    core.graphics.patternMemory[0x20] = 0x99;
    core.store.pahTileLoadType2.selectRoom(1);
    core.graphics.applyType2Loads();
    EXPECT_EQ(core.graphics.patternMemory[0x00], 0xFF);
    EXPECT_EQ(core.graphics.patternMemory[0x20], 0x99);
}

// The background block that a slot's number and attribute choose, as 64 equal bytes.
class BackgroundBlocksTest : public testing::Test {
protected:
    BackgroundBlocksTest()
    {
        for (unsigned bank = 0; bank < 4; ++bank) {
            for (unsigned number = 0; number < 16; ++number)
                game.setBackgroundBlock(bank, number,
                                        Bytes(64, static_cast<std::uint8_t>(16 * bank + number)));
        }
        tileLoad.resize(96);
    }

    TestRom game;
    Bytes tileLoad;
};

TEST_F(BackgroundBlocksTest, HighNibbleIsTheEvenBlocksAttribute)
{
    tileLoad[0] = 5;
    tileLoad[1] = 6;
    tileLoad[62] = 7;
    tileLoad[63] = 8;
    tileLoad[64] = 0x12; // blocks 0 and 1: banks 1 and 2
    tileLoad[95] = 0x30; // blocks 62 and 63: banks 3 and 0
    game.setTileLoad(0, tileLoad);
    const TestCore core(game);
    EXPECT_EQ(patternBytes(core, 0x1000, 64), Bytes(64, 0x15));
    EXPECT_EQ(patternBytes(core, 0x1040, 64), Bytes(64, 0x26));
    EXPECT_EQ(patternBytes(core, 0x1F80, 64), Bytes(64, 0x37));
    EXPECT_EQ(patternBytes(core, 0x1FC0, 64), Bytes(64, 0x08));
}

TEST_F(BackgroundBlocksTest, Bit3OfTheAttributeIsIgnored)
{
    tileLoad[0] = 5;
    tileLoad[64] = 0x90;
    game.setTileLoad(0, tileLoad);
    EXPECT_EQ(patternBytes(TestCore(game), 0x1000, 64), Bytes(64, 0x15));
}

TEST_F(BackgroundBlocksTest, BlockNumberCountsBlocksOf64Bytes)
{
    game.setBackgroundBlock(0, 255, Bytes(64, 0xEE));
    tileLoad[0] = 255;
    game.setTileLoad(0, tileLoad);
    EXPECT_EQ(patternBytes(TestCore(game), 0x1000, 64), Bytes(64, 0xEE));
}

TEST_F(BackgroundBlocksTest, MirrorBitExchangesColumnsAndReversesBits)
{
    game.setBackgroundBlock(
        0, 20, joined({Bytes(16, 0x01), Bytes(16, 0x02), Bytes(16, 0x0F), Bytes(16, 0xB0)}));
    tileLoad[0] = 20;
    tileLoad[64] = 0x40;
    game.setTileLoad(0, tileLoad);
    const TestCore core(game);
    EXPECT_EQ(patternBytes(core, 0x1000, 64),
              joined({Bytes(16, 0xF0), Bytes(16, 0x0D), Bytes(16, 0x80), Bytes(16, 0x40)}));
}

TEST_F(BackgroundBlocksTest, BlocksOverwriteType2LoadsOfPatternTable1)
{
    game.setType2Graphics(0, Bytes(32, 0xEE));
    game.setLoadRecord(0, 0, 0x0FF0, 2);
    game.setType2Loads(0, {0});
    const TestCore core(game);
    EXPECT_EQ(patternBytes(core, 0x0FF0, 16), Bytes(16, 0xEE));
    EXPECT_EQ(patternBytes(core, 0x1000, 16), Bytes(16, 0x00));
}

TEST_F(BackgroundBlocksTest, OneSlotCanBeRebuilt)
{
    TestCore core(game);
    core.rom.writeByte(core.store.pahTileLoad.dataFileOffset(core.store.pahTileLoad.pointerOf()),
                       9);
    core.graphics.buildBackgroundBlock(0);
    EXPECT_EQ(patternBytes(core, 0x1000, 64), Bytes(64, 0x09));
    EXPECT_EQ(patternBytes(core, 0x1040, 64), Bytes(64, 0x00));
}

TEST_F(BackgroundBlocksTest, SlotsFrom64OnDoNotExist)
{
    TestCore core(game);
    const auto before = core.graphics.patternMemory;
    core.graphics.buildBackgroundBlock(64);
    core.graphics.buildBackgroundBlock(0xFFFFFFFF);
    EXPECT_EQ(core.graphics.patternMemory, before);
}

TEST(ImageWithoutBytesTest, EverythingIsFiller)
{
    TestRom game;
    game.bytes.clear();
    const TestCore core(game);
    // Block number and attributes read as $55: bank 1, mirrored, so $55 turns into $AA. The load
    // list's bytes name record $55, whose 85 tiles go to $5555.
    EXPECT_EQ(patternBytes(core, 0x1000, 0x1000), Bytes(0x1000, 0xAA));
    EXPECT_EQ(patternBytes(core, 0, 0x1000), Bytes(0x1000));
}

// A palette block whose entry n holds colour n.
Bytes countedPalette()
{
    Bytes palette;
    for (unsigned n = 0; n < 32; ++n)
        palette.push_back(static_cast<std::uint8_t>(n));
    return palette;
}

TEST(PaletteTest, MetatileColour0IsAlwaysTheFirstSpriteEntry)
{
    TestRom game;
    game.setPalette(0, countedPalette());
    const TestCore core(game);
    EXPECT_EQ(core.graphics.metatileColours(0), (ColourSet4{nes(16), nes(1), nes(2), nes(3)}));
    EXPECT_EQ(core.graphics.metatileColours(3), (ColourSet4{nes(16), nes(13), nes(14), nes(15)}));
}

TEST(PaletteTest, MetatilePalettes4To7AreTheSpriteSets)
{
    TestRom game;
    game.setPalette(0, countedPalette());
    const TestCore core(game);
    EXPECT_EQ(core.graphics.metatileColours(5), (ColourSet4{nes(16), nes(21), nes(22), nes(23)}));
    EXPECT_EQ(core.graphics.metatileColours(13), core.graphics.metatileColours(5));
}

TEST(PaletteTest, SpriteColoursAreTheSetsFourEntries)
{
    TestRom game;
    game.setPalette(0, countedPalette());
    const TestCore core(game);
    EXPECT_EQ(core.graphics.spriteColours(0), (ColourSet4{nes(16), nes(17), nes(18), nes(19)}));
    EXPECT_EQ(core.graphics.spriteColours(3), (ColourSet4{nes(28), nes(29), nes(30), nes(31)}));
}

TEST(PaletteTest, OnlySixBitsOfAColourNumberCount)
{
    TestRom game;
    game.setPalette(0, Bytes(32, 0xC5));
    const TestCore core(game);
    EXPECT_EQ(core.graphics.colour(0x45), nes(5));
    EXPECT_EQ(core.graphics.metatileColours(0), (ColourSet4{nes(5), nes(5), nes(5), nes(5)}));
}

// The four tiles of background block 0 have the values 1, 2, 3 and 0.
class MetatileDrawingTest : public testing::Test {
protected:
    MetatileDrawingTest()
    {
        game.setBackgroundBlock(0, 0,
                                joined({solidTile(1), solidTile(2), solidTile(3), solidTile(0)}));
        game.setBackgroundBlock(0, 63, Bytes(64, 0xFF));
        Bytes tileLoad(96);
        for (std::uint8_t slot = 0; slot < 64; ++slot)
            tileLoad[slot] = slot;
        game.setTileLoad(0, tileLoad);
        game.setPalette(0, countedPalette());
    }

    TestRom game;
};

TEST_F(MetatileDrawingTest, TilesGoDownTheColumns)
{
    const TestCore core(game);
    PixelImage image(18, 17, 0xABCDEF);
    core.graphics.drawMetatile(image, 1, 2, 0, 5);
    EXPECT_EQ(image.at(2, 1), nes(21));   // value 1, top left
    EXPECT_EQ(image.at(9, 8), nes(21));   // its last pixel
    EXPECT_EQ(image.at(2, 9), nes(22));   // value 2, bottom left
    EXPECT_EQ(image.at(10, 1), nes(23));  // value 3, top right
    EXPECT_EQ(image.at(10, 9), nes(16));  // value 0, bottom right
    EXPECT_EQ(image.at(17, 16), nes(16)); // its last pixel
    EXPECT_EQ(image.at(1, 1), 0xABCDEFU);
    EXPECT_EQ(image.at(2, 0), 0xABCDEFU);
}

TEST_F(MetatileDrawingTest, TilesPast255WrapWithinTheirTable)
{
    TestCore core(game);
    core.graphics.patternMemory[0] = 0x55; // pattern table 0 must not show
    PixelImage image(16, 16);
    const ColourSet4 colours = {0x10, 0x11, 0x12, 0x13};
    core.graphics.drawMetatileWithColours(image, 0, 0, 254, colours);
    EXPECT_EQ(image.at(0, 0), 0x13U); // tile 254
    EXPECT_EQ(image.at(0, 8), 0x13U); // tile 255
    EXPECT_EQ(image.at(8, 0), 0x11U); // tile 0
    EXPECT_EQ(image.at(8, 8), 0x12U); // tile 1
}

TEST_F(MetatileDrawingTest, MetatilesOutsideTheImageDrawNothing)
{
    const TestCore core(game);
    PixelImage image(16, 16, 0xABCDEF);
    constexpr int kMost = std::numeric_limits<int>::max();
    for (const auto& [y, x] : {std::pair{16, 0}, {0, 16}, {kMost, kMost}, {-1, 0}, {0, -1}})
        core.graphics.drawMetatile(image, y, x, 0, 0);
    EXPECT_EQ(image, PixelImage(16, 16, 0xABCDEF));
}

TEST_F(MetatileDrawingTest, SingleTileIsOpaqueAndOfTheBackgroundTable)
{
    const TestCore core(game);
    PixelImage image(8, 8, 0xABCDEF);
    const ColourSet4 colours = {0x10, 0x11, 0x12, 0x13};
    core.graphics.drawSingleTile(image, 0, 0, 1, colours);
    EXPECT_EQ(image, PixelImage(8, 8, 0x12));
    core.graphics.drawSingleTile(image, 0, 0, 3, colours);
    EXPECT_EQ(image, PixelImage(8, 8, 0x10));
}

TEST_F(MetatileDrawingTest, SpriteTileIsTransparentAndOfTheSpriteTable)
{
    TestCore core(game);
    core.graphics.patternMemory[0x20] = 0x81; // tile 2: two pixels of value 1 in its first row
    PixelImage image(8, 8, 0xABCDEF);
    const ColourSet4 colours = {0x10, 0x11, 0x12, 0x13};
    core.graphics.drawSpriteTile(image, 0, 0, 2, colours);
    PixelImage expected(8, 8, 0xABCDEF);
    expected.row(0)[0] = 0x11;
    expected.row(0)[7] = 0x11;
    EXPECT_EQ(image, expected);
}

} // namespace
} // namespace velko
