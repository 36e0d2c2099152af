#include "demo/module_writer.h"
#include "demo/picture_writer.h"
#include "demo/rom_packer.h"
#include "demo/world_builder.h"

#include <cstdio>
#include <exception>

// Writes the demo game into a folder: velko-demo-game SOURCE-FOLDER OUTPUT-FOLDER
int main(int argc, char** argv)
{
    using namespace velko::demo;
    if (argc != 3) {
        std::fprintf(stderr, "usage: velko-demo-game SOURCE-FOLDER OUTPUT-FOLDER\n");
        return 2;
    }
    try {
        const std::filesystem::path output = argv[2];
        const std::filesystem::path sources = argv[1];
        const Art art = loadAllArt(sources / "art");
        const std::vector<RoomText> rooms = loadRooms(sources / "rooms.txt");
        World world;
        buildWorld(art, rooms, world);
        writeFile(output / "demo.nes", packRom(world));
        writeModule(world, output);
        writePictures(art.physics, art.doors, output);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "velko-demo-game: %s\n", error.what());
        return 1;
    }
    return 0;
}
