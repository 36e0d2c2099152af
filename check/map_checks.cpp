#include "check/check_families.h"
#include "check/missing_places.h"
#include "gfx/room_renderer.h"
#include "rom/number_text.h"
#include "store/block_lengths.h"
#include "store/data_window.h"
#include "store/file_offsets.h"
#include "store/screen_area.h"
#include "store/screen_list_scan.h"

#include <algorithm>
#include <bitset>
#include <optional>

namespace velko {

namespace {

constexpr std::uint32_t kTile32Records = 146; // that fit into a set
constexpr std::uint32_t kCellValues = 256;    // positions that a cell can tell

// The map of a room, borders included. One that the file does not tell has no size.
struct StoredMap {
    std::uint16_t pointer = 0;
    std::uint32_t width = 0;
    std::uint32_t height = 0;

    bool hasCells() const { return width >= kNewLayoutWidth && height >= kNewLayoutHeight; }
    bool hasSizeOf(const StoredMap& other) const
    {
        return width == other.width && height == other.height;
    }
};

class MapCheck {
public:
    MapCheck(const EditorState& state, Findings& findings)
        : m_state(state)
        , m_lists(state.store.pahMapAlloc)
        , m_layouts(state.store.pahMapLayout)
        , m_findings(findings)
    {
        for (std::uint32_t room = 0; room < state.config.roomCount(); ++room) {
            const PointerArrayHandler& layouts = state.store.pahMapLayout;
            if (!entryLiesInFile(state.rom, layouts, room)) {
                m_maps.emplace_back();
                continue;
            }
            m_maps.push_back({layouts.pointerOf(room), layouts.entryByte(kMapWidthByte, room),
                              layouts.entryByte(kMapHeightByte, room)});
        }
    }

    void run()
    {
        checkScreenArea();
        for (std::uint32_t room = 0; room < m_maps.size(); ++room) {
            checkSize(room);
            if (!hasList(room))
                continue;
            checkScreenList(room);
            if (m_maps[room].hasCells() && hasLayout(room))
                checkScreens(room, checkCells(room));
        }
    }

private:
    using Positions = std::bitset<kCellValues>; // in a screen list

    void checkScreenArea() const
    {
        const ScreenArea area = ScreenArea::of(m_state.config);
        MissingPlaces missing("screen");
        for (std::uint32_t i = 0; i < std::min(area.count, ScreenArea::kIndexes); ++i) {
            const std::uint16_t address = area.addressOf(i);
            if (!hasScreen(address))
                missing.add(std::nullopt, m_state.renderer.screenFileOffset(address),
                            "The screen at " + addressText(address) + " ends");
        }
        missing.report(m_findings);
    }

    // Whether the file has the whole of them.
    bool hasScreen(std::uint16_t address) const
    {
        const std::uint32_t start = m_state.renderer.screenFileOffset(address);
        return start + ScreenArea::kScreenBytes <= m_state.rom.size();
    }
    bool hasList(std::uint32_t room) const
    {
        const PointerArrayHandler& lists = m_state.store.pahMapAlloc;
        return entryLiesInFile(m_state.rom, lists, room)
            && blockLiesInFile(m_state.rom, lists, listOf(room), m_lists.length(listOf(room)));
    }
    bool hasLayout(std::uint32_t room) const
    {
        const StoredMap& map = m_maps[room];
        return blockLiesInFile(m_state.rom, m_state.store.pahMapLayout, map.pointer,
                               map.width * map.height);
    }

    // Against the lowest room with the same block.
    void checkSize(std::uint32_t room) const
    {
        const StoredMap& map = m_maps[room];
        if (map.width * map.height == 0)
            return;
        for (std::uint32_t other = 0; other < room; ++other) {
            const StoredMap& first = m_maps[other];
            if (first.pointer != map.pointer || first.width * first.height == 0)
                continue;
            if (!map.hasSizeOf(first))
                m_findings.push_back(
                    {FindingKind::kSizesDiffer, room,
                     m_state.store.pahMapLayout.entryFileOffset(room) + kMapWidthByte,
                     "The map layout is read as " + sizeText(map) + " cells, and by room "
                         + hexText(other) + " as " + sizeText(first) + "."});
            return;
        }
    }
    static std::string sizeText(const StoredMap& map)
    {
        return decimalText(map.width) + " x " + decimalText(map.height);
    }

    // Entries that a cell can tell.
    std::uint32_t listLength(std::uint32_t room) const
    {
        return std::min(m_lists.words(listOf(room)), kCellValues);
    }
    std::uint16_t listOf(std::uint32_t room) const
    {
        return m_state.store.pahMapAlloc.pointerOf(room);
    }

    void checkScreenList(std::uint32_t room) const
    {
        const std::uint32_t length = listLength(room);
        if (listOf(room) + m_lists.length(listOf(room))
            > m_state.store.pahMapAlloc.descriptor().dEdge)
            return; // it has no end mark, and what it runs through are no screens
        std::uint32_t wrong = 0;
        std::uint32_t first = 0;
        for (std::uint32_t i = length; i-- > 0;) {
            if (isScreen(m_lists.word(listOf(room), i)))
                continue;
            ++wrong;
            first = i;
        }
        if (wrong == 0)
            return;
        const auto place = static_cast<std::uint16_t>(listOf(room) + 2 * first);
        m_findings.push_back(
            {FindingKind::kScreenOutOfRange, room, m_state.store.pahMapAlloc.dataFileOffset(place),
             "Position " + hexText(first) + " of the screen list holds "
                 + addressText(m_lists.word(listOf(room), first)) + ", which is no screen's address"
                 + suchText(wrong, "position") + "."});
    }
    bool isScreen(std::uint16_t address) const
    {
        const ScreenArea area = ScreenArea::of(m_state.config);
        const std::uint32_t index = area.indexOf(address);
        return index < area.count && area.addressOf(index) == address;
    }

    // Returns the positions that the shown cells tell.
    Positions checkCells(std::uint32_t room) const
    {
        const StoredMap& map = m_maps[room];
        const auto bytes = m_layouts.bytes(map.pointer, DataWindow::kSize);
        const std::uint32_t screens = listLength(room);
        Positions shown;
        std::uint32_t wrong = 0;
        std::uint32_t first = 0;
        for (std::uint32_t row = map.height; row-- > 0;) {
            for (std::uint32_t column = map.width - 2; column >= 1; --column) {
                const std::uint32_t cell = row * map.width + column;
                const std::uint8_t position = bytes[cell % DataWindow::kSize];
                shown.set(position);
                if (position < screens)
                    continue;
                ++wrong;
                first = cell;
            }
        }
        if (wrong != 0)
            reportCells(room, wrong, first);
        return shown;
    }
    void reportCells(std::uint32_t room, std::uint32_t wrong, std::uint32_t first) const
    {
        const StoredMap& map = m_maps[room];
        const auto place = static_cast<std::uint16_t>(map.pointer + first);
        const std::uint8_t position = m_state.store.pahMapLayout.byteAt(place);
        m_findings.push_back({FindingKind::kLayoutPastScreenList, room,
                              m_state.store.pahMapLayout.dataFileOffset(place),
                              "The cell in column " + decimalText(first % map.width - 1) + ", row "
                                  + decimalText(first / map.width) + " tells position "
                                  + hexText(position) + " of the screen list, which has "
                                  + countText(m_lists.words(listOf(room)), "screen")
                                  + suchText(wrong, "cell") + "."});
    }

    // Tile32 numbers of the screens that the map shows.
    void checkScreens(std::uint32_t room, const Positions& shown) const
    {
        std::uint32_t wrong = 0;
        std::uint32_t first = 0;
        std::uint32_t firstPlace = 0;
        for (std::uint32_t position = listLength(room); position-- > 0;) {
            if (!shown.test(position))
                continue;
            if (const auto place = wrongTile32(m_lists.word(listOf(room), position))) {
                ++wrong;
                first = position;
                firstPlace = *place;
            }
        }
        if (wrong == 0)
            return;
        m_findings.push_back({FindingKind::kTile32OutOfRange, room, firstPlace,
                              "The screen at position " + hexText(first) + " uses Tile32 number "
                                  + hexText(m_state.rom.readByte(firstPlace))
                                  + ", of which a set has 0 to " + hexText(kTile32Records - 1)
                                  + suchText(wrong, "position") + "."});
    }
    // File offset of a screen's first number that no set has.
    std::optional<std::uint32_t> wrongTile32(std::uint16_t screen) const
    {
        if (!hasScreen(screen))
            return std::nullopt;
        const std::uint32_t start = m_state.renderer.screenFileOffset(screen);
        for (std::uint32_t i = 0; i < ScreenArea::kScreenBytes; ++i) {
            if (m_state.rom.readByte(start + i) >= kTile32Records)
                return start + i;
        }
        return std::nullopt;
    }

    const EditorState& m_state;
    ScreenListScan m_lists;
    DataWindow m_layouts;
    std::vector<StoredMap> m_maps; // by room
    Findings& m_findings;
};

} // namespace

void checkMaps(const EditorState& state, Findings& findings)
{
    MapCheck(state, findings).run();
}

} // namespace velko
