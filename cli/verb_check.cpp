#include "cli/verb_check.h"

#include "check/rom_check.h"
#include "cli/known_number.h"
#include "cli/report_verb.h"
#include "rom/number_text.h"

#include <algorithm>
#include <array>

namespace velko {

namespace {

using Counts = std::array<std::uint32_t, 3>; // by severity

Counts countSeverities(const Findings& findings)
{
    Counts counts{};
    for (const Finding& finding : findings)
        ++counts[static_cast<std::size_t>(severityOf(finding.kind))];
    return counts;
}

// A line as compilers write them, which editors and CI services know:
// "demo.nes:0x2c0f1: warning: room 2: 4 cells ... [layout-past-screen-list]".
void writeLine(std::ostream& out, const std::string& rom, const Finding& finding)
{
    out << oneLine(rom) << ":0x" << hexText(finding.fileOffset) << ": "
        << severityName(severityOf(finding.kind)) << ": ";
    if (finding.room)
        out << "room " << hexText(*finding.room) << ": ";
    if (finding.area)
        out << "area " << hexText(*finding.area) << ": ";
    out << finding.text << " [" << codeOf(finding.kind) << "]\n";
}

void writeText(std::ostream& out, const std::string& rom, const Findings& findings)
{
    for (const Finding& finding : findings)
        writeLine(out, rom, finding);
    const Counts counts = countSeverities(findings);
    out << countText(counts[0], "error") << ", " << countText(counts[1], "warning") << ", "
        << countText(counts[2], "note") << '\n';
}

Json toJson(const Finding& finding)
{
    return {{"severity", severityName(severityOf(finding.kind))},
            {"code", codeOf(finding.kind)},
            {"room", numberJson(finding.room)},
            {"area", numberJson(finding.area)},
            {"offset", finding.fileOffset},
            {"text", finding.text}};
}

Json toJson(const Findings& findings)
{
    const Counts counts = countSeverities(findings);
    Json list = Json::array();
    for (const Finding& finding : findings)
        list.push_back(toJson(finding));
    return {{"errors", counts[0]},
            {"warnings", counts[1]},
            {"notes", counts[2]},
            {"findings", std::move(list)}};
}

class CheckVerb : public ReportVerb {
    ExitStatus report(const Context& context, const EditorState& state) const override
    {
        const Findings findings = checkRom(state);
        if (asJson())
            writeJson(context.out(), toJson(findings));
        else
            writeText(context.out(), rom(), findings);
        const bool isSound = std::ranges::all_of(findings, [](const Finding& finding) {
            return severityOf(finding.kind) == Severity::kNote;
        });
        return isSound ? ExitStatus::kFine : ExitStatus::kFindings;
    }
};

} // namespace

std::unique_ptr<Verb> makeCheckVerb()
{
    return std::make_unique<CheckVerb>();
}

} // namespace velko
