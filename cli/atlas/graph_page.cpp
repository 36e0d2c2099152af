#include "cli/atlas/atlas_pages.h"
#include "cli/atlas/html.h"
#include "cli/atlas/page_parts.h"
#include "cli/atlas/room_graph.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace velko {

namespace {

// Pixels of the page.
constexpr int kCardWidth = 148;
constexpr int kCardHeight = 102;
constexpr int kStepX = 190;
constexpr int kStepY = 132;
constexpr int kMargin = 20;
// A line past cards that stand between its ends keeps to the gap on their right, the further from
// them the longer it is.
constexpr int kSmallestBulge = 8;
constexpr int kBulgePerRow = 3;
constexpr int kLargestBulge = kStepX - kCardWidth - 8;

struct Spot {
    int x = 0;
    int y = 0;
};

Spot cardCorner(GraphPlace place)
{
    return {kMargin + kStepX * static_cast<int>(place.column),
            kMargin + kStepY * static_cast<int>(place.row)};
}

Spot cardCentre(GraphPlace place)
{
    const Spot corner = cardCorner(place);
    return {corner.x + kCardWidth / 2, corner.y + kCardHeight / 2};
}

// Where the line from `from` to the centre `to` of a card meets the card.
Spot edgeOfCard(Spot from, Spot to)
{
    const double dx = from.x - to.x;
    const double dy = from.y - to.y;
    const double reach =
        std::max(std::abs(dx) / (kCardWidth / 2.0), std::abs(dy) / (kCardHeight / 2.0));
    if (reach == 0)
        return to;
    return {to.x + static_cast<int>(std::lround(dx / reach)),
            to.y + static_cast<int>(std::lround(dy / reach))};
}

std::string pathText(Spot spot)
{
    return std::to_string(spot.x) + " " + std::to_string(spot.y);
}

std::string curve(Spot start, Spot control, Spot end)
{
    return "M" + pathText(start) + " Q" + pathText(control) + " " + pathText(end);
}

std::string curveBeside(GraphPlace from, GraphPlace to, int rows)
{
    const auto side = [](GraphPlace place) {
        return Spot{cardCorner(place).x + kCardWidth, cardCentre(place).y};
    };
    // A curve goes half the way to its control point.
    const int reach = 2 * std::min(kSmallestBulge + kBulgePerRow * rows, kLargestBulge);
    return curve(side(from), {side(from).x + reach, (side(from).y + side(to).y) / 2}, side(to));
}

std::string lineOnPage(const RoomGraph& graph, const GraphLine& line)
{
    const GraphPlace from = graph.places[line.from];
    const GraphPlace to = graph.places[line.to];
    const int rows = std::abs(static_cast<int>(from.row) - static_cast<int>(to.row));
    std::string path;
    if (from.column == to.column && rows > 1) {
        path = curveBeside(from, to, rows);
    } else {
        const Spot start = cardCentre(from);
        const Spot end = cardCentre(to);
        path = "M" + pathText(edgeOfCard(end, start)) + " L" + pathText(edgeOfCard(start, end));
    }
    return "<path d=\"" + path + "\"" + (line.bothWays ? "" : " marker-end=\"url(#arrow)\"")
        + "/>\n";
}

std::vector<GraphWay> waysOf(const AtlasData& atlas)
{
    std::vector<GraphWay> ways;
    for (const AtlasRoom& room : atlas.rooms) {
        for (const AtlasExit& exit : room.exits) {
            if (exit.leads)
                ways.push_back({room.number, exit.room});
        }
    }
    return ways;
}

std::string drawing(const AtlasData& atlas, const RoomGraph& graph)
{
    const int width = kStepX * static_cast<int>(kGraphColumns) + kMargin;
    const int height = kStepY * static_cast<int>(graph.rows) + kMargin;
    std::string html = "<div class=\"scroll paper\" tabindex=\"0\" role=\"region\" "
                       "aria-label=\"Graph of rooms\"><div class=\"graph\" style=\"width:"
        + std::to_string(width) + "px;height:" + std::to_string(height) + "px\">\n<svg"
        + attribute("width", width) + attribute("height", height)
        + " aria-hidden=\"true\">\n<defs><marker id=\"arrow\" viewBox=\"0 0 8 8\" refX=\"8\" "
          "refY=\"4\" markerWidth=\"6\" markerHeight=\"6\" orient=\"auto\">"
          "<path d=\"M0 0L8 4L0 8Z\"/></marker></defs>\n";
    for (const GraphLine& line : graph.lines)
        html += lineOnPage(graph, line);
    html += "</svg>\n<ul>\n";
    for (const AtlasRoom& room : atlas.rooms) {
        if (std::ranges::binary_search(graph.loose, std::uint32_t{room.number}))
            continue;
        const Spot corner = cardCorner(graph.places[room.number]);
        html += "<li style=\"left:" + std::to_string(corner.x)
            + "px;top:" + std::to_string(corner.y) + "px;width:" + std::to_string(kCardWidth)
            + "px;height:" + std::to_string(kCardHeight) + "px\">" + roomCard(room) + "</li>\n";
    }
    return html + "</ul>\n</div></div>\n";
}

} // namespace

std::string graphPage(const AtlasData& atlas)
{
    const RoomGraph graph =
        layOutGraph(static_cast<std::uint32_t>(atlas.rooms.size()), waysOf(atlas));
    std::string html = "<h1>Graph of rooms</h1>\n<p class=\"quiet\">A line is a way there and back,"
                       " an arrow an exit without a way back.</p>\n"
        + drawing(atlas, graph);
    if (!graph.loose.empty()) {
        html += "<h2>Rooms without ways</h2>\n<ul class=\"rooms\">\n";
        for (const std::uint32_t room : graph.loose)
            html += "<li>" + roomCard(atlas.rooms[room]) + "</li>\n";
        html += "</ul>\n";
    }
    return wholePage(atlas, AtlasPage::kGraph, "Graph of rooms (" + escapeHtml(atlas.title) + ")",
                     "", html);
}

} // namespace velko
