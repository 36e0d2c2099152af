#include "demo/generator.h"

#include "demo/module_writer.h"
#include "demo/picture_writer.h"
#include "demo/program_tables.h"
#include "demo/rom_packer.h"
#include "demo/world_builder.h"

#include <fstream>
#include <iterator>

namespace velko::demo {

namespace {

Bytes readFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw DemoError("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void loadWorld(const Art& art, const std::filesystem::path& sources, World& world)
{
    buildWorld(art, loadRooms(sources / "rooms.txt"), world);
}

} // namespace

void generateDemo(const std::filesystem::path& sources, const std::filesystem::path& program,
                  const std::filesystem::path& output)
{
    const Art art = loadAllArt(sources / "art");
    World world;
    loadWorld(art, sources, world);
    writeFile(output / "demo.nes", packRom(world, readFile(program)));
    writeModule(world, output);
    writePictures(art.physics, art.doors, output);
}

void generateProgramTables(const std::filesystem::path& sources,
                           const std::filesystem::path& output)
{
    World world;
    loadWorld(loadAllArt(sources / "art"), sources, world);
    writeText(output / "layout.inc", programLayout());
    writeText(output / "units.inc", programUnits(world));
    writeText(output / "overworld.inc", programIcons(world));
}

} // namespace velko::demo
