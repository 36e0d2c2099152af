#include "rom/number_text.h"

#include <array>
#include <charconv>
#include <optional>

namespace velko {

namespace {

std::string numberText(std::uint32_t value, int base)
{
    std::array<char, 10> digits{}; // 4294967295 is the longest
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, base);
    return std::string(digits.data(), end.ptr);
}

std::optional<std::uint32_t> hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return static_cast<std::uint32_t>(c - '0');
    if (c >= 'A' && c <= 'F')
        return static_cast<std::uint32_t>(c - 'A' + 10);
    if (c >= 'a' && c <= 'f')
        return static_cast<std::uint32_t>(c - 'a' + 10);
    return std::nullopt;
}

} // namespace

std::string hexText(std::uint32_t value)
{
    return numberText(value, 16);
}

std::string decimalText(std::uint32_t value)
{
    return numberText(value, 10);
}

std::uint32_t parseHex(std::string_view text)
{
    std::uint32_t sum = 0;
    std::uint32_t shift = 0; // 4 bits per position, modulo 32
    for (std::size_t i = text.size(); i-- > 0;) {
        if (const auto digit = hexDigit(text[i]))
            sum += *digit << shift;
        else if (text[i] == '-')
            sum = 0 - sum;
        else
            continue;
        shift = (shift + 4) % 32;
    }
    return sum;
}

} // namespace velko
