#include "pages/unit_mover.h"

#include <vector>

namespace velko {

namespace {

constexpr int kReach = 12;          // a unit is hit up to so many room pixels from its position
constexpr int kBorder = 12;         // pixels
constexpr int kScrollStep = 16;     // room pixels
constexpr float kScrollRate = 0.6F; // steps each tick
constexpr float kPhaseStep = 0.04F;
constexpr float kPhaseEnd = 2.0F;

bool isHit(int centre, int value)
{
    return centre - kReach <= value && value < centre + kReach;
}

int stepAtBorder(int value, int size)
{
    if (value < kBorder)
        return -kScrollStep;
    return value > size - kBorder ? kScrollStep : 0;
}

// Single precision, truncated.
int scaled(int value, int displaySize, int regionSize)
{
    return static_cast<int>(static_cast<float>(value) / static_cast<float>(displaySize)
                            * static_cast<float>(regionSize));
}

} // namespace

std::optional<std::uint32_t> UnitMover::pick(RoomView::Position point)
{
    if (isMoving() || !isInView(point))
        return std::nullopt;
    const RoomView::Position inRegion = toRegion(point);
    const RoomView::Position pointer = {m_view.scroll().x + inRegion.x,
                                        m_view.scroll().y + inRegion.y};
    const std::vector<UnitRecord> units = m_units.records();
    for (std::uint32_t i = 0; i < units.size(); ++i) {
        const RoomView::Position position = units[i].position();
        if (!units[i].isPlaced() || !isHit(position.x, pointer.x) || !isHit(position.y, pointer.y))
            continue;
        start(i);
        m_offset = {position.x - pointer.x, position.y - pointer.y};
        m_phase = 0.0F;
    }
    return m_unit;
}

void UnitMover::start(std::uint32_t unit)
{
    stop();
    m_unit = unit;
    m_saved = m_units.record(unit);
    m_offset = {};
    m_hasMoved = false;
}

void UnitMover::moveTo(RoomView::Position point)
{
    if (!isMoving())
        return;
    if (!isInView(point)) {
        requestScroll(point, m_view.display());
        return;
    }
    const RoomView::Position inRegion = toRegion(point);
    UnitRecord record = m_units.record(*m_unit);
    record.putAt(
        {m_view.scroll().x + inRegion.x + m_offset.x, m_view.scroll().y + inRegion.y + m_offset.y});
    m_units.setRecord(*m_unit, record);
    m_hasMoved = true;
    requestScroll(inRegion, m_view.region());
}

void UnitMover::drop(RoomView::Position point)
{
    if (!m_hasMoved)
        moveTo(point);
    stop();
}

void UnitMover::stop()
{
    m_unit.reset();
    m_scrollStep = {};
}

void UnitMover::revert()
{
    if (isMoving())
        m_units.setRecord(*m_unit, m_saved);
    stop();
}

void UnitMover::tick()
{
    m_phase += kPhaseStep;
    if (m_phase >= kPhaseEnd)
        m_phase -= kPhaseEnd;
    if (m_scrollStep == RoomView::Position{})
        return;
    m_scrollAccumulator += kScrollRate;
    while (m_scrollAccumulator >= 1.0F) {
        m_scrollAccumulator -= 1.0F;
        m_view.scrollTo({m_view.scroll().x + m_scrollStep.x, m_view.scroll().y + m_scrollStep.y});
    }
}

void UnitMover::reset()
{
    stop();
    m_scrollAccumulator = 0.0F;
    m_phase = 0.0F;
}

RoomView::Position UnitMover::toRegion(RoomView::Position point) const
{
    const RoomView::Size display = m_view.display();
    const RoomView::Size region = m_view.region();
    return {scaled(point.x, display.width, region.width),
            scaled(point.y, display.height, region.height)};
}

bool UnitMover::isInView(RoomView::Position point) const
{
    const RoomView::Size display = m_view.display();
    return point.x >= 0 && point.x < display.width && point.y >= 0 && point.y < display.height;
}

// Also takes back what the pointer's last place asked for.
void UnitMover::requestScroll(RoomView::Position point, RoomView::Size size)
{
    m_scrollStep = {stepAtBorder(point.x, size.width), stepAtBorder(point.y, size.height)};
}

} // namespace velko
