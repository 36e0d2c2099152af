#include "cli/report_verb.h"

#include "cli/arguments.h"
#include "cli/game.h"

namespace velko {

void ReportVerb::declare(CLI::App& command)
{
    addRom(command, m_rom);
    addJson(command, m_json);
}

ExitStatus ReportVerb::run(const Context& context)
{
    EditorState state;
    if (const auto reason = openGame(context, m_rom, state))
        return context.fail(*reason);
    return report(context, state);
}

} // namespace velko
