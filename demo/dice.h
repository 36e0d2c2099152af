#pragma once

#include <cstdint>

namespace velko::demo {

// Numbers that look random but are the same in every build: they depend only on the seed and on
// what is asked.
class Dice {
public:
    explicit constexpr Dice(int seed) : m_seed(static_cast<std::uint32_t>(seed)) { }

    // 0 to sides - 1 for this place.
    constexpr int roll(int place, int sides) const
    {
        std::uint32_t h = m_seed * 0x9E3779B1U + static_cast<std::uint32_t>(place) + 0x7F4A7C15U;
        for (int round = 0; round < 2; ++round) {
            h = (h ^ (h >> 16)) * 0x85EBCA6BU;
            h = (h ^ (h >> 13)) * 0xC2B2AE35U;
            h ^= h >> 16;
        }
        return static_cast<int>(h % static_cast<std::uint32_t>(sides));
    }

private:
    std::uint32_t m_seed;
};

} // namespace velko::demo
