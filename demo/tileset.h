#pragma once

#include "demo/art_library.h"
#include "demo/block_region.h"
#include "demo/tile32_set.h"
#include "demo/tile_encoder.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace velko::demo {

// Pages of 64 blocks in a background bank. The drawn ones come first, then the same in shade and
// in mist; the last page is empty.
enum class BlockPage : std::uint8_t { kDrawn, kShade, kMist };

// The four background banks: 256 blocks of 16x16 pixels each, one bank per art file.
class BackgroundBanks {
public:
    struct Source {
        std::uint8_t bank = 0;
        std::uint8_t block = 0;
        Cell cell; // palette and physics as drawn; the slot is not set
    };

    // Stores the file's metatiles, at most 64, in `bank`.
    void addArt(std::uint8_t bank, const ArtFile& art);
    // Throws DemoError when no art file holds a metatile of that name.
    const Source& find(std::string_view name) const;
    void write(Bytes& prg) const;

private:
    std::array<std::array<Block, 256>, 4> m_blocks{};
    std::map<std::string, Source, std::less<>> m_sources;
};

// The 64 background blocks that a room loads, by name. A name that ends in "~" is the block of
// that name mirrored; "@2" after a name (before the "~") gives it palette 2 instead of its own.
// "ALIAS=" before it is the name that cells are asked for by, else that is the name without "@2".
class Tileset {
public:
    // Slot numbers follow the order of the names; slot 0 is what empty cells show.
    Tileset(const BackgroundBanks& banks, const std::vector<std::string>& names);

    // The same slots with the blocks of another page.
    Tileset onPage(BlockPage page) const;

    // The cell that shows a block as it is meant to look. Throws DemoError for other names.
    Cell cell(std::string_view name) const;
    bool has(std::string_view name) const { return m_cells.find(name) != m_cells.end(); }
    // What shows where nothing was drawn: slot 0.
    const Cell& emptyCell() const { return m_emptyCell; }
    // The room's 96 bytes of block numbers and attribute nibbles.
    const Bytes& loadBlock() const { return m_loadBlock; }

private:
    std::map<std::string, Cell, std::less<>> m_cells;
    Cell m_emptyCell;
    Bytes m_loadBlock;
};

} // namespace velko::demo
