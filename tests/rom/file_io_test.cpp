#include "rom/file_io.h"

#include "tests/support/temporary_folder.h"

#include <cstdlib>
#include <gtest/gtest.h>
#ifdef __unix__
#include <sys/resource.h>
#include <sys/stat.h>
#endif

namespace velko {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(LoadFile, ReadsEveryByteAsItIs)
{
    const test::TemporaryFolder folder;
    const Bytes bytes = {0x00, 0x0D, 0x0A, 0x1A, 0xFF, 0x0A};
    EXPECT_EQ(loadFile(folder.write("file.bin", bytes)), bytes);
}

TEST(LoadFile, MissingFileIsRefused)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(loadFile(folder.path() / "missing.bin"), std::nullopt);
    EXPECT_EQ(loadFile({}), std::nullopt);
}

TEST(LoadFile, EmptyFileIsRefused)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(loadFile(folder.write("empty.bin", std::string_view())), std::nullopt);
}

TEST(LoadFile, FolderIsRefused)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(loadFile(folder.path()), std::nullopt);
}

TEST(LoadFile, FilePastTheLimitIsRefused)
{
    const test::TemporaryFolder folder;
    const auto path = folder.write("huge.bin", std::string_view("x"));
    std::error_code error;
    // All hole: it takes no room on the disk, and is refused before anything is read.
    std::filesystem::resize_file(path, 1324351421, error);
    if (error)
        GTEST_SKIP() << "no file of that size can be made here: " << error.message();
    EXPECT_EQ(loadFile(path), std::nullopt);
}

TEST(LoadFile, SizeLimits)
{
    EXPECT_FALSE(isLoadableSize(-1));
    EXPECT_FALSE(isLoadableSize(0));
    EXPECT_TRUE(isLoadableSize(1));
    EXPECT_TRUE(isLoadableSize(1324351420));
    EXPECT_FALSE(isLoadableSize(1324351421));
    EXPECT_FALSE(isLoadableSize(0x100000001));
}

#ifdef __unix__
TEST(LoadFile, PipeIsRefusedWithoutWaitingForIt)
{
    const test::TemporaryFolder folder;
    const auto path = folder.path() / "pipe";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(loadFile(path), std::nullopt);
}

TEST(LoadFile, FileThatDoesNotFitIntoMemoryIsRefused)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__clang__)
    GTEST_SKIP() << "sanitizers reserve more memory than this test leaves to the program";
#endif
    const test::TemporaryFolder folder;
    const auto path = folder.write("large.bin", std::string_view("x"));
    std::error_code error;
    std::filesystem::resize_file(path, 1324351420, error);
    if (error)
        GTEST_SKIP() << "no file of that size can be made here: " << error.message();
    const auto loadWithLittleMemory = [&path] {
        const rlimit limit{512U << 20, 512U << 20};
        setrlimit(RLIMIT_AS, &limit);
        std::exit(loadFile(path) ? 1 : 42);
    };
    EXPECT_EXIT(loadWithLittleMemory(), ::testing::ExitedWithCode(42), "");
}
#endif

TEST(LoadTextFile, ReadsEveryByteAsItIs)
{
    const test::TemporaryFolder folder;
    const std::string text("a\r\n\0\xFF\n", 6);
    EXPECT_EQ(loadTextFile(folder.write("file.txt", std::string_view(text))), text);
}

TEST(LoadTextFile, EmptyFileIsAnEmptyText)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(loadTextFile(folder.write("empty.txt", std::string_view())), "");
}

TEST(LoadTextFile, WhatIsNoFileIsRefused)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(loadTextFile(folder.path() / "missing.txt"), std::nullopt);
    EXPECT_EQ(loadTextFile(folder.path()), std::nullopt);
}

TEST(LoadTextFile, FilePastTheLimitIsRefused)
{
    const test::TemporaryFolder folder;
    const auto path = folder.write("huge.txt", std::string_view("x"));
    std::error_code error;
    std::filesystem::resize_file(path, 1324351421, error);
    if (error)
        GTEST_SKIP() << "no file of that size can be made here: " << error.message();
    EXPECT_EQ(loadTextFile(path), std::nullopt);
}

TEST(SaveFile, CreatesTheFile)
{
    const test::TemporaryFolder folder;
    saveFile(folder.path() / "new.bin", Bytes{0x0A, 0x0D, 0x00});
    EXPECT_EQ(loadFile(folder.path() / "new.bin"), (Bytes{0x0A, 0x0D, 0x00}));
}

TEST(SaveFile, ReplacesALongerFile)
{
    const test::TemporaryFolder folder;
    const auto path = folder.write("file.bin", std::string_view("a longer text"));
    saveFile(path, Bytes{1});
    EXPECT_EQ(loadFile(path), Bytes{1});
}

TEST(SaveFile, NoBytesMakeAnEmptyFile)
{
    const test::TemporaryFolder folder;
    const auto path = folder.write("file.bin", std::string_view("text"));
    saveFile(path, {});
    EXPECT_EQ(std::filesystem::file_size(path), 0U);
}

TEST(SaveFile, FailureIsSilent)
{
    const test::TemporaryFolder folder;
    saveFile(folder.path(), Bytes{1, 2});
    saveFile(folder.path() / "missing" / "file.bin", Bytes{1, 2});
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

#ifdef __unix__
TEST(SaveFile, LinkIsFollowedAndKept)
{
    const test::TemporaryFolder folder;
    const auto path = folder.write("file.bin", std::string_view("old"));
    const auto link = folder.path() / "link.bin";
    std::filesystem::create_symlink(path, link);
    saveFile(link, Bytes{1, 2, 3, 4});
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(loadFile(path), (Bytes{1, 2, 3, 4}));
}

TEST(SaveFile, PipeIsLeftAloneWithoutWaitingForIt)
{
    const test::TemporaryFolder folder;
    const auto path = folder.path() / "pipe";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    saveFile(path, Bytes{1, 2});
    EXPECT_TRUE(std::filesystem::is_fifo(path));
}

// Saves so many bytes over a file of 3000 ones while no file may have more than 2000.
Bytes savedWithoutSpace(std::size_t size)
{
    const test::TemporaryFolder folder;
    const auto path = folder.write("file.bin", Bytes(3000, 1));
    const auto save = [&] {
        failWritesOfTooLargeFiles();
        const rlimit limit{2000, 2000};
        setrlimit(RLIMIT_FSIZE, &limit);
        saveFile(path, Bytes(size, 2));
        std::_Exit(42);
    };
    EXPECT_EXIT(save(), ::testing::ExitedWithCode(42), "");
    return loadFile(path).value_or(Bytes());
}

TEST(SaveFileDeathTest, OldFileStaysWhereTheNewOneDoesNotFit)
{
    EXPECT_EQ(savedWithoutSpace(3000), Bytes(3000, 1));
    EXPECT_EQ(savedWithoutSpace(4000), Bytes(3000, 1));
    EXPECT_EQ(savedWithoutSpace(2001), Bytes(3000, 1));
    EXPECT_EQ(savedWithoutSpace(2000), Bytes(2000, 2));
}
#endif

TEST(PathFromUtf8, IsTheInverseOfUtf8FromPath)
{
    EXPECT_EQ(utf8FromPath(pathFromUtf8("Häuser/城.nes")), "Häuser/城.nes");
    EXPECT_EQ(utf8FromPath({}), "");
}

TEST(PathFromUtf8, NamesTheFileOfThatText)
{
    const test::TemporaryFolder folder;
    saveFile(folder.path() / pathFromUtf8("größe.nes"), Bytes{7});
    EXPECT_EQ(loadFile(folder.path() / std::filesystem::path(u8"größe.nes")), Bytes{7});
}

TEST(IsRegularFile, OnlyAFileOfBytesIs)
{
    const test::TemporaryFolder folder;
    EXPECT_TRUE(isRegularFile(folder.write("file.bin", std::string_view())));
    EXPECT_FALSE(isRegularFile(folder.path()));
    EXPECT_FALSE(isRegularFile(folder.path() / "missing.bin"));
}

} // namespace
} // namespace velko
