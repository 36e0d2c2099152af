#pragma once

#include "demo/sprite_graphics.h"

namespace velko::demo {

struct TimedFrame {
    Frame frame;
    std::uint8_t ticks = 0; // 1-127
};

// Lays sprite scripts out in the sprite bank, one after another from a given place.
class SpriteBank {
public:
    // `bank` holds a whole bank; bytes that are $FF are unused.
    SpriteBank(Bytes& bank, std::uint16_t position) : m_bank(bank), m_position(position) { }

    // The CPU address where the next script goes.
    std::uint16_t position() const { return m_position; }
    void moveTo(std::uint16_t cpuAddress) { m_position = cpuAddress; }

    // Stores frames that follow one another and returns the address of the first. The last one
    // jumps to `loopTo`; 0 means the first frame of this script.
    std::uint16_t addScript(const std::vector<TimedFrame>& frames, std::uint16_t loopTo = 0);
    // Stores one frame without a jump.
    std::uint16_t addFrame(const Frame& frame, std::uint8_t ticks);

private:
    void putByte(std::uint32_t value);
    void putPieces(const Frame& frame);

    Bytes& m_bank;
    std::uint16_t m_position;
};

} // namespace velko::demo
