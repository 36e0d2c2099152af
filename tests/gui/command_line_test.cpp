#include "app/command_line.h"

#include "app/trace_output.h"

#include <gtest/gtest.h>
#include <iostream>
#include <sstream>

namespace velko {
namespace {

TEST(CommandLine, NothingGivenAsksForNothing)
{
    const CommandLine line = parseCommandLine({});
    EXPECT_FALSE(line.rom || line.folder || line.trace || line.help || line.version);
    EXPECT_EQ(line.error, "");
}

TEST(CommandLine, FolderRomAndTrace)
{
    const CommandLine line = parseCommandLine({"-C", "a folder", "--trace", "game.nes"});
    EXPECT_EQ(line.folder, "a folder");
    EXPECT_EQ(line.rom, "game.nes");
    EXPECT_TRUE(line.trace);
    EXPECT_EQ(line.error, "");
}

TEST(CommandLine, NamesThatBeginWithADashFollowTwoDashes)
{
    EXPECT_EQ(parseCommandLine({"--", "--help"}).rom, "--help");
    EXPECT_FALSE(parseCommandLine({"--", "--help"}).help);
}

TEST(CommandLine, HelpAndVersion)
{
    for (const char* text : {"-h", "--help"})
        EXPECT_TRUE(parseCommandLine({text}).help) << text;
    for (const char* text : {"-v", "--version"})
        EXPECT_TRUE(parseCommandLine({text}).version) << text;
}

TEST(CommandLine, WrongArgumentsAreNamed)
{
    EXPECT_EQ(parseCommandLine({"--frob"}).error, "unknown option --frob");
    EXPECT_EQ(parseCommandLine({"-C"}).error, "-C needs a folder");
    EXPECT_EQ(parseCommandLine({"a", "b"}).error, "more than one ROM file given");
}

TEST(CommandLine, HelpTellsTheExitStatusAsAShellSeesIt)
{
    EXPECT_TRUE(helpText().contains("49374"));
    EXPECT_EQ(49374 & 0xFF, 222);
    EXPECT_TRUE(helpText().contains("222"));
}

TEST(CommandLine, HelpTellsWhereTheTraceGoes)
{
#ifdef _WIN32
    EXPECT_TRUE(helpText().contains("always goes to the debugger"));
#else
    EXPECT_TRUE(helpText().contains("trace to standard error"));
#endif
}

#ifndef _WIN32
TEST(TraceOutput, IsSilentUnlessWanted)
{
    EXPECT_FALSE(traceOutput(false));
    std::ostringstream captured;
    std::streambuf* before = std::cerr.rdbuf(captured.rdbuf());
    traceOutput(true)("There was an alias.\nl");
    std::cerr.rdbuf(before);
    EXPECT_EQ(captured.str(), "There was an alias.\nl");
}
#endif

} // namespace
} // namespace velko
