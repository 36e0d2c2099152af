#pragma once

#include "gfx/pixel_image.h"
#include "pages/room_view.h"
#include "pages/unit_list.h"
#include "state/editor_state.h"

#include <cstdint>
#include <optional>

namespace velko {

// Stands for a unit without a sprite: the bits of its type spread over the top bits of the three
// colours, so that neighbouring types look different.
Pixel markerColour(std::uint8_t unitType);

// The picture of a part of the room with the units on it, drawn on every tick. The room behind the
// units is drawn only when another part of it shows.
class UnitView {
public:
    // The unit that is being moved.
    struct Highlight {
        std::uint32_t unit = 0;
        float strength = 0.0F; // 0 to 1
    };

    // All must outlive the view.
    UnitView(const EditorState& state, const RoomView& view, const UnitList& units)
        : m_state(state), m_view(view), m_units(units)
    {
    }

    // The next picture draws the room anew, as after another one was selected.
    void forgetBackground() { m_backgroundScroll.reset(); }
    // Draws into a picture of the view's display size. Without `sprites` all units are markers.
    void draw(PixelImage& picture, bool sprites, const std::optional<Highlight>& highlight);

private:
    void drawBackground();
    bool shows(RoomView::Position position) const;
    void drawUnit(const UnitRecord& unit, bool sprites, std::optional<float> strength);

    const EditorState& m_state;
    const RoomView& m_view;
    const UnitList& m_units;
    PixelImage m_background; // of the part at m_backgroundScroll
    std::optional<RoomView::Position> m_backgroundScroll;
    PixelImage m_region; // the background and the units
};

} // namespace velko
