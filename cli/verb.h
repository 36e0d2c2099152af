#pragma once

#include "cli/context.h"

#include <memory>
#include <span>

namespace CLI {
class App;
}

namespace velko {

// One verb of the command line: `velko-cli VERB ...`. It is made for each command line, declares
// its arguments, and runs if it is the verb that was given.
class Verb {
public:
    virtual ~Verb() = default;

    // Adds the verb's arguments to its `command`. What they hold when run() is called lies in
    // members of the verb. Every argument needs a description: help, manual and completions are
    // made of these.
    virtual void declare(CLI::App& command) = 0;
    virtual ExitStatus run(const Context& context) = 0;
};

struct VerbEntry {
    const char* name;
    const char* summary; // one sentence without a full stop
    std::unique_ptr<Verb> (*make)();
};

// All verbs, in the order in which help lists them.
std::span<const VerbEntry> verbTable();

} // namespace velko
