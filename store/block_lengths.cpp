#include "store/block_lengths.h"

namespace velko {

std::uint32_t mapAllocLength(const PointerArrayHandler& mapAlloc, std::uint32_t room)
{
    // The byte offset is bounded here, the number of words in mapAllocWords().
    std::uint32_t offset = 0;
    while (offset < kLongestScreenListBytes && mapAlloc.dataWord(offset, room) != kScreenListEnd)
        offset += 2;
    return offset + 2;
}

std::uint32_t mapLayoutLength(const PointerArrayHandler& mapLayout, std::uint32_t room)
{
    return std::uint32_t{mapLayout.entryByte(kMapWidthByte, room)}
    * mapLayout.entryByte(kMapHeightByte, room);
}

std::uint32_t mapAllocWords(const PointerArrayHandler& mapAlloc, std::uint32_t room)
{
    std::uint32_t words = 0;
    while (words < kLongestScreenList && mapAlloc.dataWord(2 * words, room) != kScreenListEnd)
        ++words;
    return words;
}

} // namespace velko
