#include "rom/game_config.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

TEST(GameConfig, EverythingStartsAtZeroButTheStride)
{
    const GameConfig config;
    EXPECT_EQ(config.pahUnit.pointerPad, 2U);
    EXPECT_EQ(config.pahMapAreaMovement.pointerPad, 2U);
    EXPECT_EQ(config.pahUnit.dBank, (BankPair{0, 0}));
    EXPECT_EQ(config.pahUnit.pBank, 0);
    EXPECT_EQ(config.pahUnit.pMemStart, 0);
    EXPECT_EQ(config.pahUnit.pMemEdge, 0);
    EXPECT_EQ(config.pahUnit.dEdge, 0);
    EXPECT_EQ(config.phSprite, (BankPair{0, 0}));
    EXPECT_EQ(config.unitSpriteReg, (std::array<std::uint8_t, 256>{}));
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
