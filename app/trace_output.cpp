#include "app/trace_output.h"

#include <iostream>
#include <string>

#ifdef _WIN32
#include <windows.h>
#endif

namespace velko {

TraceSink traceOutput([[maybe_unused]] bool wanted)
{
#ifdef _WIN32
    return [](std::string_view piece) { OutputDebugStringA(std::string(piece).c_str()); };
#else
    if (!wanted)
        return {};
    return [](std::string_view piece) { std::cerr << piece; };
#endif
}

} // namespace velko
