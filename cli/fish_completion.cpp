#include "cli/completions.h"

#include <string_view>

namespace velko {

namespace {

std::string quoted(std::string_view text)
{
    std::string result = "'";
    for (const char c : text) {
        if (c == '\'' || c == '\\')
            result += '\\';
        result += c;
    }
    return result + "'";
}

std::string choiceList(const ArgumentText& argument)
{
    std::string words;
    for (const std::string& choice : argument.choices)
        words += (words.empty() ? "" : " ") + choice;
    return quoted(words);
}

// The line's start: where the completion is offered.
std::string offer(const std::string& condition)
{
    return "complete -c velko-cli" + (condition.empty() ? "" : " -n " + quoted(condition));
}

std::string optionLine(const std::string& condition, const ArgumentText& option)
{
    std::string line = offer(condition);
    for (const std::string& name : option.names)
        line += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    if (option.isPath())
        line += " -r -F";
    else if (!option.value.empty())
        line += " -x" + (option.choices.empty() ? "" : " -a " + choiceList(option));
    return line + " -d " + quoted(option.description) + "\n";
}

// A further condition.
std::string also(const std::string& condition, const std::string& next)
{
    return condition.empty() ? next : condition + "; and " + next;
}

// The lines of a command, which `condition` tells to be the one that is being written.
std::string lines(const std::string& condition, const CommandText& command)
{
    std::string names;
    for (const CommandText& inner : command.commands)
        names += " " + inner.name;
    const std::string here =
        names.empty() ? condition : also(condition, "not __fish_seen_subcommand_from" + names);
    std::string text;
    for (const ArgumentText& option : command.options)
        text += optionLine(here, option);
    for (const ArgumentText& positional : command.positionals) {
        if (!positional.choices.empty())
            text += offer(here) + " -a " + choiceList(positional) + " -d "
                + quoted(positional.description) + "\n";
    }
    for (const CommandText& inner : command.commands)
        text += offer(here) + " -f -a " + inner.name + " -d " + quoted(inner.summary) + "\n"
            + lines(also(condition, "__fish_seen_subcommand_from " + inner.name), inner);
    return text;
}

} // namespace

std::string fishCompletion(const CommandText& program)
{
    return "# fish completion for velko-cli\n" + lines("", program);
}

} // namespace velko
