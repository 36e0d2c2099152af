#include "cli/verb_info.h"

#include "cli/arguments.h"
#include "cli/game.h"
#include "cli/json.h"

namespace velko {

namespace {

class InfoVerb : public Verb {
public:
    void declare(CLI::App& command) override
    {
        addRom(command, m_rom);
        addJson(command, m_json);
    }

    ExitStatus run(const Context& context) override
    {
        EditorState state;
        if (const auto reason = openGame(context, m_rom, state))
            return context.fail(*reason);
        if (m_json)
            writeJson(context.out(), Json{{"size", state.rom.size()}});
        else
            context.out() << "size: " << state.rom.size() << " bytes\n";
        return ExitStatus::kFine;
    }

private:
    std::string m_rom;
    bool m_json = false;
};

} // namespace

std::unique_ptr<Verb> makeInfoVerb()
{
    return std::make_unique<InfoVerb>();
}

} // namespace velko
