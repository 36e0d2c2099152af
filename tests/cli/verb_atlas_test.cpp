#include "tests/cli/cli_fixture.h"
#include "tests/cli/demo_state.h"
#include "tests/cli/png_reader.h"
#include "tests/cli/site_reader.h"

namespace velko {
namespace {

namespace fs = std::filesystem;

using test::CliOutcome;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

// Tables of the demo: layouts (width and height at bytes 2 and 3 of four), and four exits a room.
constexpr std::size_t kLayoutTable = 0x3D110;
constexpr std::size_t kExitRooms = 0x3D690;
constexpr std::size_t kExitEntrances = 0x3D850;

std::span<const std::uint8_t> bytesOf(std::string_view text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

class AtlasTest : public test::CliTest {
protected:
    CliOutcome atlas(const std::string& rom = "demo.nes") const
    {
        return run({"atlas", rom, "-o", path("site")});
    }
    test::SiteReader site() const { return test::SiteReader(pathFromUtf8(path("site"))); }
    std::string page(const std::string& name) const { return site().file(name); }
    bool exists(const std::string& name) const { return fs::exists(pathFromUtf8(path(name))); }
    // A copy of the demo's folder, to change its module.
    std::string demoCopy() const
    {
        fs::copy(VELKO_DEMO_DIR, pathFromUtf8(path("copy")), fs::copy_options::recursive);
        return path("copy");
    }
};

TEST_F(AtlasTest, WritesPagesAndPicturesOfAllRooms)
{
    const CliOutcome outcome = atlas();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, EndsWith("111 of 111 rooms\n"));
    std::size_t files = 0;
    for (const auto& entry : fs::directory_iterator(pathFromUtf8(path("site"))))
        files += entry.is_regular_file() ? 1 : 0;
    // Two for each room; index, graph, style sheet, script, overworld.
    EXPECT_EQ(files, 2U * 111 + 5);
    EXPECT_TRUE(exists("site/room_00.html"));
    EXPECT_TRUE(exists("site/room_6e.html"));
    site().expectWhole();
}

TEST_F(AtlasTest, PicturesAreThoseOfRender)
{
    ASSERT_EQ(atlas().status, 0);
    const std::string png = path("room.png");
    ASSERT_EQ(run({"render", "demo.nes", "--room", "20", "--units", "-o", png}).status, 0);
    EXPECT_EQ(loadFile(pathFromUtf8(path("site/room_20.png"))), loadFile(pathFromUtf8(png)));
    ASSERT_EQ(run({"render", "demo.nes", "--overworld", "-o", png}).status, 0);
    EXPECT_EQ(loadFile(pathFromUtf8(path("site/overworld.png"))), loadFile(pathFromUtf8(png)));
}

TEST_F(AtlasTest, IndexShowsAllRoomsLazily)
{
    ASSERT_EQ(atlas().status, 0);
    EXPECT_EQ(site().values("index.html", "loading").count("lazy"), 111U);
    EXPECT_EQ(site().values("index.html", "href").count("room_6e.html"), 1U);
    EXPECT_THAT(page("index.html"), HasSubstr("Area 1: Clover Downs, the gate"));
}

TEST_F(AtlasTest, RoomPageTellsUnitsAndDoors)
{
    ASSERT_EQ(atlas().status, 0);
    const std::string html = page("room_02.html");
    EXPECT_THAT(html, HasSubstr("<h1>Room 02: Area 1: Clover Downs, the falls</h1>"));
    EXPECT_THAT(html, HasSubstr("3 &times; 2 screens"));
    EXPECT_THAT(html, HasSubstr("alt=\"Map of room 2, Area 1: Clover Downs, the falls\""));
    EXPECT_THAT(html, HasSubstr("<title>Hedgehog</title>"));
    EXPECT_THAT(html, HasSubstr("<title>Entrance 1</title>"));
    const auto links = site().values("room_02.html", "href");
    EXPECT_EQ(links.count("room_01.html#entrance-2"), 1U);
    EXPECT_EQ(links.count("room_03.html#entrance-1"), 1U);
    // One unit of this room has no placement.
    EXPECT_THAT(html, HasSubstr("1 more, without a placement"));
}

TEST_F(AtlasTest, RoomsLinkToTheirNeighbours)
{
    ASSERT_EQ(atlas().status, 0);
    EXPECT_THAT(page("room_00.html"), Not(HasSubstr("rel=\"prev\"")));
    EXPECT_THAT(page("room_00.html"), HasSubstr("<a rel=\"next\" href=\"room_01.html\">"));
    EXPECT_THAT(page("room_6e.html"), HasSubstr("<a rel=\"prev\" href=\"room_6d.html\">"));
    EXPECT_THAT(page("room_6e.html"), Not(HasSubstr("rel=\"next\"")));
}

TEST_F(AtlasTest, EveryPageHasLandmarksAndASkipLink)
{
    ASSERT_EQ(atlas().status, 0);
    for (const char* const name : {"index.html", "graph.html", "room_10.html"}) {
        const std::string html = page(name);
        EXPECT_THAT(html, HasSubstr("<html lang=\"en\">")) << name;
        EXPECT_THAT(html, HasSubstr("<a class=\"skip\" href=\"#main\">")) << name;
        for (const char* const landmark :
             {"<header>", "<nav aria-label=", "<main id=\"main\"", "<footer>"})
            EXPECT_THAT(html, HasSubstr(landmark)) << name;
    }
}

TEST_F(AtlasTest, ExitThatLeadsNowhereIsNoLink)
{
    std::vector<std::uint8_t> bytes = demoBytes();
    bytes[kExitRooms + 4 * 2] = 0x70;      // there are 111 = 6f rooms
    bytes[kExitEntrances + 4 * 2 + 1] = 3; // room 3 has no fourth entrance
    ASSERT_EQ(atlas(write("doors.nes", bytes)).status, 0);
    const std::string html = page("room_02.html");
    EXPECT_THAT(html, HasSubstr("room 70, entrance 2, which is not there"));
    EXPECT_THAT(html, HasSubstr("room 3, entrance 4, which is not there"));
    site().expectWhole();
}

TEST_F(AtlasTest, NamesAreEscaped)
{
    const std::string folder = demoCopy();
    const std::string lists = folder + "/modules/lantern_vale/";
    saveFile(pathFromUtf8(lists + "roomlist.txt"),
             bytesOf("<script>alert(1)</script>\n\" onload=\"x\ncaf\xE9\n"));
    saveFile(pathFromUtf8(lists + "unit.txt"), bytesOf("</title><b>"));
    fs::rename(pathFromUtf8(folder + "/demo.nes"), pathFromUtf8(folder + "/a & b.nes"));
    ASSERT_EQ(test::runWords({"-C", folder, "atlas", "a & b.nes", "-o", path("site")}).status, 0);
    site().expectWhole();
    for (const auto& entry : fs::directory_iterator(pathFromUtf8(path("site")))) {
        if (entry.path().extension() != ".html")
            continue;
        const std::string html = loadTextFile(entry.path()).value_or("");
        for (const char* const raw : {"alert(1)</script>", "onload=\"", "<b>", "\xE9"})
            EXPECT_EQ(html.find(raw), std::string::npos) << entry.path() << ": " << raw;
    }
    EXPECT_THAT(page("room_00.html"), HasSubstr("&#x3c;script&#x3e;alert(1)"));
    EXPECT_THAT(page("room_02.html"), HasSubstr("caf&#xe9;"));
    EXPECT_THAT(page("index.html"), HasSubstr("<h1>a &#x26; b</h1>"));
}

TEST_F(AtlasTest, WhatHasNoNameGoesByItsNumber)
{
    const std::string folder = demoCopy();
    const std::string lists = folder + "/modules/lantern_vale/";
    saveFile(pathFromUtf8(lists + "roomlist.txt"), bytesOf("\n \xC2\xA0\t\nThe third"));
    saveFile(pathFromUtf8(lists + "unit.txt"), bytesOf(std::string(200, '\n')));
    saveFile(pathFromUtf8(lists + "item.txt"), bytesOf(std::string(200, '\n')));
    ASSERT_EQ(test::runWords({"-C", folder, "atlas", "demo.nes", "-o", path("site")}).status, 0);
    site().expectWhole();
    EXPECT_THAT(page("room_00.html"), HasSubstr("<h1>Room 00</h1>"));
    EXPECT_THAT(page("room_00.html"), HasSubstr("alt=\"Map of room 0\""));
    EXPECT_THAT(page("room_01.html"), HasSubstr("<h1>Room 01</h1>"));
    EXPECT_THAT(page("room_02.html"), HasSubstr("<h1>Room 02: The third</h1>"));
    EXPECT_THAT(page("room_02.html"), HasSubstr("\"><span class=\"number\">Room 01</span></a>"));
    EXPECT_THAT(page("room_02.html"), HasSubstr("<title>type 28</title>"));
    EXPECT_THAT(page("index.html"), HasSubstr("cleared by item 1"));
}

TEST_F(AtlasTest, FilesAreSmallBesideThePictures)
{
    ASSERT_EQ(atlas().status, 0);
    std::uintmax_t pictures = 0;
    std::uintmax_t others = 0;
    for (const auto& entry : fs::directory_iterator(pathFromUtf8(path("site")))) {
        const std::uintmax_t size = entry.file_size();
        const bool isPicture = entry.path().extension() == ".png";
        (isPicture ? pictures : others) += size;
        if (!isPicture) {
            EXPECT_LE(size, 48U * 1024) << entry.path();
        }
    }
    EXPECT_LT(others, pictures);
}

TEST_F(AtlasTest, NothingIsFetchedByStyleOrScript)
{
    ASSERT_EQ(atlas().status, 0);
    for (const char* const word : {"http", "url(", "@import", "import(", "fetch", "//cdn"}) {
        EXPECT_THAT(page("atlas.css"), Not(HasSubstr(word)));
        EXPECT_THAT(page("atlas.js"), Not(HasSubstr(word)));
    }
}

TEST_F(AtlasTest, RoomThatIsTooLargeHasAPageWithoutAPicture)
{
    std::vector<std::uint8_t> bytes = demoBytes();
    bytes[kLayoutTable + 4 * 5 + 2] = 255;
    bytes[kLayoutTable + 4 * 5 + 3] = 255;
    const CliOutcome outcome = atlas(write("large.nes", bytes));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err,
                EndsWith("velko-cli: room 5: 253 x 255 screens are too large for a picture\n"));
    EXPECT_FALSE(exists("site/room_05.png"));
    EXPECT_THAT(page("room_05.html"), HasSubstr("This room is too large for a picture."));
    site().expectWhole();
}

TEST_F(AtlasTest, DamagedGames)
{
    std::vector<std::uint8_t> cut = demoBytes();
    cut.resize(0x20010);
    std::vector<std::uint8_t> zero(0x40010);
    for (const std::string& rom : {write("cut.nes", cut), write("zero.nes", zero)}) {
        EXPECT_LE(atlas(rom).status, 1) << rom;
        site().expectWhole();
    }
}

TEST_F(AtlasTest, RomThatIsNotThere)
{
    expectFailure(atlas("none.nes"), "none.nes: cannot be read, or is empty");
    EXPECT_FALSE(exists("site"));
}

TEST_F(AtlasTest, IntoAFile)
{
    const std::string file = write("site", std::string_view("mine"));
    expectFailure(atlas(), file + ": is no folder, and none can be made");
}

TEST_F(AtlasTest, FileThatCannotBeWritten)
{
    fs::create_directories(pathFromUtf8(path("site/graph.html")));
    const CliOutcome outcome = atlas();
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, EndsWith("graph.html: is no regular file\n"));
    EXPECT_FALSE(exists("site/index.html"));
}

} // namespace
} // namespace velko
