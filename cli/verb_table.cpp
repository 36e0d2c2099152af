#include "cli/verb.h"
#include "cli/verb_atlas.h"
#include "cli/verb_check.h"
#include "cli/verb_data.h"
#include "cli/verb_diff.h"
#include "cli/verb_get.h"
#include "cli/verb_info.h"
#include "cli/verb_module.h"
#include "cli/verb_patch.h"
#include "cli/verb_render.h"

namespace velko {

namespace {

// One line per verb; its arguments and what it does are in cli/verb_NAME.cpp.
constexpr VerbEntry kVerbs[] = {
    {"info", "Tell what a ROM holds: its size, banks and rooms, and the use of each region",
     makeInfoVerb},
    {"module", "Check a module's data.yaml for what the editor would misread", makeModuleVerb},
    {"patch", "Make a patch of two ROMs, or apply one (IPS, BPS)", makePatchVerb},
    {"render", "Draw rooms, a screen, the overworld or background blocks as PNG files",
     makeRenderVerb},
    {"check", "Look for damaged and suspicious data in a ROM", makeCheckVerb},
    {"data", "Allocate, share, copy, delete and join the blocks of rooms", makeDataVerb},
    {"diff", "Tell in what two ROMs differ: rooms, blocks and values instead of bytes",
     makeDiffVerb},
    {"get", "Tell one value by its name", makeGetVerb},
    {"set", "Change one value by its name", makeSetVerb},
    {"atlas", "Write a web site of all rooms, the ways between them and the overworld",
     makeAtlasVerb},
};

} // namespace

std::span<const VerbEntry> verbTable()
{
    return kVerbs;
}

} // namespace velko
