#include "app/command_line.h"
#include "app/editor_app.h"
#include "app/end_process.h"
#include "app/file_chooser.h"
#include "app/icons.h"
#include "app/init_instance.h"
#include "app/message_boxes.h"
#include "app/text.h"
#include "app/tool_tips.h"
#include "app/trace_output.h"
#include "rom/file_io.h"

#include <QApplication>
#include <cstdlib>
#include <iostream>
#include <system_error>

namespace {

using namespace velko;

constexpr int kWrongArguments = 2;
// Letters typed within this time of one another look for one name.
constexpr int kTypingPauseMs = 1000;

// Answers --help and --version. Returns false when neither is asked.
bool answered(const CommandLine& line)
{
    if (line.help)
        std::cout << helpText().toStdString() << std::flush;
    else if (line.version)
        std::cout << "velko " VELKO_VERSION "\n" << std::flush;
    return line.help || line.version;
}

// Returns false, with a message, when the arguments make no sense.
bool prepare(const CommandLine& line)
{
    std::string error = line.error.toStdString();
    if (error.empty() && line.folder) {
        std::error_code failure;
        std::filesystem::current_path(toPath(*line.folder), failure);
        if (failure)
            error = line.folder->toStdString() + ": " + failure.message();
    }
    if (!error.empty())
        std::cerr << "velko: " << error << "\nTry \"velko --help\".\n";
    return error.empty();
}

// The whole path, for the caption.
std::optional<std::filesystem::path> romPath(const CommandLine& line)
{
    if (!line.rom)
        return std::nullopt;
    std::error_code failure;
    const auto whole = std::filesystem::absolute(toPath(*line.rom), failure);
    return failure ? toPath(*line.rom) : whole;
}

} // namespace

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    if (answered(parseCommandLine(arguments))) // also where there is no display
        return 0;

    failWritesOfTooLargeFiles();
    // Every place that the mouse passes counts: a fast stroke must not leave cells out.
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName("Velko");
    QCoreApplication::setApplicationVersion(VELKO_VERSION);
    QGuiApplication::setDesktopFileName("velko");
    QApplication::setWindowIcon(pixelIcon(":/icons/velko.xpm"));
    QApplication::setKeyboardInputInterval(kTypingPauseMs);
    ToolTips toolTips;
    application.installEventFilter(&toolTips);
    // The toolkit has taken its own options away.
    const CommandLine line = parseCommandLine(QCoreApplication::arguments().mid(1));
    if (answered(line))
        return 0;
    if (!prepare(line))
        return kWrongArguments;

    MessageBoxes prompt;
    FileDialogs chooser;
    const bool trace = line.trace || qEnvironmentVariableIsSet("VELKO_TRACE");
    EditorApp editor({prompt, chooser, endProcess, traceOutput(trace)});
    if (!editor.initApplication(romPath(line)))
        return EXIT_FAILURE; // not reached: the process has ended
    initInstance(editor, prompt);
    return EXIT_SUCCESS;
}
