// Rows and columns of a room's map.

#include "pages/map_layout_model.h"

namespace velko {

MapLayoutModel::ResizeResult MapLayoutModel::growHeight()
{
    const StoredSize size = storedSize();
    if (!hasMap())
        return ResizeResult::kNothing;
    if (size.height == kLargestSize)
        return ResizeResult::kAtLimit;
    if (layouts().freeSpace() < size.width)
        return ResizeResult::kNoFreeSpace;
    const std::vector<std::uint8_t> row(size.width);
    return resize({size.width, static_cast<std::uint8_t>(size.height + 1)},
                  [&] { static_cast<void>(layouts().insertBytes(size.bytes(), row)); });
}

MapLayoutModel::ResizeResult MapLayoutModel::shrinkHeight()
{
    const StoredSize size = storedSize();
    if (!hasMap() || size.height <= 1 || !canDelete(1))
        return ResizeResult::kNothing;
    const std::uint32_t bottomRow = size.bytes() - size.width;
    return resize({size.width, static_cast<std::uint8_t>(size.height - 1)},
                  [&] { static_cast<void>(layouts().deleteBytes(bottomRow, size.width)); });
}

MapLayoutModel::ResizeResult MapLayoutModel::growWidth()
{
    const StoredSize size = storedSize();
    if (!hasMap())
        return ResizeResult::kNothing;
    if (size.width == kLargestSize)
        return ResizeResult::kAtLimit;
    if (layouts().freeSpace() < size.height)
        return ResizeResult::kNoFreeSpace;
    // Left of the right border, which a row of no bytes does not have: it grows from its start.
    const std::uint32_t place = size.width == 0 ? 0 : size.width - 1U;
    return resize({static_cast<std::uint8_t>(size.width + 1), size.height}, [&] {
        for (std::uint32_t row = 0; row < size.height; ++row)
            static_cast<void>(layouts().insertByte(row * (size.width + 1U) + place, 0));
    });
}

MapLayoutModel::ResizeResult MapLayoutModel::shrinkWidth()
{
    const StoredSize size = storedSize();
    if (size.width <= kSmallestWidth || !canDelete(size.height))
        return ResizeResult::kNothing;
    return resize({static_cast<std::uint8_t>(size.width - 1), size.height}, [&] {
        for (std::uint32_t row = 0; row < size.height; ++row)
            static_cast<void>(layouts().deleteBytes(row * (size.width - 1U) + size.width - 2U, 1));
    });
}

template <typename Change>
MapLayoutModel::ResizeResult MapLayoutModel::resize(StoredSize newSize, Change changeBlock)
{
    // Who they are is told by the size as it was.
    std::vector<std::uint32_t> rooms = synchronisedRooms();
    rooms.push_back(layouts().currentRoom());
    changeBlock();
    for (const std::uint32_t room : rooms)
        setStoredSize(room, newSize);
    return ResizeResult::kDone;
}

// False when one of so many deletions of a byte, or the first of any size, would be refused: on
// its way up, the free space of an overfull region may become the very number that stands for
// "not known". Half a map must not be narrowed.
bool MapLayoutModel::canDelete(std::uint32_t deletions) const
{
    const std::int64_t freeSpace = layouts().freeSpace();
    return freeSpace > PointerArrayHandler::kFreeSpaceUnknown
        || freeSpace + std::int64_t{deletions} <= PointerArrayHandler::kFreeSpaceUnknown;
}

std::string_view MapLayoutModel::message(ResizeResult result)
{
    switch (result) {
    case ResizeResult::kAtLimit:
        return "Yup. This is as far as it goes.";
    case ResizeResult::kNoFreeSpace:
        return "Not enough free space in the Map Layout data.";
    case ResizeResult::kDone:
    case ResizeResult::kNothing:
        break;
    }
    return {};
}

} // namespace velko
