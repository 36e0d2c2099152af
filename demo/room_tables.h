#pragma once

#include "demo/world.h"

namespace velko::demo {

// The eight regions of blocks, filled from the world. Besides what the rooms need, each holds a
// block that two entries share, a second copy of a block, and one that nothing points at any
// more: what years of editing leave behind.
struct RoomTables {
    explicit RoomTables(const World& world);

    BlockRegion mapAlloc{kMapAllocPlan};
    BlockRegion mapLayout{kMapLayoutPlan};
    BlockRegion palette{kPalettePlan};
    BlockRegion tileLoad{kTileLoadPlan};
    BlockRegion tile32{kTile32Plan};
    BlockRegion unit{kUnitPlan};
    BlockRegion type2{kType2Plan};
    BlockRegion areaMovement{kAreaMovementPlan};

    void write(Bytes& prg) const;

private:
    void placeMaps(const World& world);
    void placeLooks(const World& world);
    void placeUnits(const World& world);
    void placeMovement(const World& world);
};

} // namespace velko::demo
