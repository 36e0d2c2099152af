#pragma once

#include <filesystem>

namespace velko::demo {

// Reads the demo's sources in `sources` and writes the whole game into `output`: `demo.nes`,
// `module.cfg`, the module folder, the palette file and the bitmaps. Throws DemoError when the
// sources are at fault or a file cannot be written.
void generateDemo(const std::filesystem::path& sources, const std::filesystem::path& output);

} // namespace velko::demo
