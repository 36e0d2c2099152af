#include "cli/field_parts.h"

namespace velko {

namespace {

template <PointerArrayHandler RoomDataStore::*kHandler>
FieldResult pointer(EditorState& state, FieldNumbers)
{
    const PointerArrayHandler& handler = state.store.*kHandler;
    return wordField(state.rom, handler.entryFileOffset(handler.currentRoom()));
}

constexpr FieldRule kRules[] = {
    {"room.R.pointer.alloc", "0 to ffff", "address of the room's screen list",
     inRoom<pointer<&RoomDataStore::pahMapAlloc>>},
    {"room.R.pointer.layout", "0 to ffff", "of its layout",
     inRoom<pointer<&RoomDataStore::pahMapLayout>>},
    {"room.R.pointer.tile32", "0 to ffff", "of its Tile32 set",
     inRoom<pointer<&RoomDataStore::pahTile32>>},
    {"room.R.pointer.tiles", "0 to ffff", "of its background slots",
     inRoom<pointer<&RoomDataStore::pahTileLoad>>},
    {"room.R.pointer.palette", "0 to ffff", "of its palette",
     inRoom<pointer<&RoomDataStore::pahPal>>},
};

} // namespace

std::span<const FieldRule> pointerFieldRules()
{
    return kRules;
}

} // namespace velko
