#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace velko {

// velko [-C DIR] [ROM] [--trace] [--help] [--version]
struct CommandLine {
    std::optional<QString> folder; // -C
    std::optional<QString> rom;
    bool trace = false;
    bool help = false;
    bool version = false;
    QString error; // what is wrong with the arguments; empty when nothing is
};

// Reads the arguments that follow the program's name. "--" ends the options.
CommandLine parseCommandLine(const QStringList& arguments);

// The answer to --help, ending in a line break.
QString helpText();

} // namespace velko
