// The course of the units' sprite animations.
//
// A frame's control byte tells how many ticks it lasts. Where its top bit is set, the address of
// the script that comes next follows; else the next frame does.

#include "gfx/graphics_state.h"
#include "gfx/sprite_script.h"

namespace velko {

namespace {

constexpr std::uint8_t kAnimated = 1;
constexpr std::uint8_t kDelayMask = 0x7F;
constexpr std::uint8_t kJump = 0x80;

} // namespace

std::uint32_t GraphicsState::controlOffset(std::uint16_t scriptAddress,
                                           std::uint32_t frameOffset) const
{
    return frameOffset + 1 + kPieceBytes * scriptByte(scriptAddress, frameOffset);
}

void GraphicsState::resetUnitAnimation()
{
    for (std::size_t type = 0; type < kUnitTypes; ++type) {
        UnitAnimation& animation = unitAnimation[type];
        animation.scriptAddress = m_config.unitSpriteAddress[type];
        animation.frameOffset = 0;
        if (animation.scriptAddress != 0)
            animation.delay = frameDelay(animation);
    }
}

void GraphicsState::stepUnitAnimation()
{
    for (std::size_t type = 0; type < kUnitTypes; ++type) {
        if (m_config.unitSpriteReg[type] != kAnimated)
            continue;
        UnitAnimation& animation = unitAnimation[type];
        --animation.delay;
        if (animation.delay == 0)
            advanceToNextFrame(animation);
    }
}

std::uint8_t GraphicsState::frameDelay(const UnitAnimation& animation) const
{
    const std::uint32_t control = controlOffset(animation.scriptAddress, animation.frameOffset);
    return scriptByte(animation.scriptAddress, control) & kDelayMask;
}

void GraphicsState::advanceToNextFrame(UnitAnimation& animation) const
{
    const std::uint16_t script = animation.scriptAddress;
    const std::uint32_t control = controlOffset(script, animation.frameOffset);
    if (scriptByte(script, control) & kJump) {
        animation.scriptAddress = static_cast<std::uint16_t>(
            scriptByte(script, control + 1) | (scriptByte(script, control + 2) << 8));
        animation.frameOffset = 0;
    } else {
        animation.frameOffset = static_cast<std::uint8_t>(control + 1);
    }
    animation.delay = frameDelay(animation);
}

} // namespace velko
