#include "demo/sprite_bank.h"

namespace velko::demo {

namespace {

constexpr std::uint8_t kJump = 0x80;
constexpr std::uint8_t kUnusedByte = 0xFF;

} // namespace

void SpriteBank::putByte(std::uint32_t value)
{
    std::uint8_t& byte = m_bank.at(m_position & 0x3FFF);
    if (byte != kUnusedByte)
        throw DemoError("two sprite scripts overlap");
    byte = static_cast<std::uint8_t>(value);
    ++m_position;
}

void SpriteBank::putPieces(const Frame& frame)
{
    putByte(static_cast<std::uint32_t>(frame.size()));
    for (const Piece& piece : frame) {
        putByte(piece.tile);
        putByte(static_cast<std::uint32_t>(piece.x) & 0xFF);
        putByte(static_cast<std::uint32_t>(piece.y) & 0xFF);
        putByte(piece.attributes);
    }
}

std::uint16_t SpriteBank::addScript(const std::vector<TimedFrame>& frames, std::uint16_t loopTo)
{
    const std::uint16_t start = m_position;
    const std::uint16_t target = loopTo == 0 ? start : loopTo;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const bool last = i + 1 == frames.size();
        putPieces(frames[i].frame);
        putByte(frames[i].ticks | (last ? kJump : 0U));
    }
    putByte(target & 0xFFU);
    putByte(target >> 8);
    return start;
}

std::uint16_t SpriteBank::addFrame(const Frame& frame, std::uint8_t ticks)
{
    const std::uint16_t start = m_position;
    putPieces(frame);
    putByte(ticks);
    return start;
}

} // namespace velko::demo
