#include "pages/door_model.h"

#include <algorithm>

namespace velko {

namespace {

constexpr int kBlock = 16; // room pixels
// Screens that an entrance can tell: column 0 means that it is not set.
constexpr int kMostColumns = 15;
constexpr int kMostRows = 16;

// The room pixel under a pixel of the picture, along one axis. Single precision, as this decides
// between neighbouring blocks.
std::uint32_t roomPixel(int point, int regionSize, int displaySize, int scroll)
{
    const float ratio = static_cast<float>(regionSize) / static_cast<float>(displaySize);
    return static_cast<std::uint32_t>(static_cast<float>(point) * ratio
                                      + static_cast<float>(scroll));
}

std::uint8_t packNibbles(std::uint32_t high, std::uint32_t low)
{
    return static_cast<std::uint8_t>((high << 4 | low) & 0xFF);
}

bool liesInPicture(int x, int y)
{
    return x >= 0 && x < DoorModel::kDisplay.width && y >= 0 && y < DoorModel::kDisplay.height;
}

} // namespace

Entrance Entrance::fromBytes(std::uint8_t screen, std::uint8_t block)
{
    return {static_cast<std::uint8_t>(screen >> 4), static_cast<std::uint8_t>(screen & 0xF),
            static_cast<std::uint8_t>(block >> 4), static_cast<std::uint8_t>(block & 0xF)};
}

RoomView::Position Entrance::corner() const
{
    return {(screenColumn - 1) * kScreenWidth + blockColumn * kBlock,
            screenRow * kScreenHeight + blockRow * kBlock};
}

void DoorModel::showRoom()
{
    m_view.showRoom(m_state.renderer.roomSize(m_state.currentRoom()));
}

void DoorModel::selectEntrance(std::uint32_t slot)
{
    m_entrance = slot;
    if (entrance().isSet())
        centreOn(entrance().corner());
}

void DoorModel::centreOn(RoomView::Position corner)
{
    const RoomView::Size region = m_view.region();
    m_view.scrollTo({corner.x - region.width / 2, corner.y - region.height / 2});
}

bool DoorModel::isInView(RoomView::Position corner) const
{
    const RoomView::Position scroll = m_view.scroll();
    const RoomView::Size region = m_view.region();
    return corner.x < scroll.x + region.width && corner.y < scroll.y + region.height
        && corner.x + kBlock > scroll.x && corner.y + kBlock > scroll.y;
}

Entrance DoorModel::entranceOf(std::uint32_t slot) const
{
    const std::uint8_t screen =
        m_state.rom.readByte(entranceOffset(MiscField::ptrEntranceScreen, slot));
    const std::uint8_t block =
        m_state.rom.readByte(entranceOffset(MiscField::ptrEntranceBlock, slot));
    return Entrance::fromBytes(screen, block);
}

void DoorModel::setEntrance(std::uint32_t slot, const Entrance& entrance)
{
    m_state.rom.writeByte(
        entranceOffset(MiscField::ptrEntranceScreen, slot),
        static_cast<std::uint8_t>(entrance.screenColumn << 4 | (entrance.screenRow & 0xF)));
    m_state.rom.writeByte(
        entranceOffset(MiscField::ptrEntranceBlock, slot),
        static_cast<std::uint8_t>(entrance.blockColumn << 4 | (entrance.blockRow & 0xF)));
}

bool DoorModel::placeEntrance(int x, int y)
{
    if (!liesInPicture(x, y))
        return false;
    const RoomView::Size region = m_view.region();
    const std::uint32_t roomX = roomPixel(x, region.width, kDisplay.width, m_view.scroll().x);
    const std::uint32_t roomY = roomPixel(y, region.height, kDisplay.height, m_view.scroll().y);
    storeEntrance(roomX, roomY);
    return true;
}

void DoorModel::storeEntrance(std::uint32_t roomX, std::uint32_t roomY)
{
    const std::uint8_t screen = packNibbles(roomX / kScreenWidth + 1, roomY / kScreenHeight);
    const std::uint8_t block =
        packNibbles(roomX % kScreenWidth / kBlock, roomY % kScreenHeight / kBlock);
    m_state.rom.writeByte(entranceOffset(MiscField::ptrEntranceScreen, m_entrance), screen);
    m_state.rom.writeByte(entranceOffset(MiscField::ptrEntranceBlock, m_entrance), block);
}

bool DoorModel::moveMouse(int x, int y, bool leftButtonHeld)
{
    const WindowMemory::Point point{x, y};
    const bool moved = m_state.memory.doorPointer != point;
    m_state.memory.doorPointer = point;
    return leftButtonHeld && moved && placeEntrance(x, y);
}

void DoorModel::moveEntrance(int columns, int rows)
{
    const RoomView::Size room = m_view.room();
    const RoomView::Size region = m_view.region();
    const Entrance old = entrance();
    RoomView::Position corner = old.corner();
    if (old.isSet())
        corner = {corner.x + columns * kBlock, corner.y + rows * kBlock};
    else
        corner = {m_view.scroll().x + region.width / 2, m_view.scroll().y + region.height / 2};
    corner.x = std::clamp(corner.x, 0, std::min(room.width, kMostColumns * kScreenWidth) - kBlock);
    corner.y = std::clamp(corner.y, 0, std::min(room.height, kMostRows * kScreenHeight) - kBlock);
    storeEntrance(static_cast<std::uint32_t>(corner.x), static_cast<std::uint32_t>(corner.y));
    if (!isInView(corner))
        centreOn(corner);
}

std::uint8_t DoorModel::exitRoom() const
{
    return m_state.rom.readByte(exitOffset(MiscField::ptrExitRoom));
}

std::uint8_t DoorModel::exitEntrance() const
{
    return m_state.rom.readByte(exitOffset(MiscField::ptrExitEntrance));
}

void DoorModel::setExitRoom(std::uint8_t room)
{
    m_state.rom.writeByte(exitOffset(MiscField::ptrExitRoom), room);
}

void DoorModel::setExitEntrance(std::uint8_t slot)
{
    m_state.rom.writeByte(exitOffset(MiscField::ptrExitEntrance), slot);
}

void DoorModel::draw(PixelImage& picture)
{
    const auto fit = [](PixelImage& image, RoomView::Size size) {
        const auto width = static_cast<std::uint32_t>(size.width);
        const auto height = static_cast<std::uint32_t>(size.height);
        if (image.width() != width || image.height() != height)
            image.allocate(height, width);
    };
    fit(m_region, m_view.region());
    fit(picture, kDisplay);
    m_state.renderer.renderRoomRegion(m_region, static_cast<std::uint32_t>(m_view.scroll().x),
                                      static_cast<std::uint32_t>(m_view.scroll().y),
                                      m_state.backgroundColour);
    drawDoors(m_region);
    copyScaled(picture, m_region);
}

void DoorModel::drawDoors(PixelImage& region) const
{
    const RoomView::Position scroll = m_view.scroll();
    const std::uint32_t slots =
        std::min(m_state.config.value(MiscField::roomEntrances),
                 static_cast<std::uint32_t>(m_state.resources.doorBitmaps.size()));
    for (std::uint32_t slot = 0; slot < slots; ++slot) {
        const Entrance entrance = entranceOf(slot);
        if (!entrance.isSet() || !isInView(entrance.corner()))
            continue;
        blit(region, m_state.resources.doorBitmaps[slot], entrance.corner().x - scroll.x,
             entrance.corner().y - scroll.y);
    }
}

std::uint32_t DoorModel::entranceOffset(MiscField table, std::uint32_t slot) const
{
    return m_state.config.value(table)
        + m_state.currentRoom() * m_state.config.value(MiscField::roomEntrances) + slot;
}

std::uint32_t DoorModel::exitOffset(MiscField table) const
{
    return m_state.config.value(table)
        + m_state.currentRoom() * m_state.config.value(MiscField::roomExits) + m_exit;
}

} // namespace velko
