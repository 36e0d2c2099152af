#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace velko {

// Arguments that several verbs take, so that they look and read alike.

// The ROM file, a required positional.
CLI::Option* addRom(CLI::App& command, std::string& rom);
// --json: facts for a program instead of a person.
CLI::Option* addJson(CLI::App& command, bool& json);
// -o, --output: the file or folder that is written; required.
CLI::Option* addOutput(CLI::App& command, std::string& path, const std::string& description);
// A number in hexadecimal without a prefix, as windows show and take numbers ("0x" is allowed).
// Anything else, also a number above `largest`, is wrong use.
CLI::Option* addHex(CLI::App& command, const std::string& name, std::optional<std::uint32_t>& value,
                    const std::string& description, std::uint32_t largest = 0xFFFFFFFF);

// Reads 1 to 8 hexadecimal digits of either case, "0x" in front allowed. Returns nothing for any
// other text.
std::optional<std::uint32_t> strictHex(std::string_view text);

} // namespace velko
