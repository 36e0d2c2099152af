#include "pages/unit_view.h"

#include <vector>

namespace velko {

namespace {

constexpr int kCullSize = 16; // what a unit is taken to cover, right of and below its position
constexpr int kMarkerSize = 16;
constexpr int kMarkerFrame = 22;

// Gives the image a size; keeps its pixels when it has that already.
void resize(PixelImage& image, RoomView::Size size)
{
    const auto width = static_cast<std::uint32_t>(size.width);
    const auto height = static_cast<std::uint32_t>(size.height);
    if (image.width() != width || image.height() != height)
        image.allocate(height, width);
}

} // namespace

Pixel markerColour(std::uint8_t unitType)
{
    const auto bit = [unitType](unsigned number) { return Pixel{unitType} >> number & 1U; };
    const Pixel blue = bit(0) << 7 | bit(3) << 6 | bit(6) << 5;
    const Pixel green = bit(1) << 7 | bit(4) << 6 | bit(7) << 5;
    const Pixel red = bit(2) << 7 | bit(5) << 6;
    return red << 16 | green << 8 | blue;
}

void UnitView::draw(PixelImage& picture, bool sprites, const std::optional<Highlight>& highlight)
{
    drawBackground();
    m_region = m_background;
    const std::vector<UnitRecord> units = m_units.records();
    for (std::uint32_t i = 0; i < units.size(); ++i) {
        if (!units[i].isPlaced() || !shows(units[i].position()))
            continue;
        const bool highlighted = highlight && highlight->unit == i;
        drawUnit(units[i], sprites,
                 highlighted ? std::optional(highlight->strength) : std::nullopt);
    }
    resize(picture, m_view.display());
    copyScaled(picture, m_region);
}

void UnitView::drawBackground()
{
    const RoomView::Position scroll = m_view.scroll();
    if (m_backgroundScroll == scroll)
        return;
    m_backgroundScroll = scroll;
    resize(m_background, m_view.region());
    m_state.renderer.renderRoomRegion(m_background, static_cast<std::uint32_t>(scroll.x),
                                      static_cast<std::uint32_t>(scroll.y),
                                      m_state.backgroundColour);
}

bool UnitView::shows(RoomView::Position position) const
{
    const RoomView::Position scroll = m_view.scroll();
    const RoomView::Size region = m_view.region();
    return position.x < scroll.x + region.width && position.y < scroll.y + region.height
        && position.x + kCullSize > scroll.x && position.y + kCullSize > scroll.y;
}

void UnitView::drawUnit(const UnitRecord& unit, bool sprites, std::optional<float> strength)
{
    const int x = unit.position().x - m_view.scroll().x;
    const int y = unit.position().y - m_view.scroll().y;
    // Only the types that have a name have a script.
    const bool hasSprite = unit.type < kUnitTypes && m_state.config.unitSpriteReg[unit.type] > 0;
    if (sprites && hasSprite) {
        GraphicsState::SpriteStyle style;
        style.highlight = strength.has_value();
        style.brightness = strength.value_or(0.0F);
        const UnitAnimation& animation = m_state.graphics.unitAnimation[unit.type];
        m_state.graphics.drawSpriteFrame(m_region, y, x, animation.scriptAddress,
                                         animation.frameOffset, style);
    } else {
        fillRectangle(m_region, y - kMarkerSize / 2, x - kMarkerSize / 2, kMarkerSize, kMarkerSize,
                      markerColour(unit.type));
        drawSelectionFrame(m_region, y - kMarkerFrame / 2, x - kMarkerFrame / 2, kMarkerFrame,
                           kMarkerFrame);
    }
}

} // namespace velko
