#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace velko {

// Shows one mouse cursor everywhere for as long as it lives.
class CursorOverride {
public:
    explicit CursorOverride(Qt::CursorShape shape) { QGuiApplication::setOverrideCursor(shape); }
    ~CursorOverride() { QGuiApplication::restoreOverrideCursor(); }
    CursorOverride(const CursorOverride&) = delete;
    CursorOverride& operator=(const CursorOverride&) = delete;
};

// While files are being read or whole regions of data put in order.
class BusyCursor : public CursorOverride {
public:
    BusyCursor() : CursorOverride(Qt::WaitCursor) { }
};

// While the user is asked something in the middle of that.
class OrdinaryCursor : public CursorOverride {
public:
    OrdinaryCursor() : CursorOverride(Qt::ArrowCursor) { }
};

} // namespace velko
