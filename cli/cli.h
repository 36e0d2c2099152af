#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace velko {

// Runs one command line of velko-cli. `args` are the words behind the program's name, in UTF-8.
// What was asked for goes to `out`, the reason of a failure as one line to `err`. Returns the exit
// status: 0 fine, 1 something found or refused, 2 wrong use, unreadable input or a failed write.
int runCli(std::span<const std::string> args, std::ostream& out, std::ostream& err);

} // namespace velko
