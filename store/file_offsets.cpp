#include "store/file_offsets.h"

#include "store/block_lengths.h"

#include <algorithm>

namespace velko {

namespace {

constexpr std::uint32_t kPointerBytes = 2;
constexpr std::uint32_t kSizedEntryBytes = kMapHeightByte + 1;

} // namespace

FileOffsets neighbours(std::uint32_t first, std::uint32_t count)
{
    FileOffsets offsets(count);
    for (std::uint32_t& offset : offsets)
        offset = first++;
    return offsets;
}

FileOffsets entryOffsets(const PointerArrayHandler& handler, std::uint32_t room)
{
    return neighbours(handler.entryFileOffset(room),
                      std::clamp(handler.descriptor().pointerPad, kPointerBytes, kSizedEntryBytes));
}

FileOffsets blockOffsets(const PointerArrayHandler& handler, std::uint32_t room,
                         std::uint32_t count)
{
    FileOffsets offsets;
    for (std::uint32_t i = 0; i < count; ++i)
        offsets.push_back(handler.dataFileOffset(handler.pointerOf(room, i)));
    return offsets;
}

bool liesInFile(const RomImage& rom, std::span<const std::uint32_t> offsets)
{
    return std::ranges::all_of(offsets, [&](std::uint32_t offset) { return offset < rom.size(); });
}

bool entryLiesInFile(const RomImage& rom, const PointerArrayHandler& handler, std::uint32_t room)
{
    return liesInFile(rom, entryOffsets(handler, room));
}

// Bank by bank, as a damaged list may be 64 KB long.
bool blockLiesInFile(const RomImage& rom, const PointerArrayHandler& handler,
                     std::uint16_t cpuAddress, std::uint32_t length)
{
    for (std::uint32_t done = 0; done < length;) {
        const auto address = static_cast<std::uint16_t>((cpuAddress + done) & 0xFFFF);
        const std::uint32_t run = std::min(length - done, kBankSize - address % kBankSize);
        if (handler.dataFileOffset(address) + run > rom.size())
            return false;
        done += run;
    }
    return true;
}

} // namespace velko
