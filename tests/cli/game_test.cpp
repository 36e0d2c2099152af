#include "cli/game.h"

#include "tests/cli/cli_fixture.h"

#include <algorithm>

namespace velko {
namespace {

namespace fs = std::filesystem;

// Command lines on a copy of the demo game's folder, of which a part is damaged.
class OpenGame : public test::CliTest {
protected:
    OpenGame() { fs::copy(VELKO_DEMO_DIR, folder(), fs::copy_options::recursive); }

    fs::path folder() const { return path("game"); }
    test::CliOutcome info(const std::string& rom = "demo.nes") const
    {
        return test::runWords({"-C", utf8FromPath(folder()), "info", rom});
    }
    void replace(const fs::path& name, std::string_view text) const
    {
        write(utf8FromPath("game" / name), text);
    }
    void expectModuleFailure(const std::string& reason) const
    {
        expectFailure(info(), utf8FromPath(folder()) + ": " + reason);
    }
};

TEST_F(OpenGame, CopyOfTheDemoOpens)
{
    EXPECT_EQ(info().status, 0);
}

TEST_F(OpenGame, NoModuleConfig)
{
    fs::remove(folder() / "module.cfg");
    expectModuleFailure("Can't open \"module.cfg\"!");
}

TEST_F(OpenGame, NoDataYaml)
{
    replace("module.cfg", "elsewhere\n");
    expectModuleFailure("Couldn't load the YAML file!");
}

TEST_F(OpenGame, MalformedDataYaml)
{
    replace("modules/lantern_vale/data.yaml", "miscData: ]\n");
    expectModuleFailure("Problem while parsing YAML.");
}

TEST_F(OpenGame, QuestionableScalarIsAFailure)
{
    replace("modules/lantern_vale/data.yaml", "miscData: {Rooms: 3}\n");
    expectModuleFailure("data.yaml: \"Rooms\" is neither a key nor a value here (velko-cli module "
                        "tells where)");
}

TEST_F(OpenGame, ControlCharactersStayOnTheOneLine)
{
    replace("modules/lantern_vale/data.yaml", "\"a\\nb\\x1Bc\": 3\n");
    expectModuleFailure("data.yaml: \"a b c\" is neither a key nor a value here (velko-cli module "
                        "tells where)");
}

TEST_F(OpenGame, NoPalette)
{
    fs::remove(folder() / "fr_nesB.pal");
    const auto outcome = info();
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, ::testing::HasSubstr("fr_nesB.pal"));
    EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1);
}

TEST_F(OpenGame, NoSuchRom)
{
    expectFailure(info("other.nes"), "other.nes: cannot be read, or is empty");
}

TEST_F(OpenGame, EmptyRom)
{
    replace("empty.nes", "");
    expectFailure(info("empty.nes"), "empty.nes: cannot be read, or is empty");
}

TEST_F(OpenGame, FolderForARom)
{
    expectFailure(info("bitmap"), "bitmap: cannot be read, or is empty");
}

TEST_F(OpenGame, EmptyRomName)
{
    expectFailure(info(""), ": cannot be read, or is empty");
}

TEST_F(OpenGame, RomNamedLikeAVerb)
{
    fs::copy_file(folder() / "demo.nes", folder() / "module");
    EXPECT_EQ(info("module").status, 0);
}

TEST_F(OpenGame, RoomZeroIsSelected)
{
    std::ostringstream out;
    const Context context(VELKO_DEMO_DIR, out, out);
    EditorState state;
    EXPECT_EQ(openGame(context, "demo.nes", state), std::nullopt);
    EXPECT_EQ(state.currentRoom(), 0);
    EXPECT_EQ(state.store.pahPal.freeSpace(), 2048);
    EXPECT_EQ(out.str(), "");
}

} // namespace
} // namespace velko
