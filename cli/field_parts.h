#pragma once

#include "cli/field.h"

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace velko {

// What the fields of all parts of the game are made with.

// The kinds of fields, by what they are about. Their order is that of the documentation.
std::span<const FieldRule> settingsFieldRules();
std::span<const FieldRule> mapFieldRules();
std::span<const FieldRule> tile32FieldRules();
std::span<const FieldRule> lookFieldRules();
std::span<const FieldRule> unitFieldRules();
std::span<const FieldRule> doorFieldRules();
std::span<const FieldRule> pointerFieldRules();
std::span<const FieldRule> areaFieldRules();
std::span<const FieldRule> overworldFieldRules();

// "there is no unit 8"
std::string missing(std::string_view what, std::uint32_t number);

// Some bits of a byte of the file.
struct BitPlace {
    std::uint32_t offset = 0;
    unsigned shift = 0;
    std::uint32_t mask = 0xFF; // after shifting
};
// A field of these bits, which takes what they can hold.
Field bitField(RomImage& rom, BitPlace place);
// A little-endian word of the file; takes 0 to ffff.
Field wordField(RomImage& rom, std::uint32_t offset);
// The same, which takes no more than `largest`.
Field limited(Field field, std::uint32_t largest);
// The same, after the bytes that tell where it lies.
Field found(Field field, const FileOffsets& by);

// File offset of a byte of the current room's block.
std::uint32_t blockByte(const PointerArrayHandler& handler, std::uint32_t offset);

// In place of a field that cannot be looked for, as these bytes tell where it lies: nothing when
// they are in the file.
std::optional<Field> fieldPastEnd(const EditorState& state, const FileOffsets& bytes);

// Where a room's pointers in some tables stand.
FileOffsets roomPointers(const RoomDataStore& store, std::uint32_t room,
                         std::initializer_list<PointerArrayHandler RoomDataStore::*> tables);

// What tells a room's screen list: its pointer, and the list's words up to and with the end mark,
// at most so many. Behind a word past the end of the file it is not followed.
FileOffsets screenListBytes(const EditorState& state, std::uint32_t room, std::uint32_t mostWords);

using RoomFind = FieldResult (*)(EditorState&, FieldNumbers);

// Selects the room, the name's first number, and finds the field with the other numbers, by way of
// the room's pointers in these tables.
template <RoomFind kFind, PointerArrayHandler RoomDataStore::*... kHandlers>
FieldResult inRoom(EditorState& state, FieldNumbers numbers)
{
    const std::uint32_t room = numbers.front();
    if (room >= state.config.roomCount())
        return missing("room", room);
    state.graphics.selectRoom(static_cast<std::uint8_t>(room));
    const FileOffsets pointers = roomPointers(state.store, room, {kHandlers...});
    if (const auto pastEnd = fieldPastEnd(state, pointers))
        return *pastEnd;
    FieldResult result = kFind(state, numbers.subspan(1));
    if (const auto* field = std::get_if<Field>(&result))
        return found(*field, pointers);
    return result;
}

} // namespace velko
