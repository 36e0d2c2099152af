#include "check/rom_check.h"

#include "check/check_families.h"

#include <algorithm>

namespace velko {

Findings checkRom(const EditorState& state)
{
    Findings findings;
    checkRegions(state, findings);
    checkMaps(state, findings);
    checkDoors(state, findings);
    checkUnits(state, findings);
    checkOverworld(state, findings);
    std::ranges::stable_sort(findings, {}, &Finding::kind);
    return findings;
}

} // namespace velko
