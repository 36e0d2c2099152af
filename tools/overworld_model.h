#pragma once

#include "gfx/pixel_image.h"
#include "rom/user_prompt.h"
#include "state/editor_state.h"
#include "tools/area_movement.h"
#include "tools/overworld_map.h"
#include "tools/overworld_painter.h"
#include "tools/overworld_pickers.h"
#include "tools/palette_stepper.h"
#include "tools/truck_movement_region.h"
#include "tools/truck_path.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace velko {

// What the mouse does on the overworld map.
enum class OverworldMode { kTile, kPreset, kPalette, kArea, kTruck };

// What an action of the mouse changed and must be drawn again.
enum class OverworldChange { kNothing, kMap, kTilePicker };

// Loads the overworld's graphics into pattern memory, on top of the current room's. Its load list
// stays the selected one.
void loadOverworldGraphics(EditorState& state);

// The overworld editor without its window: the map and its palettes, where the areas lie and how
// the chopper leaves them, the trucks and their movement patterns. Every change goes straight into
// the image.
//
// While the model lives, pattern memory has the overworld's graphics on top of the room's. When it
// goes, the room's own graphics are built again.
//
// Selections are always in range: selecting or setting beyond a range takes the range's end. Ranges
// start at 0. A game may be damaged: one without trucks has a first truck that reads as zeros and
// cannot be changed.
class OverworldModel {
public:
    static constexpr int kDisplayWidth = 468; // pixels of the shown map
    static constexpr int kDisplayHeight = 324;
    static constexpr int kLastStartingArea = 15; // a nibble, however many areas there are
    // The directions of the direction buttons, row by row from the top left one; there is none in
    // the middle.
    static constexpr std::array<std::uint8_t, 8> kButtonDirections = {5, 6, 7, 4, 0, 3, 2, 1};

    // Loads the overworld's graphics and computes the free space of the areas' movements and of the
    // trucks' patterns. Starts in mode kTile with the first of everything selected.
    OverworldModel(EditorState& state, UserPrompt& prompt);
    ~OverworldModel();
    OverworldModel(const OverworldModel&) = delete;
    OverworldModel& operator=(const OverworldModel&) = delete;

    OverworldMode mode() const { return m_mode; }
    void setMode(OverworldMode mode);
    // Which groups of controls can be used.
    bool areaControlsEnabled() const { return m_mode == OverworldMode::kArea; }
    bool truckControlsEnabled() const { return m_mode == OverworldMode::kTruck; }

    // Areas. Another area selects its first movement entry.
    int lastArea() const;
    int area() const { return m_area; }
    void selectArea(int area);
    // Moves the area by steps of 8 pixels along its grid, as far as the mouse could place it.
    void moveArea(int columns, int rows);
    // Movement entries of the area.
    int lastEntry() const;
    bool canChooseEntry() const; // there is more than one, and the area's controls are enabled
    int entry() const;
    void selectEntry(int entry);
    AreaMovement::Entry entryValues() const;
    // Each sets a value of the selected entry, modulo 16.
    void setChopperSprite(int value);
    void setPathPreviewSprite(int value);
    void setFirstDigit(int value);
    void setSecondDigit(int value);
    // Adds an entry behind the selected one. Where that is not possible it is told.
    void addEntry();
    // Removes the selected entry and selects the first. An area's only one stays, silently.
    void removeEntry();

    // Trucks.
    int lastTruck() const;
    int truck() const { return m_truck; }
    void selectTruck(int truck);
    int startingArea() const;
    void setStartingArea(int area);
    // Sets that a truck can name, at most 16. A damaged truck may name one past them.
    int lastPatternSet() const;
    int patternSet() const;
    void setPatternSet(int patternSet);
    // Phases of the truck's pattern. Another pattern set selects its first phase; another truck of
    // the same set keeps the phase.
    int lastPhase() const;
    int phase() const { return m_phase; }
    void selectPhase(int phase);
    // The selected phase's direction, 0 to 7: clockwise from east.
    int direction() const;
    void setDirection(int direction);
    // Adds a copy of the selected phase behind it. Where that is not possible it is told.
    void addPhase();
    // Removes the selected phase; of the last one the one before takes the place. A pattern's only
    // phase stays, silently.
    void removePhase();

    // The mouse on the map, in display pixels: a button goes down, or the mouse moves while it is
    // held. Outside the map nothing happens.
    OverworldChange press(MapButton button, int px, int py);
    OverworldChange drag(MapButton button, int px, int py);
    // The tile under the pointer; nothing outside the map.
    static std::optional<OverworldCell> cellAt(int px, int py);

    // What the tile and preset modes write. Choosing one switches to its mode.
    int tile() const { return m_tile; }
    void selectTile(int tile);
    int preset() const { return m_preset; }
    int lastPreset() const;
    void selectPreset(int preset);
    // Choose the one so many columns and rows away in the picker, or the same where there is none.
    void moveTile(int columns, int rows);
    void movePreset(int columns, int rows);
    // Clicks in the pickers. Return false, changing nothing, where nothing lies.
    bool pickTileAt(int px, int py);
    bool pickPresetAt(int px, int py);

    // Each gives the image its size and draws it whole.
    void drawMap(PixelImage& image) const;          // kDisplayWidth x kDisplayHeight
    void drawTilePicker(PixelImage& image) const;   // PickerGrid::kSize square
    void drawPresetPicker(PixelImage& image) const; // the same

    // The way of the selected truck.
    std::vector<PathSegment> truckPath() const;

private:
    OverworldChange pressTile(MapButton button, OverworldCell cell);
    void placeArea(int px, int py);
    void drawAreas(PixelImage& picture) const;
    void drawTrucks(PixelImage& picture) const;

    // The start byte of a truck: pattern set (high nibble), starting area (low nibble).
    std::uint8_t startByte(int truck) const;
    void setStartByte(int value);
    std::uint32_t truckCount() const;
    // Brings the selected phase in line with the truck's pattern.
    void showPattern();
    std::uint32_t currentPhase() const { return static_cast<std::uint32_t>(m_phase); }

    EditorState& m_state;
    UserPrompt& m_prompt;
    OverworldMap m_map{m_state.rom, m_state.config};
    AreaMovement m_movement{m_state.store.pahMapAreaMovement};
    TruckMovementRegion m_trucks{m_state.rom, m_state.config};
    PaletteStepper m_palettes{m_map};
    OverworldPainter m_painter{m_state.rom, m_state.config, m_state.graphics, m_map};

    OverworldMode m_mode = OverworldMode::kTile;
    int m_area = 0;
    int m_entry = 0;
    int m_truck = 0;
    int m_phase = 0;
    int m_tile = 0;
    int m_preset = 0;
    // The pattern set whose phases were shown last. As a new window starts with phase 0 whatever
    // the one before showed, it need not outlive the model.
    int m_shownPatternSet = -1;
};

} // namespace velko
