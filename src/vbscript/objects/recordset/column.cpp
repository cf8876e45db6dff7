#include "vbscript/objects/recordset/column.h"

#include <algorithm>
#include <array>
#include <compare>

#include "vbscript/objects/object_errors.h"
#include "vbscript/value/convert.h"
#include "vbscript/value/operators.h"

namespace vbscript {
namespace {

struct TypeRow {
    std::int32_t type;
    ColumnKind kind;
};

constexpr auto kTypes = std::to_array<TypeRow>({
    {2, ColumnKind::Integer},   // adSmallInt
    {3, ColumnKind::Long},      // adInteger
    {4, ColumnKind::Single},    // adSingle
    {5, ColumnKind::Double},    // adDouble
    {6, ColumnKind::Currency},  // adCurrency
    {7, ColumnKind::Date},      // adDate
    {8, ColumnKind::Text},      // adBSTR
    {11, ColumnKind::Boolean},  // adBoolean
    {12, ColumnKind::Any},      // adVariant
    {14, ColumnKind::Double},   // adDecimal
    {16, ColumnKind::Integer},  // adTinyInt
    {17, ColumnKind::Byte},     // adUnsignedTinyInt
    {18, ColumnKind::Long},     // adUnsignedSmallInt
    {19, ColumnKind::Double},   // adUnsignedInt
    {20, ColumnKind::Double},   // adBigInt
    {72, ColumnKind::Text},     // adGUID
    {129, ColumnKind::Text},    // adChar
    {130, ColumnKind::Text},    // adWChar
    {131, ColumnKind::Double},  // adNumeric
    {133, ColumnKind::Date},    // adDBDate
    {134, ColumnKind::Date},    // adDBTime
    {135, ColumnKind::Date},    // adDBTimeStamp
    {200, ColumnKind::Text},    // adVarChar
    {201, ColumnKind::Text},    // adLongVarChar
    {202, ColumnKind::Text},    // adVarWChar
    {203, ColumnKind::Text},    // adLongVarWChar
});

[[nodiscard]] bool is_nothing_to_compare(const Value& value) noexcept {
    return value.is(Type::Null) || value.is(Type::Empty);
}

[[nodiscard]] double number_of(const Value& value) noexcept {
    constexpr double kCurrencyUnits = 10000;
    switch (value.type()) {
        case Type::Single:
        case Type::Double:
        case Type::Date:
            return value.real();
        case Type::Currency:
            return static_cast<double>(value.currency().units) / kCurrencyUnits;
        case Type::Boolean:
        case Type::Byte:
        case Type::Integer:
        case Type::Long:
            return value.number();
        default:
            return 0;
    }
}

[[nodiscard]] int order_of(double left, double right) noexcept {
    if (left == right) {
        return 0;
    }
    return left < right ? -1 : 1;
}

[[nodiscard]] Value converted(Context& context, ColumnKind kind, const Value& value) {
    switch (kind) {
        case ColumnKind::Boolean:
            return Value(to_boolean(context, value));
        case ColumnKind::Byte:
            return Value(to_byte(context, value));
        case ColumnKind::Integer:
            return Value(to_integer(context, value));
        case ColumnKind::Long:
            return Value(to_long(context, value));
        case ColumnKind::Single:
            return Value(to_single(context, value));
        case ColumnKind::Double:
            return Value(to_double(context, value));
        case ColumnKind::Currency:
            return Value(to_currency(context, value));
        case ColumnKind::Date:
            return Value(to_date(context, value));
        case ColumnKind::Text:
            return Value(to_text(context, value));
        case ColumnKind::Any:
            break;
    }
    return value;
}

}  // namespace

bool Column::may_be_null() const noexcept {
    constexpr std::int32_t kIsNullable = 0x20;
    constexpr std::int32_t kMayBeNull = 0x40;
    return (attributes & (kIsNullable | kMayBeNull)) != 0;
}

std::optional<ColumnKind> column_kind(std::int32_t type) noexcept {
    const auto* row = std::ranges::find(kTypes, type, &TypeRow::type);
    return row == kTypes.end() ? std::nullopt : std::optional(row->kind);
}

std::int32_t fixed_size(ColumnKind kind) noexcept {
    switch (kind) {
        case ColumnKind::Byte:
            return 1;
        case ColumnKind::Boolean:
        case ColumnKind::Integer:
            return 2;
        case ColumnKind::Long:
        case ColumnKind::Single:
            return 4;
        case ColumnKind::Double:
        case ColumnKind::Currency:
        case ColumnKind::Date:
            return 8;
        case ColumnKind::Any:
            return 16;
        case ColumnKind::Text:
            break;
    }
    return 0;
}

Value value_for(Context& context, const Column& column, const Value& value) {
    Value plain = context.plain(value);
    if (is_nothing_to_compare(plain)) {
        return plain;
    }
    Value kept = [&] {
        try {
            return converted(context, column.kind, plain);
        } catch (const ScriptError&) {
            throw object_error(ObjectError::WrongValueType);
        }
    }();
    const bool has_limit = column.kind == ColumnKind::Text && column.size > 0;
    if (has_limit && kept.units().size() > static_cast<std::size_t>(column.size)) {
        throw object_error(ObjectError::ValueTooLong);
    }
    return kept;
}

int compare_in_column(ColumnKind kind, const Value& left, const Value& right) noexcept {
    const bool left_is_nothing = is_nothing_to_compare(left);
    const bool right_is_nothing = is_nothing_to_compare(right);
    if (left_is_nothing || right_is_nothing) {
        return static_cast<int>(right_is_nothing) - static_cast<int>(left_is_nothing);
    }
    if (kind != ColumnKind::Any && kind != ColumnKind::Text) {
        return order_of(number_of(left), number_of(right));
    }
    const bool left_is_text = left.is(Type::String);
    const bool right_is_text = right.is(Type::String);
    if (left_is_text && right_is_text) {
        return compare_text(left.units(), right.units(), true);
    }
    if (left_is_text || right_is_text) {
        return left_is_text ? 1 : -1;
    }
    return order_of(number_of(left), number_of(right));
}

}  // namespace vbscript
