#include "demo/generator.h"

#include "demo/module_writer.h"
#include "demo/picture_writer.h"
#include "demo/rom_packer.h"
#include "demo/world_builder.h"

namespace velko::demo {

void generateDemo(const std::filesystem::path& sources, const std::filesystem::path& output)
{
    const Art art = loadAllArt(sources / "art");
    const std::vector<RoomText> rooms = loadRooms(sources / "rooms.txt");
    World world;
    buildWorld(art, rooms, world);
    writeFile(output / "demo.nes", packRom(world));
    writeModule(world, output);
    writePictures(art.physics, art.doors, output);
}

} // namespace velko::demo
