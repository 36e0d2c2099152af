#include "cli/module_check.h"

#include "rom/data_yaml.h"

#include <cstddef>
#include <cstdlib>

namespace {

using namespace velko;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

// Goes on after every question, and counts them.
class CountingPrompt : public UserPrompt {
public:
    void showMessage(std::string_view, MessageIcon) override { ++errors; }
    bool askYesNo(std::string_view, MessageIcon) override { std::abort(); }
    YesNoCancel askYesNoCancel(std::string_view, MessageIcon) override { std::abort(); }

    std::size_t errors = 0;
    std::size_t questions = 0;

protected:
    bool confirm(std::string_view, std::string_view) override
    {
        ++questions;
        return true;
    }
};

} // namespace

// Any bytes as `data.yaml`: looking on changes nothing that is read, every question of the editor
// is a finding, and findings stay few and short.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    GameConfig plain;
    CountingPrompt prompt;
    readDataYaml({data, size}, plain, prompt, {});

    GameConfig checked;
    CountingPrompt again;
    ModuleCheck check;
    readDataYaml({data, size}, checked, again, {}, &check);
    check.finish();
    require(checked == plain);
    require(again.questions == prompt.questions && again.errors == prompt.errors);

    std::size_t asked = 0;
    bool isMalformed = false;
    for (const ModuleFinding& finding : check.findings()) {
        require(!finding.message.empty() && finding.message.size() < 400);
        require(finding.text.size() <= 64);
        require(!finding.at || (finding.at->line > 0 && finding.at->column > 0));
        isMalformed |= finding.flaw == ModuleFlaw::kMalformed;
    }
    for (const ModuleFinding& finding : check.findings()) {
        // A key that is taken where it changes something else is found without a question.
        asked += finding.flaw == ModuleFlaw::kUnknown
            || (finding.flaw == ModuleFlaw::kMisplacedKey
                && finding.message.find("is no key here") != std::string::npos);
    }
    require(check.findings().size() <= ModuleCheck::kMostFindings);
    if (check.furtherFindings() == 0) {
        require(asked == prompt.questions);
        require(isMalformed == (prompt.errors > 0));
    }
    return 0;
}
