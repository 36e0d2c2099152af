#pragma once

#include <string_view>

namespace velko {

// What the file commands need of the main window.
class EditorWindow {
public:
    virtual ~EditorWindow() = default;

    virtual int selectedTab() const = 0;
    // Takes the page away. With `revert` its changes that are not in the image are dropped,
    // otherwise they are offered first.
    virtual void destroyPage(bool revert) = 0;
    // Replaces the page by a new one of the tab `index`; an index past the tabs leaves none.
    virtual void showPage(int index) = 0;
    // Lets the page offer to write its changes that are not in the image yet.
    virtual void commitEdits() = 0;
    virtual void setCaption(std::string_view caption) = 0;
};

} // namespace velko
