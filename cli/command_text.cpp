#include "cli/command_text.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <string_view>

namespace velko {

namespace {

// The parser tells a value as "NAME:{choice,choice}"; either half may be missing.
std::vector<std::string> choicesOf(const std::string& type)
{
    const std::size_t open = type.find('{');
    const std::size_t close = type.find('}', open);
    std::vector<std::string> choices;
    if (open == std::string::npos || close == std::string::npos)
        return choices;
    std::size_t at = open + 1;
    while (at < close) {
        const std::size_t end = std::min(type.find(',', at), close);
        choices.push_back(type.substr(at, end - at));
        choices.back().resize(std::min(choices.back().size(), choices.back().find("->")));
        at = end + 1;
    }
    return choices;
}

std::string valueOf(const CLI::Option& option)
{
    if (option.get_items_expected_max() == 0) // a flag
        return {};
    const std::string type = option.get_type_name();
    const std::string name = type.substr(0, type.find_first_of(":{"));
    return name.empty() ? "VALUE" : name;
}

ArgumentText argumentOf(const CLI::Option& option)
{
    ArgumentText text;
    if (option.get_positional()) {
        text.names.push_back(option.get_name(true));
    } else {
        for (const std::string& name : option.get_snames())
            text.names.push_back("-" + name);
        for (const std::string& name : option.get_lnames())
            text.names.push_back("--" + name);
    }
    text.value = option.get_positional() ? text.names.front() : valueOf(option);
    text.description = option.get_description();
    text.choices = choicesOf(option.get_type_name());
    text.isRequired = option.get_required();
    text.isRepeated = option.get_items_expected_max() > 1;
    return text;
}

void addArguments(const CLI::App& command, CommandText& text)
{
    for (const CLI::Option* option : command.get_options()) {
        auto& list = option->get_positional() ? text.positionals : text.options;
        list.push_back(argumentOf(*option));
    }
    // A subcommand without a name is a group of options.
    for (const CLI::App* inner : command.get_subcommands([](const CLI::App*) { return true; })) {
        if (inner->get_name().empty())
            addArguments(*inner, text);
        else
            text.commands.push_back(describe(*inner));
    }
}

} // namespace

bool ArgumentText::isPath() const
{
    constexpr std::array<std::string_view, 5> kNumbers = {"HEX", "N", "INT", "UINT", "FLOAT"};
    return !value.empty() && choices.empty()
        && std::ranges::find(kNumbers, value) == kNumbers.end();
}

CommandText describe(const CLI::App& command)
{
    CommandText text;
    text.name = command.get_name();
    text.summary = command.get_description();
    addArguments(command, text);
    return text;
}

} // namespace velko
