#include "demo/unit_placement.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace velko::demo {

namespace {

constexpr int kTilePixels = 8;
constexpr int kCellPixels = 16;
// The console shows 8 sprites a line and 64 in all; the hero takes 2 and up to 8 of them.
constexpr std::ptrdiff_t kMostPerLine = 6;
constexpr std::ptrdiff_t kMostPerScreens = 56;

struct CellPlace {
    int x = 0;
    int y = 0;
};

// Number that starts at `at`, which moves past it.
int readNumber(std::string_view text, std::size_t& at, int base = 10)
{
    std::size_t used = 0;
    const int value = std::stoi(std::string(text.substr(at)), &used, base);
    at += used;
    return value;
}

class UnitPlacer {
public:
    UnitPlacer(const World& world, Room& room, const RoomCanvas& canvas)
        : m_world(world), m_room(room), m_canvas(canvas)
    {
    }

    void place(const std::string& word)
    {
        const std::size_t sign = word.find_first_of("@!");
        if (sign == std::string::npos)
            throw DemoError("no place for " + word);
        const std::string name = word.substr(0, sign);
        if (word[sign] == '!') {
            const bool off = word.substr(sign + 1) == "off";
            m_room.units.push_back({typeNamed(name), off ? 24 : -1, off ? belowTheMap() : 0});
            return;
        }
        std::size_t at = sign + 1;
        const CellPlace cell = readPlace(word, at);
        if (name.starts_with("in"))
            m_room.entrances.at(slotOf(name)) = {cell.x, cell.y};
        else if (name.starts_with("out"))
            placeExit(name, word, at, cell);
        else
            addUnit(typeNamed(name), cell);
    }

    void finish()
    {
        chooseLoads();
        checkScreens();
        checkLines();
    }

private:
    int belowTheMap() const { return m_room.rows * 240 + 100; }

    static std::size_t slotOf(const std::string& name)
    {
        return static_cast<std::size_t>(name.back() - '0');
    }

    std::uint8_t typeNamed(const std::string& name) const
    {
        const auto& types = m_world.unitTypes;
        const auto found = std::find_if(types.begin(), types.end(),
                                        [&](const UnitType& type) { return type.key == name; });
        if (found == types.end())
            throw DemoError("no unit named " + name);
        return static_cast<std::uint8_t>(found - types.begin());
    }

    CellPlace readPlace(const std::string& word, std::size_t& at) const
    {
        CellPlace cell;
        cell.x = readNumber(word, at);
        if (at < word.size() && word[at] == ',') {
            cell.y = readNumber(word, ++at);
            return cell;
        }
        int screenRow = m_canvas.screenRows() - 1;
        if (at < word.size() && word[at] == '/')
            screenRow = readNumber(word, ++at);
        cell.y = floorAt(cell.x, screenRow);
        if (at < word.size() && word[at] == '^')
            cell.y -= readNumber(word, ++at);
        return cell;
    }

    // The lowest cell row of a screen row in which one can stand.
    int floorAt(int x, int screenRow) const
    {
        int y = (screenRow + 1) * kScreenRows - 1;
        while (y > screenRow * kScreenRows && m_canvas.inside(x, y) && blocked(x, y))
            --y;
        if (m_canvas.inside(x, y) && blocked(x, y))
            throw DemoError("nowhere to stand in column " + std::to_string(x));
        return y;
    }

    bool blocked(int x, int y) const
    {
        constexpr std::string_view kPassable{"\0\x04\x08\x0E\x0F", 5}; // air, ladder, door, steam
        return kPassable.find(static_cast<char>(m_canvas.cell(x, y).physics))
            == std::string_view::npos;
    }

    void placeExit(const std::string& name, const std::string& word, std::size_t at, CellPlace cell)
    {
        if (at >= word.size() || word[at] != '>')
            throw DemoError("an exit leads nowhere: " + word);
        Exit exit;
        exit.room = static_cast<std::uint8_t>(readNumber(word, ++at, 16));
        if (at + 1 < word.size() && word[at] == '.')
            exit.entrance = static_cast<std::uint8_t>(word[at + 1] - '0');
        m_room.exits.at(slotOf(name)) = exit;
        addUnit(typeNamed(name), cell);
    }

    // A unit's position is the middle of the cell that it stands in.
    void addUnit(std::uint8_t type, CellPlace cell)
    {
        m_room.units.push_back(
            {type, cell.x * kCellPixels + kCellPixels / 2, cell.y * kCellPixels + kCellPixels / 2});
    }

    void chooseLoads()
    {
        m_room.loads = m_world.commonLoads;
        for (const Unit& unit : m_room.units) {
            const int load = m_world.unitTypes[unit.type].load;
            if (load < 0
                || std::find(m_room.loads.begin(), m_room.loads.end(), load) != m_room.loads.end())
                continue;
            for (const std::uint8_t other : m_room.loads)
                checkOverlap(m_world.loads[other], m_world.loads[static_cast<std::size_t>(load)]);
            m_room.loads.push_back(static_cast<std::uint8_t>(load));
        }
    }

    static void checkOverlap(const LoadRecord& a, const LoadRecord& b)
    {
        if (a.destination < b.destination + b.tiles * 16
            && b.destination < a.destination + a.tiles * 16)
            throw DemoError(a.name + " and " + b.name + " want the same tiles");
    }

    // Calls use(x, y) for each piece that one of the unit's frames shows, in room pixels.
    template <typename Use> void forPieces(const Unit& unit, const Frame& frame, Use use) const
    {
        for (const Piece& piece : frame)
            use(unit.x + piece.x, unit.y + piece.y);
    }

    bool onMap(const Unit& unit) const { return unit.x >= 0 && unit.y < m_room.rows * 240; }

    // The console cannot show a part of a sprite left of or above a screen.
    void checkScreens() const
    {
        for (const Unit& unit : m_room.units) {
            if (!onMap(unit))
                continue;
            const int left = unit.x / 256 * 256;
            const int top = unit.y / 240 * 240;
            for (const Frame& frame : m_world.unitTypes[unit.type].frames)
                forPieces(unit, frame, [&](int x, int y) {
                    if (x < left || x > left + 248 || y <= top || y > top + 232)
                        throw DemoError(
                            m_world.unitTypes[unit.type].name + " crosses a screen's edge at "
                            + std::to_string(unit.x / 16) + "," + std::to_string(unit.y / 16));
                });
        }
    }

    void checkLines() const
    {
        std::map<int, std::vector<int>> lines; // room line -> left edges of the pieces on it
        std::map<int, std::ptrdiff_t> screens; // screen column -> pieces
        for (const Unit& unit : m_room.units) {
            const UnitType& type = m_world.unitTypes[unit.type];
            if (!onMap(unit) || type.frames.empty())
                continue;
            // A line may be hit by different pieces from frame to frame; the fullest counts.
            std::map<int, std::vector<int>> fullest;
            std::size_t pieces = 0;
            for (const Frame& frame : type.frames) {
                std::map<int, std::vector<int>> own;
                forPieces(unit, frame, [&](int x, int y) {
                    for (int line = y; line < y + kTilePixels; ++line)
                        own[line].push_back(x);
                });
                for (auto& [line, edges] : own)
                    if (edges.size() > fullest[line].size())
                        fullest[line] = edges;
                pieces = std::max(pieces, frame.size());
            }
            for (const auto& [line, edges] : fullest)
                lines[line].insert(lines[line].end(), edges.begin(), edges.end());
            screens[unit.x / 256] += static_cast<std::ptrdiff_t>(pieces);
        }
        for (auto& [line, edges] : lines)
            checkLine(line, edges);
        for (const auto& [column, pieces] : screens)
            if (pieces + (screens.contains(column + 1) ? screens[column + 1] : 0) > kMostPerScreens)
                throw DemoError("too many sprites around screen " + std::to_string(column));
    }

    static void checkLine(int line, std::vector<int>& edges)
    {
        std::sort(edges.begin(), edges.end());
        for (auto first = edges.begin(); first != edges.end(); ++first) {
            const auto end = std::lower_bound(first, edges.end(), *first + 256);
            if (end - first > kMostPerLine)
                throw DemoError("more than 6 sprites on line " + std::to_string(line) + " from x "
                                + std::to_string(*first));
        }
    }

    const World& m_world;
    Room& m_room;
    const RoomCanvas& m_canvas;
};

} // namespace

void placeUnits(const World& world, Room& room, const RoomCanvas& canvas, std::string_view text)
{
    UnitPlacer placer(world, room, canvas);
    std::istringstream words{std::string(text)};
    for (std::string word; words >> word;)
        placer.place(word);
    placer.finish();
}

} // namespace velko::demo
