#include "cli/command_line.h"

#include <CLI/CLI.hpp>

namespace velko {

namespace {

constexpr const char* kDescription =
    "Reads, checks, pictures and changes the levels of an NES game without a window.";
constexpr const char* kFooter =
    "Exit status: 0 fine; 1 something was found or refused; 2 wrong use, unreadable input or a\n"
    "failed write.";

} // namespace

CommandLine::CommandLine() : m_app(std::make_unique<CLI::App>(kDescription, "velko-cli"))
{
    // The same on every platform.
    m_app->allow_windows_style_options(false);
    m_app->set_help_flag("-h,--help", "Show this text");
    m_app->set_version_flag("-v,--version", "velko-cli " VELKO_VERSION, "Show the version");
    m_app
        ->add_option(
            "-C", m_workFolder,
            "Work in this folder, which holds module.cfg, modules, bitmap and the palette; "
            "relative paths start there")
        ->type_name("WORKDIR");
    m_app->require_subcommand(1);
    m_app->footer(kFooter);
    for (const VerbEntry& entry : verbTable()) {
        CLI::App* const command = m_app->add_subcommand(entry.name, entry.summary);
        m_verbs.push_back({entry.make(), command});
        m_verbs.back().verb->declare(*command);
    }
}

CommandLine::~CommandLine() = default;

Verb* CommandLine::chosen() const
{
    for (const Entry& entry : m_verbs) {
        if (entry.command->parsed())
            return entry.verb.get();
    }
    return nullptr;
}

} // namespace velko
