#pragma once

#include "rom/trace.h"

namespace velko {

// Where the configuration loader's trace goes: on Windows to the debugger, always; elsewhere to
// standard error when `wanted`, else nowhere.
TraceSink traceOutput(bool wanted);

} // namespace velko
