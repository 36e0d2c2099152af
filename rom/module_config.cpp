#include "rom/module_config.h"

#include "rom/file_io.h"
#include "rom/text_lines.h"

#include <algorithm>
#include <fstream>
#include <string>

namespace velko {

std::optional<std::filesystem::path> readModuleConfig(const std::filesystem::path& workFolder)
{
    const std::filesystem::path path = workFolder / "module.cfg";
    if (!isRegularFile(path))
        return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    return workFolder / pathFromBackslashes("modules\\" + readLine(file) + "\\");
}

std::filesystem::path pathFromBackslashes(std::string_view text)
{
    std::string generic(text);
    std::ranges::replace(generic, '\\', '/');
    return pathFromUtf8(generic).make_preferred();
}

} // namespace velko
