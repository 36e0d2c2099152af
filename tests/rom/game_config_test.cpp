#include "rom/game_config.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

TEST(GameConfig, EverythingStartsAtZeroButTheStride)
{
    const GameConfig config;
    EXPECT_EQ(config.unitSpriteReg, (std::array<std::uint8_t, 256>{}));
    EXPECT_EQ(config.unitSpriteAddress, (std::array<std::uint16_t, 144>{}));
    EXPECT_EQ(config.gameMapTileChunks, (std::array<std::uint8_t, 1024>{}));
    EXPECT_EQ(config.itemInGameSpriteAddress, (std::array<std::uint16_t, 26>{}));
    for (const PointerArrayDescriptor& handler :
         {config.pahMapAlloc, config.pahTileLoad, config.pahPal, config.pahMapLayout,
          config.pahTile32, config.pahUnit, config.pahTileLoadType2, config.pahMapAreaMovement}) {
        EXPECT_EQ(handler.dBank, (BankPair{0, 0}));
        EXPECT_EQ(handler.pBank, 0);
        EXPECT_EQ(handler.pMemStart, 0);
        EXPECT_EQ(handler.pMemEdge, 0);
        EXPECT_EQ(handler.dEdge, 0);
        EXPECT_EQ(handler.pointerPad, 2U);
    }
    EXPECT_EQ(config.phSprite, (BankPair{0, 0}));
    EXPECT_EQ(config.phMapScreenData, (BankPair{0, 0}));
    EXPECT_EQ(config.misc, (std::array<std::uint32_t, 36>{}));
}

TEST(GameConfig, RoomCountIsAtMost256)
{
    GameConfig config;
    EXPECT_EQ(config.roomCount(), 0U);
    config.setValue(MiscField::rooms, 111);
    EXPECT_EQ(config.roomCount(), 111U);
    config.setValue(MiscField::rooms, 256);
    EXPECT_EQ(config.roomCount(), 256U);
    config.setValue(MiscField::rooms, 257);
    EXPECT_EQ(config.roomCount(), 256U);
    config.setValue(MiscField::rooms, 0xFFFFFFFF);
    EXPECT_EQ(config.roomCount(), 256U);
}

} // namespace
} // namespace velko
