#include "cli/atlas/room_graph.h"

#include <algorithm>
#include <set>
#include <utility>

namespace velko {

namespace {

using Rooms = std::vector<std::uint32_t>;

class GraphLayout {
public:
    GraphLayout(std::uint32_t rooms, std::span<const GraphWay> ways)
        : m_neighbours(rooms), m_reached(rooms)
    {
        m_graph.places.resize(rooms);
        for (const GraphWay& way : ways) {
            if (way.from != way.to)
                m_ways.emplace(way.from, way.to);
        }
        for (const auto& [from, to] : m_ways) {
            m_neighbours[from].insert(to);
            m_neighbours[to].insert(from);
        }
    }

    RoomGraph build()
    {
        joinLines();
        for (std::uint32_t room = 0; room < m_neighbours.size(); ++room) {
            if (m_neighbours[room].empty())
                m_graph.loose.push_back(room);
            else if (!m_reached[room])
                placeSteps(stepsFrom(room));
        }
        return std::move(m_graph);
    }

private:
    void joinLines()
    {
        for (const auto& [from, to] : m_ways) {
            const bool bothWays = m_ways.contains({to, from});
            if (!bothWays || from < to)
                m_graph.lines.push_back({from, to, bothWays});
        }
    }

    // The rooms that hang together with `first`, by their distance from it.
    std::vector<Rooms> stepsFrom(std::uint32_t first)
    {
        std::vector<Rooms> steps{{first}};
        m_reached[first] = true;
        while (!steps.back().empty()) {
            // In the order of the rooms that they were met from, which keeps lines from crossing.
            Rooms next;
            for (const std::uint32_t room : steps.back()) {
                for (const std::uint32_t neighbour : m_neighbours[room]) {
                    if (!m_reached[neighbour])
                        next.push_back(neighbour);
                    m_reached[neighbour] = true;
                }
            }
            steps.push_back(std::move(next));
        }
        steps.pop_back();
        return steps;
    }

    void placeSteps(const std::vector<Rooms>& steps)
    {
        bool leftwards = false;
        for (std::size_t first = 0; first < steps.size(); first += kGraphColumns) {
            const std::size_t count = std::min<std::size_t>(kGraphColumns, steps.size() - first);
            placeFurrow(std::span(steps).subspan(first, count), leftwards);
            leftwards = !leftwards;
        }
    }

    void placeFurrow(std::span<const Rooms> steps, bool leftwards)
    {
        std::size_t height = 0;
        for (std::uint32_t i = 0; i < steps.size(); ++i) {
            const std::uint32_t column = leftwards ? kGraphColumns - 1 - i : i;
            for (std::uint32_t row = 0; row < steps[i].size(); ++row)
                m_graph.places[steps[i][row]] = {column, m_graph.rows + row};
            height = std::max(height, steps[i].size());
        }
        m_graph.rows += static_cast<std::uint32_t>(height);
    }

    std::set<std::pair<std::uint32_t, std::uint32_t>> m_ways;
    std::vector<std::set<std::uint32_t>> m_neighbours;
    std::vector<bool> m_reached;
    RoomGraph m_graph;
};

} // namespace

RoomGraph layOutGraph(std::uint32_t rooms, std::span<const GraphWay> ways)
{
    return GraphLayout(rooms, ways).build();
}

} // namespace velko
