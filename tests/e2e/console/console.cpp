#include "tests/e2e/console/console.h"

#include <libretro-common/libretro.h>

#include <array>
#include <cstdarg>
#include <cstring>
#include <dlfcn.h>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

namespace velko::test {

namespace {

// 64 colours that all differ, also once an emulator has rounded them to 5 bits a channel.
constexpr std::array<std::uint8_t, 3> paletteColour(std::uint32_t number)
{
    return {static_cast<std::uint8_t>((number & 7U) * 32U + 16U),
            static_cast<std::uint8_t>((number >> 3U) * 32U + 16U), 0x80};
}

constexpr std::uint32_t pixelOf(std::uint32_t number)
{
    const auto [red, green, blue] = paletteColour(number);
    return static_cast<std::uint32_t>(red) << 16U | static_cast<std::uint32_t>(green) << 8U | blue;
}

const std::map<std::string_view, const char*> kOptions{
    {"nestopia_palette", "custom"},         {"nestopia_overscan_v", "disabled"},
    {"nestopia_overscan_h", "disabled"},    {"nestopia_blargg_ntsc_filter", "disabled"},
    {"nestopia_nospritelimit", "disabled"}, {"nestopia_overclock", "1x"},
    {"nestopia_favored_system", "ntsc"},    {"nestopia_button_shift", "disabled"},
};
constexpr std::string_view kMemoryOption = "nestopia_ram_power_state";
constexpr std::array kMemoryValues = {"0x00", "0xFF", "random"}; // in the order of PowerOnMemory

} // namespace

struct Console::Core {
    void* library = nullptr;
    std::string systemFolder;
    PowerOnMemory memory = PowerOnMemory::kCleared;
    std::vector<std::uint8_t> rom;
    std::vector<std::uint32_t> frame;
    unsigned width = 0;
    unsigned height = 0;
    std::uint32_t buttons = 0;
    bool loaded = false;

    template <typename Function> Function* find(const char* name) const
    {
        void* const symbol = dlsym(library, name);
        if (symbol == nullptr)
            throw std::runtime_error(std::string("the emulator has no ") + name);
        return reinterpret_cast<Function*>(symbol);
    }

    bool answer(unsigned command, void* data) const;
    void takeFrame(const void* data, unsigned frameWidth, unsigned frameHeight, std::size_t pitch);

    // The emulator's callbacks carry no pointer of ours.
    static Core* running;
    static bool environment(unsigned command, void* data) { return running->answer(command, data); }
    static void video(const void* data, unsigned width, unsigned height, std::size_t pitch)
    {
        running->takeFrame(data, width, height, pitch);
    }
    static void audio(std::int16_t, std::int16_t) { }
    static std::size_t audioBatch(const std::int16_t*, std::size_t frames) { return frames; }
    static void poll() { }
    static std::int16_t input(unsigned port, unsigned device, unsigned, unsigned id)
    {
        const bool isPad = port == 0 && device == RETRO_DEVICE_JOYPAD && id < 16;
        return isPad ? static_cast<std::int16_t>(running->buttons >> id & 1U) : std::int16_t{0};
    }
    static void log(retro_log_level, const char*, ...) { }
};

Console::Core* Console::Core::running = nullptr;

bool Console::Core::answer(unsigned command, void* data) const
{
    switch (command) {
    case RETRO_ENVIRONMENT_GET_SYSTEM_DIRECTORY:
    case RETRO_ENVIRONMENT_GET_SAVE_DIRECTORY:
        *static_cast<const char**>(data) = systemFolder.c_str();
        return true;
    case RETRO_ENVIRONMENT_SET_PIXEL_FORMAT:
        return *static_cast<const retro_pixel_format*>(data) == RETRO_PIXEL_FORMAT_XRGB8888;
    case RETRO_ENVIRONMENT_GET_LOG_INTERFACE:
        static_cast<retro_log_callback*>(data)->log = &Core::log;
        return true;
    case RETRO_ENVIRONMENT_GET_VARIABLE: {
        auto& variable = *static_cast<retro_variable*>(data);
        const auto option = kOptions.find(variable.key);
        if (variable.key == kMemoryOption)
            variable.value = kMemoryValues.at(static_cast<std::size_t>(memory));
        else
            variable.value = option == kOptions.end() ? nullptr : option->second;
        return variable.value != nullptr;
    }
    case RETRO_ENVIRONMENT_GET_VARIABLE_UPDATE:
        *static_cast<bool*>(data) = false;
        return true;
    default:
        return false;
    }
}

void Console::Core::takeFrame(const void* data, unsigned frameWidth, unsigned frameHeight,
                              std::size_t pitch)
{
    if (data == nullptr)
        return; // the same picture once more
    width = frameWidth;
    height = frameHeight;
    frame.resize(std::size_t{width} * height);
    for (unsigned y = 0; y < height; ++y)
        std::memcpy(frame.data() + std::size_t{y} * width,
                    static_cast<const std::uint8_t*>(data) + y * pitch,
                    std::size_t{width} * sizeof(std::uint32_t));
}

Console::Console(const std::filesystem::path& core, std::span<const std::uint8_t> rom,
                 const std::filesystem::path& systemFolder, PowerOnMemory memory)
    : m_core(std::make_unique<Core>())
{
    if (Core::running != nullptr)
        throw std::runtime_error("one console at a time");
    std::ofstream palette(systemFolder / "custom.pal", std::ios::binary);
    for (std::uint32_t number = 0; number < 64; ++number)
        for (const std::uint8_t channel : paletteColour(number))
            palette.put(static_cast<char>(channel));
    palette.close();

    m_core->systemFolder = systemFolder.string();
    m_core->memory = memory;
    m_core->rom.assign(rom.begin(), rom.end());
    // Stays loaded, so that what it leaks can be told from our own leaks by its name.
    m_core->library = dlopen(core.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (m_core->library == nullptr)
        throw std::runtime_error(dlerror());
    Core::running = m_core.get();
    m_core->find<void(retro_environment_t)>("retro_set_environment")(&Core::environment);
    m_core->find<void()>("retro_init")();
    m_core->find<void(retro_video_refresh_t)>("retro_set_video_refresh")(&Core::video);
    m_core->find<void(retro_audio_sample_t)>("retro_set_audio_sample")(&Core::audio);
    m_core->find<void(retro_audio_sample_batch_t)>("retro_set_audio_sample_batch")(
        &Core::audioBatch);
    m_core->find<void(retro_input_poll_t)>("retro_set_input_poll")(&Core::poll);
    m_core->find<void(retro_input_state_t)>("retro_set_input_state")(&Core::input);
    retro_game_info game{};
    game.path = "demo.nes";
    game.data = m_core->rom.data();
    game.size = m_core->rom.size();
    m_core->loaded = m_core->find<bool(const retro_game_info*)>("retro_load_game")(&game);
    if (!m_core->loaded)
        throw std::runtime_error("the emulator refuses the ROM");
    m_core->find<void(unsigned, unsigned)>("retro_set_controller_port_device")(0,
                                                                               RETRO_DEVICE_JOYPAD);
}

Console::~Console()
{
    if (m_core->loaded)
        m_core->find<void()>("retro_unload_game")();
    m_core->find<void()>("retro_deinit")();
    Core::running = nullptr;
    dlclose(m_core->library);
}

void Console::run(int frames, std::uint32_t buttons)
{
    m_core->buttons = buttons;
    const auto runFrame = m_core->find<void()>("retro_run");
    for (int i = 0; i < frames; ++i)
        runFrame();
}

ColourNumbers Console::picture() const
{
    if (m_core->width != kPictureWidth || m_core->height != kPictureHeight)
        throw std::runtime_error("the emulator's picture has another size");
    std::map<std::uint32_t, std::uint8_t> numbers;
    for (std::uint32_t number = 0; number < 64; ++number)
        numbers[pixelOf(number)] = static_cast<std::uint8_t>(number);
    ColourNumbers picture;
    picture.reserve(m_core->frame.size());
    for (const std::uint32_t pixel : m_core->frame) {
        const auto number = numbers.find(pixel & 0xFFFFFFU);
        if (number == numbers.end())
            throw std::runtime_error("a colour that is not in the palette");
        picture.push_back(number->second);
    }
    return picture;
}

std::uint8_t Console::memory(std::uint16_t address) const
{
    const auto* const bytes = static_cast<const std::uint8_t*>(
        m_core->find<void*(unsigned)>("retro_get_memory_data")(RETRO_MEMORY_SYSTEM_RAM));
    return bytes[address];
}

} // namespace velko::test
