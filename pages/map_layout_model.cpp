#include "pages/map_layout_model.h"

#include "pages/screen_list.h"
#include "rom/number_text.h"
#include "store/block_lengths.h"

#include <algorithm>

namespace velko {

namespace {

constexpr std::uint32_t kBorderColumns = 2;

// The pair of rooms of the game that share one map.
constexpr std::uint32_t kRoomInside = 0x6E;
constexpr std::uint32_t kPartnerRoom = 0x48;

// `index` moved by `distance` around `count` places.
std::uint32_t wrapped(std::uint32_t index, int distance, std::uint32_t count)
{
    const std::int64_t n = count;
    return static_cast<std::uint32_t>(((index + std::int64_t{distance}) % n + n) % n);
}

} // namespace

MapLayoutModel::MapLayoutModel(EditorState& state) : m_state(state) { }

MapLayoutModel::StoredSize MapLayoutModel::storedSize(std::uint32_t room) const
{
    return {layouts().entryByte(kMapWidthByte, room), layouts().entryByte(kMapHeightByte, room)};
}

void MapLayoutModel::setStoredSize(std::uint32_t room, StoredSize size)
{
    layouts().setEntryByte(kMapWidthByte, size.width, room);
    layouts().setEntryByte(kMapHeightByte, size.height, room);
}

bool MapLayoutModel::hasMap() const
{
    return storedSize() != StoredSize{};
}

std::string_view MapLayoutModel::noMapText()
{
    return "This Room has no Map Layout data. (Height and Width are both 0). If you want to use "
           "this Room Id, please go to Data Management and use the \"Allocate unique data\" "
           "function under the \"Map layout\" category.";
}

std::uint32_t MapLayoutModel::columns() const
{
    return hasMap() ? m_state.renderer.roomSize(layouts().currentRoom()).columns : 0;
}

std::uint32_t MapLayoutModel::rows() const
{
    return hasMap() ? m_state.renderer.roomSize(layouts().currentRoom()).rows : 0;
}

std::string MapLayoutModel::widthText() const
{
    return hexText(columns());
}

std::string MapLayoutModel::heightText() const
{
    return hexText(rows());
}

std::uint32_t MapLayoutModel::offsetOf(MapCell cell) const
{
    return cell.row * storedSize().width + cell.column + 1;
}

std::uint8_t MapLayoutModel::cellValue(MapCell cell) const
{
    return m_state.renderer.layoutCell(cell.row, cell.column);
}

std::uint32_t MapLayoutModel::screenCount() const
{
    return m_state.renderer.screenCount(layouts().currentRoom());
}

MapCell MapLayoutModel::selectedCell() const
{
    if (!hasMap())
        return {};
    return {std::min(m_selected.row, rows() - 1), std::min(m_selected.column, columns() - 1)};
}

void MapLayoutModel::selectCell(MapCell cell)
{
    m_selected = cell;
    m_selected = selectedCell();
}

std::optional<std::uint8_t> MapLayoutModel::selectedScreen() const
{
    const std::uint8_t value = cellValue(selectedCell());
    return hasMap() && value < screenCount() ? std::optional(value) : std::nullopt;
}

void MapLayoutModel::drawSelectedScreen(PixelImage& image) const
{
    if (const std::optional<std::uint8_t> screen = selectedScreen()) {
        drawScreenPreview(m_state, m_state.renderer.screenAddress(*screen), image);
    } else {
        image.allocate(kScreenHeight, kScreenWidth);
        fill(image, kInvalidCellColour);
    }
}

void MapLayoutModel::assignScreen(int position)
{
    const std::uint32_t offset = offsetOf(selectedCell());
    if (position >= 0 && position <= 0xFF && offset < storedSize().bytes())
        layouts().setDataByte(offset, static_cast<std::uint8_t>(position));
}

bool MapLayoutModel::partnerSizeDiffers() const
{
    const PointerArrayHandler& maps = layouts();
    return maps.currentRoom() == kRoomInside && maps.pointerOf() == maps.pointerOf(kPartnerRoom)
        && storedSize() != storedSize(kPartnerRoom);
}

std::string_view MapLayoutModel::partnerQuestion()
{
    return "This Room Id points to the same data as \"Id 48: Area 2 Indoor\", but has different "
           "Height and Width, so changing those here will corrupt that Room's layout data. Do you "
           "want to fix the Room size to be synchronized with Id 48? (Once you do, this message "
           "won't appear anymore).";
}

void MapLayoutModel::takePartnerSize()
{
    setStoredSize(kRoomInside, storedSize(kPartnerRoom));
}

std::vector<std::uint32_t> MapLayoutModel::synchronisedRooms() const
{
    const PointerArrayHandler& maps = layouts();
    std::vector<std::uint32_t> rooms;
    for (std::uint32_t room = 0; room < m_state.config.roomCount(); ++room) {
        if (room != maps.currentRoom() && maps.pointerOf(room) == maps.pointerOf()
            && storedSize(room) == storedSize())
            rooms.push_back(room);
    }
    return rooms;
}

std::string MapLayoutModel::synchronisedRoomsText() const
{
    std::string text;
    for (const std::uint32_t room : synchronisedRooms())
        text += (text.empty() ? "" : ", ") + hexText(room);
    return text;
}

void MapLayoutModel::moveMap(int rowsDown, int columnsRight)
{
    const StoredSize size = storedSize();
    if (size.width < kSmallestWidth)
        return;
    std::vector<std::uint8_t> old(size.bytes());
    for (std::uint32_t i = 0; i < old.size(); ++i)
        old[i] = layouts().dataByte(i);
    const std::uint32_t inner = size.width - kBorderColumns;
    for (std::uint32_t row = 0; row < size.height; ++row) {
        for (std::uint32_t column = 0; column < inner; ++column) {
            const std::uint32_t target = wrapped(row, rowsDown, size.height) * size.width
                + wrapped(column, columnsRight, inner) + 1;
            layouts().setDataByte(target, old[row * size.width + column + 1]);
        }
    }
}

} // namespace velko
