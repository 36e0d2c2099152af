#include "demo/overworld_map.h"
#include "demo/overworld_plan.h"
#include "demo/sprite_bank.h"
#include "demo/world_builder.h"

#include <algorithm>

namespace velko::demo {

namespace {

constexpr std::uint16_t kSpriteTiles = 0;
constexpr std::uint16_t kMapTileTable = 256; // the background's pattern table
constexpr std::size_t kTilesBeforeBankEnd = 32;
constexpr std::size_t kQuads = 16;
constexpr std::size_t kFirstCart = 8;
// An area's stored position is this far right of and below its icon's corner.
constexpr int kAreaOffset = 32;
constexpr std::uint8_t kLastPhase = 0x80;
constexpr std::array<int, 8> kStepX = {1, 1, 0, -1, -1, -1, 0, 1};
constexpr std::array<int, 8> kStepY = {0, 1, 1, 1, 0, -1, -1, -1};

// A 16x16 sprite as the quad table stores it: tile and attributes of each quarter, left column
// first.
Bytes quadBytes(TileGroup& group, const SpriteArt& sprite, std::uint8_t blankTile)
{
    Bytes bytes;
    const Frame frame = group.addPicture(sprite.picture, 8, 8, sprite.colourSet);
    for (const int x : {-8, 0}) {
        for (const int y : {-8, 0}) {
            const auto piece = std::find_if(frame.begin(), frame.end(),
                                            [&](const Piece& p) { return p.x == x && p.y == y; });
            const bool found = piece != frame.end();
            bytes.push_back(found ? piece->tile : blankTile);
            bytes.push_back(found ? piece->attributes : sprite.colourSet);
        }
    }
    return bytes;
}

// Sixteen offsets, then the balloons and the carts facing the eight directions.
Bytes quadTable(TileGroup& group, const ArtFile& art, std::uint8_t blankTile)
{
    constexpr std::array<const char*, 8> kCartPictures = {
        "cart_right", "cart_down_right", "cart_down", "cart_down_left",
        "cart_left",  "cart_up_left",    "cart_up",   "cart_up_right"};
    Bytes table(kQuads);
    for (std::size_t quad = 0; quad < kQuads; ++quad) {
        table[quad] = static_cast<std::uint8_t>(table.size());
        const std::string name = quad < kFirstCart ? "balloon_" + std::to_string(quad)
                                                   : kCartPictures[quad - kFirstCart];
        const Bytes bytes = quadBytes(group, spriteNamed(art, name), blankTile);
        table.insert(table.end(), bytes.begin(), bytes.end());
    }
    return table;
}

// Path previews 0-7 are arrows with a dot behind them, off the middle; the rest are single marks.
Frame previewFrame(TileGroup& group, const ArtFile& art, std::size_t number)
{
    const auto mark = [&](std::size_t picture, int x, int y) {
        const std::string name =
            (picture < 10 ? "preview_0" : "preview_") + std::to_string(picture);
        const SpriteArt& sprite = spriteNamed(art, name);
        return group.addPicture(sprite.picture, 4 - x, 4 - y, sprite.colourSet);
    };
    if (number >= 8)
        return mark(number, 0, 0);
    const int x = kStepX[number];
    const int y = kStepY[number];
    Frame frame = mark(number, 20 * x, 20 * y);
    const Frame dot = mark(13, 12 * x, 12 * y);
    frame.insert(frame.end(), dot.begin(), dot.end());
    return frame;
}

// The editor mirrors a preview for the directions that it takes to face left; so those name the
// arrow that points the right way when mirrored.
std::uint8_t previewFor(Direction direction)
{
    constexpr std::array<std::uint8_t, 8> kPreviews = {kRight, kDownRight, kDown, kDownRight,
                                                       kRight, kUpRight,   kUp,   kUpRight};
    return kPreviews[direction];
}

// The block's second byte is the room where the hero enters the area; the editor leaves it alone.
Bytes movementBlock(const AreaPlan& plan)
{
    Bytes bytes = {static_cast<std::uint8_t>(2 * plan.flights.size()), plan.firstRoom};
    for (const Flight& flight : plan.flights) {
        bytes.push_back(
            static_cast<std::uint8_t>(flight.direction << 4 | previewFor(flight.direction)));
        bytes.push_back(static_cast<std::uint8_t>(flight.area / 10 << 4 | flight.area % 10));
    }
    return bytes;
}

void placeAreas(const OverworldMap& map, const OverworldTiles& tiles, Overworld& overworld)
{
    for (std::size_t i = 0; i < areaPlans().size(); ++i) {
        const AreaPlan& plan = areaPlans()[i];
        const std::array<int, 2>& place = map.areas[plan.place];
        Area area;
        area.name = plan.name;
        area.x = static_cast<std::uint8_t>(place[0] * 8 + kAreaOffset);
        area.y = static_cast<std::uint8_t>(place[1] * 8 + kAreaOffset);
        const std::string icon =
            (plan.place < 10 ? "icon_0" : "icon_") + std::to_string(plan.place);
        area.icon = {tiles.number(icon + ".tl"), tiles.number(icon + ".bl"),
                     tiles.number(icon + ".tr"), tiles.number(icon + ".br")};
        area.movement = movementBlock(plan);
        area.clearItem = plan.clearItem;
        area.parachute = plan.byBalloon;
        overworld.areas.push_back(area);
    }
    for (const auto& names : presetPlans())
        overworld.presets.push_back({tiles.number(names[0]), tiles.number(names[1]),
                                     tiles.number(names[2]), tiles.number(names[3])});
}

// The attribute table starts three tiles left of and above the map; so the palettes' cells are the
// quadrants from column 1 and row 1 on. Around the map there is sea.
void placeMap(const OverworldMap& map, const OverworldTiles& tiles, Overworld& overworld)
{
    auto out = overworld.tiles.begin();
    for (const auto& row : map.rows)
        for (const std::string& name : row)
            *out++ = tiles.number(name);
    overworld.attributes.fill(0xFF);
    for (std::size_t row = 0; row < map.palettes.size(); ++row) {
        for (std::size_t column = 0; column < map.palettes[row].size(); ++column) {
            const std::size_t x = column + 1;
            const std::size_t y = row + 1;
            const std::size_t shift = 2 * (x % 2 + 2 * (y % 2));
            const auto palette = static_cast<std::size_t>(map.palettes[row][column] - '0');
            std::uint8_t& byte = overworld.attributes.at(x / 2 + y / 2 * 8);
            byte = static_cast<std::uint8_t>((byte & ~(3U << shift)) | palette << shift);
        }
    }
}

void placePalettes(const ArtFile& art, Overworld& overworld)
{
    auto out = overworld.palettes.begin();
    for (const std::string part : {"overworld_", "overworld_sprites_"})
        for (int set = 0; set < 4; ++set)
            for (const std::uint8_t colour : paletteNamed(art, part + std::to_string(set)).colours)
                *out++ = colour;
}

void placeRoutes(Overworld& overworld)
{
    const std::vector<RoutePlan>& plans = routePlans();
    if (plans.size() != kTruckPatterns)
        throw DemoError("there must be 12 routes");
    for (std::size_t i = 0; i < plans.size(); ++i) {
        if (plans[i].sharedWith >= 0) {
            overworld.truckPointers[i] =
                overworld.truckPointers[static_cast<std::size_t>(plans[i].sharedWith)];
            continue;
        }
        overworld.truckPointers[i] = static_cast<std::uint8_t>(overworld.truckPatterns.size());
        for (const Direction direction : plans[i].directions)
            overworld.truckPatterns.push_back(direction);
        overworld.truckPatterns.back() |= kLastPhase;
        if (plans[i].orphanAfter)
            overworld.truckPatterns.insert(overworld.truckPatterns.end(),
                                           {kUp, kUp, kLeft | kLastPhase});
    }
    for (std::size_t i = 0; i < kCarts.size(); ++i)
        overworld.truckStarts[i] = static_cast<std::uint8_t>(kCarts[i].route << 4 | kCarts[i].area);
}

} // namespace

void buildOverworld(const Art& art, World& world)
{
    Overworld& overworld = world.overworld;
    const OverworldTiles tiles(art.overworld);
    const OverworldMap map = parseOverworldMap(art.overworldMap);
    placeAreas(map, tiles, overworld);
    placeMap(map, tiles, overworld);
    placePalettes(art.overworld, overworld);
    placeRoutes(overworld);

    TileGroup sprites("Overworld: balloons and mail carts", kSpriteTiles, 128);
    const std::uint8_t blank = sprites.addTile(Tile{});
    overworld.quadSprites = quadTable(sprites, art.overworld, blank);
    SpriteBank bank(world.spriteBank, kPreviewFrames);
    for (std::size_t i = 0; i < overworld.previewFrames.size(); ++i)
        overworld.previewFrames[i] = bank.addFrame(previewFrame(sprites, art.overworld, i), 30);
    if (bank.position() > kHeroScript)
        throw DemoError("the path previews run into the hero's script");

    TileGroup mapTiles("Overworld: the map", kMapTileTable, 255);
    for (const Tile& tile : tiles.tiles())
        mapTiles.addTile(tile);
    const std::uint8_t spriteLoad = storeGroup(world, sprites);
    // These tiles begin in one bank and end in the next.
    world.graphics.resize(kBankBytes - kTilesBeforeBankEnd * 16);
    const std::uint8_t mapLoad = storeGroup(world, mapTiles);
    world.overworldLoads = {spriteLoad, mapLoad};
    world.titleLoads = world.commonLoads;
    world.titleLoads.push_back(mapLoad);
}

} // namespace velko::demo
