#include "tools/area_settings.h"

#include <algorithm>

namespace velko {

std::uint32_t AreaSettings::lastArea() const
{
    return std::clamp(m_state.config.value(MiscField::areas), 1U, kMostAreas) - 1;
}

std::uint32_t AreaSettings::offsetInTable(MiscField table) const
{
    return m_state.config.value(table) + m_area;
}

bool AreaSettings::parachute() const
{
    return m_state.rom.readByte(offsetInTable(MiscField::ptrAreaParachute)) != 0;
}

void AreaSettings::setParachute(bool parachute)
{
    m_state.rom.writeByte(offsetInTable(MiscField::ptrAreaParachute), parachute ? 1 : 0);
}

bool AreaSettings::hasClearItem() const
{
    return m_area + 1 < m_state.config.value(MiscField::firstNeutralArea);
}

std::optional<std::uint8_t> AreaSettings::clearItem() const
{
    const std::uint8_t item = m_state.rom.readByte(offsetInTable(MiscField::ptrAreaEndItem));
    if (item >= kItems)
        return std::nullopt;
    return item;
}

void AreaSettings::setClearItem(std::uint8_t item)
{
    m_state.rom.writeByte(offsetInTable(MiscField::ptrAreaEndItem), item);
}

} // namespace velko
