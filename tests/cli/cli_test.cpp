#include "tests/cli/cli_fixture.h"

#include <algorithm>

namespace velko {
namespace {

using test::CliTest;
using test::runWords;
using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST_F(CliTest, NoVerb)
{
    expectFailure(runWords({}), "no verb given (see velko-cli --help)");
}

TEST_F(CliTest, UnknownVerb)
{
    expectFailure(run({"paint", "demo.nes"}), "unknown verb paint (see velko-cli --help)");
}

TEST_F(CliTest, UnknownOption)
{
    expectFailure(run({"--paint"}), "unknown option --paint (see velko-cli --help)");
}

TEST_F(CliTest, UnknownOptionOfAVerb)
{
    expectFailure(run({"info", "demo.nes", "--paint"}),
                  "The following argument was not expected: --paint (see velko-cli info --help)");
}

TEST_F(CliTest, MissingArgument)
{
    expectFailure(run({"info"}), "ROM is required (see velko-cli info --help)");
}

TEST_F(CliTest, HelpGoesToStandardOutput)
{
    const auto outcome = runWords({"--help"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, HasSubstr("Usage: velko-cli [OPTIONS] SUBCOMMAND"));
    EXPECT_THAT(outcome.out, HasSubstr("info"));
}

TEST_F(CliTest, Version)
{
    const auto outcome = runWords({"--version"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "velko-cli 0.1.0\n");
}

TEST_F(CliTest, WorkFolderThatIsNotThere)
{
    expectFailure(runWords({"-C", "no/such", "info", "demo.nes"}), "no/such: no such folder");
}

TEST_F(CliTest, WorkFolderThatIsAFile)
{
    const std::string file = write("file", "text");
    expectFailure(runWords({"-C", file, "info", "demo.nes"}), file + ": no such folder");
}

TEST_F(CliTest, SecondVerb)
{
    expectFailure(run({"info", "demo.nes", "module"}),
                  "The following argument was not expected: module (see velko-cli info --help)");
}

TEST_F(CliTest, NameThatBeginsWithAHyphen)
{
    expectFailure(run({"info", "--", "-lost.nes"}), "-lost.nes: cannot be read, or is empty");
}

TEST_F(CliTest, OptionTwice)
{
    const auto outcome = runWords({"-C", "a", "-C", "b", "info", "demo.nes"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, StartsWith("velko-cli: -C"));
    EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1);
}

TEST_F(CliTest, OutputThatCannotBeWritten)
{
    std::ostream nowhere(nullptr);
    std::ostringstream err;
    const std::vector<std::string> words = {"--version"};
    EXPECT_EQ(runCli(words, nowhere, err), 2);
    EXPECT_EQ(err.str(), "velko-cli: cannot write to standard output\n");
}

} // namespace
} // namespace velko
