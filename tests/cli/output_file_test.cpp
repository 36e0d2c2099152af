#include "cli/output_file.h"

#include "rom/file_io.h"
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
    put("old", "text");
    const auto permissions = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(at("old"), permissions);
    EXPECT_EQ(writeFile(at("old"), "new"), std::nullopt);
    EXPECT_EQ(fs::status(at("old")).permissions(), permissions);
}

TEST_F(OutputFile, FollowsALink)
{
    put("old", "text");
    fs::create_symlink("old", at("link"));
    EXPECT_EQ(writeFile(at("link"), "new"), std::nullopt);
    EXPECT_TRUE(fs::is_symlink(at("link")));
    EXPECT_EQ(loadTextFile(at("old")), "new");
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
