#include "vbscript/library/text.h"

#include <algorithm>
#include <array>

#include "automation/code_page.h"
#include "vbscript/library/text_arguments.h"

namespace vbscript {
namespace {

// `count` units from `begin` on, at most to the end. The whole is shared, not copied.
Value part_of(const Ref<String>& text, std::size_t begin, std::size_t count) {
    const std::u16string_view units = text->units();
    if (begin == 0 && count >= units.size()) {
        return Value(text);
    }
    if (begin >= units.size()) {
        return Value(u"");
    }
    auto part = make<String>(units.substr(begin, count));
    part->set_half_unit(text->has_half_unit() && count >= units.size() - begin);
    return Value(part);
}

Value length(Context& context, Arguments arguments) {
    const Value value = plain_argument(context, arguments, 0);
    if (value.is(Type::Null)) {
        return Value(kNull);
    }
    return long_value(to_text(context, value)->units().size());
}

Value left(Context& context, Arguments arguments) {
    const Value value = plain_argument(context, arguments, 0);
    const std::size_t count = count_of(context, arguments[1]);
    if (value.is(Type::Null)) {
        return Value(kNull);
    }
    return part_of(to_text(context, value), 0, count);
}

Value right(Context& context, Arguments arguments) {
    const Value value = plain_argument(context, arguments, 0);
    const std::size_t count = count_of(context, arguments[1]);
    if (value.is(Type::Null)) {
        return Value(kNull);
    }
    const Ref<String> text = to_text(context, value);
    const std::size_t size = text->units().size();
    return part_of(text, size - std::min(count, size), count);
}

Value middle(Context& context, Arguments arguments) {
    const Value value = plain_argument(context, arguments, 0);
    const std::size_t start = count_of(context, arguments[1], 1);
    const std::size_t count =
        is_given(arguments, 2) ? count_of(context, arguments[2]) : String::kMaximumUnits;
    if (value.is(Type::Null)) {
        return Value(kNull);
    }
    return part_of(to_text(context, value), start - 1, count);
}

enum class Ends : std::uint8_t { Left, Right, Both };

template <Ends ends>
Value trimmed(Context& context, Arguments arguments) {
    const Value value = plain_argument(context, arguments, 0);
    if (value.is(Type::Null)) {
        return Value(kNull);
    }
    const Ref<String> text = to_text(context, value);
    const std::u16string_view units = text->units();
    std::size_t begin = 0;
    std::size_t end = units.size();
    if (ends != Ends::Right) {
        begin = std::min(units.find_first_not_of(u' '), end);
    }
    if (ends != Ends::Left) {
        end = std::max(units.find_last_not_of(u' ') + 1, begin);
    }
    return part_of(text, begin, end - begin);
}

template <char16_t (*in_case)(char16_t) noexcept>
Value in_other_case(Context& context, Arguments arguments) {
    const Value value = plain_argument(context, arguments, 0);
    if (value.is(Type::Null)) {
        return Value(kNull);
    }
    const Ref<String> text = to_text(context, value);
    const std::u16string_view units = text->units();
    const auto changes = [](char16_t unit) { return in_case(unit) != unit; };
    const auto first = std::ranges::find_if(units, changes);
    if (first == units.end()) {
        return Value(text);
    }
    std::u16string result(units);
    std::transform(first, units.end(), result.begin() + (first - units.begin()), in_case);
    return Value(std::move(result));
}

Value reversed(Context& context, Arguments arguments) {
    const Ref<String> text = to_text(context, arguments[0]);
    const std::u16string_view units = text->units();
    return Value(std::u16string(units.rbegin(), units.rend()));
}

Value repeated(std::size_t count, char16_t unit) {
    if (count > String::kMaximumUnits) {
        throw ScriptError(ErrorNumber::OutOfStringSpace);
    }
    return Value(std::u16string(count, unit));
}

Value spaces(Context& context, Arguments arguments) {
    return repeated(count_of(context, arguments[0]), u' ');
}

// The first of a text, or the character of a number in the code page.
char16_t repeated_unit(Context& context, const Value& value) {
    constexpr std::int32_t kCharacters = 256;
    if (value.is(Type::String)) {
        if (value.units().empty()) {
            throw ScriptError(ErrorNumber::InvalidProcedureCall);
        }
        return value.units().front();
    }
    const std::int32_t rest = to_long(context, value) % kCharacters;
    const std::string byte(1, static_cast<char>(rest < 0 ? rest + kCharacters : rest));
    return automation::code_page_to_utf16(byte).front();
}

Value repeated_character(Context& context, Arguments arguments) {
    const Value count = plain_argument(context, arguments, 0);
    const Value character = plain_argument(context, arguments, 1);
    if (count.is(Type::Null) || character.is(Type::Null)) {
        return Value(kNull);
    }
    return repeated(count_of(context, count), repeated_unit(context, character));
}

constexpr auto kFunctions = std::to_array<LibraryFunction>({
    {u"LCase", 1, 1, in_other_case<to_lower>},
    {u"Left", 2, 2, left},
    {u"Len", 1, 1, length},
    {u"LTrim", 1, 1, trimmed<Ends::Left>},
    {u"Mid", 2, 3, middle},
    {u"Right", 2, 2, right},
    {u"RTrim", 1, 1, trimmed<Ends::Right>},
    {u"Space", 1, 1, spaces},
    {u"String", 2, 2, repeated_character},
    {u"StrReverse", 1, 1, reversed},
    {u"Trim", 1, 1, trimmed<Ends::Both>},
    {u"UCase", 1, 1, in_other_case<to_upper>},
});

}  // namespace

std::span<const LibraryFunction> text_functions() {
    return kFunctions;
}

}  // namespace vbscript
