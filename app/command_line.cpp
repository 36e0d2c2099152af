#include "app/command_line.h"

namespace velko {

namespace {

constexpr const char* kTraceHelp =
#ifdef _WIN32
    "  --trace        changes nothing on this system, where the configuration loader's trace\n"
    "                 always goes to the debugger\n";
#else
    "  --trace        write the configuration loader's trace to standard error; so does\n"
    "                 setting the environment variable VELKO_TRACE\n";
#endif

// Takes one option, and from `rest` what belongs to it. Returns false when it is unknown.
bool readOption(const QString& option, QStringList& rest, CommandLine& line)
{
    if (option == "-h" || option == "--help") {
        line.help = true;
    } else if (option == "-v" || option == "--version") {
        line.version = true;
    } else if (option == "--trace") {
        line.trace = true;
    } else if (option == "-C") {
        if (rest.isEmpty())
            line.error = "-C needs a folder";
        else
            line.folder = rest.takeFirst();
    } else {
        return false;
    }
    return true;
}

} // namespace

CommandLine parseCommandLine(const QStringList& arguments)
{
    CommandLine line;
    QStringList rest = arguments;
    bool optionsEnded = false;
    while (!rest.isEmpty() && line.error.isEmpty()) {
        const QString argument = rest.takeFirst();
        if (!optionsEnded && argument == "--") {
            optionsEnded = true;
        } else if (!optionsEnded && argument.startsWith('-') && argument != "-") {
            if (!readOption(argument, rest, line))
                line.error = "unknown option " + argument;
        } else if (line.rom) {
            line.error = "more than one ROM file given";
        } else {
            line.rom = argument;
        }
    }
    return line;
}

QString helpText()
{
    return QString("Usage: velko [-C DIR] [ROM]\n"
                   "Edits the levels of an NES game. Without ROM a dialog asks for the file.\n"
                   "\n"
                   "  -C DIR         work in DIR, which holds module.cfg, modules, bitmap and the "
                   "palette\n")
        + kTraceHelp
        + "  -h, --help     show this text\n"
          "  -v, --version  show the version\n"
          "\n"
          "Exit status: 0, also when no ROM is chosen or one cannot be read; 2 for wrong\n"
          "arguments; 49374 when a questionable data.yaml is declined (a POSIX shell sees the\n"
          "low byte of it, 222).\n";
}

} // namespace velko
