#pragma once

#include "cli/cli.h"
#include "rom/file_io.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

namespace velko::test {

// What a command line wrote and ended with.
struct CliOutcome {
    int status = 0;
    std::string out;
    std::string err;

    // The document on standard output; a text that is no JSON fails the test.
    nlohmann::json json() const
    {
        auto document = nlohmann::json::parse(out, nullptr, false);
        EXPECT_FALSE(document.is_discarded()) << out;
        return document;
    }
};

// Runs the words in this process.
inline CliOutcome runWords(const std::vector<std::string>& words)
{
    std::ostringstream out;
    std::ostringstream err;
    const int status = runCli(words, out, err);
    return {status, out.str(), err.str()};
}

// Command lines on the demo game, as the build made it. Relative paths start in its folder.
class CliTest : public ::testing::Test {
protected:
    CliOutcome run(std::vector<std::string> words) const
    {
        words.insert(words.begin(), {"-C", VELKO_DEMO_DIR});
        return runWords(words);
    }
    // The demo ROM's bytes.
    static std::vector<std::uint8_t> demoBytes()
    {
        return loadFile(std::filesystem::path(VELKO_DEMO_DIR) / "demo.nes").value();
    }
    // Writes a file of its own for this test and returns its absolute path.
    std::string write(const std::string& name, const auto& content) const
    {
        return utf8FromPath(m_folder.write(name, content));
    }
    std::string path(const std::string& name) const { return utf8FromPath(m_folder.path() / name); }

    // Wrong use or unreadable input: nothing on standard output, this one line as the reason.
    static void expectFailure(const CliOutcome& outcome, const std::string& reason)
    {
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "velko-cli: " + reason + "\n");
    }

private:
    TemporaryFolder m_folder;
};

} // namespace velko::test
