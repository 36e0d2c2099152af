#include "rom/file_io.h"
#include "state/configuration_loader.h"

#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

namespace {

using namespace velko;

constexpr std::uint32_t kViewSize = 80; // pixels: a view that cuts metatiles at every edge
constexpr std::uint32_t kThumbnailSize = 64;
constexpr int kTicks = 24;
constexpr std::uint32_t kOverlay = 1; // flags of the input
constexpr std::uint32_t kEveryRoom = 2;
constexpr std::uint32_t kThumbnail = 4;
constexpr std::uint32_t kFewRooms = 12;

void require(bool holds)
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
std::vector<std::uint8_t> romFrom(const Demo& demo, bool overlay, std::uint32_t offset,
                                  std::span<const std::uint8_t> bytes)
{
    if (!overlay)
        return {bytes.begin(), bytes.end()};
    std::vector<std::uint8_t> rom = demo.rom;
    for (std::size_t i = 0; i < bytes.size() && offset + i < rom.size(); ++i)
        rom[offset + i] = bytes[i];
    return rom;
}

// A region of a room shows the same pixels as the room's whole picture.
void checkRegion(EditorState& state, std::uint8_t room, std::uint32_t x, std::uint32_t y)
{
    const RoomSize size = state.renderer.roomSize(room);
    if (size.columns * size.rows > 4)
        return;
    PixelImage whole;
    state.renderer.renderRoomPicture(room, whole);
    x %= size.width() - kViewSize + 1;
    y %= size.height() - kViewSize + 1;
    PixelImage view(kViewSize, kViewSize);
    state.renderer.renderRoomRegion(view, x, y, 0);
    for (std::uint32_t row = 0; row < kViewSize; ++row)
        for (std::uint32_t column = 0; column < kViewSize; ++column)
            require(view.at(column, row) == whole.at(x + column, y + row));
}

void drawSprites(EditorState& state)
{
    PixelImage image(kThumbnailSize, kThumbnailSize);
    for (const UnitAnimation& animation : state.graphics.unitAnimation)
        state.graphics.drawSpriteFrame(image, 30, 30, animation.scriptAddress,
                                       animation.frameOffset, {});
}

} // namespace

// Whatever a ROM holds, every room of it can be selected, drawn and animated: nothing outside a
// buffer is touched, and nothing takes forever (libFuzzer and the sanitizers watch). The input is
// one byte of flags, three bytes of offset, four of scroll position, one room, then the bytes.
// Without kEveryRoom some rooms from the chosen one on are drawn, and without kThumbnail none is
// reduced, which makes for more inputs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Demo demo;
    EditorState& state = demo.state;
    Input input({data, size});
    const std::uint32_t flags = input.number(1);
    const std::uint32_t offset = input.number(3) & 0x3FFFF;
    const std::uint32_t scrollX = input.number(2);
    const std::uint32_t scrollY = input.number(2);
    const auto chosen = static_cast<std::uint8_t>(input.number(1) % state.config.roomCount());
    state.rom.setBytes(romFrom(demo, (flags & kOverlay) != 0, offset, input.rest()));
    state.prepareRoomData();

    PixelImage view(kViewSize, kViewSize);
    const std::uint32_t rooms = (flags & kEveryRoom) != 0 ? state.config.roomCount() : kFewRooms;
    for (std::uint32_t i = 0; i < rooms; ++i) {
        state.graphics.selectRoom(static_cast<std::uint8_t>((chosen + i) % kMostRooms));
        state.renderer.renderRoomRegion(view, scrollX, scrollY, 0xF0F0F0);
    }
    if ((flags & kThumbnail) != 0) {
        PixelImage thumbnail(kThumbnailSize, kThumbnailSize);
        state.renderer.renderRoomThumbnail(chosen, thumbnail, "any room", 0xF0F0F0);
    }
    checkRegion(state, chosen, scrollX, scrollY);
    drawSprites(state);
    for (int tick = 0; tick < kTicks; ++tick)
        state.graphics.stepUnitAnimation();
    drawSprites(state);
    state.store.pahTileLoadType2.selectRoom(state.config.roomCount());
    state.graphics.applyType2Loads();
    return 0;
}
