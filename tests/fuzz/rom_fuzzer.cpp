#include "tests/fuzz/demo_overlay.h"

#include <cstdint>

namespace {

using namespace velko;
using namespace velko::fuzz;

constexpr std::uint32_t kViewSize = 80; // pixels: a view that cuts metatiles at every edge
constexpr std::uint32_t kThumbnailSize = 64;
constexpr int kTicks = 24;
constexpr std::uint32_t kOverlay = 1; // flags of the input
constexpr std::uint32_t kEveryRoom = 2;
constexpr std::uint32_t kThumbnail = 4;
constexpr std::uint32_t kFewRooms = 12;

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

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    sharedDemo();
    return 0;
}

// Whatever a ROM holds, every room of it can be selected, drawn and animated: nothing outside a
// buffer is touched, and nothing takes forever (libFuzzer and the sanitizers watch). The input is
// one byte of flags, three bytes of offset, four of scroll position, one room, then the bytes.
// Without kEveryRoom some rooms from the chosen one on are drawn, and without kThumbnail none is
// reduced, which makes for more inputs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Demo& demo = sharedDemo();
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
