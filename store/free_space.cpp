#include "store/free_space.h"

#include "store/block_lengths.h"

namespace velko {

namespace {

constexpr std::uint8_t kListEnd = 0xFF;
constexpr std::uint8_t kSmallestWidth = 3; // two border columns and one that shows
constexpr std::uint8_t kSmallestHeight = 1;

template <typename Qualifies>
LastBlock highestPointer(const PointerArrayHandler& handler, std::uint32_t rooms,
                         Qualifies qualifies)
{
    LastBlock best;
    for (std::uint32_t room = 0; room < rooms; ++room) {
        const std::int32_t pointer = handler.pointerOf(room);
        if (pointer > best.pointer && qualifies(room))
            best = {pointer, room};
    }
    return best;
}

} // namespace

LastBlock findLastBlock(const PointerArrayHandler& handler, std::uint32_t rooms)
{
    return highestPointer(handler, rooms, [](std::uint32_t) { return true; });
}

LastBlock findLastMapLayoutBlock(const PointerArrayHandler& mapLayout, std::uint32_t rooms)
{
    return highestPointer(mapLayout, rooms, [&](std::uint32_t room) {
        return mapLayout.entryByte(kMapWidthByte, room) >= kSmallestWidth
            && mapLayout.entryByte(kMapHeightByte, room) >= kSmallestHeight;
    });
}

std::int32_t mapAllocEnd(const PointerArrayHandler& mapAlloc, LastBlock last)
{
    const auto words = static_cast<std::int32_t>(mapAllocWords(mapAlloc, last.room));
    return last.pointer + 2 * words + 2;
}

std::int32_t mapLayoutEnd(const PointerArrayHandler& mapLayout, LastBlock last)
{
    if (last.pointer < 0)
        return last.pointer;
    return last.pointer + static_cast<std::int32_t>(mapLayoutLength(mapLayout, last.room));
}

std::int32_t tileLoadType2End(const PointerArrayHandler& tileLoadType2, LastBlock last)
{
    std::uint32_t bytes = 0;
    while (bytes < kLongestTileLoadType2 && tileLoadType2.dataByte(bytes, last.room) != kListEnd)
        ++bytes;
    return last.pointer + static_cast<std::int32_t>(bytes) + 1;
}

std::int32_t unitEnd(const PointerArrayHandler& units, LastBlock last)
{
    const std::uint32_t length = units.dataByte(0, last.room) == kListEnd ? 1 : 2;
    return units.pointerOf(last.room, length);
}

std::int32_t fixedLengthEnd(LastBlock last, std::uint32_t length)
{
    return last.pointer + static_cast<std::int32_t>(length);
}

} // namespace velko
