#pragma once

#include "rom/game_config.h"

#include <cstdint>

namespace velko {

// Where the game keeps its screens: records of 64 bytes one after the other, with a hole of
// 8 bytes behind the first 264. Screens are told by their CPU address or by their index.
struct ScreenArea {
    std::uint32_t start = 0; // CPU address of screen 0, as the configuration gives it
    std::uint32_t count = 0; // number of screens

    static constexpr std::uint32_t kScreenBytes = 64;
    static constexpr std::uint32_t kScreensBelowHole = 264;
    static constexpr std::uint32_t kHoleBytes = 8;
    // Where the game's own area has its hole, wherever the configuration starts the area.
    static constexpr std::uint32_t kHole = 0xC800;
    // No address has an index at or above this.
    static constexpr std::uint32_t kIndexes = 0x10000 / kScreenBytes;

    static ScreenArea of(const GameConfig& config)
    {
        return {config.value(MiscField::mapAllocDataStart), config.value(MiscField::mapIndexes)};
    }

    // 0 for addresses below the area, and nothing bounds it by `count`. $C800 and $C808 are the
    // same screen.
    constexpr std::uint32_t indexOf(std::uint16_t cpuAddress) const
    {
        const std::uint32_t hole = cpuAddress > kHole ? kHoleBytes : 0;
        return cpuAddress < start + std::uint64_t{hole}
            ? 0
            : (cpuAddress - hole - start) / kScreenBytes;
    }
    // Modulo 65536.
    constexpr std::uint16_t addressOf(std::uint32_t index) const
    {
        const std::uint32_t hole = index >= kScreensBelowHole ? kHoleBytes : 0;
        return static_cast<std::uint16_t>((start + kScreenBytes * index + hole) & 0xFFFF);
    }
};

} // namespace velko
