#pragma once

#include <functional>
#include <string_view>

namespace velko {

// Receives the configuration loader's trace, piece by piece as written; an empty sink drops it.
// The pieces carry their own line breaks.
using TraceSink = std::function<void(std::string_view)>;

} // namespace velko
