#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace velko::test {

// Numbers for random tests: the same on every machine and in every run.
class RandomSource {
public:
    explicit RandomSource(std::uint32_t seed) : m_engine(seed) { }

    // 0 to `count` - 1; 0 when `count` is 0.
    std::uint32_t below(std::uint32_t count)
    {
        const auto number = static_cast<std::uint32_t>(m_engine());
        return count == 0 ? 0 : number % count;
    }
    bool oneIn(std::uint32_t count) { return below(count) == 0; }
    std::uint8_t byte() { return static_cast<std::uint8_t>(below(256)); }
    std::vector<std::uint8_t> bytes(std::uint32_t count)
    {
        std::vector<std::uint8_t> all(count);
        for (std::uint8_t& value : all)
            value = byte();
        return all;
    }
    template <typename T> T oneOf(std::initializer_list<T> values)
    {
        return values.begin()[below(static_cast<std::uint32_t>(values.size()))];
    }

private:
    std::mt19937 m_engine;
};

} // namespace velko::test
