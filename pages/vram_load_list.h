#pragma once

#include "gfx/graphics_state.h"
#include "gfx/pixel_image.h"
#include "rom/name_lists.h"
#include "store/pointer_array_handler.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velko {

// The list of the current room's sprite graphics: numbers of load records. Two rules tell where it
// ends. The game, and so everything that is shown, stops at any byte from $80 on; deleting counts
// up to the first $FF. So an entry that was set to $80 or more ends what is shown, and can still be
// deleted or set back. Both stop at kLongestTileLoadType2 bytes. Every call reads the image anew.
class VramLoadList {
public:
    explicit VramLoadList(PointerArrayHandler& loads) : m_loads(loads) { }

    // Entries that the game loads.
    std::uint32_t shownCount() const;
    // Bytes before the first $FF.
    std::uint32_t count() const;
    std::uint8_t id(std::uint32_t index) const { return m_loads.dataByte(index); }
    void setId(std::uint32_t index, std::uint8_t id) { m_loads.setDataByte(index, id); }

    EditResult insert(std::uint32_t index, std::uint8_t id);
    EditResult remove(std::uint32_t index) { return m_loads.deleteBytes(index, 1); }

    // "0: - Snail", one line for each entry that is shown.
    std::vector<std::string> lines(const NameLists& names) const;

private:
    template <typename IsEnd> std::uint32_t bytesBefore(IsEnd isEnd) const;

    PointerArrayHandler& m_loads;
};

// The side of drawVramSetup's picture, in pixels.
inline constexpr std::uint32_t kVramSetupSize = 204;

// The 256 tiles of pattern table 0, sixteen in a row, in the colours of the first sprite set.
void drawVramSetup(const GraphicsState& graphics, PixelImage& picture);

} // namespace velko
