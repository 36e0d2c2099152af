#include "rom/module_config.h"

#include "rom/file_io.h"
#include "rom/text_lines.h"

#include <algorithm>
#include <string>

namespace velko {

std::optional<std::filesystem::path> readModuleConfig(const std::filesystem::path& workFolder)
{
    const auto text = loadTextFile(workFolder / "module.cfg");
    if (!text)
        return std::nullopt;
    const std::string name(TextLines(*text).next().value_or(""));
    return workFolder / pathFromBackslashes("modules\\" + name + "\\");
}

std::filesystem::path pathFromBackslashes(std::string_view text)
{
    std::string generic(text);
    std::ranges::replace(generic, '\\', '/');
    return pathFromUtf8(generic).make_preferred();
}

} // namespace velko
