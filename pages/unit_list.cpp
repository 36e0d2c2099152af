#include "pages/unit_list.h"

#include "gfx/room_renderer.h"
#include "rom/number_text.h"

#include <array>

namespace velko {

namespace {

using RecordBytes = std::array<std::uint8_t, UnitRecord::kBytes>;

RecordBytes bytesOf(const UnitRecord& record)
{
    return {record.type, record.pixelX, record.column, record.pixelY, record.screenY};
}

std::string typeName(std::uint8_t type, const NameLists& names)
{
    return type < names.units.size() ? names.units[type] : hexText(type) + " : ?? ";
}

} // namespace

RoomView::Position UnitRecord::position() const
{
    return {(column - 1) * kScreenWidth + pixelX, screenY * kScreenHeight + pixelY + 1};
}

void UnitRecord::putAt(RoomView::Position position)
{
    pixelX = static_cast<std::uint8_t>(position.x & 0xFF);
    column = static_cast<std::uint8_t>(((position.x >> 8) & 0xFF) + 1);
    pixelY = static_cast<std::uint8_t>(position.y % kScreenHeight);
    screenY = static_cast<std::uint8_t>(position.y / kScreenHeight);
}

std::uint32_t UnitList::count() const
{
    std::uint32_t units = 0;
    while (units < kMostUnits && m_units.dataByte(units * UnitRecord::kBytes) != kEnd)
        ++units;
    return units;
}

std::vector<UnitRecord> UnitList::records() const
{
    std::vector<UnitRecord> records(count());
    for (std::uint32_t i = 0; i < records.size(); ++i)
        records[i] = record(i);
    return records;
}

UnitRecord UnitList::record(std::uint32_t index) const
{
    const auto byte = [&](std::uint32_t offset) {
        return m_units.dataByte(index * UnitRecord::kBytes + offset);
    };
    return {byte(0), byte(1), byte(2), byte(3), byte(4)};
}

void UnitList::setRecord(std::uint32_t index, const UnitRecord& record)
{
    std::uint32_t offset = index * UnitRecord::kBytes;
    for (const std::uint8_t byte : bytesOf(record))
        m_units.setDataByte(offset++, byte);
}

EditResult UnitList::insert(std::uint32_t index, const UnitRecord& record)
{
    return m_units.insertBytes(index * UnitRecord::kBytes, bytesOf(record));
}

EditResult UnitList::remove(std::uint32_t index)
{
    return m_units.deleteBytes(index * UnitRecord::kBytes, UnitRecord::kBytes);
}

std::vector<std::string> UnitList::lines(const NameLists& names) const
{
    std::vector<std::string> lines;
    for (const UnitRecord& unit : records())
        lines.push_back(decimalText(static_cast<std::uint32_t>(lines.size())) + " : "
                        + typeName(unit.type, names));
    return lines;
}

} // namespace velko
