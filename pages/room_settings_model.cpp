#include "pages/room_settings_model.h"

#include "rom/number_text.h"

namespace velko {

std::uint8_t RoomSettingsModel::music() const
{
    return m_state.rom.readByte(musicOffset());
}

void RoomSettingsModel::setMusic(std::uint8_t number)
{
    m_state.rom.writeByte(musicOffset(), number);
}

std::string RoomSettingsModel::chamberTitle() const
{
    return " Neutral Area Item (only for rooms "
        + decimalText(m_state.config.value(MiscField::areaFirstNAchamber)) + " to "
        + decimalText(m_state.config.value(MiscField::areaLastNAchamber)) + ")";
}

bool RoomSettingsModel::isChamber() const
{
    const std::uint32_t room = m_state.currentRoom();
    return room >= m_state.config.value(MiscField::areaFirstNAchamber)
        && room <= m_state.config.value(MiscField::areaLastNAchamber);
}

std::uint8_t RoomSettingsModel::item() const
{
    return isChamber() ? m_state.rom.readByte(itemOffset()) : kNoItem;
}

std::optional<std::uint8_t> RoomSettingsModel::listedItem() const
{
    const std::uint8_t number = item();
    if (number >= kItems)
        return std::nullopt;
    return number;
}

void RoomSettingsModel::setItem(std::uint8_t number)
{
    if (isChamber())
        m_state.rom.writeByte(itemOffset(), number);
}

void RoomSettingsModel::addItem()
{
    setItem(kFirstItem);
    setSpriteAddress(kFirstItemAddress);
}

void RoomSettingsModel::removeItem()
{
    setItem(kNoItem);
    setSpriteAddress(kNoAddress);
}

std::uint16_t RoomSettingsModel::spriteAddress() const
{
    if (!isChamber())
        return kNoAddress;
    const std::uint32_t low = m_state.rom.readByte(addressOffset());
    const std::uint32_t high = m_state.rom.readByte(addressOffset() + 1);
    return static_cast<std::uint16_t>(high << 8 | low);
}

void RoomSettingsModel::setSpriteAddress(std::uint32_t address)
{
    if (!isChamber())
        return;
    m_state.rom.writeByte(addressOffset(), static_cast<std::uint8_t>(address & 0xFF));
    m_state.rom.writeByte(addressOffset() + 1, static_cast<std::uint8_t>(address >> 8 & 0xFF));
}

void RoomSettingsModel::takeItemAddress()
{
    if (!hasItem())
        setSpriteAddress(kNoAddress);
    else if (const std::optional<std::uint8_t> number = listedItem())
        setSpriteAddress(m_state.config.itemInGameSpriteAddress[*number]);
}

std::uint32_t RoomSettingsModel::musicOffset() const
{
    return m_state.config.value(MiscField::ptrRoomMusic) + m_state.currentRoom();
}

std::uint32_t RoomSettingsModel::itemOffset() const
{
    return m_state.config.value(MiscField::ptrNA_ChamberItem) + chamberIndex();
}

std::uint32_t RoomSettingsModel::addressOffset() const
{
    return m_state.config.value(MiscField::ptrNA_ChItemAddress) + 2 * chamberIndex();
}

std::uint32_t RoomSettingsModel::chamberIndex() const
{
    return m_state.currentRoom() - m_state.config.value(MiscField::areaFirstNAchamber);
}

} // namespace velko
