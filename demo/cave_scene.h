#pragma once

#include "demo/gallery.h"

namespace velko::demo {

// Caves. Things on the floor: s stalagmite, O column up to the ceiling, r rubble, x small crystal,
// X big crystal, g glowing mushrooms, M big mushroom, c crate, C mine cart, _ rails, D timbered
// doorway, n sign, t torch on the wall, '.' nothing. Hanging: s stalactite, S small stalactites, l
// lantern, w web, r rope, '.' nothing.
void paintCave(RoomCanvas& canvas, const GalleryPlan& plan);

} // namespace velko::demo
