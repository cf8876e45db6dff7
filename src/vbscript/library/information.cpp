#include <algorithm>
#include <array>

#include "vbscript/library/arrays.h"
#include "vbscript/library/text_arguments.h"
#include "vbscript/value/array.h"
#include "vbscript/value/date_parts.h"

namespace vbscript {
namespace {

struct TypeRow {
    Type type;
    std::u16string_view name;
    std::int16_t number;
};

// All sub-types but objects, which have names of their own.
constexpr auto kTypes = std::to_array<TypeRow>({
    {Type::Empty, u"Empty", 0},
    {Type::Null, u"Null", 1},
    {Type::Boolean, u"Boolean", 11},
    {Type::Byte, u"Byte", 17},
    {Type::Integer, u"Integer", 2},
    {Type::Long, u"Long", 3},
    {Type::Single, u"Single", 4},
    {Type::Double, u"Double", 5},
    {Type::Currency, u"Currency", 6},
    {Type::Date, u"Date", 7},
    {Type::Error, u"Error", 10},
    {Type::String, u"String", 8},
    {Type::Object, u"Object", 9},
    {Type::Array, u"Variant()", 8204},
});

const TypeRow& row_of(Type type) {
    return *std::ranges::find(kTypes, type, &TypeRow::type);
}

// An object with a default member stands for its value, any other for itself.
Value default_or_self(Context& context, const Value& value) {
    const bool has_value =
        value.is(Type::Object) && value.object() != nullptr && value.object()->has_default_member();
    return has_value ? context.plain(value) : value;
}

template <Type type>
Value is_type(Context& /*context*/, Arguments arguments) {
    return Value(arguments[0].is(type));
}

Value is_numeric(Context& context, Arguments arguments) {
    const Value value = default_or_self(context, arguments[0]);
    if (value.is(Type::String)) {
        return Value(parse_number(context.locale(), value.units()).has_value());
    }
    const bool is_number = value.type() >= Type::Boolean && value.type() <= Type::Currency;
    return Value(is_number || value.is(Type::Empty));
}

Value is_date(Context& context, Arguments arguments) {
    const Value value = default_or_self(context, arguments[0]);
    if (value.is(Type::String)) {
        const int year = parts_of(context.now()).value_or(DateParts{}).year;
        return Value(parse_date(context.locale(), value.units(), year).has_value());
    }
    return Value(value.is(Type::Date));
}

Value type_name(Context& /*context*/, Arguments arguments) {
    const Value& value = arguments[0];
    if (!value.is(Type::Object)) {
        return Value(row_of(value.type()).name);
    }
    if (value.object() == nullptr) {
        return Value(u"Nothing");
    }
    return Value(value.object()->type_name());
}

Value type_number(Context& context, Arguments arguments) {
    return Value(row_of(default_or_self(context, arguments[0]).type()).number);
}

constexpr auto kFunctions = std::to_array<LibraryFunction>({
    {u"IsArray", 1, 1, is_type<Type::Array>},
    {u"IsDate", 1, 1, is_date},
    {u"IsEmpty", 1, 1, is_type<Type::Empty>},
    {u"IsNull", 1, 1, is_type<Type::Null>},
    {u"IsNumeric", 1, 1, is_numeric},
    {u"IsObject", 1, 1, is_type<Type::Object>},
    {u"TypeName", 1, 1, type_name},
    {u"VarType", 1, 1, type_number},
});

}  // namespace

std::span<const LibraryFunction> information_functions() {
    return kFunctions;
}

}  // namespace vbscript
