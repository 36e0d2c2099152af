#include "tools/overworld_model.h"

#include <algorithm>

// The part of the overworld editor that is about trucks.

namespace velko {

namespace {

constexpr int kMostPatternSets = 16;          // a nibble names one
constexpr std::uint8_t kFirstTruckSprite = 8; // of eight, one per direction

} // namespace

std::uint32_t OverworldModel::truckCount() const
{
    return std::min(m_state.config.value(MiscField::numOfMapTrucks), OverworldMap::kMostTrucks);
}

int OverworldModel::lastTruck() const
{
    return std::max(static_cast<int>(truckCount()) - 1, 0);
}

std::uint8_t OverworldModel::startByte(int truck) const
{
    const auto index = static_cast<std::uint32_t>(truck);
    if (index >= truckCount())
        return 0;
    return m_state.rom.readByte(m_state.config.value(MiscField::ptrMapTruckInit) + index);
}

void OverworldModel::setStartByte(int value)
{
    const auto index = static_cast<std::uint32_t>(m_truck);
    if (index < truckCount())
        m_state.rom.writeByte(m_state.config.value(MiscField::ptrMapTruckInit) + index,
                              static_cast<std::uint8_t>(value));
}

void OverworldModel::selectTruck(int truck)
{
    m_truck = std::clamp(truck, 0, lastTruck());
    showPattern();
}

int OverworldModel::startingArea() const
{
    return startByte(m_truck) & 15;
}

void OverworldModel::setStartingArea(int area)
{
    setStartByte((startByte(m_truck) & 0xF0) | std::clamp(area, 0, kLastStartingArea));
}

int OverworldModel::lastPatternSet() const
{
    const auto sets = static_cast<int>(m_trucks.patternSets());
    return std::clamp(sets, 1, kMostPatternSets) - 1;
}

int OverworldModel::patternSet() const
{
    return startByte(m_truck) >> 4;
}

void OverworldModel::setPatternSet(int patternSet)
{
    setStartByte(startingArea() | std::clamp(patternSet, 0, lastPatternSet()) << 4);
    showPattern();
}

void OverworldModel::showPattern()
{
    m_trucks.selectSet(static_cast<std::uint32_t>(patternSet()));
    if (patternSet() != m_shownPatternSet)
        m_phase = 0;
    m_shownPatternSet = patternSet();
    m_phase = std::min(m_phase, lastPhase());
}

int OverworldModel::lastPhase() const
{
    return static_cast<int>(m_trucks.lastPhase());
}

void OverworldModel::selectPhase(int phase)
{
    m_phase = std::clamp(phase, 0, lastPhase());
}

int OverworldModel::direction() const
{
    return directionOf(m_trucks.phase(currentPhase()));
}

void OverworldModel::setDirection(int direction)
{
    if (truckCount() == 0)
        return;
    const int mark = m_trucks.phase(currentPhase()) & TruckMovementRegion::kLastPhaseMark;
    m_trucks.setPhase(currentPhase(), static_cast<std::uint8_t>(mark | (direction & 7)));
}

void OverworldModel::addPhase()
{
    if (truckCount() == 0)
        return;
    const std::uint8_t copy = m_trucks.phase(currentPhase());
    if (!m_trucks.insertBytes(currentPhase() + 1, {&copy, 1}).ok()) {
        m_prompt.showMessage("not enough free space. (remove one or more movement phase from other "
                             "truck patterns.)");
        return;
    }
    // Only the new phase can be the last one now.
    m_trucks.setPhase(currentPhase(), copy & ~TruckMovementRegion::kLastPhaseMark);
}

void OverworldModel::removePhase()
{
    constexpr std::uint8_t kMark = TruckMovementRegion::kLastPhaseMark;
    const bool onlyPhase = (m_trucks.phase(0) & kMark) != 0;
    if (onlyPhase || truckCount() == 0)
        return;
    const bool wasLast = (m_trucks.phase(currentPhase()) & kMark) != 0;
    if (!m_trucks.deleteBytes(currentPhase(), 1).ok())
        return;
    if (wasLast) {
        --m_phase;
        m_trucks.setPhase(currentPhase(), m_trucks.phase(currentPhase()) | kMark);
    }
    showPattern();
}

std::vector<PathSegment> OverworldModel::truckPath() const
{
    std::vector<std::uint8_t> phases;
    for (std::uint32_t i = 0; i <= m_trucks.lastPhase(); ++i)
        phases.push_back(m_trucks.phase(i));
    std::vector<AreaPosition> areas;
    for (std::uint32_t area = 0; area <= m_map.lastArea(); ++area)
        areas.push_back(m_map.areaPosition(area));
    return walkTruckPath(m_map.areaPosition(static_cast<std::uint32_t>(startingArea())), phases,
                         areas);
}

void OverworldModel::drawTrucks(PixelImage& picture) const
{
    if (truckCount() == 0)
        return;
    for (int truck = 0; truck <= lastTruck(); ++truck) {
        const std::uint8_t start = startByte(truck);
        const AreaPosition position = m_map.areaPosition(start & 15U);
        const std::uint8_t firstDirection = directionOf(m_trucks.phase(start >> 4, 0));
        m_painter.drawQuadSprite(picture,
                                 static_cast<std::uint8_t>(kFirstTruckSprite + firstDirection),
                                 position.x - kAreaToCentre, position.y - kAreaToCentre);
    }
    m_painter.drawPath(picture, truckPath(), currentPhase());
}

} // namespace velko
