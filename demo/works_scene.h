#pragma once

#include "demo/gallery.h"

namespace velko::demo {

// Workshops. Things on the floor: B boiler, F furnace, G gear wheels on the wall, P panel, W
// window, D door, d oil drums, p piston, s steam jet, S smoke stack, | pipe up to the ceiling, b
// belt (as long as the run of letters), f fan, z striped block, r railing, R signal, '.' nothing.
// Hanging: L lamp, k chain with a hook, - pipe along the ceiling, + pipe with a joint, V pipe
// with a valve, '.' nothing. Where the ceiling is 0 thick the sky shows.
void paintWorks(RoomCanvas& canvas, const GalleryPlan& plan);

} // namespace velko::demo
