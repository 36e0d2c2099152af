#pragma once

#include "rom/file_io.h"
#include "state/configuration_loader.h"

#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

// What the fuzzers of ROMs share: the demo game, over which they lay their input.
namespace velko::fuzz {

inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

// The demo's module loads without a word.
class SilentPrompt : public UserPrompt {
public:
    void showMessage(std::string_view, MessageIcon) override { std::abort(); }
    bool askYesNo(std::string_view, MessageIcon) override { std::abort(); }
    YesNoCancel askYesNoCancel(std::string_view, MessageIcon) override { std::abort(); }

protected:
    bool confirm(std::string_view, std::string_view) override { std::abort(); }
};

// The editor's state with the demo's module, and the demo's ROM to start from.
struct Demo {
    Demo()
    {
        const std::filesystem::path folder = VELKO_DEMO_DIR;
        SilentPrompt prompt;
        require(loadConfiguration(folder, state, prompt, {}) == ConfigurationResult::kContinue);
        rom = loadFile(folder / "demo.nes").value();
    }

    EditorState state;
    std::vector<std::uint8_t> rom;
};

// One for all inputs. A fuzzer makes it before its first input, whose time it must not count to.
inline Demo& sharedDemo()
{
    static Demo demo;
    return demo;
}

// Reads numbers off the front of the input; past its end they are 0.
class Input {
public:
    explicit Input(std::span<const std::uint8_t> bytes) : m_bytes(bytes) { }

    std::uint32_t number(std::size_t bytes)
    {
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < bytes && !m_bytes.empty(); ++i) {
            value |= std::uint32_t{m_bytes.front()} << (8 * i);
            m_bytes = m_bytes.subspan(1);
        }
        return value;
    }
    std::span<const std::uint8_t> rest() const { return m_bytes; }

private:
    std::span<const std::uint8_t> m_bytes;
};

// Any bytes as the whole file, or laid over the demo's at an offset.
inline std::vector<std::uint8_t> romFrom(const Demo& demo, bool overlay, std::uint32_t offset,
                                         std::span<const std::uint8_t> bytes)
{
    if (!overlay)
        return {bytes.begin(), bytes.end()};
    std::vector<std::uint8_t> rom = demo.rom;
    for (std::size_t i = 0; i < bytes.size() && offset + i < rom.size(); ++i)
        rom[offset + i] = bytes[i];
    return rom;
}

} // namespace velko::fuzz
