#include "vbscript/machine/listing.h"

namespace vbscript {

namespace {

std::string arena_place(const Code& code, std::int32_t index) {
    const auto first = static_cast<std::int32_t>(code.first_constant());
    const auto count = static_cast<std::int32_t>(code.constant_count());
    if (index >= first && index < first + count) {
        return "k" + std::to_string(index - first);
    }
    return "g" + std::to_string(index);
}

std::string place_text(const Code& code, std::int32_t place) {
    const bool is_far = place < 0;
    const std::int32_t distance = is_far ? place + kFarBias : place;
    const std::int32_t index = distance / static_cast<std::int32_t>(sizeof(Value));
    if (is_far == code.is_outside) {
        return "r" + std::to_string(index);
    }
    return arena_place(code, index);
}

std::string field_text(const Code& code, char kind, std::int32_t field, std::size_t line) {
    switch (kind) {
        case 'v':
        case 'w':
            return " " + place_text(code, field);
        case 'j':
            return " ->" + std::to_string(static_cast<std::int64_t>(line) + field);
        case 'n':
            return " #" + std::to_string(field);
        default:
            return {};
    }
}

}  // namespace

std::string listing(const Code& code) {
    std::string text;
    for (std::size_t line = 0; line < code.instructions.size(); ++line) {
        const Instruction& instruction = code.instructions[line];
        const OpRow& row = row_of(instruction.op);
        text.append(row.name);
        text += field_text(code, row.fields[0], instruction.a, line);
        text += field_text(code, row.fields[1], instruction.b, line);
        text += field_text(code, row.fields[2], instruction.c, line);
        if (instruction.extra != 0) {
            text += " ; " + std::to_string(instruction.extra);
        }
        text += '\n';
    }
    return text;
}

}  // namespace vbscript
