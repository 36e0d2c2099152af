#include "cli/verb.h"
#include "cli/verb_info.h"

namespace velko {

namespace {

// One line per verb; its arguments and what it does are in cli/verb_NAME.cpp.
constexpr VerbEntry kVerbs[] = {
    {"info", "Tell what a ROM holds: its size, banks and rooms, and the use of each region",
     makeInfoVerb},
};

} // namespace

std::span<const VerbEntry> verbTable()
{
    return kVerbs;
}

} // namespace velko
