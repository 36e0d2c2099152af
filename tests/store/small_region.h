#pragma once

#include "store/block_lengths.h"
#include "store/pointer_array_handler.h"

#include <cstdint>
#include <initializer_list>
#include <vector>

namespace velko::test {

// A table at $8000 of bank 0 and a data region at $8000 of bank 1, filled with $EE, whose free
// space is unknown until a test sets it.
class SmallRegion {
public:
    using Bytes = std::vector<std::uint8_t>;
    using Pointers = std::vector<std::uint16_t>;

    explicit SmallRegion(std::uint32_t rooms, std::uint32_t pointerPad, std::uint16_t edge)
    {
        rom.setBytes(Bytes(kHeaderSize + 3 * kBankSize, 0xEE));
        handler.setDescriptor({.dBank = {1, 2},
                               .pBank = 0,
                               .pMemStart = 0x8000,
                               .pMemEdge = static_cast<std::uint16_t>(0x8000 + rooms * pointerPad),
                               .dEdge = edge,
                               .pointerPad = pointerPad});
    }

    RomImage rom;
    PointerArrayHandler handler{rom};

    void setPointers(const Pointers& pointers)
    {
        for (std::uint32_t room = 0; room < pointers.size(); ++room)
            handler.setPointer(room, pointers[room]);
    }
    // The pointers of all entries.
    Pointers pointers() const
    {
        Pointers all;
        for (int room = 0; room < handler.entryCount(); ++room)
            all.push_back(handler.pointerOf(static_cast<std::uint32_t>(room)));
        return all;
    }
    void setSize(std::uint32_t room, std::uint8_t width, std::uint8_t height)
    {
        handler.setEntryByte(kMapWidthByte, width, room);
        handler.setEntryByte(kMapHeightByte, height, room);
    }
    // Width and height of a room.
    Bytes size(std::uint32_t room) const
    {
        return {handler.entryByte(kMapWidthByte, room), handler.entryByte(kMapHeightByte, room)};
    }
    void setBytes(std::uint16_t cpuAddress, const Bytes& values)
    {
        for (std::uint32_t i = 0; i < values.size(); ++i)
            rom.writeByte(handler.dataFileOffset(cpuAddress) + i, values[i]);
    }
    Bytes bytes(std::uint16_t cpuAddress, std::uint32_t count) const
    {
        Bytes values;
        for (std::uint32_t i = 0; i < count; ++i)
            values.push_back(rom.readByte(handler.dataFileOffset(cpuAddress) + i));
        return values;
    }
    Bytes image() const { return Bytes(rom.bytes().begin(), rom.bytes().end()); }
};

} // namespace velko::test
