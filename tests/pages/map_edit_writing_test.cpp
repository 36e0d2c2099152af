// What "Convert and Write" leaves in the ROM, and the limit of 146 blocks.

#include "pages/map_edit_model.h"
#include "tests/pages/map_edit_rom.h"
#include "tests/pages/random_screens.h"

#include <algorithm>
#include <rapidcheck/gtest.h>

namespace velko::test {
namespace {

constexpr const char* kLimitWarning =
    "Surpassed Tile32 limit while converting. Max is 146. The Room will not look properly in the "
    "ROM until Tile32 usage is lowered to 146 or less. You should try to either make the room "
    "smaller, use a less amount of unique Tiles, or make the room design follow repeated patterns.";
constexpr const char* kLimitStatus = "Tile32 LIMIT EXCEEDED!";

class MapEditWritingTest : public MapEditTest {
protected:
    // The first bytes of the room's Tile32 set.
    Bytes setBytes(std::uint32_t count)
    {
        return bytesAt(state.store.pahTile32.dataFileOffset(state.store.pahTile32.pointerOf()),
                       count);
    }
};

// Records and numbers

TEST_F(MapEditWritingTest, SetIsWrittenAsRecordsOfSevenBytes)
{
    model.convertAndWrite();
    EXPECT_EQ(setBytes(28), (Bytes{0,  0,  0,  0,  0,    0,    0,    // screen 0
                                   4,  8,  12, 16, 0xE4, 0x12, 0x34, // screen 1
                                   4,  4,  12, 12, 0x44, 0x11, 0x33, // its last row
                                   20, 20, 20, 20, 0x55, 0x55, 0x55}));
}

TEST_F(MapEditWritingTest, ScreensAreWrittenWithTheNewNumbers)
{
    model.convertAndWrite();
    Bytes second(64, 1);
    std::fill(second.begin() + 56, second.end(), 2);
    EXPECT_EQ(screenBytes(0x8600), Bytes(64, 0));
    EXPECT_EQ(screenBytes(0x8640), second);
    EXPECT_EQ(screenBytes(0x8680), Bytes(64, 3));
}

TEST_F(MapEditWritingTest, UnusedRecordsAreWrittenAsZerosAndTheRestIsLeftAlone)
{
    PointerArrayHandler& sets = state.store.pahTile32;
    for (std::uint32_t i = 0; i < 1024 + 8; ++i) {
        if (i >= 21)
            sets.setDataByte(i, 0xAB);
    }
    const Bytes before = image();
    model.refresh();
    model.convertAndWrite();
    Bytes expected = setBytes(28);
    expected.resize(1022);
    expected.insert(expected.end(), 10, 0xAB);
    EXPECT_EQ(setBytes(1032), expected);
    // Nothing else in the file has changed but the screens.
    const std::uint32_t set = sets.dataFileOffset(sets.pointerOf());
    const std::uint32_t screens = state.renderer.screenFileOffset(0x8600);
    const Bytes after = image();
    for (std::uint32_t i = 0; i < after.size(); ++i) {
        if (after[i] != before[i]) {
            EXPECT_TRUE((i >= set && i < set + 1022) || (i >= screens && i < screens + 192)) << i;
        }
    }
}

TEST_F(MapEditWritingTest, ScreensThatOverlapAreEachWrittenOnceInTheOrderOfTheList)
{
    // The second screen starts in the middle of the first, which is named again behind it. Were
    // it written again, the upper half of the second would be gone.
    game.setScreenList(0, {0x8900, 0x8920, 0x8900});
    game.write(cpuToFileOffset(game.config.phMapScreenData, 0x8900), Bytes(96, 0));
    start();
    selectBlock(5);
    paint(0, 1, 0, 0);
    model.convertAndWrite();
    const Bytes bytes = screenBytes(0x8900);
    EXPECT_EQ(bytes[0], 0);
    EXPECT_EQ(bytes[32], 1);
}

TEST_F(MapEditWritingTest, UnpackedAgainTheRoomIsAsItWasPainted)
{
    selectBlock(9);
    model.setMode(MapEditMode::kTile);
    paint(0, 1, 0, 0);
    paint(0, 1, 14, 15);
    paint(0, 2, 13, 1);
    model.setMode(MapEditMode::kPhysics);
    selectPhysics(15);
    paint(0, 2, 14, 3);
    std::vector<ScreenMap16> painted;
    for (std::uint32_t i = 0; i < 3; ++i)
        painted.push_back(model.screens().at(i).cells);
    model.convertAndWrite();
    model.refresh();
    for (std::uint32_t i = 0; i < 3; ++i)
        EXPECT_EQ(model.screens().at(i).cells, painted[i]) << "screen " << i;
    EXPECT_EQ(cell(2, 14, 3), (Bytes{20, 1, 15}));
}

TEST_F(MapEditWritingTest, RepeatedPatternIsOneBlock)
{
    game.setScreenList(0, {0x8600});
    start();
    EXPECT_EQ(model.usedText(), "1");
}

// A room of four empty screens, of which the user may paint three.
class MapEditLimitTest : public MapEditWritingTest {
protected:
    MapEditLimitTest()
    {
        std::vector<std::uint16_t> screens;
        for (int i = 0; i < 4; ++i)
            screens.push_back(game.addScreen(Bytes(64)));
        game.setScreenList(0, screens);
        game.setLayout(0, 4, 1, {0, 1, 2, 3});
        start();
    }

    // Makes group `number` (from 0 on, 56 to a screen) unlike all others: its top-left cell is
    // of a block of its own up to number 62, the next ones differ in the palette.
    void paintGroup(std::uint32_t number)
    {
        model.setMode(MapEditMode::kTileCombined);
        selectBlock(1 + number % 63);
        selectPalette(static_cast<int>(number / 63));
        paintSelected(number);
    }
    void clearGroup(std::uint32_t number)
    {
        model.setMode(MapEditMode::kTileCombined);
        selectBlock(0);
        paintSelected(number);
    }
    void paintGroups(std::uint32_t begin, std::uint32_t end)
    {
        for (std::uint32_t number = begin; number < end; ++number)
            paintGroup(number);
    }
    std::uint8_t numberOf(std::uint32_t group) const
    {
        return model.tile32Numbers()[1 + group / 56][group % 56];
    }

private:
    void paintSelected(std::uint32_t number)
    {
        paint(0, static_cast<int>(1 + number / 56), static_cast<int>(number % 56 / 8 * 2),
              static_cast<int>(number % 8 * 2));
    }
};

TEST_F(MapEditLimitTest, The147thGroupAndAllNewOnesBehindItBecomeBlock0)
{
    paintGroups(0, 145); // the empty group is the first of 146
    EXPECT_EQ(model.usedText(), "146");
    EXPECT_EQ(model.statusText(), "");
    EXPECT_EQ(numberOf(144), 145);
    paintGroups(145, 150);
    EXPECT_EQ(model.usedText(), "146");
    EXPECT_EQ(model.statusText(), kLimitStatus);
    EXPECT_TRUE(model.packing().limitExceeded());
    for (std::uint32_t group = 145; group < 150; ++group)
        EXPECT_EQ(numberOf(group), 0);
    // In the model the groups are kept.
    EXPECT_NE(cell(3, 8, 2), (Bytes{0, 0, 0}));
}

TEST_F(MapEditLimitTest, RoomOverTheLimitIsWrittenWithBlock0)
{
    paintGroups(0, 147);
    model.convertAndWrite();
    EXPECT_EQ(model.statusText(), kLimitStatus);
    const std::uint16_t lastScreen = model.screens().at(3).address;
    EXPECT_EQ(cellInRom(lastScreen, 8, 0), (Bytes{4 * 19, 2, 0})); // group 144
    EXPECT_EQ(cellInRom(lastScreen, 8, 2), (Bytes{0, 0, 0}));      // group 145
    model.refresh();
    EXPECT_EQ(model.statusText(), "");
    EXPECT_EQ(model.usedText(), "146");
}

TEST_F(MapEditLimitTest, StatusIsClearedOnceTheRoomFitsAgain)
{
    paintGroups(0, 146);
    EXPECT_EQ(model.statusText(), kLimitStatus);
    clearGroup(3);
    EXPECT_EQ(model.statusText(), "");
    EXPECT_EQ(model.usedText(), "146");
    EXPECT_NE(numberOf(145), 0);
}

TEST_F(MapEditLimitTest, RoomThatNeedsTooManyBlocksFromTheStartIsTold)
{
    // 200 different records.
    Bytes set;
    Bytes numbers;
    for (std::uint8_t i = 0; i < 200; ++i) {
        const Bytes record = {i, 0, 0, 0, 0, 0, 0};
        set.insert(set.end(), record.begin(), record.end());
        numbers.push_back(i);
    }
    numbers.resize(256);
    PointerArrayHandler& sets = state.store.pahTile32;
    for (std::uint32_t i = 0; i < set.size(); ++i)
        sets.setDataByte(i, set[i]);
    for (std::uint32_t i = 0; i < 256; ++i)
        state.rom.writeByte(state.renderer.screenFileOffset(model.screens().at(0).address) + i,
                            numbers[i]);
    model.refresh();
    EXPECT_EQ(model.statusText(), kLimitStatus);
    EXPECT_EQ(model.usedText(), "146");
}

// The warning

TEST_F(MapEditLimitTest, WithoutTheSwitchNoBoxIsShown)
{
    EXPECT_FALSE(state.warnsOfTile32Limit);
    paintGroups(0, 146); // the prompt expects nothing
    EXPECT_EQ(model.statusText(), kLimitStatus);
}

TEST_F(MapEditLimitTest, WarningComesOnceAndAgainAfterFewerThan144Blocks)
{
    state.warnsOfTile32Limit = true;
    paintGroups(0, 145);
    prompt.expect(kLimitWarning);
    paintGroup(145);
    EXPECT_TRUE(prompt.done());
    paintGroups(146, 148);

    clearGroup(147);
    clearGroup(146);
    clearGroup(145);
    clearGroup(144);
    clearGroup(143);
    EXPECT_EQ(model.usedText(), "144"); // not yet
    paintGroups(143, 148);
    EXPECT_EQ(model.statusText(), kLimitStatus);

    for (std::uint32_t group = 148; group-- > 142;)
        clearGroup(group);
    EXPECT_EQ(model.usedText(), "143");
    paintGroups(142, 145);
    EXPECT_EQ(model.usedText(), "146");
    prompt.expect(kLimitWarning);
    paintGroup(145);
    EXPECT_TRUE(prompt.done());
}

TEST_F(MapEditLimitTest, WarningIsNotRepeatedInRoomsWithoutAMap)
{
    state.warnsOfTile32Limit = true;
    paintGroups(0, 145);
    prompt.expect(kLimitWarning);
    paintGroup(145);
    model.convertAndWrite(); // packs again, warns no more
    state.store.pahMapLayout.setEntryByte(3, 0);
    model.refresh(); // no blocks in use, but nothing was packed
    state.store.pahMapLayout.setEntryByte(3, 1);
    model.refresh();
    paintGroup(145);
    paintGroup(146);
    EXPECT_EQ(model.statusText(), kLimitStatus);
}

TEST_F(MapEditLimitTest, WarningIsNotRepeatedInAnotherRoomUntilOneNeedsFewBlocks)
{
    // 200 different records on the four screens, for rooms 0 and 2.
    PointerArrayHandler& sets = state.store.pahTile32;
    for (std::uint32_t i = 0; i < 200; ++i)
        sets.setDataByte(7 * i, static_cast<std::uint8_t>(i));
    const auto screens = state.renderer.screenFileOffset(model.screens().at(0).address);
    for (std::uint32_t i = 0; i < 200; ++i)
        state.rom.writeByte(screens + i, static_cast<std::uint8_t>(i));
    for (PointerArrayHandler* handler : {&sets, &state.store.pahMapAlloc})
        handler->setPointer(2, handler->pointerOf(0));
    state.warnsOfTile32Limit = true;
    prompt.expect(kLimitWarning);
    model.refresh();
    EXPECT_TRUE(prompt.done());
    selectRoom(2);
    EXPECT_EQ(model.statusText(), kLimitStatus);
    selectRoom(1); // of a few blocks
    EXPECT_EQ(model.statusText(), "");
    prompt.expect(kLimitWarning);
    selectRoom(0);
    EXPECT_TRUE(prompt.done());
}

// Any room

RC_GTEST_PROP(MapEditProperty, WrittenAndReadAgainRandomRoomsAndTheirSharersLookTheSame,
              (std::uint32_t seed))
{
    constexpr std::uint32_t kBlocks = 60; // and as many more in last rows at the most
    std::mt19937 random(seed);
    const auto byte = [&] { return static_cast<std::uint8_t>(random() & 0xFF); };
    TestRom game(3);
    std::vector<Tile32Record> records(kBlocks);
    for (Tile32Record& record : records)
        std::generate(record.begin(), record.end(), byte);
    const std::uint16_t set = game.setTile32(0, records);
    std::vector<std::uint16_t> screens;
    for (int i = 0; i < 12; ++i) {
        Bytes numbers(64);
        for (std::uint8_t& number : numbers)
            number = static_cast<std::uint8_t>(byte() % kBlocks);
        screens.push_back(game.addScreen(numbers));
    }
    for (std::uint32_t room = 0; room < 3; ++room) {
        std::vector<std::uint16_t> list;
        for (int i = 0; i < 6; ++i)
            list.push_back(screens[byte() % screens.size()]);
        game.setScreenList(room, list);
        game.setPointer(&GameConfig::pahTile32, room, set);
        game.setLayout(room, 3, 2, {5, 4, 3, 2, 1, 0});
    }
    EditorState state;
    game.loadInto(state);
    ScriptedPrompt prompt;
    MapEditModel model(state, prompt);
    model.refresh();
    for (int i = 0; i < 10; ++i) {
        model.selectBlockAt({byte(), byte()});
        model.applyLeft({byte(), byte()});
    }
    RC_ASSERT(!model.packing().limitExceeded());
    std::vector<ScreenMap16> painted;
    for (const MapEditScreen& screen : model.screens().all())
        painted.push_back(screen.cells);

    model.convertAndWrite();
    model.refresh();
    RC_ASSERT(model.screens().all().size() == painted.size());
    for (std::size_t i = 0; i < painted.size(); ++i)
        RC_ASSERT(model.screens().all()[i].cells == painted[i]);
}

} // namespace
} // namespace velko::test
