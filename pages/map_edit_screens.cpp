#include "pages/map_edit_screens.h"

#include "store/block_lengths.h"
#include "store/screen_list_scan.h"
#include "store/screen_usage.h"

#include <set>
#include <unordered_map>

namespace velko {

// Collects the screens of one list after the other.
class MapEditScreens::Decoder {
public:
    Decoder(const EditorState& state, std::vector<MapEditScreen>& screens)
        : m_state(state), m_lists(state.store.pahMapAlloc), m_screens(screens)
    {
        m_usage.compute(state.store.pahMapAlloc, ScreenArea::of(state.config),
                        state.config.roomCount());
    }

    // Calls visit(index of the screen) for each entry of the list at an address.
    template <typename Visit> void decodeList(std::uint16_t listAddress, TsaTable* tsa, Visit visit)
    {
        if (!m_listsRead.insert(listAddress).second)
            return;
        const std::uint32_t words = m_lists.words(listAddress);
        const std::uint32_t count = words < kLongestScreenList ? words : kMostMapScreens;
        for (std::uint32_t i = 0; i < count; ++i)
            visit(decode(m_lists.word(listAddress, i), tsa));
    }

private:
    std::uint32_t decode(std::uint16_t address, TsaTable* tsa)
    {
        // Two addresses may lead to the same place in the file: then they mean one screen.
        const auto next = static_cast<std::uint32_t>(m_screens.size());
        const auto [place, isNew] =
            m_byFileOffset.try_emplace(m_state.renderer.screenFileOffset(address), next);
        if (!isNew)
            return place->second;
        MapEditScreen& screen = m_screens.emplace_back();
        screen.address = address;
        screen.isReferredToTwice = m_usage.references(m_state.renderer.screenIndex(address)) >= 2;
        m_state.renderer.decodeScreen(address, screen.cells, tsa);
        screen.groups = groupsOf(screen.cells);
        return next;
    }

    const EditorState& m_state;
    ScreenListScan m_lists;
    ScreenUsage m_usage;
    std::vector<MapEditScreen>& m_screens;
    std::set<std::uint16_t> m_listsRead;
    std::unordered_map<std::uint32_t, std::uint32_t> m_byFileOffset;
};

void MapEditScreens::clear()
{
    *this = MapEditScreens();
}

void MapEditScreens::decode(const EditorState& state)
{
    clear();
    const PointerArrayHandler& lists = state.store.pahMapAlloc;
    const PointerArrayHandler& sets = state.store.pahTile32;
    Decoder decoder(state, m_screens);
    decoder.decodeList(lists.pointerOf(), &m_tsa,
                       [this](std::uint32_t screen) { m_list.push_back(screen); });

    for (std::uint32_t room = 0; room < state.config.roomCount(); ++room) {
        if (room == sets.currentRoom() || sets.pointerOf(room) != sets.pointerOf()
            || lists.pointerOf(room) == lists.pointerOf())
            continue;
        m_sharedRooms.push_back(room);
        decoder.decodeList(lists.pointerOf(room), nullptr, [](std::uint32_t) {});
    }
}

void MapEditScreens::setCell(std::uint32_t position, std::size_t cell, const MetatileCell& value)
{
    MapEditScreen& screen = m_screens[m_list[position]];
    screen.cells.metatile[cell] = value.metatile;
    screen.cells.palette[cell] = value.palette;
    screen.cells.physics[cell] = value.physics;
    const auto row = static_cast<std::uint32_t>(cell) / kScreenColumns / 2;
    const auto column = static_cast<std::uint32_t>(cell) % kScreenColumns / 2;
    screen.groups[row * kTile32Columns + column] = groupOf(screen.cells, row, column);
}

} // namespace velko
