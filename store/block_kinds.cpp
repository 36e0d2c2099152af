#include "store/block_kinds.h"

#include "store/block_lengths.h"

namespace velko {

namespace {

template <std::uint32_t bytes> std::uint32_t fixedLength(const PointerArrayHandler&, std::uint32_t)
{
    return bytes;
}

constexpr std::array<std::uint8_t, kPaletteLength> kNewPalette = {
    0x0F, 0x30, 0x10, 0x00, 0x0F, 0x30, 0x10, 0x00, 0x0F, 0x30, 0x10, 0x00, 0x0F, 0x30, 0x10, 0x00,
    0x0F, 0x36, 0x06, 0x0F, 0x0F, 0x20, 0x2A, 0x0F, 0x0F, 0x36, 0x15, 0x0F, 0x0F, 0x30, 0x21, 0x0F};

} // namespace

const std::array<BlockKind, kRoomDataKinds> kBlockKinds = {{
    {RoomDataKind::kMapAlloc, &RoomDataStore::pahMapAlloc, mapAllocLength, false},
    {RoomDataKind::kMapLayout, &RoomDataStore::pahMapLayout, mapLayoutLength, true},
    {RoomDataKind::kTile32, &RoomDataStore::pahTile32, fixedLength<kTile32Length>, false},
    {RoomDataKind::kTileLoad, &RoomDataStore::pahTileLoad, fixedLength<kTileLoadLength>, false},
    {RoomDataKind::kPalette, &RoomDataStore::pahPal, fixedLength<kPaletteLength>, false},
}};

std::vector<std::uint8_t> newBlock(RoomDataKind kind, std::uint32_t screenAreaStart)
{
    switch (kind) {
    case RoomDataKind::kMapAlloc:
        return {static_cast<std::uint8_t>(screenAreaStart & 0xFF),
                static_cast<std::uint8_t>((screenAreaStart >> 8) & 0xFF), 0xFF, 0xFF};
    case RoomDataKind::kMapLayout:
        return std::vector<std::uint8_t>(kNewLayoutWidth * kNewLayoutHeight);
    case RoomDataKind::kTile32:
        return std::vector<std::uint8_t>(kTile32Length);
    case RoomDataKind::kTileLoad:
        return std::vector<std::uint8_t>(kTileLoadLength);
    case RoomDataKind::kPalette:
        break;
    }
    return {kNewPalette.begin(), kNewPalette.end()};
}

} // namespace velko
