#pragma once

#include "state/editor_state.h"
#include "store/file_offsets.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace velko {

// A value of the game that a name tells. It refers to the state that it was found in.
struct Field {
    // Why a value was refused, if it was.
    using Refusal = std::optional<std::string>;

    std::uint32_t value = 0;
    // What may be written: the numbers that the windows offer.
    std::uint32_t smallest = 0;
    std::uint32_t largest = 0xFF;
    std::uint32_t step = 1;                 // counted from 0
    std::optional<std::uint32_t> also = {}; // a number besides
    // The bytes that tell the value, and those that tell where they lie. Of a field with any of
    // them past the end of the file the value means nothing.
    FileOffsets bytes = {};
    // The bytes besides that tell what may be written. With any of them past the end of the file
    // the value can only be read.
    FileOffsets boundBytes = {};
    // Writes a value that allows() into the ROM image; of a refused one nothing. Empty where the
    // value can only be read.
    std::function<Refusal(std::uint32_t)> set = {};

    bool allows(std::uint32_t number) const
    {
        return number == also || (number >= smallest && number <= largest && number % step == 0);
    }
};

// A field, or the reason why the game has none of that name.
using FieldResult = std::variant<Field, std::string>;
// The numbers of a name, in its order.
using FieldNumbers = std::span<const std::uint32_t>;

// A kind of fields. The words of `pattern` in capitals stand for numbers.
struct FieldRule {
    std::string_view pattern; // "room.R.palette.N"
    std::string_view bounds;  // what may be written, for the documentation
    std::string_view tells;
    FieldResult (*find)(EditorState& state, FieldNumbers numbers);
};

// All kinds of fields, in the order of the documentation.
std::vector<FieldRule> fieldRules();

// The field of a name like "room.12.palette.5": words and hexadecimal numbers between dots, two
// numbers of one word between commas. Selects the room that it names.
FieldResult findField(EditorState& state, std::string_view name);

} // namespace velko
