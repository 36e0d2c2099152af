#include "cli/atlas/atlas_pages.h"

#include "cli/atlas/html.h"
#include "cli/atlas/page_parts.h"
#include "cli/room_picture.h"
#include "tools/overworld_map.h"

namespace velko {

namespace {

constexpr std::uint32_t kOverworldScale = 4;
constexpr int kAreaMark = 16;
constexpr int kUnitMark = 16;
constexpr int kEntranceMark = 16;
// Rooms of up to two screens side by side are shown twice as large.
constexpr std::uint32_t kWidestEnlarged = 512;

std::string count(std::size_t number, std::string_view one, std::string_view many)
{
    return std::to_string(number) + " " + std::string(number == 1 ? one : many);
}

// Overworld

std::string areaName(std::size_t area)
{
    return "Area " + std::to_string(area + 1);
}

std::string overworldSection(const AtlasData& atlas)
{
    MarkedPicture picture{"overworld.png",       "Map of the overworld", OverworldMap::kWidth,
                          OverworldMap::kHeight, kOverworldScale,        {}};
    std::string list;
    for (std::size_t i = 0; i < atlas.areas.size(); ++i) {
        const AtlasArea& area = atlas.areas[i];
        const std::string id = "area-" + std::to_string(i + 1);
        picture.marks.push_back(
            {id, "door", areaName(i), area.x - kAreaMark / 2, area.y - kAreaMark / 2, kAreaMark});
        list += "<li><a href=\"#" + id + "\">" + areaName(i) + "</a>";
        if (area.clearItem)
            list += " <span class=\"at\">cleared by " + escapeHtml(*area.clearItem) + "</span>";
        if (area.parachute)
            list += " <span class=\"at\">by parachute</span>";
        list += "</li>\n";
    }
    return "<h2>Overworld</h2>\n" + markedPicture(picture)
        + "<h3>Areas</h3>\n<ul class=\"lists\">\n" + list + "</ul>\n";
}

// Room

std::string place(int x, int y)
{
    return " <span class=\"at\">" + std::to_string(x) + ", " + std::to_string(y) + "</span>";
}

std::string unitId(const AtlasUnit& unit)
{
    return "unit-" + std::to_string(unit.number);
}

// Windows count entrances and exits from 1.
std::string doorId(std::uint32_t slot)
{
    return "entrance-" + std::to_string(slot + 1);
}

std::string doorName(std::uint32_t slot)
{
    return "Entrance " + std::to_string(slot + 1);
}

std::string pictureSection(const AtlasRoom& room)
{
    if (!room.hasPicture)
        return "<p>This room is too large for a picture.</p>\n";
    MarkedPicture picture{roomFileName(room.number, ".png"),
                          "Map of " + roomLabel(room.number)
                              + (room.name.empty() ? "" : ", " + room.name),
                          room.size.width(),
                          room.size.height(),
                          room.size.width() <= kWidestEnlarged ? 2U : 1U,
                          {}};
    for (const AtlasEntrance& entrance : room.entrances)
        picture.marks.push_back({doorId(entrance.slot), "door", doorName(entrance.slot), entrance.x,
                                 entrance.y, kEntranceMark, true});
    for (const AtlasUnit& unit : room.units)
        picture.marks.push_back({unitId(unit), "unit", unit.name, unit.x - kUnitMark / 2,
                                 unit.y - kUnitMark / 2, kUnitMark});
    return markedPicture(picture);
}

// A line of a list: a link to a mark of the picture. Without a picture the line itself is what
// other pages link to.
std::string markItem(const AtlasRoom& room, const std::string& id, std::string_view text,
                     const std::string& rest, const std::string& before = "")
{
    const std::string html = escapeHtml(text);
    if (!room.hasPicture)
        return "<li id=\"" + id + "\">" + before + html + rest + "</li>\n";
    return "<li>" + before + "<a href=\"#" + id + "\">" + html + "</a>" + rest + "</li>\n";
}

std::string section(std::string_view title, const std::string& items)
{
    std::string html = "<section><h2>";
    html += title;
    return html + "</h2>\n"
        + (items.empty() ? "<p class=\"quiet\">None</p>\n" : "<ul>\n" + items + "</ul>\n")
        + "</section>\n";
}

std::string exitItem(const AtlasData& atlas, const AtlasExit& exit)
{
    std::string html = "<li>Exit " + std::to_string(exit.slot + 1) + ": ";
    if (exit.leads)
        html += "<a href=\"" + roomFileName(exit.room, ".html") + "#" + doorId(exit.entrance)
            + "\">" + roomTitle(atlas.rooms[exit.room]) + "</a> <span class=\"at\">"
            + doorName(exit.entrance) + "</span>";
    else
        html += "<span class=\"quiet\">" + roomLabel(exit.room) + ", entrance "
            + std::to_string(exit.entrance + 1) + ", which is not there</span>";
    return html + "</li>\n";
}

std::string listSections(const AtlasData& atlas, const AtlasRoom& room)
{
    std::string exits;
    for (const AtlasExit& exit : room.exits)
        exits += exitItem(atlas, exit);
    std::string entrances;
    for (const AtlasEntrance& entrance : room.entrances)
        entrances += markItem(room, doorId(entrance.slot), doorName(entrance.slot),
                              place(entrance.x, entrance.y));
    std::string units;
    for (const AtlasUnit& unit : room.units)
        units += markItem(room, unitId(unit), unit.name, place(unit.x, unit.y),
                          std::to_string(unit.number) + ": ");
    if (room.unitsLeftOut > 0)
        units += "<li class=\"quiet\">" + std::to_string(room.unitsLeftOut)
            + " more, without a placement or too many to mark</li>\n";
    return "<div class=\"lists\">\n" + section("Exits", exits) + section("Entrances", entrances)
        + section("Units", units) + "</div>\n";
}

std::string turnLink(const AtlasRoom& room, std::string_view relation, std::string_view before,
                     std::string_view behind)
{
    std::string html = "<a rel=\"";
    html += relation;
    html += "\" href=\"" + roomFileName(room.number, ".html") + "\">";
    html += before;
    html += "Room " + roomFileDigits(room.number);
    return (html += behind) += "</a>\n";
}

std::string turnLinks(const AtlasData& atlas, std::size_t index)
{
    std::string html = "<span class=\"turn\">";
    if (index > 0)
        html += turnLink(atlas.rooms[index - 1], "prev", "&larr; ", "");
    if (index + 1 < atlas.rooms.size())
        html += turnLink(atlas.rooms[index + 1], "next", "", " &rarr;");
    return html + "</span>\n";
}

} // namespace

std::string indexPage(const AtlasData& atlas)
{
    std::string cards;
    for (const AtlasRoom& room : atlas.rooms)
        cards += "<li>" + roomCard(room) + "</li>\n";
    const std::string title = escapeHtml(atlas.title);
    return wholePage(
        atlas, AtlasPage::kIndex, title + ": atlas", "",
        "<h1>" + title + "</h1>\n<p class=\"quiet\">" + count(atlas.rooms.size(), "room", "rooms")
            + ", " + count(atlas.areas.size(), "area", "areas") + " on the map</p>\n"
            + overworldSection(atlas) + "<h2 id=\"rooms\">Rooms</h2>\n<ol class=\"rooms\">\n"
            + cards + "</ol>\n");
}

std::string roomPage(const AtlasData& atlas, std::size_t index)
{
    const AtlasRoom& room = atlas.rooms[index];
    const std::string title = roomHeading(room);
    const std::string size = std::to_string(room.size.columns) + " &times; "
        + count(room.size.rows, "screen", "screens");
    return wholePage(atlas, AtlasPage::kRoom, title + " (" + escapeHtml(atlas.title) + ")",
                     turnLinks(atlas, index),
                     "<h1>" + title + "</h1>\n<p class=\"quiet\">" + size + "</p>\n"
                         + pictureSection(room) + listSections(atlas, room));
}

} // namespace velko
