#pragma once

#include "gfx/palette_model.h"
#include "tests/support/palette_rom.h"

#include <cstdint>

namespace velko::test {

class PaletteModelTest : public PaletteGameTest {
protected:
    std::uint8_t byteOfEntry(std::uint32_t entry) const
    {
        return state.rom.readByte(PaletteRom::kRising + entry);
    }
    // Sets the byte of the selected entry without going through the model.
    void poke(std::uint8_t value)
    {
        state.rom.writeByte(PaletteRom::kRising + static_cast<std::uint32_t>(model.selectedEntry()),
                            value);
    }
    PixelImage preview()
    {
        PixelImage picture;
        model.drawPreview(picture);
        return picture;
    }

    PaletteModel model{state};
};

} // namespace velko::test
