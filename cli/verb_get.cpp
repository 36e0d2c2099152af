#include "cli/verb_get.h"

#include "cli/arguments.h"
#include "cli/field.h"
#include "cli/game.h"
#include "cli/json.h"
#include "cli/output_file.h"
#include "rom/number_text.h"

#include <CLI/CLI.hpp>
#include <ostream>

namespace velko {

namespace {

CLI::Option* addField(CLI::App& command, std::string& name)
{
    return command
        .add_option("FIELD", name,
                    "The value's name, like room.12.palette.5; the numbers in it are "
                    "hexadecimal and counted from 0")
        ->required()
        ->type_name("");
}

void pointToFields(CLI::App& command)
{
    command.footer("All fields: section FIELDS of velko-cli(1).");
}

// Its bytes would read as filler, and take nothing.
ExitStatus failPastEnd(const Context& context, const std::string& name)
{
    return context.fail(name + " lies past the end of the file", ExitStatus::kFindings);
}

class GetVerb : public Verb {
public:
    void declare(CLI::App& command) override
    {
        addRom(command, m_rom);
        addField(command, m_name);
        addJson(command, m_json);
        pointToFields(command);
    }

    ExitStatus run(const Context& context) override
    {
        EditorState state;
        if (const auto reason = openGame(context, m_rom, state))
            return context.fail(*reason);
        const FieldResult result = findField(state, m_name);
        if (const auto* reason = std::get_if<std::string>(&result))
            return context.fail(m_name + ": " + *reason);
        const auto& field = std::get<Field>(result);
        if (!liesInFile(state.rom, field.bytes))
            return failPastEnd(context, m_name);
        if (m_json)
            writeJson(context.out(), Json{{"field", m_name}, {"value", field.value}});
        else
            context.out() << hexText(field.value) << '\n';
        return ExitStatus::kFine;
    }

private:
    std::string m_rom;
    std::string m_name;
    bool m_json = false;
};

// What a refused value could have been.
std::string boundsText(const Field& field)
{
    std::string text = hexText(field.smallest) + " to " + hexText(field.largest);
    if (field.step > 1)
        text += ", multiples of " + hexText(field.step);
    if (field.also)
        text += ", or " + hexText(*field.also);
    return text;
}

class SetVerb : public Verb {
public:
    void declare(CLI::App& command) override
    {
        addRom(command, m_rom);
        addField(command, m_name);
        addHex(command, "VALUE", m_value, "The new value, hexadecimal")->required()->type_name("");
        addOutput(command, m_output, "The ROM file to write");
        pointToFields(command);
    }

    ExitStatus run(const Context& context) override
    {
        EditorState state;
        if (const auto reason = openGame(context, m_rom, state))
            return context.fail(*reason);
        const FieldResult result = findField(state, m_name);
        if (const auto* reason = std::get_if<std::string>(&result))
            return context.fail(m_name + ": " + *reason);
        const auto& field = std::get<Field>(result);
        if (!liesInFile(state.rom, field.bytes))
            return failPastEnd(context, m_name);
        if (!field.set)
            return context.fail(m_name + " can only be read", ExitStatus::kFindings);
        if (!liesInFile(state.rom, field.boundBytes))
            return failPastEnd(context, "what bounds " + m_name);
        if (!field.allows(*m_value))
            return context.fail(m_name + " takes " + boundsText(field) + ", not "
                                    + hexText(*m_value),
                                ExitStatus::kFindings);
        if (const auto refusal = field.set(*m_value))
            return context.fail(m_name + ": " + *refusal, ExitStatus::kFindings);
        // The value may be there, and what changes along with it may not.
        if (state.rom.droppedWrites() > 0)
            return failPastEnd(context, "a part of what setting " + m_name + " changes");
        if (const auto reason = writeFile(context.path(m_output), state.rom.bytes()))
            return context.fail(*reason);
        return ExitStatus::kFine;
    }

private:
    std::string m_rom;
    std::string m_name;
    std::optional<std::uint32_t> m_value;
    std::string m_output;
};

} // namespace

std::unique_ptr<Verb> makeGetVerb()
{
    return std::make_unique<GetVerb>();
}

std::unique_ptr<Verb> makeSetVerb()
{
    return std::make_unique<SetVerb>();
}

} // namespace velko
