#include "demo/room_tables.h"

#include <algorithm>

namespace velko::demo {

namespace {

// Rooms that keep a copy of their own although an earlier room has the same block.
constexpr std::array<std::uint32_t, 2> kOwnCopies = {23, 86};
// After the blocks of this room, each region keeps a block that fell out of use.
constexpr std::uint32_t kOrphanAfter = 40;
// Two rooms that read the same layout bytes in different widths.
constexpr std::uint32_t kLayoutOwner = 0x48;
constexpr std::uint32_t kLayoutSharer = 0x6E;

bool wantsCopy(std::uint32_t room)
{
    return std::find(kOwnCopies.begin(), kOwnCopies.end(), room) != kOwnCopies.end();
}

void placeRoom(BlockRegion& region, std::uint32_t room, const Bytes& block)
{
    if (wantsCopy(room))
        region.placeCopy(room, block);
    else
        region.place(room, block);
    if (room == kOrphanAfter)
        region.addOrphan(block);
}

// Entries past the rooms: nothing of their own but the graphics they load.
void placeExtraEntries(BlockRegion& region)
{
    region.share(kOverworldEntry, 0);
    region.share(kTitleEntry, 0);
}

Bytes screenList(const Room& room)
{
    Bytes bytes;
    for (const std::uint16_t screen : room.screens) {
        const std::uint16_t address = screenAddress(screen);
        bytes.push_back(static_cast<std::uint8_t>(address & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>(address >> 8));
    }
    bytes.push_back(0xFF);
    bytes.push_back(0xFF);
    return bytes;
}

// Each row between its two border cells.
Bytes borderedLayout(const Room& room)
{
    Bytes bytes;
    const auto columns = static_cast<std::size_t>(room.columns);
    for (std::size_t row = 0; row < static_cast<std::size_t>(room.rows); ++row) {
        bytes.push_back(0);
        for (std::size_t column = 0; column < columns; ++column)
            bytes.push_back(room.layout.at(row * columns + column));
        bytes.push_back(0);
    }
    return bytes;
}

void appendUnit(Bytes& bytes, const Unit& unit)
{
    bytes.push_back(unit.type);
    if (unit.x < 0) {
        bytes.insert(bytes.end(), 4, 0);
        return;
    }
    const int storedY = unit.y - 1; // the game shows a unit one line below its place
    bytes.push_back(static_cast<std::uint8_t>(unit.x % 256));
    bytes.push_back(static_cast<std::uint8_t>(unit.x / 256 + 1));
    bytes.push_back(static_cast<std::uint8_t>(storedY % 240));
    bytes.push_back(static_cast<std::uint8_t>(storedY / 240));
}

Bytes unitList(const Room& room)
{
    Bytes bytes;
    for (const Unit& unit : room.units)
        appendUnit(bytes, unit);
    bytes.push_back(0xFF);
    return bytes;
}

Bytes ended(Bytes list)
{
    list.push_back(0xFF);
    return list;
}

} // namespace

RoomTables::RoomTables(const World& world)
{
    placeMaps(world);
    placeLooks(world);
    placeUnits(world);
    placeMovement(world);
}

void RoomTables::placeMaps(const World& world)
{
    for (std::uint32_t i = 0; i < kRooms; ++i) {
        const Room& room = world.rooms[i];
        placeRoom(mapAlloc, i, screenList(room));
        placeRoom(tile32, i, room.scenery->blocks.bytes());
        if (i == kLayoutSharer)
            mapLayout.share(i, kLayoutOwner);
        else if (room.columns > 0)
            placeRoom(mapLayout, i, borderedLayout(room));
        else
            mapLayout.share(i, 0); // a room without a map has no block of its own
        const int storedWidth = room.columns > 0 ? room.columns + 2 : 0;
        mapLayout.setParameters(i, static_cast<std::uint8_t>(storedWidth),
                                static_cast<std::uint8_t>(room.rows));
    }
    placeExtraEntries(mapAlloc);
    placeExtraEntries(tile32);
    placeExtraEntries(mapLayout);
}

void RoomTables::placeLooks(const World& world)
{
    for (std::uint32_t i = 0; i < kRooms; ++i) {
        const Room& room = world.rooms[i];
        placeRoom(palette, i, room.palette);
        placeRoom(tileLoad, i, room.tileset->loadBlock());
    }
    placeExtraEntries(palette);
    placeExtraEntries(tileLoad);
}

void RoomTables::placeUnits(const World& world)
{
    for (std::uint32_t i = 0; i < kRooms; ++i) {
        placeRoom(type2, i, ended(world.rooms[i].loads));
        if (!world.rooms[i].units.empty())
            placeRoom(unit, i, unitList(world.rooms[i]));
    }
    type2.place(kOverworldEntry, ended(world.overworldLoads));
    type2.place(kTitleEntry, ended(world.titleLoads));
    // The end of the used part is only found if the highest list is an empty one.
    const Bytes empty = {0xFF};
    for (std::uint32_t i = 0; i < kTableEntries; ++i)
        if (i >= kRooms || world.rooms[i].units.empty())
            unit.place(i, empty);
}

void RoomTables::placeMovement(const World& world)
{
    const std::vector<Area>& areas = world.overworld.areas;
    const auto places = static_cast<std::uint32_t>(areas.size());
    for (std::uint32_t i = 1; i < places; ++i) {
        areaMovement.place(i, areas[i].movement);
        if (i == places / 2)
            areaMovement.addOrphan(areas[i].movement);
    }
    // Two entries more, left from areas that are no longer there.
    areaMovement.placeCopy(places, areas[1].movement);
    areaMovement.share(places + 1, 2);
    // The first area's block is taken to be the highest one.
    areaMovement.placeCopy(0, areas[0].movement);
}

void RoomTables::write(Bytes& prg) const
{
    for (const BlockRegion* region :
         {&mapAlloc, &mapLayout, &palette, &tileLoad, &tile32, &unit, &type2, &areaMovement})
        region->write(prg);
}

} // namespace velko::demo
