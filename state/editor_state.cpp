#include "state/editor_state.h"

namespace velko {

void EditorState::prepareRoomData()
{
    store.computeFreeSpace(config.roomCount());
    graphics.selectRoom(graphics.currentRoom());
}

} // namespace velko
