#include "rom/game_config.h"

#include <algorithm>

namespace velko {

std::uint32_t GameConfig::roomCount() const
{
    return std::min(value(MiscField::rooms), kMostRooms);
}

} // namespace velko
