#pragma once

#include "cli/verb.h"

#include <memory>
#include <string>
#include <vector>

namespace velko {

// The definition of the whole command line: the program's own options, and a subcommand for each
// verb. Parsing, help, the manual and the completions all start here.
class CommandLine {
public:
    CommandLine();
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    CLI::App& app() { return *m_app; }
    // What -C gave; "." without it.
    const std::string& workFolder() const { return m_workFolder; }
    // The verb that the parsed command line names, or null.
    Verb* chosen() const;

private:
    struct Entry {
        std::unique_ptr<Verb> verb;
        CLI::App* command;
    };

    std::unique_ptr<CLI::App> m_app;
    std::string m_workFolder = ".";
    std::vector<Entry> m_verbs;
};

} // namespace velko
