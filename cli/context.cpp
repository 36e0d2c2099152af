#include "cli/context.h"

#include "rom/file_io.h"

#include <algorithm>
#include <ostream>

namespace velko {

std::filesystem::path Context::path(std::string_view argument) const
{
    return m_workFolder / pathFromUtf8(argument);
}

ExitStatus Context::fail(std::string_view reason, ExitStatus status) const
{
    m_err << "velko-cli: " << oneLine(reason) << '\n';
    return status;
}

std::string oneLine(std::string_view text)
{
    std::string line(text);
    std::ranges::replace_if(
        line, [](unsigned char c) { return c < 0x20 || c == 0x7F; }, ' ');
    return line;
}

} // namespace velko
