#include "rom/module_config.h"

#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

using namespace std::string_view_literals;

// The folder that a module.cfg of this text names, below the working folder.
std::filesystem::path folderNamedBy(std::string_view text)
{
    const test::TemporaryFolder folder;
    folder.write("module.cfg", text);
    const auto named = readModuleConfig(folder.path());
    return named ? named->lexically_relative(folder.path()) : "not read";
}

TEST(ReadModuleConfig, FirstLineNamesAFolderUnderModules)
{
    EXPECT_EQ(folderNamedBy("demo\nother\n"), std::filesystem::path("modules/demo/"));
    EXPECT_EQ(folderNamedBy("demo"), std::filesystem::path("modules/demo/"));
}

TEST(ReadModuleConfig, CarriageReturnBeforeTheLineFeedIsNoPartOfTheLine)
{
    EXPECT_EQ(folderNamedBy("demo\r\nother\r\n"), std::filesystem::path("modules/demo/"));
}

TEST(ReadModuleConfig, OneCarriageReturnOnlyBelongsToTheLineBreak)
{
    EXPECT_EQ(folderNamedBy("demo\r\r\n"), std::filesystem::path("modules/demo\r/"));
    EXPECT_EQ(folderNamedBy("demo\r"), std::filesystem::path("modules/demo\r/"));
}

TEST(ReadModuleConfig, LineIsNotTrimmed)
{
    EXPECT_EQ(folderNamedBy(" demo \n"), std::filesystem::path("modules/ demo /"));
}

TEST(ReadModuleConfig, BackslashSeparatesFolders)
{
    EXPECT_EQ(folderNamedBy("games\\demo\n"), std::filesystem::path("modules/games/demo/"));
}

TEST(ReadModuleConfig, ALeadingSeparatorStaysBelowModules)
{
    EXPECT_EQ(folderNamedBy("/demo\n"), std::filesystem::path("modules/demo/"));
}

TEST(ReadModuleConfig, EmptyFirstLineNamesModulesItself)
{
    EXPECT_EQ(folderNamedBy(""), std::filesystem::path("modules/"));
    EXPECT_EQ(folderNamedBy("\ndemo\n"), std::filesystem::path("modules/"));
}

TEST(ReadModuleConfig, AnyBytesMakeSomePath)
{
    EXPECT_NE(folderNamedBy("a\0b\xFF\xFE\x80\n"sv), "not read");
}

TEST(ReadModuleConfig, MissingFileGivesNothing)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(readModuleConfig(folder.path()), std::nullopt);
}

TEST(ReadModuleConfig, AFolderOfThatNameGivesNothing)
{
    const test::TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "module.cfg");
    EXPECT_EQ(readModuleConfig(folder.path()), std::nullopt);
}

TEST(PathFromBackslashes, BecomesThePlatformsPath)
{
    EXPECT_EQ(pathFromBackslashes("bitmap\\door1.bmp"),
              std::filesystem::path("bitmap") / "door1.bmp");
    EXPECT_EQ(pathFromBackslashes("a\\b/c"), std::filesystem::path("a") / "b" / "c");
}

} // namespace
} // namespace velko
