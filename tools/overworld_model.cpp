#include "tools/overworld_model.h"

#include <algorithm>

namespace velko {

namespace {

// The entry of the load lists that holds the overworld's graphics.
constexpr std::uint32_t kOverworldEntry = 111;

// A tile is 18 display pixels wide and high.
constexpr int kDisplayTile = OverworldModel::kDisplayWidth / OverworldMap::kColumns;

// The pointer chooses the middle of an area's icon, to the nearest multiple of 8.
constexpr int kPointerToArea = 26;
constexpr int kAreaGrid = 8;

bool onDisplay(int px, int py)
{
    return px >= 0 && px < OverworldModel::kDisplayWidth && py >= 0
        && py < OverworldModel::kDisplayHeight;
}

std::uint8_t onAreaGrid(int mapPixel)
{
    const int shifted = mapPixel + kPointerToArea;
    return static_cast<std::uint8_t>(shifted - shifted % kAreaGrid);
}

// One coordinate of an area, so many steps on, on a map of `size` pixels.
std::uint8_t movedOnAreaGrid(std::uint8_t position, int steps, int size)
{
    if (steps == 0)
        return position;
    const int moved = position - position % kAreaGrid + steps * kAreaGrid;
    return static_cast<std::uint8_t>(std::clamp<int>(moved, onAreaGrid(0), onAreaGrid(size - 1)));
}

} // namespace

void loadOverworldGraphics(EditorState& state)
{
    state.store.pahTileLoadType2.selectRoom(kOverworldEntry);
    state.graphics.applyType2Loads();
}

OverworldModel::OverworldModel(EditorState& state, UserPrompt& prompt)
    : m_state(state), m_prompt(prompt)
{
    loadOverworldGraphics(m_state);
    m_movement.open();
    m_trucks.selectSet(startByte(m_truck) >> 4);
}

OverworldModel::~OverworldModel()
{
    m_state.store.pahTileLoadType2.selectRoom(m_state.currentRoom());
    m_state.graphics.buildPatternMemory();
}

void OverworldModel::setMode(OverworldMode mode)
{
    m_mode = mode;
    if (mode == OverworldMode::kTruck)
        showPattern();
}

// Areas

int OverworldModel::lastArea() const
{
    return static_cast<int>(m_map.lastArea());
}

void OverworldModel::selectArea(int area)
{
    m_area = std::clamp(area, 0, lastArea());
    m_entry = 0;
    m_movement.selectArea(static_cast<std::uint32_t>(m_area));
}

void OverworldModel::moveArea(int columns, int rows)
{
    const auto area = static_cast<std::uint32_t>(m_area);
    const AreaPosition old = m_map.areaPosition(area);
    m_map.setAreaPosition(area,
                          {movedOnAreaGrid(old.x, columns, OverworldMap::kWidth),
                           movedOnAreaGrid(old.y, rows, OverworldMap::kHeight)});
}

int OverworldModel::lastEntry() const
{
    return std::max(m_movement.entryCount() - 1, 0);
}

bool OverworldModel::canChooseEntry() const
{
    return areaControlsEnabled() && lastEntry() > 0;
}

int OverworldModel::entry() const
{
    return std::min(m_entry, lastEntry());
}

void OverworldModel::selectEntry(int entry)
{
    m_entry = std::clamp(entry, 0, lastEntry());
}

AreaMovement::Entry OverworldModel::entryValues() const
{
    return m_movement.entry(entry());
}

void OverworldModel::setChopperSprite(int value)
{
    m_movement.setChopperSprite(entry(), value);
}

void OverworldModel::setPathPreviewSprite(int value)
{
    m_movement.setPathPreviewSprite(entry(), value);
}

void OverworldModel::setFirstDigit(int value)
{
    m_movement.setFirstDigit(entry(), value);
}

void OverworldModel::setSecondDigit(int value)
{
    m_movement.setSecondDigit(entry(), value);
}

void OverworldModel::addEntry()
{
    if (!m_movement.addEntry(entry()))
        m_prompt.showMessage("not enough free space. (remove movements from other areas.)");
}

void OverworldModel::removeEntry()
{
    if (m_movement.removeEntry(entry()))
        m_entry = 0;
}

// The mouse

std::optional<OverworldCell> OverworldModel::cellAt(int px, int py)
{
    if (!onDisplay(px, py))
        return std::nullopt;
    return OverworldCell{px / kDisplayTile, py / kDisplayTile};
}

OverworldChange OverworldModel::press(MapButton button, int px, int py)
{
    const std::optional<OverworldCell> cell = cellAt(px, py);
    if (!cell)
        return OverworldChange::kNothing;
    if (m_mode == OverworldMode::kTile)
        return pressTile(button, *cell);
    if (m_mode == OverworldMode::kPalette) {
        m_palettes.press(button, *cell);
        return OverworldChange::kMap;
    }
    if (button != MapButton::kLeft || m_mode == OverworldMode::kTruck)
        return OverworldChange::kNothing;
    if (m_mode == OverworldMode::kPreset)
        m_map.placePreset(*cell, static_cast<std::uint32_t>(m_preset));
    else
        placeArea(px, py);
    return OverworldChange::kMap;
}

OverworldChange OverworldModel::drag(MapButton button, int px, int py)
{
    const std::optional<OverworldCell> cell = cellAt(px, py);
    if (!cell || m_mode != OverworldMode::kPalette)
        return press(button, px, py);
    return m_palettes.drag(button, *cell) ? OverworldChange::kMap : OverworldChange::kNothing;
}

OverworldChange OverworldModel::pressTile(MapButton button, OverworldCell cell)
{
    if (button == MapButton::kRight) {
        m_tile = m_map.tile(cell);
        return OverworldChange::kTilePicker;
    }
    m_map.setTile(cell, static_cast<std::uint8_t>(m_tile));
    return OverworldChange::kMap;
}

void OverworldModel::placeArea(int px, int py)
{
    m_map.setAreaPosition(static_cast<std::uint32_t>(m_area),
                          {onAreaGrid(px * OverworldMap::kWidth / kDisplayWidth),
                           onAreaGrid(py * OverworldMap::kHeight / kDisplayHeight)});
}

// Pickers

void OverworldModel::selectTile(int tile)
{
    m_tile = std::clamp(tile, 0, 255);
    setMode(OverworldMode::kTile);
}

int OverworldModel::lastPreset() const
{
    return static_cast<int>(m_map.presetCount()) - 1;
}

void OverworldModel::selectPreset(int preset)
{
    m_preset = std::clamp(preset, 0, lastPreset());
    setMode(OverworldMode::kPreset);
}

void OverworldModel::moveTile(int columns, int rows)
{
    selectTile(tileGrid().beside(m_tile, columns, rows));
}

void OverworldModel::movePreset(int columns, int rows)
{
    selectPreset(presetGrid(m_map).beside(m_preset, columns, rows));
}

bool OverworldModel::pickTileAt(int px, int py)
{
    const std::optional<int> tile = tileGrid().at(px, py);
    if (tile)
        selectTile(*tile);
    return tile.has_value();
}

bool OverworldModel::pickPresetAt(int px, int py)
{
    const std::optional<int> preset = presetGrid(m_map).at(px, py);
    if (preset)
        selectPreset(*preset);
    return preset.has_value();
}

// Pictures

void OverworldModel::drawMap(PixelImage& image) const
{
    PixelImage picture;
    m_painter.drawTiles(picture);
    if (m_mode == OverworldMode::kArea)
        drawAreas(picture);
    if (m_mode == OverworldMode::kTruck)
        drawTrucks(picture);
    image.allocate(kDisplayHeight, kDisplayWidth);
    copyScaled(image, picture);
}

void OverworldModel::drawAreas(PixelImage& picture) const
{
    m_painter.drawAreaIcons(picture);
    const AreaPosition position = m_map.areaPosition(static_cast<std::uint32_t>(m_area));
    m_painter.drawAreaFrame(picture, position);
    if (m_movement.entryCount() == 0)
        return;
    const AreaMovement::Entry values = entryValues();
    const int x = position.x - kAreaToCentre;
    const int y = position.y - kAreaToCentre;
    m_painter.drawQuadSprite(picture, values.chopperSprite, x, y);
    m_painter.drawPathPreview(picture, values.pathPreviewSprite, values.chopperSprite, x, y + 1);
}

void OverworldModel::drawTilePicker(PixelImage& image) const
{
    velko::drawTilePicker(image, m_painter, m_map, m_tile);
}

void OverworldModel::drawPresetPicker(PixelImage& image) const
{
    velko::drawPresetPicker(image, m_painter, m_map, m_preset, m_state.backgroundColour);
}

} // namespace velko
