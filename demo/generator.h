#pragma once

#include <filesystem>

namespace velko::demo {

// Reads the demo's sources in `sources` and writes the whole game into `output`: `demo.nes` with
// the assembled `program` in it, `module.cfg`, the module folder, the palette file and the bitmaps.
// Throws DemoError when the sources are at fault or a file cannot be read or written.
void generateDemo(const std::filesystem::path& sources, const std::filesystem::path& program,
                  const std::filesystem::path& output);

// Writes into `output` the tables that the program is assembled with: `layout.inc`, `units.inc`,
// `overworld.inc`. Throws DemoError likewise.
void generateProgramTables(const std::filesystem::path& sources,
                           const std::filesystem::path& output);

} // namespace velko::demo
