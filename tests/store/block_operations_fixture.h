#pragma once

#include "store/block_operations.h"
#include "tests/store/small_region.h"
#include "tests/support/scripted_prompt.h"

#include <gtest/gtest.h>

namespace velko::test {

// Layouts, whose table entries tell the blocks' sizes:
//
//     $8000 10 11 12 | $8003 20 21 22 23 24 25 | $8009 30 31 32 33 | $800D 00 .. $801F
//     room 0, 3 x 1    rooms 1 and 3, 3 x 2      room 2, 4 x 1       free: 19 bytes
class LayoutOperationsTest : public testing::Test, protected SmallRegion {
protected:
    LayoutOperationsTest() : SmallRegion(4, 4, 0x8020)
    {
        setPointers({0x8000, 0x8003, 0x8009, 0x8003});
        setSize(0, 3, 1);
        setSize(1, 3, 2);
        setSize(2, 4, 1);
        setSize(3, 3, 2);
        setBytes(0x8000,
                 {0x10, 0x11, 0x12, 0x20, 0x21, 0x22, 0x23, 0x24, 0x25, 0x30, 0x31, 0x32, 0x33});
        setBytes(0x800D, Bytes(19));
        handler.setFreeSpace(19);
    }

    test::ScriptedPrompt prompt;
    BlockOperations operations{handler, blockKind(RoomDataKind::kMapLayout), prompt};
};

// Palettes, blocks of 32 bytes, each of one value:
//
//     $8000 room 0 (A0) | $8020 room 1 (B0) | $8040 room 2 (C0) | $8060 free .. $807F
class PaletteOperationsTest : public testing::Test, protected SmallRegion {
protected:
    PaletteOperationsTest() : SmallRegion(3, 2, 0x8080)
    {
        setPointers({0x8000, 0x8020, 0x8040});
        setBytes(0x8000, Bytes(32, 0xA0));
        setBytes(0x8020, Bytes(32, 0xB0));
        setBytes(0x8040, Bytes(32, 0xC0));
        setBytes(0x8060, Bytes(32));
        handler.setFreeSpace(32);
    }

    test::ScriptedPrompt prompt;
    BlockOperations operations{handler, blockKind(RoomDataKind::kPalette), prompt};
};

} // namespace velko::test
