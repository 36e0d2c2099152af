#include "cli/atlas/atlas_data.h"

#include "cli/png_file.h"
#include "pages/door_model.h"
#include "pages/unit_list.h"
#include "rom/number_text.h"
#include "rom/utf8.h"
#include "tools/area_settings.h"
#include "tools/overworld_map.h"

#include <algorithm>

namespace velko {

namespace {

// Links are made of names, and nobody sees a link of blanks.
bool showsNothing(std::string_view name)
{
    return std::ranges::all_of(charactersOf(name), [](char32_t character) {
        return character <= ' ' || (character >= 0x7F && character <= 0xA0);
    });
}

std::string nameOr(const std::string& name, std::string_view kind, std::uint8_t number)
{
    return showsNothing(name) ? std::string(kind) + " " + hexText(number) : name;
}

std::string unitName(const NameLists& names, std::uint8_t type)
{
    return nameOr(names.hasUnitName(type) ? names.units[type] : "", "type", type);
}

void collectUnits(EditorState& state, AtlasRoom& room)
{
    const std::vector<UnitRecord> records = UnitList(state.store.pahUnit).records();
    for (std::uint32_t i = 0; i < records.size(); ++i) {
        if (!records[i].isPlaced() || room.units.size() == AtlasRoom::kMostUnits) {
            ++room.unitsLeftOut;
            continue;
        }
        const RoomView::Position position = records[i].position();
        room.units.push_back({i, unitName(state.names, records[i].type), position.x, position.y});
    }
}

std::uint32_t slotsOf(const GameConfig& config, MiscField field)
{
    return std::min(config.value(field), DoorModel::kSlots);
}

void collectDoors(EditorState& state, AtlasRoom& room)
{
    DoorModel doors(state);
    for (std::uint32_t i = 0; i < slotsOf(state.config, MiscField::roomEntrances); ++i) {
        doors.selectEntrance(i);
        const Entrance entrance = doors.entrance();
        if (entrance.isSet())
            room.entrances.push_back({i, entrance.corner().x, entrance.corner().y});
    }
    for (std::uint32_t i = 0; i < slotsOf(state.config, MiscField::roomExits); ++i) {
        doors.selectExit(i);
        const AtlasExit exit{i, doors.exitRoom(), doors.exitEntrance()};
        if (exit.room != 0 || exit.entrance != 0)
            room.exits.push_back(exit);
    }
}

AtlasRoom collectRoom(EditorState& state, std::uint8_t number)
{
    state.graphics.selectRoom(number);
    AtlasRoom room;
    room.number = number;
    if (const std::string& name = state.names.rooms[number]; !showsNothing(name))
        room.name = name;
    room.size = state.renderer.roomSize(number);
    room.hasPicture = fitsPng(room.size.width(), room.size.height(), 1);
    collectUnits(state, room);
    collectDoors(state, room);
    return room;
}

bool hasEntrance(const AtlasRoom& room, std::uint32_t slot)
{
    return std::ranges::any_of(
        room.entrances, [slot](const AtlasEntrance& entrance) { return entrance.slot == slot; });
}

void followExits(std::vector<AtlasRoom>& rooms)
{
    for (AtlasRoom& room : rooms) {
        for (AtlasExit& exit : room.exits)
            exit.leads = exit.room < rooms.size() && hasEntrance(rooms[exit.room], exit.entrance);
    }
}

std::vector<AtlasArea> collectAreas(EditorState& state)
{
    const OverworldMap map(state.rom, state.config);
    AreaSettings settings(state);
    std::vector<AtlasArea> areas;
    for (std::uint32_t i = 0; i <= map.lastArea(); ++i) {
        const AreaPosition position = map.areaPosition(i);
        AtlasArea area{position.x - kAreaToCentre, position.y - kAreaToCentre, std::nullopt, false};
        // The map has one area more than there are settings.
        if (i <= settings.lastArea()) {
            settings.selectArea(i);
            area.parachute = settings.parachute();
            if (const auto item = settings.clearItem(); item && settings.hasClearItem())
                area.clearItem = nameOr(state.names.items[*item], "item", *item);
        }
        areas.push_back(std::move(area));
    }
    return areas;
}

} // namespace

AtlasData collectAtlas(EditorState& state, std::string title)
{
    AtlasData atlas;
    atlas.title = std::move(title);
    for (std::uint32_t room = 0; room < state.config.roomCount(); ++room)
        atlas.rooms.push_back(collectRoom(state, static_cast<std::uint8_t>(room)));
    followExits(atlas.rooms);
    atlas.areas = collectAreas(state);
    state.graphics.selectRoom(0);
    return atlas;
}

} // namespace velko
