#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace velko {

// Reads `module.cfg` in `workFolder` and returns the module folder that its first line names,
// relative to `workFolder`'s "modules" folder. The line is taken as it stands (no trimming, but a
// CR before the line feed is no part of it); backslashes separate folders. Returns nothing when
// the file cannot be opened.
std::optional<std::filesystem::path> readModuleConfig(const std::filesystem::path& workFolder);

// A path text of this program's files, in which the backslash separates folders, as a path of
// the platform.
std::filesystem::path pathFromBackslashes(std::string_view text);

} // namespace velko
