#include "cli/arguments.h"

#include "rom/number_text.h"

#include <CLI/CLI.hpp>
#include <charconv>

namespace velko {

CLI::Option* addRom(CLI::App& command, std::string& rom)
{
    return command.add_option("ROM", rom, "The ROM file (.nes)")->required()->type_name("");
}

CLI::Option* addJson(CLI::App& command, bool& json)
{
    return command.add_flag("--json", json, "Write JSON");
}

CLI::Option* addOutput(CLI::App& command, std::string& path, const std::string& description)
{
    return command.add_option("-o,--output", path, description)->required()->type_name("PATH");
}

CLI::Option* addHex(CLI::App& command, const std::string& name, std::optional<std::uint32_t>& value,
                    const std::string& description, std::uint32_t largest)
{
    const auto take = [&value, name, largest](const std::string& text) {
        value = strictHex(text);
        if (!value || *value > largest)
            throw CLI::ValidationError(
                name, "\"" + text + "\" is no hexadecimal number from 0 to " + hexText(largest));
    };
    return command.add_option_function<std::string>(name, take, description)->type_name("HEX");
}

std::optional<std::uint32_t> strictHex(std::string_view text)
{
    if (text.starts_with("0x"))
        text.remove_prefix(2);
    std::uint32_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, 16);
    if (text.empty() || text.size() > 8 || error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

} // namespace velko
