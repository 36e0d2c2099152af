#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace velko {

// Writes a whole file: first beside `path` under another name, then renamed into place, so that
// there is either the old file or the complete new one. A link stays, and the file that it leads to
// is written, which need not be there yet. Permissions are kept. Refused is what is there and is no
// regular file (a folder, a device) or is write-protected. Returns nothing on success, else the
// reason; then nothing has changed.
[[nodiscard]] std::optional<std::string> writeFile(const std::filesystem::path& path,
                                                   std::span<const std::uint8_t> bytes);
[[nodiscard]] std::optional<std::string> writeFile(const std::filesystem::path& path,
                                                   std::string_view text);

} // namespace velko
