#include "cli/cli.h"

#include "cli/command_line.h"
#include "rom/file_io.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <new>
#include <ostream>
#include <system_error>

namespace velko {

namespace {

// The reason of a parse error, in words that name what is wrong.
std::string reasonOf(const CLI::ParseError& error, const CLI::App& app)
{
    if (!app.get_subcommands().empty())
        return error.what();
    for (const std::string& word : app.remaining())
        return word.starts_with('-') ? "unknown option " + word : "unknown verb " + word;
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError))
        return "no verb given";
    return error.what();
}

std::string helpCommand(const CLI::App& app)
{
    std::string command = "velko-cli";
    for (const CLI::App* verb : app.get_subcommands())
        command += " " + verb->get_name();
    return command + " --help";
}

// Answers --help and --version, and tells what is wrong otherwise.
ExitStatus answer(const CLI::ParseError& error, const CLI::App& app, const Context& context)
{
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
        app.exit(error, context.out(), context.err());
        return ExitStatus::kFine;
    }
    return context.fail(reasonOf(error, app) + " (see " + helpCommand(app) + ")");
}

ExitStatus runVerb(CommandLine& line, std::ostream& out, std::ostream& err)
{
    const std::filesystem::path folder = pathFromUtf8(line.workFolder());
    const Context context(folder, out, err);
    std::error_code error;
    if (!std::filesystem::is_directory(folder, error))
        return context.fail(line.workFolder() + ": no such folder");
    return line.chosen()->run(context);
}

ExitStatus parseAndRun(std::span<const std::string> args, std::ostream& out, std::ostream& err)
{
    CommandLine line;
    try {
        // The parser takes them from the back.
        line.app().parse(std::vector<std::string>(args.rbegin(), args.rend()));
    } catch (const CLI::ParseError& error) {
        return answer(error, line.app(), Context(".", out, err));
    }
    return runVerb(line, out, err);
}

} // namespace

int runCli(std::span<const std::string> args, std::ostream& out, std::ostream& err)
{
    const Context context(".", out, err);
    ExitStatus status = ExitStatus::kWrong;
    // The last resort: no input may end the program in any other way than by an exit status.
    try {
        status = parseAndRun(args, out, err);
    } catch (const std::bad_alloc&) {
        status = context.fail("not enough memory");
    } catch (const std::exception& error) {
        status = context.fail(error.what());
    }
    if (!out.flush())
        status = context.fail("cannot write to standard output");
    return static_cast<int>(status);
}

} // namespace velko
