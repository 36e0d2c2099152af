#pragma once

#include "state/editor_state.h"

#include <cstdint>
#include <optional>

namespace velko {

// Two settings that the game keeps for each of its areas, a byte each: whether the hero comes
// down by parachute, and the item that clears the area. Areas are counted from 0. Every setter
// writes into the ROM image at once.
class AreaSettings {
public:
    // The most areas that are offered, whatever the configuration says.
    static constexpr std::uint32_t kMostAreas = 0x10000;

    explicit AreaSettings(EditorState& state) : m_state(state) { }

    // The last area's number; 0 too when the game has no areas at all.
    std::uint32_t lastArea() const;

    std::uint32_t area() const { return m_area; }
    void selectArea(std::uint32_t area) { m_area = area; }

    // Any value but 0 counts as a parachute; without it the hero starts at entrance 1.
    bool parachute() const;
    void setParachute(bool parachute);

    // Neutral areas have no clear item, and neither has the area before the first of them.
    bool hasClearItem() const;
    // Nothing for a byte that is no item's number.
    std::optional<std::uint8_t> clearItem() const;
    void setClearItem(std::uint8_t item);

private:
    std::uint32_t offsetInTable(MiscField table) const;

    EditorState& m_state;
    std::uint32_t m_area = 0;
};

} // namespace velko
