#include "cli/block_changes.h"

#include <algorithm>
#include <cstddef>

namespace velko {

std::vector<BlockChange> changesOfList(const std::vector<BlockElement>& before,
                                       const std::vector<BlockElement>& after)
{
    const auto same = [](const BlockElement& a, const BlockElement& b) { return a.sameBytes(b); };
    const auto front = std::ranges::mismatch(before, after, same).in1 - before.begin();
    const auto shorter = static_cast<std::ptrdiff_t>(std::min(before.size(), after.size())) - front;
    std::ptrdiff_t back = 0;
    while (back < shorter && same(*(before.end() - 1 - back), *(after.end() - 1 - back)))
        ++back;
    const auto changed = static_cast<std::ptrdiff_t>(std::max(before.size(), after.size()));
    std::vector<BlockChange> changes;
    for (std::ptrdiff_t i = front; i < changed - back; ++i) {
        const bool hasBefore = i < static_cast<std::ptrdiff_t>(before.size()) - back;
        const bool hasAfter = i < static_cast<std::ptrdiff_t>(after.size()) - back;
        changes.push_back({hasBefore ? &before[static_cast<std::size_t>(i)] : nullptr,
                           hasAfter ? &after[static_cast<std::size_t>(i)] : nullptr});
    }
    std::erase_if(changes, [&](const BlockChange& change) {
        return change.before != nullptr && change.after != nullptr
            && same(*change.before, *change.after);
    });
    return changes;
}

std::vector<BlockChange> changesOfGrid(const std::vector<BlockElement>& before,
                                       const std::vector<BlockElement>& after)
{
    std::vector<BlockChange> changes;
    auto a = before.begin();
    auto b = after.begin();
    while (a != before.end() || b != after.end()) {
        if (b == after.end() || (a != before.end() && a->place < b->place)) {
            changes.push_back({&*a++, nullptr});
        } else if (a == before.end() || b->place < a->place) {
            changes.push_back({nullptr, &*b++});
        } else {
            if (!a->sameBytes(*b))
                changes.push_back({&*a, &*b});
            ++a;
            ++b;
        }
    }
    return changes;
}

} // namespace velko
