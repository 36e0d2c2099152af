#pragma once

#include <QPoint>

class QKeyEvent;
class QScrollArea;
class QWidget;

namespace velko {

// Small routines that all windows share.

// The dynamic property under which a control carries its number of the window's template, so
// that code, test and template meet.
inline constexpr const char* kControlId = "controlId";

// Whether `point`, given in `parent`'s coordinates, lies inside `control`, a widget below
// `parent`. When `relative` is given it receives the point relative to the control's top-left
// corner, inside or not.
bool hitTest(QPoint point, const QWidget& parent, const QWidget& control,
             QPoint* relative = nullptr);

// The way an arrow key points, in columns and rows; null for other keys.
QPoint arrowDirection(const QKeyEvent& key);

// Gives `window` the size at which `scroll`, somewhere in it, shows its contents whole, as far as
// the screen allows.
void resizeToContents(QWidget& window, QScrollArea& scroll);

// Moves `control` so that its top-left corner is the anchor's top-left corner plus (x, y). The
// anchor is measured from the outer corner of its parent, window frame included. A negative width
// or height takes the control's current one, without its border.
void placeControl(QWidget& control, const QWidget& anchor, int x, int y, int width, int height);

} // namespace velko
