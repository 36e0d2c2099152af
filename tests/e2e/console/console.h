#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <vector>

namespace velko::test {

// The console's picture: 256 x 240 colour numbers (0-63), row-major, top row first.
inline constexpr int kPictureWidth = 256;
inline constexpr int kPictureHeight = 240;
using ColourNumbers = std::vector<std::uint8_t>;

// Buttons of the first pad.
enum Button : std::uint32_t {
    kButtonB = 1U << 0U,
    kButtonSelect = 1U << 2U,
    kButtonStart = 1U << 3U,
    kButtonUp = 1U << 4U,
    kButtonDown = 1U << 5U,
    kButtonLeft = 1U << 6U,
    kButtonRight = 1U << 7U,
    kButtonA = 1U << 8U,
};

// What the console's work memory holds when it is switched on.
enum class PowerOnMemory : std::uint8_t { kCleared, kFilled, kRandom };

// An installed emulator, run without a window and as fast as it goes. It shows the whole
// picture unfiltered and keeps the console's limit of eight sprites a line. Emulators of this kind
// keep their state in the library, so there is one console at a time.
class Console {
public:
    // Switches on with `rom`, a whole iNES file. `core` is the emulator's library. Throws
    // std::runtime_error when it cannot be loaded or refuses the ROM. `systemFolder` must stay
    // until the console is gone; the palette is written there.
    Console(const std::filesystem::path& core, std::span<const std::uint8_t> rom,
            const std::filesystem::path& systemFolder,
            PowerOnMemory memory = PowerOnMemory::kCleared);
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    // Lets so many frames pass with these buttons (Button) held down.
    void run(int frames, std::uint32_t buttons = 0);
    // The last frame. Throws when it holds a colour that is none of the palette's.
    ColourNumbers picture() const;
    // A byte of the console's 2 KB of work memory.
    std::uint8_t memory(std::uint16_t address) const;

private:
    struct Core;
    std::unique_ptr<Core> m_core;
};

} // namespace velko::test
