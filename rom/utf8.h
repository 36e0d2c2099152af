#pragma once

#include <string_view>
#include <vector>

namespace velko {

// The characters of a text that ought to be UTF-8. A byte that is no part of it (a sequence broken
// off or longer than needed, a surrogate, a number past U+10FFFF) counts as Latin-1, which older
// name lists are written in.
std::vector<char32_t> charactersOf(std::string_view text);

} // namespace velko
