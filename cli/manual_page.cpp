#include "cli/manual_page.h"

#include "cli/field.h"

#include <cctype>
#include <string_view>

namespace velko {

namespace {

// A text in which roff finds nothing to interpret. A hyphen stays one that can be searched for.
std::string plain(std::string_view text)
{
    std::string roff;
    if (text.starts_with('.') || text.starts_with('\''))
        roff += "\\&";
    for (const char c : text) {
        if (c == '\\')
            roff += "\\e";
        else if (c == '-')
            roff += "\\-";
        else if (c == '\n')
            roff += ' ';
        else
            roff += c;
    }
    return roff;
}

std::string bold(std::string_view text)
{
    return "\\fB" + plain(text) + "\\fR";
}

std::string italic(std::string_view text)
{
    return "\\fI" + plain(text) + "\\fR";
}

// "-o, --output PATH"
std::string optionLine(const ArgumentText& option)
{
    std::string line;
    for (const std::string& name : option.names)
        line += (line.empty() ? "" : ", ") + bold(name);
    return option.value.empty() ? line : line + " " + italic(option.value);
}

std::string sentence(const ArgumentText& argument)
{
    std::string text = plain(argument.description);
    if (!argument.choices.empty()) {
        text += ": ";
        for (std::size_t i = 0; i < argument.choices.size(); ++i)
            text += (i == 0 ? "" : ", ") + bold(argument.choices[i]);
    }
    return text + ".";
}

// How a command is written, behind the names of those that it belongs to.
std::string synopsis(const std::string& parents, const CommandText& command)
{
    std::string line = bold(parents + command.name);
    if (!command.options.empty())
        line += " [" + italic("options") + "]";
    for (const ArgumentText& positional : command.positionals) {
        const std::string name =
            italic(positional.names.front()) + (positional.isRepeated ? " ..." : "");
        line += positional.isRequired ? " " + name : " [" + name + "]";
    }
    return command.commands.empty() ? line : line + " " + italic("verb") + " ...";
}

std::string argumentList(const CommandText& command)
{
    std::string page;
    for (const ArgumentText& positional : command.positionals)
        page += ".TP\n" + italic(positional.names.front()) + "\n" + sentence(positional) + "\n";
    for (const ArgumentText& option : command.options) {
        page += ".TP\n" + optionLine(option) + "\n" + sentence(option)
            + (option.isRequired ? " Required." : "") + "\n";
    }
    return page;
}

std::string verbSection(const std::string& parents, const CommandText& verb)
{
    std::string page = ".SS " + plain(parents + verb.name) + "\n" + synopsis(parents, verb)
        + "\n.PP\n" + plain(verb.summary) + ".\n" + argumentList(verb);
    for (const CommandText& inner : verb.commands)
        page += verbSection(parents + verb.name + " ", inner);
    return page;
}

bool isCapital(char c)
{
    return std::isupper(static_cast<unsigned char>(c)) != 0;
}

// "room.R.music", what stands for a number in italics.
std::string patternLine(std::string_view pattern)
{
    std::string line;
    while (!pattern.empty()) {
        const bool isNumber = isCapital(pattern.front());
        std::size_t length = 1;
        while (length < pattern.size() && isCapital(pattern[length]) == isNumber)
            ++length;
        const std::string_view part = pattern.substr(0, length);
        line += isNumber ? italic(part) : bold(part);
        pattern.remove_prefix(length);
    }
    return line;
}

std::string fieldSection()
{
    std::string page = ".SH FIELDS\nThe names of what \\fBget\\fR tells and \\fBset\\fR changes, "
                       "each with the values that it takes. Words in capitals stand for numbers "
                       "counted from 0; these and all values are hexadecimal.\n";
    for (const FieldRule& rule : fieldRules())
        page += ".TP\n" + patternLine(rule.pattern) + " (" + plain(rule.bounds) + ")\n"
            + plain(rule.tells) + ".\n";
    return page;
}

} // namespace

std::string manualPage(const CommandText& program)
{
    std::string page = ".TH VELKO\\-CLI 1 \"\" \"Velko " VELKO_VERSION "\" \"User Commands\"\n"
                       ".SH NAME\nvelko\\-cli \\- levels of an NES game for scripts and checks\n"
                       ".SH SYNOPSIS\n"
        + synopsis("", program) + "\n.SH DESCRIPTION\n" + plain(program.summary)
        + "\n.PP\nNumbers of rooms and addresses are hexadecimal without a prefix, as the "
          "editor's windows show them. A file is written under another name beside its place "
          "and then renamed, so that it is there whole or not at all.\n"
          ".SH OPTIONS\n"
        + argumentList(program) + ".SH VERBS\n";
    for (const CommandText& verb : program.commands)
        page += verbSection("", verb);
    return page + fieldSection()
        + ".SH EXIT STATUS\n"
          ".TP\n0\nFine.\n"
          ".TP\n1\nSomething was found, or what was asked is refused.\n"
          ".TP\n2\nWrong use, unreadable input or a failed write; one line on standard error tells "
          "which.\n"
          ".SH FILES\n"
          ".TP\n\\fImodule.cfg\\fR\nIn the work folder: its first line names the module's folder "
          "in \\fImodules\\fR.\n"
          ".TP\n\\fIdata.yaml\\fR\nIn the module's folder: where the game keeps its data.\n"
          ".SH SEE ALSO\n\\fBvelko\\fR \\-\\-help\n";
}

} // namespace velko
