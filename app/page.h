#pragma once

#include <QWidget>

namespace velko {

// One tab page. The main window owns at most one and makes it anew each time its tab is chosen;
// it calls setup() once, then refresh(), then shows it. What a page has no use for it leaves as
// it is here.
class Page : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    // Once, before the first refresh: fixed lists, connections.
    virtual void setup() { }
    // Re-reads the current room from the ROM image and shows it. Called after every change of
    // room.
    virtual void refresh() = 0;

    // Before the room changes, and before Save: offers to write changes that are not in the
    // image yet.
    virtual void commitEdits() { }
    // Before the page goes because another tab is chosen or a ROM is read. With `revert` changes
    // that are not in the image are dropped, otherwise they are offered as by commitEdits().
    virtual void leave([[maybe_unused]] bool revert) { }
    // While a tool window over the main one draws with other graphics than the room's, the page
    // must draw nothing by itself; the next refresh() or resume() ends that.
    virtual void pause() { }
    virtual void resume() { }
    // The Shift key went down or up, wherever the focus is.
    virtual void shiftKey([[maybe_unused]] bool down) { }
};

} // namespace velko
