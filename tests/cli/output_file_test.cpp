#include "cli/output_file.h"

#include "rom/file_io.h"
#include "tests/cli/file_limits.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

namespace fs = std::filesystem;

class OutputFile : public ::testing::Test {
protected:
    fs::path at(const char* name) const { return m_folder.path() / name; }
    std::size_t filesThere() const
    {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(m_folder.path()), fs::directory_iterator()));
    }
    void put(const char* name, std::string_view text) const { m_folder.write(name, text); }

private:
    test::TemporaryFolder m_folder;
};

TEST_F(OutputFile, IsMadeWithNothingBesideIt)
{
    EXPECT_EQ(writeFile(at("new"), "text"), std::nullopt);
    EXPECT_EQ(loadTextFile(at("new")), "text");
    EXPECT_EQ(filesThere(), 1U);
}

TEST_F(OutputFile, BytesAreWrittenAsTheyAre)
{
    const std::vector<std::uint8_t> bytes = {0x00, 0x0A, 0x0D, 0x1A, 0xFF};
    EXPECT_EQ(writeFile(at("new"), bytes), std::nullopt);
    EXPECT_EQ(loadFile(at("new")), bytes);
}

TEST_F(OutputFile, MayBeEmpty)
{
    EXPECT_EQ(writeFile(at("new"), ""), std::nullopt);
    EXPECT_EQ(loadTextFile(at("new")), "");
}

TEST_F(OutputFile, ReplacesALongerOne)
{
    put("old", "a longer text");
    EXPECT_EQ(writeFile(at("old"), "new"), std::nullopt);
    EXPECT_EQ(loadTextFile(at("old")), "new");
    EXPECT_EQ(filesThere(), 1U);
}

TEST_F(OutputFile, KeepsThePermissions)
{
    for (const unsigned mode : {0600U, 0664U, 0755U}) {
        const auto permissions = static_cast<fs::perms>(mode);
        put("old", "text");
        fs::permissions(at("old"), permissions);
        EXPECT_EQ(writeFile(at("old"), "new"), std::nullopt);
        EXPECT_EQ(fs::status(at("old")).permissions(), permissions);
    }
}

TEST_F(OutputFile, ThatIsWriteProtectedIsRefused)
{
    put("old", "text");
    fs::permissions(at("old"), fs::perms::owner_read | fs::perms::group_read);
    EXPECT_EQ(writeFile(at("old"), "new"), utf8FromPath(at("old")) + ": is write-protected");
    EXPECT_EQ(loadTextFile(at("old")), "text");
    EXPECT_EQ(filesThere(), 1U);
}

TEST_F(OutputFile, ThatOnlyOthersMayWriteIsRefused)
{
    fs::permissions(at(""), fs::perms::all);
    const test::OrdinaryUser user;
    put("old", "text");
    fs::permissions(at("old"), fs::perms::owner_read | fs::perms::others_write);
    EXPECT_EQ(writeFile(at("old"), "new"), utf8FromPath(at("old")) + ": is write-protected");
    EXPECT_EQ(loadTextFile(at("old")), "text");
    EXPECT_EQ(filesThere(), 1U);
}

TEST_F(OutputFile, FollowsLinks)
{
    put("old", "text");
    fs::create_symlink("old", at("inner"));
    fs::create_symlink(at("inner"), at("link"));
    EXPECT_EQ(writeFile(at("link"), "new"), std::nullopt);
    EXPECT_TRUE(fs::is_symlink(at("link")));
    EXPECT_TRUE(fs::is_symlink(at("inner")));
    EXPECT_EQ(loadTextFile(at("old")), "new");
    EXPECT_EQ(filesThere(), 3U);
}

TEST_F(OutputFile, FollowsALinkToAFileThatIsNotThereYet)
{
    fs::create_directory(at("folder"));
    fs::create_symlink("folder/new", at("link"));
    EXPECT_EQ(writeFile(at("link"), "text"), std::nullopt);
    EXPECT_TRUE(fs::is_symlink(at("link")));
    EXPECT_EQ(loadTextFile(at("folder/new")), "text");
}

TEST_F(OutputFile, LinksInACircleAreRefused)
{
    fs::create_symlink("b", at("a"));
    fs::create_symlink("a", at("b"));
    EXPECT_EQ(writeFile(at("a"), "text"),
              utf8FromPath(at("a")) + ": is a link that leads in a circle");
    EXPECT_TRUE(fs::is_symlink(at("a")));
    EXPECT_EQ(filesThere(), 2U);
}

TEST_F(OutputFile, ThatDoesNotFitOnTheDiskLeavesNothing)
{
    put("old", "text");
    const std::string text(2000, 'x');
    const test::FileSizeLimit disk(1000);
    EXPECT_EQ(writeFile(at("old"), text), utf8FromPath(at("old")) + ": cannot be written");
    EXPECT_EQ(writeFile(at("new"), text), utf8FromPath(at("new")) + ": cannot be written");
    EXPECT_EQ(loadTextFile(at("old")), "text");
    EXPECT_EQ(filesThere(), 1U);
}

TEST_F(OutputFile, InAFolderWhereNothingCanBeMadeIsRefused)
{
    EXPECT_EQ(writeFile("/proc/self/new", "text"), "/proc/self/new: cannot be written");
}

TEST_F(OutputFile, InAFolderThatIsNotThereIsRefused)
{
    EXPECT_EQ(writeFile(at("no/such/folder"), "text"),
              utf8FromPath(at("no/such/folder")) + ": cannot be written");
    EXPECT_EQ(filesThere(), 0U);
}

TEST_F(OutputFile, FolderIsRefused)
{
    fs::create_directory(at("folder"));
    EXPECT_EQ(writeFile(at("folder"), "text"), utf8FromPath(at("folder")) + ": is no regular file");
    EXPECT_EQ(filesThere(), 1U);
}

TEST_F(OutputFile, DeviceIsRefusedAndStays)
{
    EXPECT_EQ(writeFile("/dev/null", "text"), "/dev/null: is no regular file");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(OutputFile, EmptyNameIsRefused)
{
    EXPECT_EQ(writeFile("", "text"), "no file name given");
}

} // namespace
} // namespace velko
