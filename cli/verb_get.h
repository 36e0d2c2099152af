#pragma once

#include "cli/verb.h"

namespace velko {

std::unique_ptr<Verb> makeGetVerb();
std::unique_ptr<Verb> makeSetVerb();

} // namespace velko
