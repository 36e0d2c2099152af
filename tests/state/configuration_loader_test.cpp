#include "state/configuration_loader.h"

#include "rom/data_yaml.h"
#include "tests/gfx/bmp_builder.h"
#include "tests/support/scripted_prompt.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>
#include <string>

namespace velko {
namespace {

using namespace std::string_view_literals;
using test::BmpBuilder;
using test::ScriptedPrompt;

// A working folder with everything that start-up reads; each test spoils what it is about.
class ConfigurationLoader : public ::testing::Test {
protected:
    ConfigurationLoader()
    {
        folder.write("module.cfg", "demo\n"sv);
        folder.write("modules/demo/data.yaml",
                     "miscData: {rooms: 3, areas: 12}\n"
                     "levelPointerArrayHandlers:\n"
                     "  pahMapLayout: {pBank: 3, pointerPad: 4}\n"sv);
        folder.write("modules/demo/unit.txt", "Bat\nCrab"sv);
        folder.write("modules/demo/roomlist.txt", "Cave\nHill"sv);
        folder.write("fr_nesB.pal", std::string(192, '\x40'));
        for (int value = 0; value < 16; ++value)
            folder.write("bitmap/" + std::to_string(value) + ".bmp",
                         BmpBuilder::flat24(10, 10, 0xFFFFFF));
        for (int door = 1; door <= 4; ++door)
            folder.write("bitmap/door" + std::to_string(door) + ".bmp",
                         BmpBuilder::flat24(4, 6, 0x123456));
    }

    ConfigurationResult load() { return loadConfiguration(folder.path(), state, prompt, {}); }
    void remove(std::string_view name) { std::filesystem::remove(folder.path() / name); }
    void expectUnknown(std::string scalar, ScriptedPrompt::Answer answer)
    {
        prompt.expectOkCancel("YAML content recognized as neither key or value. (Check spelling "
                              "and letter case!). Press Cancel to quit.",
                              std::move(scalar), answer);
    }

    // Nothing of the configuration but perhaps the values of data.yaml has been read.
    void expectNoResourcesAndNames() const
    {
        EXPECT_EQ(state.graphics.colourTable[0], 0U);
        EXPECT_TRUE(state.resources.physicsBitmaps[0].empty());
        EXPECT_TRUE(state.resources.doorBitmaps[3].empty());
        EXPECT_EQ(state.names.units[0], "");
        EXPECT_TRUE(state.names.rooms.empty());
    }

    test::TemporaryFolder folder;
    EditorState state;
    ScriptedPrompt prompt;
};

TEST_F(ConfigurationLoader, ReadsEverything)
{
    EXPECT_EQ(load(), ConfigurationResult::kContinue);
    EXPECT_EQ(state.config.value(MiscField::areas), 12U);
    EXPECT_EQ(state.graphics.colourTable[63], 0x404040U);
    EXPECT_EQ(state.graphics.physicsBaseColour[10], 0xF03018U);
    EXPECT_EQ(state.resources.physicsBitmaps[15].width(), 5U);
    EXPECT_EQ(state.resources.doorBitmaps[3].at(0, 0), 0x123456U);
    EXPECT_EQ(state.resources.editorColours[4], 0x700040U);
    EXPECT_EQ(state.names.units[1], "Crab");
    EXPECT_EQ(state.names.rooms, (std::vector<std::string>{"Cave", "Hill", "2 : ??"}));
    EXPECT_EQ(state.names.items[25], "19 : ??");
}

TEST_F(ConfigurationLoader, HandlersTakeOverTheirDescriptions)
{
    load();
    EXPECT_EQ(state.store.pahMapLayout.descriptor().pBank, 3);
    EXPECT_EQ(state.store.pahMapLayout.descriptor().pointerPad, 4U);
    EXPECT_EQ(state.store.pahPal.descriptor().pointerPad, 2U);
}

TEST_F(ConfigurationLoader, TracesTheReadingOfDataYaml)
{
    folder.write("modules/demo/data.yaml", "5"sv);
    std::string trace;
    loadConfiguration(folder.path(), state, prompt,
                      [&trace](std::string_view piece) { trace += piece; });
    EXPECT_EQ(trace,
              "Now YAML reading starts.\n"
              "lNow YAML readins starts also.\n"
              "lThere was a SCALAR: 5\n"
              "lNow YAML reading ends.\n"
              "lNow YAML reading ended somehow.\n"
              "l");
}

TEST_F(ConfigurationLoader, MissingModuleConfigIsToldAndNothingIsRead)
{
    remove("module.cfg");
    prompt.expect("Can't open \"module.cfg\"!");
    EXPECT_EQ(load(), ConfigurationResult::kContinue);
    EXPECT_TRUE(state.config == GameConfig{});
    expectNoResourcesAndNames();
}

TEST_F(ConfigurationLoader, MissingDataYamlIsToldAndTheRestIsRead)
{
    remove("modules/demo/data.yaml");
    prompt.expectError("Couldn't load the YAML file!");
    EXPECT_EQ(load(), ConfigurationResult::kContinue);
    EXPECT_TRUE(state.config == GameConfig{});
    EXPECT_EQ(state.graphics.colourTable[0], 0x404040U);
    EXPECT_EQ(state.names.units[0], "Bat");
    EXPECT_TRUE(state.names.rooms.empty());
}

TEST_F(ConfigurationLoader, MalformedDataYamlIsToldAndKeepsWhatWasRead)
{
    folder.write("modules/demo/data.yaml", "miscData: {rooms: 1, areas: 12]\n"sv);
    prompt.expectError("Problem while parsing YAML.");
    EXPECT_EQ(load(), ConfigurationResult::kContinue);
    EXPECT_EQ(state.names.rooms, std::vector<std::string>{"Cave"});
    EXPECT_EQ(state.resources.doorBitmaps[0].height(), 6U);
}

TEST_F(ConfigurationLoader, ModuleFolderThatIsMissingIsToldOnce)
{
    folder.write("module.cfg", "other\n"sv);
    prompt.expectError("Couldn't load the YAML file!");
    EXPECT_EQ(load(), ConfigurationResult::kContinue);
    EXPECT_EQ(state.names.units[0], "0 : ?? ");
}

TEST_F(ConfigurationLoader, CancelQuitsBeforeTheResources)
{
    folder.write("modules/demo/data.yaml", "Rooms: 3\n"sv);
    expectUnknown("Rooms", ScriptedPrompt::Answer::kCancel);
    EXPECT_EQ(load(), ConfigurationResult::kQuit);
    expectNoResourcesAndNames();
}

TEST_F(ConfigurationLoader, OkGoesOn)
{
    folder.write("modules/demo/data.yaml", "Rooms: 3\n"sv);
    expectUnknown("Rooms", ScriptedPrompt::Answer::kOk);
    EXPECT_EQ(load(), ConfigurationResult::kContinue);
    EXPECT_EQ(state.names.units[0], "Bat");
}

TEST_F(ConfigurationLoader, RoomsOverTheLimitGive256Names)
{
    folder.write("modules/demo/data.yaml", "miscData: {rooms: 0xFFFFFFFF}\n"sv);
    EXPECT_EQ(load(), ConfigurationResult::kContinue);
    EXPECT_EQ(state.names.rooms.size(), 256U);
    EXPECT_EQ(state.names.rooms[255], "ff : ??");
}

TEST_F(ConfigurationLoader, NoRoomsGiveNoNames)
{
    folder.write("modules/demo/data.yaml", "miscData: {rooms: 0}\n"sv);
    EXPECT_EQ(load(), ConfigurationResult::kContinue);
    EXPECT_TRUE(state.names.rooms.empty());
}

// A resource that is missing or odd: the message names the file, and start-up fails.
class SpoiltResource : public ConfigurationLoader,
                       public ::testing::WithParamInterface<std::string> {
protected:
    // Takes any one message box.
    class OneError : public UserPrompt {
    public:
        void showMessage(std::string_view text, MessageIcon icon) override
        {
            texts.emplace_back(text);
            EXPECT_EQ(icon, MessageIcon::kError);
        }
        bool askYesNo(std::string_view, MessageIcon) override { return false; }
        YesNoCancel askYesNoCancel(std::string_view, MessageIcon) override
        {
            return YesNoCancel::kCancel;
        }
        std::vector<std::string> texts;

    protected:
        bool confirm(std::string_view, std::string_view) override { return false; }
    };

    void expectFailure()
    {
        OneError error;
        EXPECT_EQ(loadConfiguration(folder.path(), state, error, {}), ConfigurationResult::kFailed);
        ASSERT_EQ(error.texts.size(), 1U);
        EXPECT_NE(error.texts[0].find(GetParam()), std::string::npos) << error.texts[0];
        EXPECT_EQ(state.names.units[0], "") << "the lists come after the resources";
    }
};

TEST_P(SpoiltResource, MissingFileIsNamed)
{
    remove(GetParam());
    expectFailure();
}

TEST_P(SpoiltResource, ShortFileIsNamed)
{
    folder.write(GetParam(), "BM"sv);
    expectFailure();
}

std::string testNameOf(const ::testing::TestParamInfo<std::string>& test)
{
    std::string name = test.param;
    std::erase_if(name, [](char c) { return c == '/' || c == '.'; });
    return name;
}

INSTANTIATE_TEST_SUITE_P(Files, SpoiltResource,
                         ::testing::Values("fr_nesB.pal", "bitmap/0.bmp", "bitmap/15.bmp",
                                           "bitmap/door1.bmp", "bitmap/door4.bmp"),
                         testNameOf);

class OddBitmap : public SpoiltResource { };

TEST_P(OddBitmap, OtherDepthIsNamed)
{
    folder.write(GetParam(), BmpBuilder(10, 10, 32).bytes());
    expectFailure();
}

TEST_P(OddBitmap, OtherHeaderIsNamed)
{
    folder.write(GetParam(), BmpBuilder(10, 10, 24).setU32(14, 124).bytes());
    expectFailure();
}

INSTANTIATE_TEST_SUITE_P(Files, OddBitmap,
                         ::testing::Values("bitmap/0.bmp", "bitmap/15.bmp", "bitmap/door1.bmp",
                                           "bitmap/door4.bmp"),
                         testNameOf);

// All but the last of 192 bytes.
TEST_F(ConfigurationLoader, PaletteThatIsOneByteTooShortIsNamed)
{
    folder.write("fr_nesB.pal", std::string(191, '\x40'));
    prompt.expectError("Can't load \"fr_nesB.pal\": shorter than 64 colours of 3 bytes. Quitting.");
    EXPECT_EQ(load(), ConfigurationResult::kFailed);
}

} // namespace
} // namespace velko
