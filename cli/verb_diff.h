#pragma once

#include "cli/verb.h"

namespace velko {

std::unique_ptr<Verb> makeDiffVerb();

} // namespace velko
