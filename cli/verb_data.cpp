#include "cli/verb_data.h"

#include "cli/answering_prompt.h"
#include "cli/arguments.h"
#include "cli/block_listing.h"
#include "cli/game.h"
#include "cli/output_file.h"
#include "pages/data_management_model.h"
#include "rom/number_text.h"
#include "store/file_offsets.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>

namespace velko {

namespace {

// In the order of RoomDataKind.
constexpr std::array<const char*, kRoomDataKinds> kKindNames = {"alloc", "layout", "tile32",
                                                                "tiles", "palette"};

constexpr const char* kPastEnd = " lies past the end of the file";

enum class Operation : std::uint8_t {
    kList,
    kShow,
    kAllocate,
    kDelete,
    kSetPointer,
    kClone,
    kDeleteUnused,
    kJoin,
};

struct OperationEntry {
    const char* name;
    Operation operation;
    bool takesRoom;
    bool takesFrom;
    bool writes;
};

constexpr std::array<OperationEntry, 8> kOperations = {{
    {"list", Operation::kList, false, false, false},
    {"show", Operation::kShow, true, false, false},
    {"allocate", Operation::kAllocate, true, false, true},
    {"delete", Operation::kDelete, true, false, true},
    {"set-pointer", Operation::kSetPointer, true, true, true},
    {"clone", Operation::kClone, true, true, true},
    {"delete-unused", Operation::kDeleteUnused, false, false, true},
    {"join", Operation::kJoin, false, false, true},
}};

template <typename Names> CLI::IsMember oneOf(const Names& names)
{
    return CLI::IsMember(std::vector<std::string>(names.begin(), names.end()));
}

std::vector<std::string> operationNames()
{
    std::vector<std::string> names;
    for (const OperationEntry& entry : kOperations)
        names.emplace_back(entry.name);
    return names;
}

class DataVerb : public Verb {
public:
    void declare(CLI::App& command) override;
    ExitStatus run(const Context& context) override;

private:
    // Why the options do not go together, if they do not.
    std::optional<std::string> misuse(const OperationEntry& entry) const;
    std::optional<std::string> misuse(const char* option, bool isTaken, bool isGiven,
                                      bool isNeeded) const;
    ExitStatus show(const Context& context, const EditorState& state) const;
    ExitStatus change(const Context& context, EditorState& state, Operation operation) const;
    // What of it lies past the end of the file, where all reads as filler.
    std::optional<std::string> missingPart(const EditorState& state, Operation operation) const;
    // Runs it as the window does. Returns false when it was refused.
    bool perform(DataManagementModel& model, Operation operation) const;

    RoomDataKind kind() const
    {
        const auto found = std::ranges::find(kKindNames, m_kind);
        return static_cast<RoomDataKind>(found - kKindNames.begin());
    }

    std::string m_rom;
    std::string m_operation;
    std::string m_kind;
    std::optional<std::uint32_t> m_room;
    std::optional<std::uint32_t> m_from;
    std::optional<std::uint32_t> m_pointer;
    std::vector<std::string> m_answers;
    std::string m_output;
    bool m_json = false;
};

void DataVerb::declare(CLI::App& command)
{
    constexpr std::uint32_t kLargestRoom = kMostRooms - 1;
    addRom(command, m_rom);
    command
        .add_option("OPERATION", m_operation,
                    "What to do: list and show only tell, the others change blocks or pointers")
        ->required()
        ->check(oneOf(operationNames()));
    command.add_option("--kind", m_kind, "The kind of room data")
        ->required()
        ->check(oneOf(kKindNames))
        ->type_name("KIND");
    addHex(command, "--room", m_room, "The room whose block or pointer it is about", kLargestRoom);
    addHex(command, "--from", m_from, "With set-pointer and clone: the other room, (B)",
           kLargestRoom);
    addHex(command, "--pointer", m_pointer,
           "With set-pointer, instead of --from: the CPU address that becomes the pointer", 0xFFFF);
    command
        .add_option("--answer", m_answers,
                    "The answer to the operation's question; where it has two, give the option "
                    "twice, or once for both")
        ->check(oneOf(std::array{"yes", "no", "cancel"}))
        ->allow_extra_args(false)
        ->type_name("ANSWER");
    addOutput(command, m_output, "The ROM file to write; not with list and show")->required(false);
    addJson(command, m_json);
}

std::optional<std::string> DataVerb::misuse(const char* option, bool isTaken, bool isGiven,
                                            bool isNeeded) const
{
    if (isGiven && !isTaken)
        return m_operation + " takes no " + option;
    if (!isGiven && isNeeded)
        return m_operation + " needs " + option;
    return std::nullopt;
}

std::optional<std::string> DataVerb::misuse(const OperationEntry& entry) const
{
    const bool setsPointer = entry.operation == Operation::kSetPointer;
    if (setsPointer && m_from && m_pointer)
        return m_operation + " takes --from or --pointer, not both";
    if (setsPointer && !m_from && !m_pointer)
        return m_operation + " needs --from or --pointer";
    struct Rule {
        const char* option;
        bool isTaken;
        bool isGiven;
        bool isNeeded;
    };
    const std::array<Rule, 6> rules = {{
        {"--room", entry.takesRoom, m_room.has_value(), entry.takesRoom},
        {"--from", entry.takesFrom, m_from.has_value(), entry.takesFrom && !setsPointer},
        {"--pointer", setsPointer, m_pointer.has_value(), false},
        {"--answer", entry.writes, !m_answers.empty(), false},
        {"-o", entry.writes, !m_output.empty(), entry.writes},
        {"--json", !entry.writes, m_json, false},
    }};
    for (const Rule& rule : rules) {
        if (auto reason = misuse(rule.option, rule.isTaken, rule.isGiven, rule.isNeeded))
            return reason;
    }
    return std::nullopt;
}

ExitStatus DataVerb::run(const Context& context)
{
    const auto entry = std::ranges::find(
        kOperations, m_operation, [](const OperationEntry& e) { return std::string_view(e.name); });
    if (const auto reason = misuse(*entry))
        return context.fail(*reason + " (see velko-cli data --help)");
    EditorState state;
    if (const auto reason = openGame(context, m_rom, state))
        return context.fail(*reason);
    const std::uint32_t rooms = state.config.roomCount();
    for (const auto& room : {m_room, m_from}) {
        if (room && *room >= rooms)
            return context.fail("there is no room " + hexText(*room) + ": the game has "
                                + decimalText(rooms) + " rooms, counted from 0 in hexadecimal");
    }
    if (!entry->writes)
        return show(context, state);
    return change(context, state, entry->operation);
}

ExitStatus DataVerb::show(const Context& context, const EditorState& state) const
{
    if (const auto part = missingPart(state, Operation::kShow))
        return context.fail(*part + kPastEnd, ExitStatus::kFindings);
    const auto write = m_json ? writeListingAsJson : writeListing;
    write(context.out(), listBlocks(state, blockKind(kind()), m_room));
    return ExitStatus::kFine;
}

std::optional<std::string> DataVerb::missingPart(const EditorState& state,
                                                 Operation operation) const
{
    const BlockKind& blocks = blockKind(kind());
    const PointerArrayHandler& handler = state.store.*blocks.handler;
    for (const auto& room : {m_room, m_from}) {
        if (!room)
            continue;
        if (!liesInFile(state.rom, entryOffsets(handler, *room)))
            return "the pointer of room " + hexText(*room);
        const bool usesBlock = operation == Operation::kClone || operation == Operation::kDelete;
        const std::uint32_t length = usesBlock ? blocks.length(handler, *room) : 0;
        if (!liesInFile(state.rom, blockOffsets(handler, *room, length)))
            return "the block of room " + hexText(*room);
    }
    const bool isForAll = operation == Operation::kDeleteUnused || operation == Operation::kJoin;
    const std::int32_t entries = isForAll ? handler.entryCount() : 0;
    for (std::int32_t entry = 0; entry < entries; ++entry) {
        if (!liesInFile(state.rom, entryOffsets(handler, static_cast<std::uint32_t>(entry))))
            return "the table of pointers";
    }
    return std::nullopt;
}

ExitStatus DataVerb::change(const Context& context, EditorState& state, Operation operation) const
{
    if (const auto part = missingPart(state, operation))
        return context.fail(*part + kPastEnd, ExitStatus::kFindings);
    state.graphics.selectRoom(static_cast<std::uint8_t>(m_room.value_or(0)));
    AnsweringPrompt prompt(m_answers);
    DataManagementModel model(state, prompt);
    const bool isDone = perform(model, operation) && !prompt.objection();
    // Whatever the operation tells, it was not done as a whole.
    if (state.rom.droppedWrites() > 0)
        return context.fail("a part of what " + m_operation + " changes" + kPastEnd,
                            ExitStatus::kFindings);
    for (const std::string& message : prompt.messages())
        (isDone ? context.out() : context.err()) << oneLine(message) << '\n';
    if (prompt.objection())
        return context.fail(*prompt.objection(), ExitStatus::kFindings);
    if (!isDone)
        return context.fail("nothing was changed", ExitStatus::kFindings);
    if (const auto reason = writeFile(context.path(m_output), state.rom.bytes()))
        return context.fail(*reason);
    return ExitStatus::kFine;
}

bool DataVerb::perform(DataManagementModel& model, Operation operation) const
{
    const int roomB = static_cast<int>(m_from.value_or(0));
    switch (operation) {
    case Operation::kAllocate:
        return model.allocateUniqueData(kind());
    case Operation::kDelete:
        model.deleteData(kind());
        return true;
    case Operation::kSetPointer:
        if (m_pointer)
            model.setPointer(kind(), *m_pointer);
        else
            model.setPointerToRoom(kind(), roomB);
        return true;
    case Operation::kClone:
        return model.cloneDataOfRoom(kind(), roomB) != CloneResult::kNothing;
    case Operation::kDeleteUnused:
        model.deleteUnusedData(kind());
        return true;
    case Operation::kJoin:
        model.joinIdenticalData(kind());
        return true;
    case Operation::kList:
    case Operation::kShow:
        break;
    }
    return false;
}

} // namespace

std::unique_ptr<Verb> makeDataVerb()
{
    return std::make_unique<DataVerb>();
}

} // namespace velko
