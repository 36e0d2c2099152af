#include "pages/map_edit_model.h"

#include "pages/map_layout_model.h"
#include "rom/number_text.h"
#include "store/block_lengths.h"

#include <array>

namespace velko {

namespace {

constexpr RoomView::Size kViewRegion = {320, 320};
constexpr RoomView::Size kViewDisplay = {448, 420};
constexpr std::uint32_t kBorderColumns = 2;
constexpr std::uint32_t kCellSize = 16; // pixels

// Well below the limit, so that the warning does not come again and again while the user works
// around it.
constexpr std::uint32_t kWarnAgainBelow = 144;

constexpr std::string_view kLimitStatus = "Tile32 LIMIT EXCEEDED!";
constexpr std::string_view kFirstScreenStatus = "Restricted from editing Screen 0.";
constexpr std::string_view kBadPositionStatus = "Bad Map Allocation index.";

constexpr std::string_view kLimitWarning =
    "Surpassed Tile32 limit while converting. Max is 146. The Room will not look properly in the "
    "ROM until Tile32 usage is lowered to 146 or less. You should try to either make the room "
    "smaller, use a less amount of unique Tiles, or make the room design follow repeated "
    "patterns.";
constexpr std::string_view kLeaveQuestion = "Convert and Write 16x16 Map Data to ROM first?";

constexpr std::array<MapEditHints, 4> kHints = {{
    {"Left button : Select Tile with associated Palette and Physics.",
     "Left button : Modify Tile, Palette and Physics with selected TSA.",
     "Right button : Copy Tile."},
    {"Left button : Select Tile.", "Left button : Modify Tile.", "Right button : Copy Tile."},
    {"Left button : Select Palette.", "Left button : Modify Palette.",
     "Right button : Copy Palette."},
    {"Left button : Select Physics property.", "Left button : Modify Physics property.",
     "Right button : Copy Physics property."},
}};

bool liesInside(RoomView::Position point, RoomView::Size size)
{
    return point.x >= 0 && point.y >= 0 && point.x < size.width && point.y < size.height;
}

} // namespace

const MapEditHints& mapEditHints(MapEditMode mode)
{
    return kHints[static_cast<std::size_t>(mode)];
}

std::optional<std::uint32_t> SelectorGrid::cellAt(RoomView::Position point) const
{
    if (!liesInside(point, display))
        return std::nullopt;
    const auto row =
        static_cast<std::uint32_t>(point.y) * rows / static_cast<std::uint32_t>(display.height);
    const auto column =
        static_cast<std::uint32_t>(point.x) * columns / static_cast<std::uint32_t>(display.width);
    return row * columns + column;
}

MapEditModel::MapEditModel(EditorState& state, UserPrompt& prompt)
    : m_state(state), m_prompt(prompt), m_view(kViewRegion, kViewDisplay)
{
}

std::string_view MapEditModel::noMapText()
{
    return MapLayoutModel::noMapText();
}

void MapEditModel::refresh()
{
    m_modified = false;
    m_status = {};
    readLayout();
    m_view.showRoom({m_width, m_height});
    m_screens.clear();
    m_packing = Tile32Packer();
    m_numbers.clear();
    if (hasMap()) {
        m_screens.decode(m_state);
        pack();
    }
}

void MapEditModel::readLayout()
{
    const PointerArrayHandler& layouts = m_state.store.pahMapLayout;
    const std::uint32_t storedWidth = layouts.entryByte(kMapWidthByte);
    m_width = storedWidth > kBorderColumns ? storedWidth - kBorderColumns : 0;
    m_height = layouts.entryByte(kMapHeightByte);
    if (!hasMap())
        m_width = m_height = 0;
    m_layout.clear();
    for (std::uint32_t row = 0; row < m_height; ++row) {
        for (std::uint32_t column = 0; column < m_width; ++column)
            m_layout.push_back(m_state.renderer.layoutCell(row, column));
    }
}

bool MapEditModel::leave()
{
    if (!m_modified)
        return false;
    const bool keeps = m_prompt.askYesNo(kLeaveQuestion);
    if (keeps)
        convertAndWrite();
    m_modified = false;
    return !keeps;
}

std::vector<std::string> MapEditModel::sharedRoomNames() const
{
    const std::vector<std::string>& names = m_state.names.rooms;
    std::vector<std::string> shared;
    for (const std::uint32_t room : m_screens.sharedRooms())
        shared.push_back(room < names.size() ? names[room] : std::string());
    return shared;
}

void MapEditModel::selectBlockAt(Point point)
{
    if (const auto cell = kTileSelector.cellAt(point)) {
        m_block = *cell;
        m_palette = m_screens.tsa()[m_block].palette;
        m_physics = m_screens.tsa()[m_block].physics;
    }
}

void MapEditModel::selectPaletteAt(Point point)
{
    if (const auto cell = kPaletteSelector.cellAt(point))
        m_palette = static_cast<std::uint8_t>(*cell);
}

void MapEditModel::selectPhysicsAt(Point point)
{
    const auto cell = kPhysicsSelector.cellAt(point);
    if (cell && m_mode == MapEditMode::kPhysics)
        m_physics = static_cast<std::uint8_t>(*cell);
}

std::optional<MapEditModel::Cell> MapEditModel::cellAt(Point point) const
{
    const RoomView::Size shown = m_view.display();
    if (!hasMap() || !liesInside(point, shown))
        return std::nullopt;
    const RoomView::Size region = m_view.region();
    const RoomView::Position scroll = m_view.scroll();
    const auto x = static_cast<std::uint32_t>(point.x * region.width / shown.width + scroll.x);
    const auto y = static_cast<std::uint32_t>(point.y * region.height / shown.height + scroll.y);
    const std::uint32_t row = y % kScreenHeight / kCellSize;
    const std::uint32_t column = x % kScreenWidth / kCellSize;
    return Cell{m_layout[y / kScreenHeight * m_width + x / kScreenWidth],
                row * kScreenColumns + column};
}

MetatileCell MapEditModel::painted(MetatileCell cell) const
{
    const bool everything = m_mode == MapEditMode::kTileCombined;
    if (everything || m_mode == MapEditMode::kTile)
        cell.metatile = static_cast<std::uint8_t>(4 * m_block);
    if (everything || m_mode == MapEditMode::kPalette)
        cell.palette = m_palette;
    if (everything || m_mode == MapEditMode::kPhysics)
        cell.physics = m_physics;
    return cell;
}

void MapEditModel::applyLeft(Point point)
{
    const std::optional<Cell> cell = cellAt(point);
    if (!cell)
        return;
    const bool exists = cell->position < m_screens.count();
    const MetatileCell old =
        exists ? m_screens.at(cell->position).cell(cell->index) : MetatileCell{};
    setCell(cell->position, cell->index, painted(old));
}

bool MapEditModel::setCell(std::uint32_t position, std::size_t cell, const MetatileCell& value)
{
    if (position == 0 || position >= m_screens.count()) {
        m_status = position == 0 ? kFirstScreenStatus : kBadPositionStatus;
        return false;
    }
    m_screens.setCell(position, cell, value);
    m_modified = true;
    pack();
    return true;
}

void MapEditModel::applyRight(Point point)
{
    const std::optional<Cell> cell = cellAt(point);
    if (!cell)
        return;
    if (cell->position >= m_screens.count()) {
        m_status = kBadPositionStatus;
        return;
    }
    const MetatileCell value = m_screens.at(cell->position).cell(cell->index);
    const bool everything = m_mode == MapEditMode::kTileCombined;
    if (everything || m_mode == MapEditMode::kTile)
        m_block = value.metatile / 4U;
    if (everything || m_mode == MapEditMode::kPalette)
        m_palette = value.palette;
    if (everything || m_mode == MapEditMode::kPhysics)
        m_physics = value.physics;
}

void MapEditModel::pack()
{
    m_packing = Tile32Packer();
    m_numbers.clear();
    for (const MapEditScreen& screen : m_screens.all())
        m_numbers.push_back(m_packing.pack(screen.groups));
    m_status = m_packing.limitExceeded() ? kLimitStatus : std::string_view();
    warnOfLimit();
}

void MapEditModel::warnOfLimit()
{
    if (m_packing.limitExceeded()) {
        if (m_state.warnsOfTile32Limit && !m_hasWarned) {
            m_hasWarned = true;
            m_prompt.showMessage(kLimitWarning);
        }
    } else if (m_packing.used() < kWarnAgainBelow) {
        m_hasWarned = false;
    }
}

std::string MapEditModel::usedText() const
{
    return decimalText(m_packing.used());
}

void MapEditModel::convertAndWrite()
{
    if (!hasMap())
        return;
    pack();
    writeSet();
    writeScreens();
    m_modified = false;
}

void MapEditModel::writeSet()
{
    std::uint32_t offset = 0;
    for (const Tile32Group& group : m_packing.set()) {
        for (const std::uint8_t byte : group.record().bytes)
            m_state.store.pahTile32.setDataByte(offset++, byte);
    }
}

void MapEditModel::writeScreens()
{
    const std::span<const MapEditScreen> screens = m_screens.all();
    for (std::size_t i = 0; i < screens.size(); ++i) {
        std::uint32_t fileOffset = m_state.renderer.screenFileOffset(screens[i].address);
        for (const std::uint8_t number : m_numbers[i])
            m_state.rom.writeByte(fileOffset++, number);
    }
}

} // namespace velko
