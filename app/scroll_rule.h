#pragma once

#include "gfx/view_scroll.h"

#include <functional>

class QKeyEvent;
class QScrollBar;
class QWheelEvent;

namespace velko {

// What happened to a scroll bar.
enum class ScrollCode {
    kLineUp,
    kLineDown,
    kPageUp,
    kPageDown,
    kThumbPosition, // the thumb was let go
    kThumbTrack,    // the thumb moves
    kTop,
    kBottom,
    kEndScroll,
};

// A scroll bar's numbers. `maximum` includes the page: the last position the thumb reaches is
// maximum - pageSize + 1.
struct ScrollState {
    int minimum = 0;
    int maximum = 0;
    int pageSize = 0;
    int position = 0;
};

// What stepScroll answers when nothing is to change.
inline constexpr int kNoScroll = -1;

// Returns the position that a scroll bar goes to, from 0 to maximum - pageSize + 1 (the bar's own
// minimum is not consulted), or kNoScroll. A view follows the thumb while it moves and has
// nothing left to do when it is let go, so kThumbPosition, kTop, kBottom and kEndScroll give
// kNoScroll. `carried` is the position that the event brought; only thumb events use it.
int stepScroll(ScrollCode code, int carried, const ScrollState& bar, int lineStep);

// Gives the bar positions 0 to `maximum` - `pageSize` + 1 and a thumb of `pageSize`.
void setScrollRange(QScrollBar& bar, int maximum, int pageSize);

// Puts a view's scroll on its bar.
void showScroll(QScrollBar& bar, const ViewScroll& scroll);

// From now on every user action on the bar goes through stepScroll: the bar takes the position
// and `moved` is told it, or the bar stays where it is. Positions set by the program are not told.
void connectScrollBar(QScrollBar& bar, int lineStep, std::function<void(int position)> moved);

// Arrow and page keys pressed on a picture scroll it by its bars; accepts such keys. The bars
// themselves never have the focus.
void scrollByKey(QKeyEvent& key, QScrollBar& horizontal, QScrollBar& vertical);

// The mouse wheel, turned over a picture, scrolls it by its bars; with Shift held an ordinary wheel
// scrolls sideways.
void scrollByWheel(QWheelEvent& wheel, QScrollBar& horizontal, QScrollBar& vertical);

} // namespace velko
