#pragma once

#include <algorithm>

namespace velko {

// How far a view is scrolled over something larger, along one direction and in its pixels.
struct ViewScroll {
    int range = 0;    // the extent of what is viewed
    int page = 0;     // how much of it shows at once: never more than `range`
    int position = 0; // the first pixel that shows

    // A view of `extent` pixels, scrolled as near to `wanted` as the edges of the `range` allow.
    static ViewScroll along(int range, int extent, int wanted)
    {
        const int page = std::min(extent, range);
        return {range, page, std::clamp(wanted, 0, range - page)};
    }

    // Whether there is something to scroll.
    bool isPartial() const { return range > page; }
};

} // namespace velko
