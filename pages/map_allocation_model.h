#pragma once

#include "gfx/pixel_image.h"
#include "state/editor_state.h"
#include "store/screen_area.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velko {

// The list of the screens that the current room is built from, and the entry of it that is being
// changed. Screens themselves are never changed here.
//
// The commands write where the documented positions lie and check nothing against the end of the
// list: in a list without screens, position 0 is the terminator itself.
class MapAllocationModel {
public:
    // A cell of a map layout is one byte that holds a list position.
    static constexpr std::uint32_t kMostScreens = 256;
    // Means the current room to screenCount().
    static constexpr std::uint32_t kCurrentRoom = 256;
    static constexpr int kScrollPage = 16;

    enum class InsertResult { kDone, kListFull, kNoFreeSpace };

    explicit MapAllocationModel(EditorState& state);

    // Entries before the terminator, at most 65536.
    std::uint32_t screenCount(std::uint32_t room = kCurrentRoom) const;
    std::vector<std::string> lines() const;

    // The position that the commands below change. It stays where it is when the list becomes
    // shorter, so that an address that ends the list while it is typed can be typed to its end.
    int selectedPosition() const { return m_selected; }
    // Negative positions (no line chosen) change nothing.
    void select(int position);
    // For another room, and for the page when it appears: the second screen, where there is one.
    void resetSelection();

    std::uint16_t selectedAddress() const;
    std::uint32_t selectedIndex() const;
    // 256 x 240 pixels.
    void drawSelectedScreen(PixelImage& image) const;

    // The scroll bar of screen indexes has positions 0 to the number of screens - 1; its maximum
    // counts a page of kScrollPage too.
    int scrollMaximum() const;

    // Lower-case hexadecimal; ffffffff where it is not known.
    std::string freeSpaceText() const;

    // Inserts the screen that follows the selected one in the screen area (its first one, past the
    // end) behind the selected entry, and selects it. A room with exactly kMostScreens screens is
    // refused. Unless kDone, nothing has changed.
    InsertResult insertAfterSelected();
    // What a refused insertion tells; empty for kDone.
    static std::string_view message(InsertResult result);

    // Removes the selected entry, unless it is the room's only one.
    void removeSelected();
    // Leaves one entry, the first screen of the area. In an over-full region what the list frees
    // may not make room for it, and the list becomes empty; while the free space is not known
    // nothing changes. A list without an end mark counts as 65536 screens: all of them go, and with
    // them what other rooms keep behind the list's start.
    void resetList();
    // Puts the lowest screen that no room uses into the selected entry. Returns false, changing
    // nothing, when there is none.
    bool useFreeScreen();

    // As typed: the low 16 bits go into the entry, whatever they are.
    void setAddress(std::uint32_t address);
    // As typed or scrolled to: limited to the area's screens, where a number with its highest bit
    // set counts as negative ("-1" is typed as one).
    void setIndex(std::uint32_t index);

private:
    ScreenArea area() const { return ScreenArea::of(m_state.config); }
    std::uint32_t selectedOffset() const { return 2 * static_cast<std::uint32_t>(m_selected); }

    EditorState& m_state;
    int m_selected = 0;
};

} // namespace velko
