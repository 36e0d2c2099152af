#include "app/room_view_scroller.h"

#include "app/picture_view.h"
#include "app/scroll_rule.h"

#include <QScrollBar>
#include <QWheelEvent>
#include <utility>

namespace velko {

RoomViewScroller::RoomViewScroller(RoomView& view, PictureView& picture, QScrollBar& horizontal,
                                   QScrollBar& vertical)
    : m_view(view), m_horizontal(horizontal), m_vertical(vertical)
{
    connectScrollBar(horizontal, RoomView::kScrollStep, [this](int x) {
        scrollTo({x, m_view.scroll().y});
    });
    connectScrollBar(vertical, RoomView::kScrollStep, [this](int y) {
        scrollTo({m_view.scroll().x, y});
    });
    connect(&picture, &PictureView::keyPressed, this,
            [this](QKeyEvent* key) { scrollByKey(*key, m_horizontal, m_vertical); });
    picture.installEventFilter(this);
}

void RoomViewScroller::connectMoved(std::function<void()> moved)
{
    m_moved = std::move(moved);
}

void RoomViewScroller::showBars()
{
    const RoomView::Size room = m_view.room();
    const RoomView::Size region = m_view.region();
    setScrollRange(m_horizontal, room.width, region.width);
    setScrollRange(m_vertical, room.height, region.height);
    m_horizontal.setValue(m_view.scroll().x);
    m_vertical.setValue(m_view.scroll().y);
}

bool RoomViewScroller::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel)
        return QObject::eventFilter(watched, event);
    scrollByWheel(static_cast<QWheelEvent&>(*event), m_horizontal, m_vertical);
    return true;
}

void RoomViewScroller::scrollTo(RoomView::Position position)
{
    m_view.scrollToStep(position);
    m_horizontal.setValue(m_view.scroll().x);
    m_vertical.setValue(m_view.scroll().y);
    if (m_moved)
        m_moved();
}

} // namespace velko
