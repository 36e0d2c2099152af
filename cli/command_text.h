#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace velko {

// An option or positional argument, as manuals and completions tell it.
struct ArgumentText {
    std::vector<std::string> names; // "-o", "--output"; of a positional its one name, as "ROM"
    std::string value;              // what stands for its value, as "PATH"; empty for a flag
    std::string description;
    std::vector<std::string> choices; // the values it takes; empty where any text will do
    bool isRequired = false;
    bool isRepeated = false; // a positional that takes several values

    // Whether a value may be the name of a file: it is neither a number nor one of a few choices.
    bool isPath() const;
};

// A command: the program itself, one of its verbs, or a verb's own subcommand.
struct CommandText {
    std::string name; // one word
    std::string summary;
    std::vector<ArgumentText> options;
    std::vector<ArgumentText> positionals;
    std::vector<CommandText> commands;
};

// Reads a command out of its definition.
CommandText describe(const CLI::App& command);

} // namespace velko
