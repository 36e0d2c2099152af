#include "pages/map_allocation_model.h"

#include "pages/screen_list.h"
#include "rom/number_text.h"
#include "store/block_lengths.h"
#include "store/screen_usage.h"

#include <algorithm>
#include <limits>

namespace velko {

MapAllocationModel::MapAllocationModel(EditorState& state) : m_state(state)
{
    resetSelection();
}

std::uint32_t MapAllocationModel::screenCount(std::uint32_t room) const
{
    const PointerArrayHandler& lists = m_state.store.pahMapAlloc;
    return mapAllocWords(lists, room == kCurrentRoom ? lists.currentRoom() : room);
}

std::vector<std::string> MapAllocationModel::lines() const
{
    return screenListLines(m_state);
}

void MapAllocationModel::select(int position)
{
    if (position >= 0)
        m_selected = position;
}

void MapAllocationModel::resetSelection()
{
    m_selected = screenCount() >= 2 ? 1 : 0;
}

std::uint16_t MapAllocationModel::selectedAddress() const
{
    return m_state.store.pahMapAlloc.dataWord(selectedOffset());
}

std::uint32_t MapAllocationModel::selectedIndex() const
{
    return area().indexOf(selectedAddress());
}

void MapAllocationModel::drawSelectedScreen(PixelImage& image) const
{
    drawScreenPreview(m_state, selectedAddress(), image);
}

int MapAllocationModel::scrollMaximum() const
{
    constexpr std::uint32_t kMost = std::numeric_limits<int>::max() - kScrollPage;
    return static_cast<int>(std::min(area().count, kMost)) + kScrollPage - 2;
}

std::string MapAllocationModel::freeSpaceText() const
{
    return hexText(static_cast<std::uint32_t>(m_state.store.pahMapAlloc.freeSpace()));
}

MapAllocationModel::InsertResult MapAllocationModel::insertAfterSelected()
{
    if (screenCount() == kMostScreens)
        return InsertResult::kListFull;
    auto address = static_cast<std::uint16_t>(selectedAddress() + ScreenArea::kScreenBytes);
    if (area().indexOf(address) >= area().count)
        address = area().addressOf(0);
    if (!m_state.store.pahMapAlloc.insertWord(selectedOffset() + 2, address).ok())
        return InsertResult::kNoFreeSpace;
    ++m_selected;
    return InsertResult::kDone;
}

std::string_view MapAllocationModel::message(InsertResult result)
{
    switch (result) {
    case InsertResult::kListFull:
        return "Insert failed! 256 screens allocated. Any more can't be referred to on the room's "
               "map.";
    case InsertResult::kNoFreeSpace:
        return "Not enough free space in Map Allocation data.";
    case InsertResult::kDone:
        break;
    }
    return {};
}

void MapAllocationModel::removeSelected()
{
    const std::uint32_t count = screenCount();
    if (count == 1)
        return;
    const bool wasLast = std::int64_t{m_selected} >= std::int64_t{count} - 1;
    if (!m_state.store.pahMapAlloc.deleteWord(selectedOffset()).ok())
        return;
    if (wasLast)
        m_selected = std::max(m_selected - 1, 0);
}

void MapAllocationModel::resetList()
{
    PointerArrayHandler& lists = m_state.store.pahMapAlloc;
    static_cast<void>(lists.deleteBytes(0, 2 * screenCount()));
    static_cast<void>(lists.insertWord(0, area().addressOf(0)));
    resetSelection();
}

bool MapAllocationModel::useFreeScreen()
{
    PointerArrayHandler& lists = m_state.store.pahMapAlloc;
    ScreenUsage usage;
    usage.compute(lists, area(), m_state.config.roomCount());
    const std::optional<std::uint32_t> unused = usage.firstUnused();
    if (!unused)
        return false;
    lists.setDataWord(selectedOffset(), area().addressOf(*unused));
    return true;
}

void MapAllocationModel::setAddress(std::uint32_t address)
{
    m_state.store.pahMapAlloc.setDataWord(selectedOffset(),
                                          static_cast<std::uint16_t>(address & 0xFFFF));
}

void MapAllocationModel::setIndex(std::uint32_t index)
{
    const bool negative = index > 0x7FFFFFFF;
    const std::uint32_t last = std::max(area().count, 1U) - 1;
    setAddress(area().addressOf(negative ? 0 : std::min(index, last)));
}

} // namespace velko
