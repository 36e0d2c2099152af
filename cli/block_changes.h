#pragma once

#include "cli/block_elements.h"

#include <vector>

namespace velko {

// One place in a block at which the games differ.
struct BlockChange {
    const BlockElement* before; // null: added
    const BlockElement* after;  // null: removed
};

// Where two blocks differ. The changes point into the elements, which are in the order of their
// places.
//
// Elements of a list that come or go move those behind them: what is equal at both ends is kept.
std::vector<BlockChange> changesOfList(const std::vector<BlockElement>& before,
                                       const std::vector<BlockElement>& after);
// By place.
std::vector<BlockChange> changesOfGrid(const std::vector<BlockElement>& before,
                                       const std::vector<BlockElement>& after);

} // namespace velko
