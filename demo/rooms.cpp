#include "demo/room_canvas.h"
#include "demo/world_builder.h"

namespace velko::demo {

namespace {

// A number that looks random but is the same in every build.
std::uint32_t hash(std::uint32_t a, std::uint32_t b)
{
    std::uint32_t h = a * 0x9E3779B1U ^ b * 0x85EBCA77U;
    h ^= h >> 15;
    h *= 0x2C1B3C6DU;
    h ^= h >> 13;
    return h;
}

Bytes paletteOf(const ArtFile& art, const std::string& theme)
{
    Bytes bytes;
    for (int part = 0; part < 8; ++part) {
        const std::string name = theme + (part < 4 ? "_" : "_sprites_") + std::to_string(part % 4);
        const ArtPalette& palette = paletteNamed(art, name);
        bytes.insert(bytes.end(), palette.colours.begin(), palette.colours.end());
    }
    return bytes;
}

void paintMeadow(RoomCanvas& canvas, std::uint32_t seed)
{
    const int top = canvas.height() - 3;
    for (int x = 0; x < canvas.width(); x += 2) {
        const int y = top - static_cast<int>(hash(seed, static_cast<std::uint32_t>(x / 6)) % 3);
        canvas.fill(x, y, 2, 1, "grass_top");
        canvas.fill(x, y + 1, 2, canvas.height() - y - 1, "dirt");
        const std::uint32_t what = hash(seed + 1, static_cast<std::uint32_t>(x)) % 8;
        if (what == 0)
            canvas.stamp(
                x, y - 3,
                {{"tree_tl", "tree_tr"}, {"tree_bl", "tree_br"}, {"tree_trunk_l", "tree_trunk_r"}});
        else if (what == 1)
            canvas.stamp(x, y - 1, {{"bush_l", "bush_r"}});
        else if (what == 2)
            canvas.stamp(x, y - 10, {{"cloud_l", "cloud_r"}});
    }
}

} // namespace

void buildRooms(const Art& art, World& world)
{
    std::vector<std::string> names;
    for (const Metatile& metatile : art.meadow.metatiles)
        names.push_back(metatile.picture.name);
    const Tileset& tileset = world.tilesets.emplace_back(world.backgrounds, names);
    world.screens.push_back({});
    for (int i = 0; i < 28; ++i) {
        Scenery& scenery = world.sceneries.emplace_back();
        scenery.tileset = &tileset;
        scenery.blocks.pack(RoomCanvas(tileset, 1, 1).screen(0, 0));
        for (int s = 0; s < 10 && world.screens.size() < 280; ++s) {
            RoomCanvas canvas(tileset, 1, 1);
            paintMeadow(canvas, static_cast<std::uint32_t>(i * 10 + s));
            world.screens.push_back(scenery.blocks.pack(canvas.screen(0, 0)));
        }
    }
    const char* seasons[] = {"meadow", "meadow_autumn", "meadow_dusk", "meadow_night"};
    for (std::uint32_t i = 0; i < kRooms; ++i) {
        Room room;
        const std::uint32_t set = i % 28;
        room.name = "Room " + std::to_string(i);
        room.scenery = &world.sceneries[set];
        room.tileset = &tileset;
        room.palette = paletteOf(art.meadow, seasons[i % 4]);
        room.screens = {0};
        for (std::uint32_t s = 0; s < 10 && set * 10 + s + 1 < world.screens.size(); ++s)
            room.screens.push_back(static_cast<std::uint16_t>(set * 10 + s + 1));
        if (i % 20 != 19) {
            room.columns = i == 5 ? 8 : 1 + static_cast<int>(hash(i, 7) % 4);
            room.rows = i == 5 ? 4 : 1 + static_cast<int>(hash(i, 8) % 2);
        }
        for (int c = 0; c < room.columns * room.rows; ++c)
            room.layout.push_back(static_cast<std::uint8_t>(
                1 + hash(i, static_cast<std::uint32_t>(c)) % (room.screens.size() - 1)));
        if (i % 7 != 6)
            room.units = {{static_cast<std::uint8_t>(i % 40), 60, 150}, {100, 120, 160}};
        room.entrances[0] = {2, 9};
        room.exits[0] = {static_cast<std::uint8_t>((i + 1) % kRooms), 0};
        room.music = static_cast<std::uint8_t>(i % 8);
        room.loads = {0};
        world.rooms.push_back(room);
    }
    world.rooms[0x48].columns = 4;
    world.rooms[0x48].rows = 2;
    world.rooms[0x48].layout.assign(8, 1);
    world.rooms[0x6E].columns = 2;
    world.rooms[0x6E].rows = 3;
    world.rooms[0x6E].screens = world.rooms[0x48].screens;
    world.rooms[0x6E].scenery = world.rooms[0x48].scenery;
    world.music = {"Silence", "Meadow"};
    world.chamberItems.fill(0xFF);
    world.chamberItems[0] = 4;
}

} // namespace velko::demo
