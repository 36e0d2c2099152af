#include "pages/screen_list.h"

#include "rom/number_text.h"

namespace velko {

std::vector<std::string> screenListLines(const EditorState& state)
{
    const RoomRenderer& renderer = state.renderer;
    const std::uint32_t count = renderer.screenCount(state.store.pahMapAlloc.currentRoom());
    std::vector<std::string> lines;
    lines.reserve(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint16_t address = renderer.screenAddress(i);
        lines.push_back(hexText(i) + ": -- " + hexText(address) + " -- (index "
                        + hexText(renderer.screenIndex(address)) + ")");
    }
    return lines;
}

void drawScreenPreview(const EditorState& state, std::uint16_t screenAddress, PixelImage& image)
{
    image.allocate(kScreenHeight, kScreenWidth);
    state.renderer.drawScreen(image, 0, 0, screenAddress);
}

} // namespace velko
