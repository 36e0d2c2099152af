#include "app/end_process.h"

#include <cstdio>
#include <cstdlib>

namespace velko {

void endProcess(int status)
{
    std::fflush(nullptr);
    std::_Exit(status);
}

} // namespace velko
