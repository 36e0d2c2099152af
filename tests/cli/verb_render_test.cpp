#include "rom/number_text.h"
#include "tests/cli/demo_state.h"
#include "tests/cli/render_fixture.h"

#include <algorithm>
#include <random>

namespace velko {
namespace {

using test::CliOutcome;
using test::kDemoRooms;
using test::kLayoutTable;
using test::OpenGame;
using test::RenderTest;
using ::testing::EndsWith;
using ::testing::HasSubstr;

// What is drawn

TEST_F(RenderTest, RoomAsTheWindowsShowIt)
{
    OpenGame game;
    for (const std::uint8_t room : {std::uint8_t{0x00}, std::uint8_t{0x20}, std::uint8_t{0x3E}}) {
        PixelImage shown;
        game.state.renderer.renderRoomPicture(room, shown);
        EXPECT_EQ(render({"--room", hexText(room)}), shown) << hexText(room);
    }
}

TEST_F(RenderTest, RoomWithoutAMapIsOneScreen)
{
    const PixelImage image = render({"--room", "3e"});
    EXPECT_EQ(image.width(), 256U);
    EXPECT_EQ(image.height(), 240U);
}

TEST_F(RenderTest, ScaleEnlargesPixels)
{
    const PixelImage large = render({"--room", "12", "--scale", "3"});
    EXPECT_EQ(large, test::enlarged(render({"--room", "12"}), 3));
}

// All rooms

TEST_F(RenderTest, AllRoomsOfTheDemo)
{
    const CliOutcome outcome = renderAll("demo.nes");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 10);
    EXPECT_THAT(outcome.err, EndsWith("111 of 111 rooms\n"));
    OpenGame game;
    for (std::uint32_t room = 0; room < kDemoRooms; ++room) {
        PixelImage shown;
        game.state.renderer.renderRoomPicture(static_cast<std::uint8_t>(room), shown);
        const std::string digits = room < 16 ? "0" + hexText(room) : hexText(room);
        EXPECT_EQ(picture("all/room_" + digits + ".png"), shown) << digits;
    }
    EXPECT_FALSE(exists("all/room_6f.png"));
}

TEST_F(RenderTest, AllTakesUnitsAndScale)
{
    EXPECT_EQ(renderAll("demo.nes", {"--units", "--scale", "2"}).status, 0);
    EXPECT_EQ(picture("all/room_20.png"), render({"--room", "20", "--units", "--scale", "2"}));
}

TEST_F(RenderTest, AllGoesOnPastARoomThatIsTooLarge)
{
    const CliOutcome outcome = renderAll(gameWithSize(5, 255, 255));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err,
                EndsWith("velko-cli: room 5: 253 x 255 screens are too large for a picture\n"));
    EXPECT_FALSE(exists("all/room_05.png"));
    EXPECT_TRUE(exists("all/room_04.png"));
    EXPECT_TRUE(exists("all/room_6e.png"));
}

TEST_F(RenderTest, AllIntoAFile)
{
    const std::string file = write("all", std::string_view("mine"));
    expectFailure(renderAll("demo.nes"), file + ": is no folder, and none can be made");
    EXPECT_EQ(loadTextFile(pathFromUtf8(file)), "mine");
}

TEST_F(RenderTest, AllStopsWhenAFileCannotBeWritten)
{
    std::filesystem::create_directories(pathFromUtf8(path("all/room_00.png")));
    const CliOutcome outcome = renderAll("demo.nes");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err,
                HasSubstr("velko-cli: " + path("all/room_00.png") + ": is no regular file\n"));
    EXPECT_THAT(outcome.err, ::testing::Not(HasSubstr("111 of 111")));
}

TEST_F(RenderTest, AllIntoAFolderWhereNothingCanBeMade)
{
    expectFailure(run({"render", "demo.nes", "--all", "-o", "/proc/self"}),
                  "/proc/self/room_00.png: cannot be written");
    expectFailure(run({"render", "demo.nes", "--all", "-o", "/proc/self/rooms"}),
                  "/proc/self/rooms: is no folder, and none can be made");
}

// What is refused

TEST_F(RenderTest, RoomThatIsTooLarge)
{
    const CliOutcome outcome = tryToRender({"--room", "5"}, gameWithSize(5, 255, 255));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "velko-cli: room 5: 253 x 255 screens are too large for a picture\n");
    EXPECT_FALSE(exists("picture.png"));
}

TEST_F(RenderTest, RoomThatIsTooLargeWhenEnlarged)
{
    const CliOutcome outcome =
        tryToRender({"--room", "5", "--scale", "16", "--units"}, gameWithSize(5, 12, 10));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "velko-cli: room 5: 10 x 10 screens at scale 16 are too large for a picture\n");
}

TEST_F(RenderTest, RoomThatTheGameDoesNotHave)
{
    const std::string reason =
        "there is no room 6f: the game has 111 rooms, counted from 0 in hexadecimal";
    expectFailure(tryToRender({"--room", "6f"}), reason);
    expectFailure(tryToRender({"--tiles", "6f"}), reason);
    expectFailure(tryToRender({"--screen", "8600", "--room", "6f"}), reason);
}

TEST_F(RenderTest, RomThatIsNotThere)
{
    expectFailure(tryToRender({"--room", "0"}, "none.nes"),
                  "none.nes: cannot be read, or is empty");
    expectFailure(renderAll("none.nes"), "none.nes: cannot be read, or is empty");
    EXPECT_FALSE(exists("all"));
}

TEST_F(RenderTest, FolderThatIsNotThere)
{
    const std::string file = path("no/such.png");
    expectFailure(run({"render", "demo.nes", "--room", "0", "-o", file}),
                  file + ": cannot be written");
}

struct Misuse {
    std::vector<std::string> options;
    std::string reason;
};

class RenderMisuse : public RenderTest, public ::testing::WithParamInterface<Misuse> { };

TEST_P(RenderMisuse, IsToldInOneLine)
{
    expectFailure(tryToRender(GetParam().options),
                  GetParam().reason + " (see velko-cli render --help)");
    EXPECT_FALSE(exists("picture.png"));
}

const std::string kOnlyOne =
    "only one of --room, --all, --screen, --overworld and --tiles can be drawn";
const std::string kNoUnits = "--units needs --room or --all";

INSTANTIATE_TEST_SUITE_P(
    Options, RenderMisuse,
    ::testing::Values(
        Misuse{{}, "what to draw is missing: --room, --all, --screen, --overworld or --tiles"},
        Misuse{{"--room", "0", "--all"}, kOnlyOne},
        Misuse{{"--overworld", "--tiles", "0"}, kOnlyOne},
        Misuse{{"--overworld", "--room", "0"}, kOnlyOne},
        Misuse{{"--screen", "8600", "--all"}, kOnlyOne},
        Misuse{{"--overworld", "--units"}, kNoUnits}, Misuse{{"--tiles", "0", "--units"}, kNoUnits},
        Misuse{{"--screen", "8600", "--room", "0", "--units"}, kNoUnits},
        Misuse{{"--room", "0", "--scale", "0"}, "--scale: Value 0 not in range 1 to 16"},
        Misuse{{"--room", "0", "--scale", "17"}, "--scale: Value 17 not in range 1 to 16"},
        Misuse{{"--room", "100"}, "--room: \"100\" is no hexadecimal number from 0 to ff"},
        Misuse{{"--screen", "10000"},
               "--screen: \"10000\" is no hexadecimal number from 0 to ffff"},
        Misuse{{"--tiles", "x"}, "--tiles: \"x\" is no hexadecimal number from 0 to ff"}));

// Damaged games: whatever is drawn, everything ends in order.

TEST_F(RenderTest, CutRoms)
{
    const std::vector<std::uint8_t> bytes = demoBytes();
    for (const std::size_t size : {1U, 16U, 0x2000U, 0x20010U, 0x3D200U}) {
        const std::string rom = write("cut.nes", std::span(bytes).first(size));
        EXPECT_LE(renderAll(rom, {"--units"}).status, 1) << size;
        EXPECT_EQ(tryToRender({"--overworld"}, rom).status, 0) << size;
        EXPECT_EQ(tryToRender({"--tiles", "6e"}, rom).status, 0) << size;
        EXPECT_EQ(tryToRender({"--screen", "ffff"}, rom).status, 0) << size;
    }
}

TEST_F(RenderTest, RomsOfOneByte)
{
    for (const int value : {0x00, 0x01, 0x80, 0xFF}) {
        const auto byte = static_cast<std::uint8_t>(value);
        const std::vector<std::uint8_t> bytes(0x40010, byte);
        const std::string rom = write("same.nes", bytes);
        // 0 and 1: every room has one screen; 80 and ff: every room is too large.
        EXPECT_EQ(renderAll(rom, {"--units"}).status, value < 2 ? 0 : 1) << value;
        EXPECT_EQ(tryToRender({"--overworld"}, rom).status, 0) << value;
    }
}

TEST_F(RenderTest, RoomsOfRandomBytes)
{
    std::vector<std::uint8_t> bytes = demoBytes();
    std::mt19937 random(1);
    // All but the layout table, so that rooms keep their sizes.
    for (std::size_t i = 16; i < bytes.size(); ++i) {
        if (i < kLayoutTable || i >= kLayoutTable + 4 * kDemoRooms)
            bytes[i] = static_cast<std::uint8_t>(random());
    }
    const std::string rom = write("random.nes", bytes);
    EXPECT_EQ(renderAll(rom, {"--units"}).status, 0);
    EXPECT_EQ(tryToRender({"--overworld"}, rom).status, 0);
}

} // namespace
} // namespace velko
