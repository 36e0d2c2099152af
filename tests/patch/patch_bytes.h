#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace velko::test {

using Bytes = std::vector<std::uint8_t>;

// Bytes written as text; '\0' counts.
inline Bytes text(std::string_view text)
{
    return {text.begin(), text.end()};
}

// Parts, one behind the other.
inline Bytes join(std::initializer_list<Bytes> parts)
{
    Bytes all;
    for (const Bytes& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace velko::test
