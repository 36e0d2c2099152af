#include "pages/room_view.h"

#include <algorithm>

namespace velko {

void RoomView::showRoom(RoomSize size)
{
    m_room = {static_cast<int>(size.width()), static_cast<int>(size.height())};
    m_scroll = {};
}

RoomView::Size RoomView::region() const
{
    return {std::min(m_regionLimit.width, m_room.width),
            std::min(m_regionLimit.height, m_room.height)};
}

void RoomView::scrollTo(Position position)
{
    const Size shown = region();
    m_scroll = {std::clamp(position.x, 0, m_room.width - shown.width),
                std::clamp(position.y, 0, m_room.height - shown.height)};
}

void RoomView::scrollToStep(Position position)
{
    scrollTo(position);
    m_scroll.x -= m_scroll.x % kScrollStep;
    m_scroll.y -= m_scroll.y % kScrollStep;
}

} // namespace velko
