#include "tests/demo/demo_game.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <gmock/gmock.h>
#include <set>

namespace velko::test {
namespace {

using ::testing::Contains;
using ::testing::Not;

constexpr std::uint32_t kViewSize = 48;
constexpr std::uint32_t kThumbnailSize = 64;
constexpr Pixel kUntouched = 0xABCDEF; // no colour of the game
constexpr Pixel kBackground = 0x123456;

// The demo's ROM, cut off at any byte: whatever lies past the cut reads as filler, and every room
// can still be chosen and drawn.
class CutRom : public DemoGame {
protected:
    CutRom() : whole(state.rom.bytes().begin(), state.rom.bytes().end()) { }

    void cutAt(std::uint32_t size)
    {
        ASSERT_LE(size, whole.size());
        state.rom.setBytes(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
        state.prepareRoomData();
        ASSERT_EQ(state.rom.size(), size);
    }

    // Draws a view of the room and its thumbnail; each covers its whole image.
    void drawRoom(std::uint8_t room)
    {
        SCOPED_TRACE(int{room});
        state.graphics.selectRoom(room);
        PixelImage view(kViewSize, kViewSize, kUntouched);
        state.renderer.renderRoomRegion(view, 5, 230, kBackground);
        EXPECT_THAT(view.pixels(), Not(Contains(kUntouched)));
        PixelImage thumbnail(kThumbnailSize, kThumbnailSize, kUntouched);
        state.renderer.renderRoomThumbnail(room, thumbnail, "cut", kBackground);
        EXPECT_THAT(thumbnail.pixels(), Not(Contains(kUntouched)));
    }
    void drawSomeRooms()
    {
        for (const std::uint8_t room : std::array<std::uint8_t, 3>{0, 55, 110})
            drawRoom(room);
    }
    void expectCutIsSurvived(std::uint32_t size)
    {
        SCOPED_TRACE(size);
        cutAt(size);
        drawSomeRooms();
    }

    const Bytes whole;
};

TEST_F(CutRom, InOrBehindTheHeader)
{
    for (const std::uint32_t size : {0U, 1U, 15U, 16U, 17U})
        expectCutIsSurvived(size);
}

TEST_F(CutRom, AtEveryBankEdge)
{
    for (std::uint32_t bank = 1; bank <= 16; ++bank) {
        const std::uint32_t edge = 16 + bank * 0x4000;
        for (const std::uint32_t size : {edge - 1, edge, edge + 1}) {
            if (size <= whole.size())
                expectCutIsSurvived(size);
        }
    }
}

TEST_F(CutRom, InsideTablesBlocksAndScreens)
{
    std::set<std::uint32_t> cuts;
    for (const PointerArrayHandler* handler : state.store.levelHandlers()) {
        for (const std::uint32_t room : {0U, 55U}) {
            cuts.insert(handler->entryFileOffset(room) + 1); // between a pointer's two bytes
            cuts.insert(handler->dataFileOffset(handler->pointerOf(room)) + 1);
        }
    }
    const std::uint16_t screen = state.store.pahMapAlloc.dataWord(0, 55);
    cuts.insert(state.renderer.screenFileOffset(screen) + 33);
    EXPECT_GT(cuts.size(), 20U);
    for (const std::uint32_t cut : cuts)
        expectCutIsSurvived(cut);
}

TEST_F(CutRom, EveryRoomWithoutDataAndWithHalfOfIt)
{
    for (const std::uint32_t size : {17U, 16U + 8U * 0x4000U}) {
        SCOPED_TRACE(size);
        cutAt(size);
        for (std::uint32_t room = 0; room < kDemoRooms; ++room)
            drawRoom(static_cast<std::uint8_t>(room));
    }
}

TEST_F(CutRom, WithoutDataOnlyFillerIsDrawn)
{
    cutAt(16);
    state.graphics.selectRoom(0);
    // Everything reads as $55. The attribute nibble 5 asks for bank 1, mirrored: rows of $AA.
    EXPECT_EQ(state.graphics.patternMemory[kPatternTable1], 0xAA);
    EXPECT_EQ(state.graphics.metatileColours(0)[1], state.graphics.colourTable[0x15]);
    EXPECT_EQ(state.renderer.roomSize(0).columns, 0x55U - 2);
    EXPECT_EQ(state.renderer.roomSize(0).rows, 0x55U);
}

} // namespace
} // namespace velko::test
