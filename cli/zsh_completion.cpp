#include "cli/completions.h"

#include <string_view>

namespace velko {

namespace {

// A text between single quotes, as a part of a specification in which colons and brackets have
// a meaning.
std::string escaped(std::string_view text)
{
    std::string result;
    for (const char c : text) {
        if (c == '\'')
            result += "'\\''";
        else if (c == ':' || c == '[' || c == ']' || c == '\\')
            result += std::string("\\") + c;
        else
            result += c;
    }
    return result;
}

// ":PATH:_files", ":KIND:(alloc layout)", or without an action for numbers.
std::string value(const ArgumentText& argument)
{
    std::string text = ":" + escaped(argument.value) + ":";
    if (argument.isPath())
        return text + "_files";
    if (argument.choices.empty())
        return text;
    text += "(";
    for (const std::string& choice : argument.choices)
        text += escaped(choice) + " ";
    text.back() = ')';
    return text;
}

std::string optionSpecs(const ArgumentText& option)
{
    std::string excluded;
    for (const std::string& name : option.names)
        excluded += (excluded.empty() ? "" : " ") + name;
    std::string text;
    for (const std::string& name : option.names)
        text += " \\\n        '(" + excluded + ")" + name + "[" + escaped(option.description) + "]"
            + (option.value.empty() ? "" : value(option)) + "'";
    return text;
}

std::string functionName(const std::string& parents, const CommandText& command)
{
    return parents + "_" + command.name;
}

// The function of a command, behind those of its verbs.
std::string functions(const std::string& parents, const CommandText& command)
{
    const std::string name = functionName(parents, command);
    std::string text;
    for (const CommandText& inner : command.commands)
        text += functions(name, inner);
    text += name + "() {\n";
    if (!command.commands.empty())
        text += "    local context state line ret=1\n    typeset -A opt_args\n";
    text += "    _arguments -s -S";
    if (!command.commands.empty())
        text += " -C";
    for (const ArgumentText& option : command.options)
        text += optionSpecs(option);
    for (const ArgumentText& positional : command.positionals)
        text += std::string(" \\\n        '") + (positional.isRepeated ? "*" : "")
            + value(positional) + "'";
    if (command.commands.empty())
        return text + "\n}\n";
    text += " \\\n        ':verb:->verb' '*::argument:->argument' && ret=0\n"
            "    case $state in\n"
            "    verb)\n"
            "        local -a verbs=(";
    for (const CommandText& inner : command.commands)
        text += "\n            '" + inner.name + ":" + escaped(inner.summary) + "'";
    text += ")\n        _describe verb verbs && ret=0 ;;\n"
            "    argument)\n"
            "        case $words[1] in\n";
    for (const CommandText& inner : command.commands)
        text += "        " + inner.name + ") " + functionName(name, inner) + " && ret=0 ;;\n";
    return text + "        esac ;;\n    esac\n    return ret\n}\n";
}

} // namespace

std::string zshCompletion(const CommandText& program)
{
    return "#compdef velko-cli\n" + functions("", program)
        + "if [ \"$funcstack[1]\" = _velko-cli ]; then\n"
          "    _velko-cli \"$@\"\n"
          "else\n"
          "    compdef _velko-cli velko-cli\n"
          "fi\n";
}

} // namespace velko
