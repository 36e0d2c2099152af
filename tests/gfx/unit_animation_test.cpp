#include "gfx/graphics_state.h"
#include "tests/support/test_rom.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

using test::Bytes;
using test::TestCore;
using test::TestRom;

constexpr std::size_t kType = 10;

void step(TestCore& core, int ticks)
{
    for (int i = 0; i < ticks; ++i)
        core.graphics.stepUnitAnimation();
}

// Gives unit type 10 an animated sprite with this script, which starts at $8000.
class UnitAnimationTest : public testing::Test {
protected:
    void setScript(const Bytes& script)
    {
        game.config.unitSpriteReg[kType] = 1;
        game.config.unitSpriteAddress[kType] = game.addSprite(script);
    }

    TestRom game;
};

TEST_F(UnitAnimationTest, ResetTakesTheDelayBehindTheFirstFramesPieces)
{
    setScript({2, 0, 0, 0, 0, 0, 0, 0, 0, 0x85});
    const TestCore core(game);
    EXPECT_EQ(core.graphics.unitAnimation[kType].scriptAddress, 0x8000);
    EXPECT_EQ(core.graphics.unitAnimation[kType].frameOffset, 0);
    EXPECT_EQ(core.graphics.unitAnimation[kType].delay, 5); // without the jump bit
}

TEST_F(UnitAnimationTest, ResetIncludesTypesThatAreNotAnimated)
{
    setScript({0, 7});
    game.config.unitSpriteReg[kType] = 2;
    const TestCore core(game);
    EXPECT_EQ(core.graphics.unitAnimation[kType].delay, 7);
}

TEST_F(UnitAnimationTest, ResetLeavesTheDelayOfTypesWithoutAScript)
{
    TestCore core(game);
    core.graphics.unitAnimation[kType] = {0x1234, 6, 9};
    core.graphics.resetUnitAnimation();
    EXPECT_EQ(core.graphics.unitAnimation[kType].scriptAddress, 0);
    EXPECT_EQ(core.graphics.unitAnimation[kType].frameOffset, 0);
    EXPECT_EQ(core.graphics.unitAnimation[kType].delay, 9);
}

TEST_F(UnitAnimationTest, NextFrameFollowsTheControlByte)
{
    setScript({1, 0, 0, 0, 0, 2, 0, 3, 0, 4});
    TestCore core(game);
    const UnitAnimation& animation = core.graphics.unitAnimation[kType];
    step(core, 1);
    EXPECT_EQ(animation.frameOffset, 0);
    EXPECT_EQ(animation.delay, 1);
    step(core, 1);
    EXPECT_EQ(animation.frameOffset, 6);
    EXPECT_EQ(animation.delay, 3);
    step(core, 3);
    EXPECT_EQ(animation.frameOffset, 8);
    EXPECT_EQ(animation.delay, 4);
    EXPECT_EQ(animation.scriptAddress, 0x8000);
}

TEST_F(UnitAnimationTest, ControlByteWithBit7JumpsToAnotherScript)
{
    setScript({0, 1, 0, 0x81, 0x34, 0x92}); // the second frame is followed by a jump to $9234
    game.write(cpuToFileOffset({test::layout::kSpriteBank, 0}, 0x9234), {1, 0, 0, 0, 0, 9});
    TestCore core(game);
    const UnitAnimation& animation = core.graphics.unitAnimation[kType];
    step(core, 1);
    EXPECT_EQ(animation.frameOffset, 2);
    EXPECT_EQ(animation.delay, 1);
    step(core, 1);
    EXPECT_EQ(animation.scriptAddress, 0x9234);
    EXPECT_EQ(animation.frameOffset, 0);
    EXPECT_EQ(animation.delay, 9);
}

TEST_F(UnitAnimationTest, ScriptMayLoopToItsStart)
{
    setScript({0, 2, 0, 0x82, 0x00, 0x80});
    TestCore core(game);
    const UnitAnimation& animation = core.graphics.unitAnimation[kType];
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(animation.frameOffset, 0);
        step(core, 2);
        EXPECT_EQ(animation.frameOffset, 2);
        step(core, 2);
    }
    EXPECT_EQ(animation.scriptAddress, 0x8000);
}

TEST_F(UnitAnimationTest, ScriptCanJumpToTheOtherWindow)
{
    setScript({0, 0x81, 0x00, 0xC0});
    game.write(cpuToFileOffset({0, test::layout::kFixedBank}, 0xC000), {0, 6});
    TestCore core(game);
    step(core, 1);
    EXPECT_EQ(core.graphics.unitAnimation[kType].scriptAddress, 0xC000);
    EXPECT_EQ(core.graphics.unitAnimation[kType].delay, 6);
}

TEST_F(UnitAnimationTest, OnlySpriteRegister1IsAnimated)
{
    for (const std::uint8_t reg : Bytes{0, 2, 255}) {
        setScript({0, 1, 0, 1});
        game.config.unitSpriteReg[kType] = reg;
        TestCore core(game);
        step(core, 5);
        EXPECT_EQ(core.graphics.unitAnimation[kType].delay, 1) << int{reg};
        EXPECT_EQ(core.graphics.unitAnimation[kType].frameOffset, 0) << int{reg};
    }
}

TEST_F(UnitAnimationTest, LastUnitTypeIsAnimatedToo)
{
    game.config.unitSpriteReg.fill(1); // the table is longer than the list of types
    game.config.unitSpriteAddress.fill(game.addSprite({0, 1, 0, 5}));
    TestCore core(game);
    step(core, 1);
    EXPECT_EQ(core.graphics.unitAnimation[0].frameOffset, 2);
    EXPECT_EQ(core.graphics.unitAnimation[143].frameOffset, 2);
}

TEST_F(UnitAnimationTest, DelayOf0Lasts256Ticks)
{
    setScript({0, 0x00, 0, 4});
    TestCore core(game);
    const UnitAnimation& animation = core.graphics.unitAnimation[kType];
    step(core, 255);
    EXPECT_EQ(animation.delay, 1);
    EXPECT_EQ(animation.frameOffset, 0);
    step(core, 1);
    EXPECT_EQ(animation.frameOffset, 2);
    EXPECT_EQ(animation.delay, 4);
}

TEST_F(UnitAnimationTest, FrameOffsetIsAByteAndWraps)
{
    Bytes script = {70}; // 70 pieces: the next frame is at 282, that is 26
    script.resize(1 + 70 * 4);
    script.push_back(1);
    script[26] = 0;
    script[27] = 8;
    setScript(script);
    TestCore core(game);
    step(core, 1);
    EXPECT_EQ(core.graphics.unitAnimation[kType].frameOffset, 26);
    EXPECT_EQ(core.graphics.unitAnimation[kType].delay, 8);
}

TEST_F(UnitAnimationTest, ControlByteIsReadInTheFilePastTheBank)
{
    // The last two bytes of the sprite bank begin a frame whose control byte is in the next bank.
    game.config.unitSpriteReg[kType] = 1;
    game.config.unitSpriteAddress[kType] = 0xBFFE;
    game.write(kHeaderSize + test::layout::kSpriteBank * kBankSize + 0x3FFE, {1, 0, 0, 0, 0, 0x0B});
    const TestCore core(game);
    EXPECT_EQ(core.graphics.unitAnimation[kType].delay, 11);
}

TEST_F(UnitAnimationTest, SelectingARoomRestartsTheAnimations)
{
    setScript({0, 1, 0, 5});
    TestCore core(game);
    step(core, 1);
    core.graphics.selectRoom(0);
    EXPECT_EQ(core.graphics.unitAnimation[kType].frameOffset, 0);
    EXPECT_EQ(core.graphics.unitAnimation[kType].delay, 1);
}

TEST_F(UnitAnimationTest, ScriptsPastTheFileAreSurvived)
{
    setScript({0, 1});
    game.bytes.resize(kHeaderSize);
    TestCore core(game);
    EXPECT_EQ(core.graphics.unitAnimation[kType].delay, 0x55);
    step(core, 1000);
}

} // namespace
} // namespace velko
