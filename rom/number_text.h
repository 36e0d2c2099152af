#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velko {

// Lower-case hexadecimal digits without prefix or padding: 255 gives "ff", 0 gives "0".
std::string hexText(std::uint32_t value);
// Decimal digits without padding.
std::string decimalText(std::uint32_t value);

// Reads hexadecimal digits of either case from the last character to the first. Characters that
// are no digits are skipped without taking a position, so "0x1F" and "1F" both give 31 and "zz"
// gives 0. A minus sign negates what stands to its right and takes a position of value 0. Digits
// beyond the eighth fold back into the low bits (the shift is taken modulo 32).
std::uint32_t parseHex(std::string_view text);

} // namespace velko
