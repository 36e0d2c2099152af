#include "cli/verb_diff.h"

#include "cli/arguments.h"
#include "cli/game.h"
#include "cli/game_diff.h"
#include "cli/json.h"
#include "rom/number_text.h"

#include <CLI/CLI.hpp>

namespace velko {

namespace {

constexpr std::string_view changeName(DiffChange change)
{
    constexpr std::string_view kNames[] = {"changed", "added", "removed", "moved"};
    return kNames[static_cast<std::size_t>(change)];
}

// Names of a module may be any bytes; a line must stay one.
void writeLines(std::ostream& out, const GameDiff& diff)
{
    for (const Difference& difference : diff.differences())
        out << oneLine(differenceLine(difference)) << '\n';
    for (const OffsetRange& range : diff.rest())
        out << "unexplained: " << hexText(range.start) << " to " << hexText(range.end - 1) << ", "
            << decimalText(range.end - range.start) << " bytes\n";
}

Json rangesJson(const std::vector<OffsetRange>& ranges)
{
    Json json = Json::array();
    for (const OffsetRange& range : ranges)
        json.push_back(Json{{"offset", range.start}, {"length", range.end - range.start}});
    return json;
}

Json differenceJson(const Difference& difference)
{
    Json json;
    if (difference.owner != DiffOwner::kNobody)
        json[std::string(ownerName(difference.owner)) + "s"] = difference.owners;
    json["what"] = difference.what;
    json["change"] = changeName(difference.change);
    if (!difference.from.empty())
        json["from"] = difference.from;
    if (!difference.to.empty())
        json["to"] = difference.to;
    json["bytes"] = rangesJson(difference.offsets);
    return json;
}

Json diffJson(const GameDiff& diff)
{
    Json differences = Json::array();
    for (const Difference& difference : diff.differences())
        differences.push_back(differenceJson(difference));
    return {{"differences", std::move(differences)}, {"unexplained", rangesJson(diff.rest())}};
}

class DiffVerb : public Verb {
public:
    void declare(CLI::App& command) override
    {
        command.add_option("A", m_before, "The first ROM")->required()->type_name("");
        command.add_option("B", m_after, "The ROM to compare with it")->required()->type_name("");
        addJson(command, m_json);
    }

    ExitStatus run(const Context& context) override
    {
        EditorState before;
        EditorState after;
        if (const auto reason = openGame(context, m_before, before))
            return context.fail(*reason);
        if (const auto reason = openGame(context, m_after, after))
            return context.fail(*reason);
        const GameDiff diff = compareGames(before, after);
        if (m_json)
            writeJson(context.out(), diffJson(diff));
        else
            writeLines(context.out(), diff);
        const bool isSame = diff.differences().empty() && diff.rest().empty();
        return isSame ? ExitStatus::kFine : ExitStatus::kFindings;
    }

private:
    std::string m_before;
    std::string m_after;
    bool m_json = false;
};

} // namespace

std::unique_ptr<Verb> makeDiffVerb()
{
    return std::make_unique<DiffVerb>();
}

} // namespace velko
