#pragma once

#include "cli/command_text.h"

#include <string>

namespace velko {

// The manual page, section 1, in roff with the macros of man(7).
std::string manualPage(const CommandText& program);

} // namespace velko
