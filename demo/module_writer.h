#pragma once

#include "demo/world.h"

#include <filesystem>

namespace velko::demo {

// The module's folder below "modules".
inline constexpr const char* kModuleName = "lantern_vale";

// Writes `module.cfg`, and `data.yaml` and the five name lists into the module folder.
void writeModule(const World& world, const std::filesystem::path& folder);

// Writes a whole file, making its folder. Throws DemoError when that fails.
void writeFile(const std::filesystem::path& path, const Bytes& bytes);
void writeText(const std::filesystem::path& path, const std::string& text);

} // namespace velko::demo
