#pragma once

#include "app/page.h"
#include "app/shared_fonts.h"
#include "rom/user_prompt.h"
#include "state/editor_state.h"

#include <array>
#include <cstdint>
#include <functional>

namespace velko {

// What a page or tool is made from.
struct WindowContext {
    EditorState& state;
    UserPrompt& prompt;
    const SharedFonts& fonts;
};

inline constexpr int kPages = 9;

struct PageEntry {
    const char* tabText; // each ends in a blank, which keeps the tabs' texts apart
    std::function<Page*(const WindowContext&, QWidget* parent)> make;
};
using PageTable = std::array<PageEntry, kPages>;

// The tool windows, each opened modally over `parent`. An empty entry disables its commands.
struct ToolTable {
    // Returns the room that the selector holds when it closes.
    std::function<std::uint8_t(const WindowContext&, QWidget* parent, std::uint8_t room)>
        roomSelector;
    std::function<void(const WindowContext&, QWidget* parent)> areaEditor;
    std::function<void(const WindowContext&, QWidget* parent)> mainMapEditor;
};

struct WindowTable {
    PageTable pages;
    ToolTable tools;
};

// The windows of this program, pages in tab order.
WindowTable editorWindows();

} // namespace velko
