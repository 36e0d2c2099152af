#pragma once

#include "pages/room_view.h"

#include <QObject>
#include <functional>

class QScrollBar;

namespace velko {

class PictureView;

// Lets the user scroll a view of a room: by its two scroll bars, with the arrow and page keys
// while the picture has the focus, and with the mouse wheel over the picture.
class RoomViewScroller final : public QObject {
    Q_OBJECT
public:
    // All must outlive the scroller.
    RoomViewScroller(RoomView& view, PictureView& picture, QScrollBar& horizontal,
                     QScrollBar& vertical);

    // `moved` is called after the user scrolled, when the view already stands at its new position.
    void connectMoved(std::function<void()> moved);
    // Puts the view's ranges and position on the bars: after another room is shown, and after the
    // program itself has scrolled.
    void showBars();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void scrollTo(RoomView::Position position);

    RoomView& m_view;
    QScrollBar& m_horizontal;
    QScrollBar& m_vertical;
    std::function<void()> m_moved;
};

} // namespace velko
