#pragma once

#include "gfx/pixel_image.h"
#include "pages/room_view.h"
#include "pages/unit_list.h"
#include "pages/unit_mover.h"
#include "pages/unit_view.h"
#include "pages/vram_load_list.h"
#include "state/editor_state.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velko {

// The current room's units, and the sprite graphics that the game loads for them. Every change is
// in the ROM image at once.
//
// Points are pixels of the view as it is displayed.
class UnitPlacementModel {
public:
    // The state must outlive the model.
    explicit UnitPlacementModel(EditorState& state);

    // Shows the current room from its corner, with the first unit and the first load selected.
    void refresh();
    // Until resume() or the next refresh() ticks and the pointer do nothing. A new model is paused.
    void pause() { m_paused = true; }
    void resume() { m_paused = false; }

    // The part of the room that shows; the user scrolls it.
    RoomView& view() { return m_view; }
    // Draws it with the units on it, in the display's size.
    void draw(PixelImage& picture);
    // Every 16 ms: sprites move on, and the view scrolls when a unit is moved at its border. False
    // while paused: then there is nothing to draw either.
    bool tick();

    // Both are on at first.
    void setSprites(bool on) { m_sprites = on; }
    // Either way all sprites go back to their first frame.
    void setAnimated(bool on);

    // Units.

    std::vector<std::string> unitLines() const { return m_units.lines(m_state.names); }
    // -1 after the only unit was removed.
    int selectedUnit() const { return m_selectedUnit; }
    // Drops a unit that is being moved when it is another one. Numbers that the list does not have
    // change nothing.
    void selectUnit(int index);
    // The selected unit; nothing when the room has none.
    std::optional<UnitRecord> unit() const;

    // Each writes the selected unit, of numbers the low 8 bits, and does nothing without one.
    void setType(std::uint8_t type);
    // Taken away, all but the type becomes 0; given, the unit is at screen column 0 and the rest
    // stays.
    void setPlaced(bool placed);
    void setScreenX(std::uint32_t value);
    void setScreenY(std::uint32_t value);
    void setPixelX(std::uint32_t value);
    void setPixelY(std::uint32_t value);

    // Puts a unit of type 0 into the middle of the view, before the selected one in the list, and
    // selects it. Unless ok(), nothing has changed.
    EditResult addUnit();
    // To be shown then.
    static std::string_view noSpaceForUnitText();
    void removeUnit();

    // Moving units.

    bool isMoving() const { return m_mover.isMoving(); }
    // As for a double-click in the list.
    void startMoving(int index);
    // Left button in the view: picks up the unit there, and selects it; or drops the one being
    // moved.
    void press(RoomView::Position point);
    // Right button in the view: puts the unit back.
    void revertMove() { m_mover.revert(); }
    // The pointer moved, in the view or outside.
    void movePointer(RoomView::Position point);

    // Sprite graphics.

    std::vector<std::string> loadLines() const { return m_loads.lines(m_state.names); }
    // -1 after the only entry was deleted.
    int selectedLoad() const { return m_selectedLoad; }
    // Numbers that the list does not show change nothing.
    void selectLoad(int index);
    // Whether the game loads anything.
    bool hasLoads() const { return m_loads.shownCount() > 0; }
    // What the selected entry holds; nothing when there is none.
    std::optional<std::uint8_t> loadId() const;

    // Each loads the sprite graphics anew.
    void setLoadId(std::uint8_t id);
    // Puts an entry of 0 before the selected one, in whose place it is selected. Unless ok(),
    // nothing has changed.
    EditResult insertLoad();
    // To be shown then.
    static std::string_view noSpaceForLoadText();
    void deleteLoad();
    // Draws the tiles that are loaded.
    void drawVramSetup(PixelImage& picture) const;

private:
    template <typename Change> void changeUnit(Change change);

    EditorState& m_state;
    RoomView m_view{{320, 320}, {416, 375}};
    UnitList m_units;
    VramLoadList m_loads;
    UnitMover m_mover{m_units, m_view};
    UnitView m_picture{m_state, m_view, m_units};
    int m_selectedUnit = 0;
    int m_selectedLoad = 0;
    bool m_sprites = true;
    bool m_animated = true;
    bool m_paused = true;
};

} // namespace velko
