#include "automation/convert.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "automation/number_reader.h"
#include "automation/object.h"
#include "automation/run_time_error.h"

namespace automation {
namespace {

constexpr double kCurrencyUnits = 10000;

[[noreturn]] void throw_type_mismatch() {
    throw RunTimeError(ErrorNumber::TypeMismatch);
}

// What an object stands for in an expression: the value of its default member, which may be an
// object again.
Value default_value(std::shared_ptr<Object> object) {
    constexpr int kDeepest = 16;
    for (int depth = 0; depth < kDeepest; ++depth) {
        if (!object) {
            throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
        }
        Value value = object->invoke(kDefaultMember, Access::Call, {});
        const auto* next = value.get_if<std::shared_ptr<Object>>();
        if (next == nullptr) {
            return value;
        }
        object = *next;
    }
    throw RunTimeError(ErrorNumber::PropertyOrMethodNotSupported);
}

double number_of(std::string_view text) {
    const auto number = read_whole_number(text);
    if (!number) {
        throw_type_mismatch();
    }
    if (!std::isfinite(*number)) {
        throw RunTimeError(ErrorNumber::Overflow);
    }
    return *number;
}

struct NumberOf {
    double operator()(Empty) const { return 0; }

    double operator()(Null) const { throw RunTimeError(ErrorNumber::InvalidUseOfNull); }

    double operator()(bool truth) const { return truth ? -1 : 0; }

    double operator()(std::uint8_t number) const { return number; }

    double operator()(std::int16_t number) const { return number; }

    double operator()(std::int32_t number) const { return number; }

    double operator()(float number) const { return number; }

    double operator()(double number) const { return number; }

    double operator()(Currency amount) const {
        return static_cast<double>(amount.units) / kCurrencyUnits;
    }

    double operator()(Date date) const { return date.days; }

    double operator()(const Text& text) const { return number_of(text.to_code_page()); }

    double operator()(ErrorValue) const { throw_type_mismatch(); }

    double operator()(const std::shared_ptr<Object>& object) const {
        return default_value(object).visit(*this);
    }

    double operator()(const std::shared_ptr<Array>&) const { throw_type_mismatch(); }
};

struct TextOf {
    std::string operator()(Empty) const { return {}; }

    std::string operator()(Null) const { throw RunTimeError(ErrorNumber::InvalidUseOfNull); }

    std::string operator()(std::uint8_t number) const { return std::to_string(number); }

    std::string operator()(std::int16_t number) const { return std::to_string(number); }

    std::string operator()(std::int32_t number) const { return std::to_string(number); }

    template <typename T>

    requires requires(T value) { text_of(value); }

    std::string operator()(T value) const { return text_of(value); }

    std::string operator()(const Text& text) const { return text.to_code_page(); }

    std::string operator()(ErrorValue error) const {
        return "Error " + std::to_string(error.number);
    }

    std::string operator()(const std::shared_ptr<Object>& object) const {
        return default_value(object).visit(*this);
    }

    std::string operator()(const std::shared_ptr<Array>&) const { throw_type_mismatch(); }
};

struct TypeName {
    Kind kind;
    std::string_view name;
};

// Every kind but objects, which have names of their own.
constexpr auto kTypeNames = std::to_array<TypeName>({
    {Kind::Empty, "Empty"},
    {Kind::Null, "Null"},
    {Kind::Integer, "Integer"},
    {Kind::Long, "Long"},
    {Kind::Single, "Single"},
    {Kind::Double, "Double"},
    {Kind::Currency, "Currency"},
    {Kind::Date, "Date"},
    {Kind::String, "String"},
    {Kind::Error, "Error"},
    {Kind::Boolean, "Boolean"},
    {Kind::Byte, "Byte"},
    {Kind::Array, "Variant()"},
});

double number_of(const Value& value) {
    return value.visit(NumberOf{});
}

Currency checked_currency(double amount) {
    constexpr double kLimit = 9223372036854775808.0;
    const double units = round_half_even(amount * kCurrencyUnits);
    const bool fits = units >= -kLimit && units < kLimit;
    if (!fits) {
        throw RunTimeError(ErrorNumber::Overflow);
    }
    return {static_cast<std::int64_t>(units)};
}

// A number of days outside the calendar is an overflow of the conversion.
Date checked_date(double days) {
    try {
        static_cast<void>(date_time_of({days}));
    } catch (const RunTimeError&) {
        throw RunTimeError(ErrorNumber::Overflow);
    }
    return {days};
}

}  // namespace

bool to_boolean(const Value& value) {
    if (const auto* truth = value.get_if<bool>()) {
        return *truth;
    }
    if (const auto* text = value.get_if<Text>()) {
        const auto truth = parse_boolean(text->to_code_page());
        return truth ? *truth : number_of(value) != 0;
    }
    if (const auto* object = value.get_if<std::shared_ptr<Object>>()) {
        return to_boolean(default_value(*object));
    }
    return number_of(value) != 0;
}

std::uint8_t to_byte(const Value& value) {
    if (const auto* truth = value.get_if<bool>()) {
        return *truth ? std::numeric_limits<std::uint8_t>::max() : std::uint8_t{0};
    }
    return checked_byte(number_of(value));
}

std::int16_t to_int16(const Value& value) {
    if (const auto* number = value.get_if<std::int16_t>()) {
        return *number;
    }
    return checked_int16(number_of(value));
}

std::int32_t to_int32(const Value& value) {
    if (const auto* number = value.get_if<std::int32_t>()) {
        return *number;
    }
    return checked_int32(number_of(value));
}

float to_single(const Value& value) {
    const double number = number_of(value);
    if (std::abs(number) > double{std::numeric_limits<float>::max()}) {
        throw RunTimeError(ErrorNumber::Overflow);
    }
    return static_cast<float>(number);
}

double to_double(const Value& value) {
    return number_of(value);
}

Currency to_currency(const Value& value) {
    if (const auto* amount = value.get_if<Currency>()) {
        return *amount;
    }
    return checked_currency(number_of(value));
}

Date to_date(const Value& value) {
    if (const auto* date = value.get_if<Date>()) {
        return *date;
    }
    if (const auto* text = value.get_if<Text>()) {
        if (const auto date = parse_date(text->to_code_page())) {
            return *date;
        }
    }
    if (const auto* object = value.get_if<std::shared_ptr<Object>>()) {
        return to_date(default_value(*object));
    }
    return checked_date(number_of(value));
}

std::string to_text(const Value& value) {
    return value.visit(TextOf{});
}

Text to_wide_text(const Value& value) {
    if (const auto* text = value.get_if<Text>()) {
        return *text;
    }
    if (const auto* object = value.get_if<std::shared_ptr<Object>>()) {
        return to_wide_text(default_value(*object));
    }
    return Text::from_code_page(to_text(value));
}

std::shared_ptr<Object> to_object(const Value& value) {
    const auto* object = value.get_if<std::shared_ptr<Object>>();
    if (object == nullptr) {
        throw RunTimeError(ErrorNumber::ObjectRequired);
    }
    return *object;
}

std::string type_name(const Value& value) {
    if (const auto* object = value.get_if<std::shared_ptr<Object>>()) {
        return *object ? (*object)->type_name() : "Nothing";
    }
    return std::string(std::ranges::find(kTypeNames, value.kind(), &TypeName::kind)->name);
}

std::int16_t var_type(const Value& value) {
    constexpr std::int16_t kArrayOfValues = 8204;
    const Kind kind = value.kind();
    return kind == Kind::Array ? kArrayOfValues : static_cast<std::int16_t>(kind);
}

}  // namespace automation
