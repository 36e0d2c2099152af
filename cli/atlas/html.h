#pragma once

#include <string>
#include <string_view>

namespace velko {

// A text as content or attribute value of an HTML page, whatever bytes it has: markup characters
// and everything beyond ASCII become character references, control characters blanks.
std::string escapeHtml(std::string_view text);

} // namespace velko
