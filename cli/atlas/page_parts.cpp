#include "cli/atlas/page_parts.h"

#include "cli/atlas/atlas_pages.h"
#include "cli/atlas/html.h"
#include "cli/room_picture.h"
#include "rom/utf8.h"

#include <algorithm>

namespace velko {

namespace {

// Pixels of the page.
constexpr std::uint32_t kLabelSize = 12; // of the names on a picture
constexpr std::uint32_t kFrameGap = 2;

std::string navigationLink(std::string_view file, std::string_view text, bool isCurrent)
{
    std::string link = "<a href=\"";
    link += file;
    link += isCurrent ? "\" aria-current=\"page\">" : "\">";
    return (link += text) += "</a>\n";
}

std::string frame(const MarkedPicture& picture, const Mark& mark, std::string_view attributes)
{
    // Around what it marks, which small frames would hide.
    const int gap = static_cast<int>(kFrameGap / picture.scale);
    const int size = mark.size + 2 * gap;
    return "<rect" + std::string(attributes) + attribute("x", mark.x - gap)
        + attribute("y", mark.y - gap) + attribute("width", size) + attribute("height", size)
        + "/>";
}

// The name above or below the frame, wherever there is room for it; at the sides of the picture it
// leans inwards.
std::string nameOnPicture(const MarkedPicture& picture, const Mark& mark)
{
    const int size = static_cast<int>(kLabelSize / picture.scale);
    const int width = static_cast<int>(picture.width);
    const int height = static_cast<int>(picture.height);
    const int middle = mark.x + mark.size / 2;
    // Half of the name: letters are about six tenths as wide as high.
    const int reach = static_cast<int>(charactersOf(mark.name).size()) * size * 3 / 10;
    const bool atLeft = middle < reach;
    const bool atRight = !atLeft && middle > width - reach;
    const int x = atLeft ? std::max(mark.x, 2)
        : atRight        ? std::min(mark.x + mark.size, width - 2)
                         : middle;
    const int above = mark.y - size / 4;
    const int below = mark.y + mark.size + size;
    const bool isBelow = mark.nameBelow ? below <= height : above < size;
    return "<text" + attribute("x", x) + attribute("y", isBelow ? below : above)
        + (atLeft        ? " style=\"text-anchor:start\""
               : atRight ? " style=\"text-anchor:end\""
                         : "")
        + ">" + escapeHtml(mark.name) + "</text>\n";
}

std::string markOnPicture(const MarkedPicture& picture, const Mark& mark)
{
    return "<g id=\"" + mark.id + "\" class=\"mark " + mark.kind + "\" role=\"img\"><title>"
        + escapeHtml(mark.name) + "</title>" + frame(picture, mark, " class=\"under\"")
        + frame(picture, mark, "") + "</g>\n";
}

} // namespace

std::string attribute(std::string_view name, long long value)
{
    return " " + std::string(name) + "=\"" + std::to_string(value) + "\"";
}

std::string roomFileName(std::uint32_t room, std::string_view extension)
{
    return "room_" + roomFileDigits(room) + std::string(extension);
}

std::string roomTitle(const AtlasRoom& room)
{
    if (room.name.empty())
        return "<span class=\"number\">" + roomHeading(room) + "</span>";
    return "<span class=\"number\">" + roomFileDigits(room.number) + "</span> "
        + escapeHtml(room.name);
}

std::string roomHeading(const AtlasRoom& room)
{
    return "Room " + roomFileDigits(room.number)
        + (room.name.empty() ? "" : ": " + escapeHtml(room.name));
}

std::string roomCard(const AtlasRoom& room)
{
    // The size keeps the page still while pictures arrive.
    const std::string picture = room.hasPicture
        ? "<img src=\"" + roomFileName(room.number, ".png") + "\" alt=\"\" loading=\"lazy\""
            + attribute("width", room.size.width()) + attribute("height", room.size.height()) + ">"
        : "<span class=\"none\">no picture</span>";
    return "<a class=\"card\" href=\"" + roomFileName(room.number, ".html") + "\" title=\""
        + roomHeading(room) + "\">" + picture + "<span class=\"label\">" + roomTitle(room)
        + "</span></a>";
}

std::string markedPicture(const MarkedPicture& picture)
{
    const std::string description = escapeHtml(picture.description);
    std::string html = "<input type=\"checkbox\" id=\"show-marks\" checked> "
                       "<label class=\"tools\" for=\"show-marks\">Marks</label>\n"
                       "<input type=\"checkbox\" id=\"show-names\" checked> "
                       "<label class=\"tools\" for=\"show-names\">Names</label>\n"
                       "<div class=\"scroll\" tabindex=\"0\" role=\"region\" aria-label=\""
        + description + "\"><div class=\"map\" style=\"width:"
        + std::to_string(std::uint64_t{picture.width} * picture.scale)
        + "px;height:" + std::to_string(std::uint64_t{picture.height} * picture.scale)
        + "px\">\n<img src=\"" + picture.file + "\" alt=\"" + description + "\""
        + attribute("width", picture.width) + attribute("height", picture.height)
        + ">\n<svg viewBox=\"0 0 " + std::to_string(picture.width) + " "
        + std::to_string(picture.height) + "\" role=\"group\" aria-label=\"Marks\""
        + attribute("font-size", kLabelSize / picture.scale) + ">\n";
    for (const Mark& mark : picture.marks)
        html += markOnPicture(picture, mark);
    // Above all frames. Who listens instead of looking has heard the frames' titles.
    html += "<g class=\"names\" aria-hidden=\"true\">\n";
    for (const Mark& mark : picture.marks)
        html += nameOnPicture(picture, mark);
    return html + "</g>\n</svg>\n</div></div>\n";
}

std::string wholePage(const AtlasData& atlas, AtlasPage page, std::string_view title,
                      std::string_view turn, std::string_view main)
{
    std::string html = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>)";
    html += title;
    html += R"(</title>
<link rel="icon" href="data:,">
<link rel="stylesheet" href="atlas.css">
<script src="atlas.js" defer></script>
</head>
<body>
<a class="skip" href="#main">Skip to the content</a>
<header><nav aria-label="Atlas">
)";
    html += navigationLink("index.html", escapeHtml(atlas.title), page == AtlasPage::kIndex);
    html += navigationLink("index.html#rooms", "Rooms", false);
    html += navigationLink("graph.html", "Graph of rooms", page == AtlasPage::kGraph);
    html += turn;
    html += "</nav></header>\n<main id=\"main\" tabindex=\"-1\">\n";
    html += main;
    html += "</main>\n<footer>Room numbers are hexadecimal.";
    if (page == AtlasPage::kRoom)
        html += " The left and right arrow keys turn to the rooms before and behind.";
    return html + "</footer>\n</body>\n</html>\n";
}

} // namespace velko
