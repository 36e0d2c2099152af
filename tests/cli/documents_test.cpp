#include "cli/command_line.h"
#include "cli/completions.h"
#include "cli/field.h"
#include "cli/manual_page.h"
#include "tests/cli/cli_fixture.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velko {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// Calls `see` with every command of a program and the words that lead to it.
void forEachCommand(const CLI::App& app, const std::string& path,
                    const std::function<void(const std::string&, const CLI::App&)>& see)
{
    see(path, app);
    for (const CLI::App* inner : app.get_subcommands([](const CLI::App*) { return true; }))
        forEachCommand(*inner, path.empty() ? inner->get_name() : path + " " + inner->get_name(),
                       see);
}

std::string withoutRoff(std::string text)
{
    for (const std::string mark : {"\\&", "\\fB", "\\fI", "\\fR", "\\"}) {
        for (auto at = text.find(mark); at != text.npos; at = text.find(mark, at))
            text.erase(at, mark.size());
    }
    return text;
}

// The program as it is.
class Documents : public ::testing::Test {
protected:
    CommandLine line;
    const CommandText program = describe(line.app());
};

TEST_F(Documents, ManualListsEveryVerbAndOption)
{
    const std::string manual = withoutRoff(manualPage(program));
    forEachCommand(line.app(), "", [&](const std::string& path, const CLI::App& command) {
        const std::size_t section = path.empty() ? 0 : manual.find("\n.SS " + path + "\n");
        ASSERT_NE(section, std::string::npos) << path;
        const std::size_t end =
            path.empty() ? manual.find("\n.SH VERBS\n") : manual.find("\n.S", section + 1);
        const std::string text = manual.substr(section, end - section);
        for (const CLI::Option* option : command.get_options()) {
            EXPECT_THAT(text, HasSubstr(option->get_description())) << path;
            for (const std::string& name : option->get_lnames())
                EXPECT_THAT(text, HasSubstr("--" + name)) << path;
            for (const std::string& name : option->get_snames())
                EXPECT_THAT(text, HasSubstr("-" + name)) << path;
        }
    });
}

TEST_F(Documents, ManualListsEveryField)
{
    const std::string manual = manualPage(program);
    EXPECT_THAT(manual,
                HasSubstr("\n\\fBroom.\\fR\\fIR\\fR\\fB\\&.palette.\\fR\\fIN\\fR (0 to ff)\n"));
    const std::string text = withoutRoff(manual);
    const std::size_t section = text.find("\n.SH FIELDS\n");
    ASSERT_NE(section, std::string::npos);
    const std::string fields = text.substr(section, text.find(".SH ", section + 5) - section);
    for (const FieldRule& rule : fieldRules())
        EXPECT_THAT(fields,
                    HasSubstr("\n.TP\n" + std::string(rule.pattern) + " ("
                              + std::string(rule.bounds) + ")\n" + std::string(rule.tells)
                              + ".\n"));
}

TEST_F(Documents, HelpOfGetAndSetTellsWhereTheFieldsAreListed)
{
    for (const char* verb : {"get", "set"})
        EXPECT_THAT(test::runWords({verb, "--help"}).out,
                    HasSubstr("\nAll fields: section FIELDS of velko-cli(1).\n"));
}

TEST_F(Documents, HelpOfEveryVerbTellsItsArguments)
{
    forEachCommand(line.app(), "", [](const std::string& path, const CLI::App& command) {
        std::istringstream verbs(path);
        std::vector<std::string> words{std::istream_iterator<std::string>(verbs), {}};
        words.emplace_back("--help");
        const test::CliOutcome outcome = test::runWords(words);
        EXPECT_EQ(outcome.status, 0) << path;
        EXPECT_EQ(outcome.err, "") << path;
        EXPECT_THAT(outcome.out, HasSubstr(command.get_description())) << path;
        for (const CLI::App* inner : command.get_subcommands([](const CLI::App*) { return true; }))
            EXPECT_THAT(outcome.out, HasSubstr("\n  " + inner->get_name() + " ")) << path;
        for (const CLI::Option* option : command.get_options()) {
            EXPECT_THAT(outcome.out, HasSubstr("\n  " + option->get_name(true, true))) << path;
            EXPECT_THAT(outcome.out, HasSubstr(option->get_description())) << path;
        }
    });
}

TEST_F(Documents, BashCompletesEveryVerbAndOption)
{
    const std::string script = bashCompletion(program);
    forEachCommand(line.app(), "", [&](const std::string& path, const CLI::App& command) {
        const std::size_t at = script.find("            '" + path + "') options='");
        ASSERT_NE(at, std::string::npos) << path;
        const std::string text = " " + script.substr(at, script.find('\n', at) - at);
        for (const CLI::App* inner : command.get_subcommands([](const CLI::App*) { return true; }))
            EXPECT_THAT(text, HasSubstr(inner->get_name())) << path;
        for (const CLI::Option* option : command.get_options()) {
            for (const std::string& name : option->get_lnames())
                EXPECT_THAT(text, HasSubstr("--" + name)) << path;
            for (const std::string& name : option->get_snames())
                EXPECT_THAT(text, HasSubstr("-" + name)) << path;
        }
    });
}

TEST_F(Documents, ZshAndFishCompleteEveryVerbAndOption)
{
    const std::string zsh = zshCompletion(program);
    const std::string fish = fishCompletion(program);
    forEachCommand(line.app(), "", [&](const std::string& path, const CLI::App& command) {
        std::string function = "\n_velko-cli";
        if (!path.empty()) {
            function += "_" + path;
            std::ranges::replace(function, ' ', '_');
            EXPECT_THAT(fish, HasSubstr(" -f -a " + command.get_name() + " -d ")) << path;
        }
        const std::size_t at = zsh.find(function + "() {\n");
        ASSERT_NE(at, std::string::npos) << path;
        const std::string text = zsh.substr(at, zsh.find("\n}\n", at) - at);
        for (const CLI::Option* option : command.get_options()) {
            for (const std::string& name : option->get_lnames()) {
                EXPECT_THAT(text, HasSubstr(")--" + name + "[")) << path;
                EXPECT_THAT(fish, HasSubstr(" -l " + name + " ")) << path;
            }
            for (const std::string& name : option->get_snames()) {
                EXPECT_THAT(text, HasSubstr(")-" + name + "[")) << path;
                EXPECT_THAT(fish, HasSubstr(" -s " + name + " ")) << path;
            }
        }
    });
}

TEST_F(Documents, EveryVerbAndArgumentIsDescribed)
{
    forEachCommand(line.app(), "", [&](const std::string& path, const CLI::App& command) {
        EXPECT_THAT(command.get_description(), Not(IsEmpty())) << path;
        for (const CLI::Option* option : command.get_options())
            EXPECT_THAT(option->get_description(), Not(IsEmpty()))
                << path << " " << option->get_name();
    });
}

// A program with what the real one may come to have.
class MadeUpProgram : public ::testing::Test {
protected:
    MadeUpProgram()
    {
        app.set_help_flag();
        CLI::App* const paint = app.add_subcommand("paint", "It's \\ 'new'");
        paint->add_option("FILE,--file", files, ".odd [text]: here");
        paint->add_option("--colour", colour, "The colour")
            ->type_name("COLOUR")
            ->check(CLI::IsMember({"red", "blue"}));
        paint->add_option("--scale", scale, "The scale");
        CLI::App* const patch = app.add_subcommand("patch", "Patches");
        CLI::App* const make = patch->add_subcommand("make", "Makes one");
        make->add_flag("-q", quiet, "Less");
        make->add_option("-o,--output", output, "The file")->type_name("PATH");
        patch->add_option_group("Group")->add_flag("--grouped", quiet, "In a group");
    }

    CLI::App app{"Made up", "velko-cli"};
    std::vector<std::string> files;
    std::string colour;
    std::string output;
    int scale = 0;
    bool quiet = false;
};

TEST_F(MadeUpProgram, IsDescribed)
{
    const CommandText program = describe(app);
    ASSERT_EQ(program.commands.size(), 2U);
    const CommandText& paint = program.commands[0];
    ASSERT_EQ(paint.options.size(), 2U);
    EXPECT_THAT(paint.options[0].names, ElementsAre("--colour"));
    EXPECT_EQ(paint.options[0].value, "COLOUR");
    EXPECT_THAT(paint.options[0].choices, ElementsAre("red", "blue"));
    EXPECT_FALSE(paint.options[0].isPath());
    EXPECT_EQ(paint.options[1].value, "INT");
    EXPECT_FALSE(paint.options[1].isPath());
    ASSERT_EQ(paint.positionals.size(), 1U);
    EXPECT_TRUE(paint.positionals[0].isRepeated);
    EXPECT_TRUE(paint.positionals[0].isPath());
    const CommandText& patch = program.commands[1];
    ASSERT_EQ(patch.options.size(), 1U);
    EXPECT_THAT(patch.options[0].names, ElementsAre("--grouped"));
    EXPECT_EQ(patch.options[0].value, "");
    EXPECT_EQ(patch.commands[0].name, "make");
}

TEST_F(MadeUpProgram, TextsAreEscapedForRoff)
{
    const std::string manual = manualPage(describe(app));
    EXPECT_THAT(manual, HasSubstr("\nIt's \\e 'new'.\n"));
    EXPECT_THAT(manual, HasSubstr("\n\\&.odd [text]: here.\n"));
    EXPECT_THAT(manual,
                HasSubstr("\n\\fB\\-\\-colour\\fR \\fICOLOUR\\fR\nThe colour: "
                          "\\fBred\\fR, \\fBblue\\fR.\n"));
    EXPECT_THAT(manual, HasSubstr("\n.SS patch make\n\\fBpatch make\\fR [\\fIoptions\\fR]"));
}

TEST_F(MadeUpProgram, BashFollowsVerbsOfVerbs)
{
    const std::string script = bashCompletion(describe(app));
    EXPECT_THAT(script, HasSubstr("':patch') command='patch' ;;\n"));
    EXPECT_THAT(script, HasSubstr("'patch:make') command='patch make' ;;\n"));
    EXPECT_THAT(script, HasSubstr("'paint:--colour') words='red blue' ;;\n"));
    EXPECT_THAT(script, HasSubstr("'patch make') options='-q -o --output' others='' ;;\n"));
}

TEST_F(MadeUpProgram, TextsAreEscapedForZsh)
{
    const std::string script = zshCompletion(describe(app));
    EXPECT_THAT(script, HasSubstr("'paint:It'\\''s \\\\ '\\''new'\\'''"));
    EXPECT_THAT(script, HasSubstr("'(--colour)--colour[The colour]:COLOUR:(red blue)'"));
    EXPECT_THAT(script, HasSubstr("'(-o --output)-o[The file]:PATH:_files'"));
    EXPECT_THAT(script, HasSubstr("'(--scale)--scale[The scale]:INT:'"));
    EXPECT_THAT(script, HasSubstr("make) _velko-cli_patch_make && ret=0 ;;\n"));
}

TEST_F(MadeUpProgram, TextsAreEscapedForFish)
{
    const std::string script = fishCompletion(describe(app));
    EXPECT_THAT(script, HasSubstr("-f -a paint -d 'It\\'s \\\\ \\'new\\''\n"));
    EXPECT_THAT(script, HasSubstr(" -s o -l output -r -F -d 'The file'\n"));
    EXPECT_THAT(script, HasSubstr(" -l scale -x -d 'The scale'\n"));
    EXPECT_THAT(script, HasSubstr("-l colour -x -a 'red blue' -d 'The colour'\n"));
    EXPECT_THAT(script,
                HasSubstr("-n '__fish_seen_subcommand_from patch; and not "
                          "__fish_seen_subcommand_from make' -f -a make"));
}

} // namespace
} // namespace velko
