#include "pages/unit_placement_model.h"

namespace velko {

namespace {

constexpr std::uint8_t lowByte(std::uint32_t value)
{
    return static_cast<std::uint8_t>(value & 0xFF);
}

bool isIndex(int index, std::uint32_t count)
{
    return index >= 0 && static_cast<std::uint32_t>(index) < count;
}

} // namespace

UnitPlacementModel::UnitPlacementModel(EditorState& state)
    : m_state(state), m_units(state.store.pahUnit), m_loads(state.store.pahTileLoadType2)
{
}

void UnitPlacementModel::refresh()
{
    m_mover.reset();
    m_view.showRoom(m_state.renderer.roomSize(m_state.currentRoom()));
    m_picture.forgetBackground();
    m_selectedUnit = 0;
    m_selectedLoad = 0;
    m_paused = false;
}

void UnitPlacementModel::draw(PixelImage& picture)
{
    std::optional<UnitView::Highlight> highlight;
    if (const std::optional<std::uint32_t> moving = m_mover.unit())
        highlight = {*moving, m_mover.glow()};
    m_picture.draw(picture, m_sprites, highlight);
}

bool UnitPlacementModel::tick()
{
    if (m_paused)
        return false;
    if (m_animated)
        m_state.graphics.stepUnitAnimation();
    m_mover.tick();
    return true;
}

void UnitPlacementModel::setAnimated(bool on)
{
    m_animated = on;
    m_state.graphics.resetUnitAnimation();
}

void UnitPlacementModel::selectUnit(int index)
{
    if (index == m_selectedUnit || !isIndex(index, m_units.count()))
        return;
    m_mover.stop();
    m_selectedUnit = index;
}

std::optional<UnitRecord> UnitPlacementModel::unit() const
{
    if (!isIndex(m_selectedUnit, m_units.count()))
        return std::nullopt;
    return m_units.record(static_cast<std::uint32_t>(m_selectedUnit));
}

template <typename Change> void UnitPlacementModel::changeUnit(Change change)
{
    if (std::optional<UnitRecord> record = unit()) {
        change(*record);
        m_units.setRecord(static_cast<std::uint32_t>(m_selectedUnit), *record);
    }
}

void UnitPlacementModel::setType(std::uint8_t type)
{
    changeUnit([type](UnitRecord& unit) { unit.type = type; });
}

void UnitPlacementModel::setPlaced(bool placed)
{
    changeUnit([placed](UnitRecord& unit) {
        if (placed)
            unit.column = 1;
        else
            unit = {.type = unit.type};
    });
}

void UnitPlacementModel::setScreenX(std::uint32_t value)
{
    changeUnit([value](UnitRecord& unit) { unit.column = lowByte(value + 1); });
}

void UnitPlacementModel::setScreenY(std::uint32_t value)
{
    changeUnit([value](UnitRecord& unit) { unit.screenY = lowByte(value); });
}

void UnitPlacementModel::setPixelX(std::uint32_t value)
{
    changeUnit([value](UnitRecord& unit) { unit.pixelX = lowByte(value); });
}

void UnitPlacementModel::setPixelY(std::uint32_t value)
{
    changeUnit([value](UnitRecord& unit) { unit.pixelY = lowByte(value); });
}

EditResult UnitPlacementModel::addUnit()
{
    UnitRecord record;
    const RoomView::Size region = m_view.region();
    record.putAt({m_view.scroll().x + region.width / 2, m_view.scroll().y + region.height / 2});
    const int index = isIndex(m_selectedUnit, m_units.count()) ? m_selectedUnit : 0;
    const EditResult result = m_units.insert(static_cast<std::uint32_t>(index), record);
    if (result.ok()) {
        m_mover.stop();
        m_selectedUnit = index;
    }
    return result;
}

std::string_view UnitPlacementModel::noSpaceForUnitText()
{
    return "No free space. You must first remove one or more unit from any room.";
}

void UnitPlacementModel::removeUnit()
{
    const std::uint32_t count = m_units.count();
    if (!isIndex(m_selectedUnit, count)
        || !m_units.remove(static_cast<std::uint32_t>(m_selectedUnit)).ok())
        return;
    m_mover.stop();
    if (!isIndex(m_selectedUnit + 1, count))
        --m_selectedUnit;
}

void UnitPlacementModel::startMoving(int index)
{
    if (!isIndex(index, m_units.count()))
        return;
    m_selectedUnit = index;
    m_mover.start(static_cast<std::uint32_t>(index));
}

void UnitPlacementModel::press(RoomView::Position point)
{
    if (m_mover.isMoving())
        m_mover.drop(point);
    else if (const std::optional<std::uint32_t> picked = m_mover.pick(point))
        m_selectedUnit = static_cast<int>(*picked);
}

// While paused another room may be selected, whose units the mouse must not move.
void UnitPlacementModel::movePointer(RoomView::Position point)
{
    if (!m_paused)
        m_mover.moveTo(point);
}

void UnitPlacementModel::selectLoad(int index)
{
    if (isIndex(index, m_loads.shownCount()))
        m_selectedLoad = index;
}

std::optional<std::uint8_t> UnitPlacementModel::loadId() const
{
    if (!isIndex(m_selectedLoad, m_loads.count()))
        return std::nullopt;
    return m_loads.id(static_cast<std::uint32_t>(m_selectedLoad));
}

void UnitPlacementModel::setLoadId(std::uint8_t id)
{
    if (!loadId())
        return;
    m_loads.setId(static_cast<std::uint32_t>(m_selectedLoad), id);
    m_state.graphics.buildPatternMemory();
}

EditResult UnitPlacementModel::insertLoad()
{
    const int index = isIndex(m_selectedLoad, m_loads.count()) ? m_selectedLoad : 0;
    const EditResult result = m_loads.insert(static_cast<std::uint32_t>(index), 0);
    if (result.ok()) {
        m_selectedLoad = index;
        m_state.graphics.buildPatternMemory();
    }
    return result;
}

std::string_view UnitPlacementModel::noSpaceForLoadText()
{
    return "Not enough free space. You must first remove entries of loaded Id's in the data of any "
           "room.";
}

void UnitPlacementModel::deleteLoad()
{
    const std::uint32_t count = m_loads.count();
    if (!isIndex(m_selectedLoad, count)
        || !m_loads.remove(static_cast<std::uint32_t>(m_selectedLoad)).ok())
        return;
    if (!isIndex(m_selectedLoad + 1, count))
        --m_selectedLoad;
    m_state.graphics.buildPatternMemory();
}

void UnitPlacementModel::drawVramSetup(PixelImage& picture) const
{
    velko::drawVramSetup(m_state.graphics, picture);
}

} // namespace velko
