#include "cli/completions.h"

namespace velko {

namespace {

std::string joined(const std::vector<std::string>& words)
{
    std::string line;
    for (const std::string& word : words)
        line += (line.empty() ? "" : " ") + word;
    return line;
}

std::string pathOf(const std::string& parents, const CommandText& command)
{
    return parents.empty() ? command.name : parents + " " + command.name;
}

// One case per verb: which command a word leads to from the one before.
std::string steps(const std::string& path, const CommandText& command)
{
    std::string text;
    for (const CommandText& inner : command.commands) {
        const std::string name = path.empty() ? inner.name : path + " " + inner.name;
        text += "            '" + path + ":" + inner.name + "') command='" + name + "' ;;\n"
            + steps(name, inner);
    }
    return text;
}

// One case per option that takes a value: what may follow it. Nothing lets the shell complete
// file names.
std::string values(const std::string& path, const CommandText& command)
{
    std::string text;
    for (const ArgumentText& option : command.options) {
        if (option.value.empty())
            continue;
        std::string patterns;
        for (const std::string& name : option.names)
            patterns += (patterns.empty() ? "'" : "|'") + path + ":" + name + "'";
        text += "        " + patterns + ") words='" + joined(option.choices) + "' ;;\n";
    }
    for (const CommandText& inner : command.commands)
        text += values(pathOf(path, inner), inner);
    return text;
}

// One case per command: its options, and its verbs or choices.
std::string words(const std::string& path, const CommandText& command)
{
    std::string options;
    for (const ArgumentText& option : command.options)
        options += (options.empty() ? "" : " ") + joined(option.names);
    std::string others;
    for (const CommandText& inner : command.commands)
        others += (others.empty() ? "" : " ") + inner.name;
    for (const ArgumentText& positional : command.positionals) {
        for (const std::string& choice : positional.choices)
            others += (others.empty() ? "" : " ") + choice;
    }
    std::string text =
        "            '" + path + "') options='" + options + "' others='" + others + "' ;;\n";
    for (const CommandText& inner : command.commands)
        text += words(pathOf(path, inner), inner);
    return text;
}

} // namespace

std::string bashCompletion(const CommandText& program)
{
    return "# bash completion for velko-cli\n"
           "_velko_cli() {\n"
           "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}\n"
           "    local command= options= others= words= i\n"
           "    for ((i = 1; i < COMP_CWORD; ++i)); do\n"
           "        case \"$command:${COMP_WORDS[i]}\" in\n"
           "            ':-C') ((++i)) ;;\n"
        + steps("", program)
        + "        esac\n"
          "    done\n"
          "    case \"$command:$previous\" in\n"
        + values("", program)
        + "        *)\n"
          "        case \"$command\" in\n"
        + words("", program)
        + "        esac\n"
          "        if [[ $current == -* ]]; then words=$options; else words=$others; fi ;;\n"
          "    esac\n"
          "    COMPREPLY=($(compgen -W \"$words\" -- \"$current\"))\n"
          "}\n"
          "complete -o default -F _velko_cli velko-cli\n";
}

} // namespace velko
