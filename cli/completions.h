#pragma once

#include "cli/command_text.h"

#include <string>

namespace velko {

// Scripts that complete verbs, options and choices in a shell, and names of files elsewhere.
std::string bashCompletion(const CommandText& program);
std::string zshCompletion(const CommandText& program);
std::string fishCompletion(const CommandText& program);

} // namespace velko
