#include "tests/cli/cli_fixture.h"

#include "rom/text_lines.h"

#include <fstream>

namespace velko {
namespace {

namespace fs = std::filesystem;

// An example of the documentation: a command as it is typed, and the lines that follow it.
struct Example {
    std::size_t line = 0; // in the document, from 1
    std::string command;
    std::vector<std::string> output;
};

// The examples in the blocks that are fenced as "console". A line "$ COMMAND" starts each.
std::vector<Example> examplesIn(std::string_view document)
{
    std::vector<Example> examples;
    TextLines lines(document);
    bool isInBlock = false;
    for (std::size_t number = 1; const auto line = lines.next(); ++number) {
        if (line->starts_with("```"))
            isInBlock = *line == "```console";
        else if (isInBlock && line->starts_with("$ "))
            examples.push_back({number, std::string(line->substr(2)), {}});
        else if (isInBlock && !examples.empty())
            examples.back().output.emplace_back(*line);
    }
    return examples;
}

// The words of a command; a part between quotes of either kind is one.
std::vector<std::string> wordsOf(std::string_view command)
{
    std::vector<std::string> words;
    bool isInWord = false;
    char quote = 0;
    for (const char c : command) {
        if (quote == 0 && c == ' ') {
            isInWord = false;
            continue;
        }
        if (!isInWord)
            words.emplace_back();
        isInWord = true;
        if (c == quote)
            quote = 0;
        else if (quote == 0 && (c == '\'' || c == '"'))
            quote = c;
        else
            words.back() += c;
    }
    return words;
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> result;
    TextLines lines(text);
    while (const auto line = lines.next())
        result.emplace_back(*line);
    if (!result.empty() && result.back().empty()) // behind the last line break
        result.pop_back();
    return result;
}

// Whether the lines are those that are shown, where "..." stands for any number of lines.
bool matches(std::span<const std::string> shown, std::span<const std::string> lines)
{
    if (shown.empty())
        return lines.empty();
    if (shown.front() == "...") {
        for (std::size_t skipped = 0; skipped <= lines.size(); ++skipped) {
            if (matches(shown.subspan(1), lines.subspan(skipped)))
                return true;
        }
        return false;
    }
    return !lines.empty() && shown.front() == lines.front()
        && matches(shown.subspan(1), lines.subspan(1));
}

// What the documentation shows is what happens, one command after the other, in a folder that
// holds the demo game as "demo-game".
class DocumentedExamples : public ::testing::TestWithParam<const char*> {
protected:
    DocumentedExamples() : m_before(fs::current_path())
    {
        fs::copy(VELKO_DEMO_DIR, m_folder.path() / "demo-game", fs::copy_options::recursive);
        fs::current_path(m_folder.path());
    }
    ~DocumentedExamples() override { fs::current_path(m_before); }

    // What a terminal shows.
    std::string run(const Example& example)
    {
        if (example.command == "echo $?")
            return std::to_string(m_status) + "\n";
        std::vector<std::string> words = wordsOf(example.command);
        if (words.empty() || words.front() != "velko-cli") {
            ADD_FAILURE() << "line " << example.line << ": no command that the test knows";
            return {};
        }
        words.erase(words.begin());
        const auto outcome = test::runWords(words);
        m_status = outcome.status;
        return outcome.out + outcome.err;
    }

private:
    fs::path m_before;
    test::TemporaryFolder m_folder;
    int m_status = 0;
};

TEST_P(DocumentedExamples, ShowWhatHappens)
{
    const std::string name = GetParam();
    const auto document = loadTextFile(fs::path(VELKO_DOCS_DIR) / name);
    ASSERT_TRUE(document);
    const auto examples = examplesIn(*document);
    EXPECT_GE(examples.size(), 4U);
    for (const Example& example : examples) {
        const std::string output = run(example);
        EXPECT_TRUE(matches(example.output, linesOf(output)))
            << "docs/" << name << ", line " << example.line << ": " << example.command
            << "\ngives:\n"
            << output;
    }
}

INSTANTIATE_TEST_SUITE_P(Documents, DocumentedExamples, ::testing::Values("cli.md", "modules.md"));

TEST(ExamplesTest, ReadsBlocksAndWords)
{
    const auto examples = examplesIn("$ no\n```console\n$ a b\nout\n\n$ c\n```\n```sh\n$ d\n```\n");
    ASSERT_EQ(examples.size(), 2U);
    EXPECT_EQ(examples[0].line, 3U);
    EXPECT_EQ(examples[0].output, (std::vector<std::string>{"out", ""}));
    EXPECT_EQ(wordsOf("a  'b c' \"\" d\"e f\""),
              (std::vector<std::string>{"a", "b c", "", "de f"}));
}

TEST(ExamplesTest, ThreeDotsStandForAnyLines)
{
    const std::vector<std::string> lines = {"a", "b", "c"};
    using Lines = std::vector<std::string>;
    EXPECT_TRUE(matches(Lines{"a", "b", "c"}, lines));
    EXPECT_TRUE(matches(Lines{"a", "..."}, lines));
    EXPECT_TRUE(matches(Lines{"...", "c"}, lines));
    EXPECT_TRUE(matches(Lines{"...", "b", "...", "c"}, lines));
    EXPECT_FALSE(matches(Lines{"a", "b"}, lines));
    EXPECT_FALSE(matches(Lines{"...", "b"}, lines));
    EXPECT_FALSE(matches(Lines{"a", "x", "c"}, lines));
}

} // namespace
} // namespace velko
