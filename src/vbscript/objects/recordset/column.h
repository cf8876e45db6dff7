#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "vbscript/value/context.h"

namespace vbscript {

// What a column of a record set holds. Several of the types that a script may ask for hold the
// same.
enum class ColumnKind : std::uint8_t {
    Boolean,
    Byte,
    Integer,
    Long,
    Single,
    Double,
    Currency,
    Date,
    Text,
    Any,
};

// A column as `Fields.Append` describes it.
struct Column {
    std::u16string name;
    std::int32_t type = 0;
    std::int32_t size = 0;  // most characters of a text, 0 for any number
    std::int32_t attributes = 0;
    ColumnKind kind = ColumnKind::Any;

    [[nodiscard]] bool may_be_null() const noexcept;
};

// Absent for a number that is no type of a column.
[[nodiscard]] std::optional<ColumnKind> column_kind(std::int32_t type) noexcept;

// Bytes that the type itself takes, 0 where that is up to the size.
[[nodiscard]] std::int32_t fixed_size(ColumnKind kind) noexcept;

// The value as the column keeps it; Null and Empty stay.
// Throws: ScriptError 3421 for a value of another type, -2147217887 for a text that is too long.
[[nodiscard]] Value value_for(Context& context, const Column& column, const Value& value);

// The order of two values of one column: Null and Empty first, texts without regard to case.
[[nodiscard]] int compare_in_column(ColumnKind kind, const Value& left,
                                    const Value& right) noexcept;

}  // namespace vbscript
