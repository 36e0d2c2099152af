#pragma once

#include "pages/unit_placement_model.h"
#include "tests/pages/unit_rom.h"

namespace velko::test {

class UnitPlacementModelTest : public UnitGameTest {
protected:
    UnitPlacementModelTest() { setRecords({3, 100, 1, 50, 0, 10, 200, 1, 100, 0}); }

    void setRecords(const Bytes& records)
    {
        setUnits(records);
        model.refresh();
    }
    void setIds(const Bytes& ids)
    {
        setLoads(ids);
        model.refresh();
    }
    Pixel at(std::uint32_t x, std::uint32_t y)
    {
        model.draw(picture);
        return picture.at(x, y);
    }

    UnitPlacementModel model{state};
    PixelImage picture;
};

} // namespace velko::test
