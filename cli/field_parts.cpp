#include "cli/field_parts.h"

#include "rom/number_text.h"
#include "store/block_lengths.h"

namespace velko {

std::string missing(std::string_view what, std::uint32_t number)
{
    return "there is no " + std::string(what) + " " + hexText(number);
}

Field bitField(RomImage& rom, BitPlace place)
{
    return {
        .value = std::uint32_t{rom.readByte(place.offset)} >> place.shift & place.mask,
        .largest = place.mask,
        .bytes = {place.offset},
        .set = [&rom, place](std::uint32_t value) {
            const std::uint32_t others = rom.readByte(place.offset) & ~(place.mask << place.shift);
            rom.writeByte(place.offset, static_cast<std::uint8_t>(others | value << place.shift));
            return std::nullopt;
        }};
}

Field wordField(RomImage& rom, std::uint32_t offset)
{
    return {.value = rom.readByte(offset) | std::uint32_t{rom.readByte(offset + 1)} << 8,
            .largest = 0xFFFF,
            .bytes = neighbours(offset, 2),
            .set = [&rom, offset](std::uint32_t value) {
                rom.writeByte(offset, static_cast<std::uint8_t>(value & 0xFF));
                rom.writeByte(offset + 1, static_cast<std::uint8_t>(value >> 8));
                return std::nullopt;
            }};
}

Field limited(Field field, std::uint32_t largest)
{
    field.largest = largest;
    return field;
}

Field found(Field field, const FileOffsets& by)
{
    field.bytes.insert(field.bytes.begin(), by.begin(), by.end());
    return field;
}

std::uint32_t blockByte(const PointerArrayHandler& handler, std::uint32_t offset)
{
    return handler.dataFileOffset(handler.pointerOf(handler.currentRoom(), offset));
}

FileOffsets roomPointers(const RoomDataStore& store, std::uint32_t room,
                         std::initializer_list<PointerArrayHandler RoomDataStore::*> tables)
{
    FileOffsets pointers;
    for (const auto table : tables) {
        const FileOffsets entry = entryOffsets(store.*table, room);
        pointers.insert(pointers.end(), entry.begin(), entry.end());
    }
    return pointers;
}

FileOffsets screenListBytes(const EditorState& state, std::uint32_t room, std::uint32_t mostWords)
{
    const PointerArrayHandler& lists = state.store.pahMapAlloc;
    FileOffsets bytes = entryOffsets(lists, room);
    for (std::uint32_t i = 0; i < mostWords; ++i) {
        const FileOffsets word = neighbours(lists.dataFileOffset(lists.pointerOf(room, 2 * i)), 2);
        bytes.insert(bytes.end(), word.begin(), word.end());
        if (!liesInFile(state.rom, word) || lists.dataWord(2 * i, room) == kScreenListEnd)
            break;
    }
    return bytes;
}

std::optional<Field> fieldPastEnd(const EditorState& state, const FileOffsets& bytes)
{
    if (liesInFile(state.rom, bytes))
        return std::nullopt;
    return Field{.bytes = bytes};
}

} // namespace velko
