#include <array>

#include "automation/code_page.h"
#include "vbscript/library/text.h"
#include "vbscript/library/text_arguments.h"
#include "vbscript/value/byte_text.h"

namespace vbscript {
namespace {

[[noreturn]] void throw_invalid_call() {
    throw ScriptError(ErrorNumber::InvalidProcedureCall);
}

char16_t first_unit(const String& text) {
    if (text.units().empty()) {
        throw_invalid_call();
    }
    return text.units().front();
}

// In the code page; what it does not have is a question mark.
Value code_of_character(Context& context, Arguments arguments) {
    const char16_t unit = first_unit(*to_text(context, arguments[0]));
    const std::string byte = automation::utf16_to_code_page(std::u16string_view(&unit, 1));
    return Value(static_cast<std::int16_t>(static_cast<unsigned char>(byte.front())));
}

Value code_of_unit(Context& context, Arguments arguments) {
    return Value(static_cast<std::int16_t>(first_unit(*to_text(context, arguments[0]))));
}

Value first_byte(Context& context, Arguments arguments) {
    constexpr unsigned int kByte = 0xFF;
    return Value(static_cast<std::int16_t>(first_unit(*to_text(context, arguments[0])) & kByte));
}

std::string byte_of(Context& context, const Value& argument) {
    constexpr std::int32_t kMost = 255;
    const std::int32_t code = to_long(context, argument);
    if (code < 0 || code > kMost) {
        throw_invalid_call();
    }
    return std::string(1, static_cast<char>(code));
}

Value character_of_code(Context& context, Arguments arguments) {
    return Value(automation::code_page_to_utf16(byte_of(context, arguments[0])));
}

Value unit_of_code(Context& context, Arguments arguments) {
    constexpr std::int32_t kLeast = -32768;
    constexpr std::int32_t kMost = 65535;
    const std::int32_t code = to_long(context, arguments[0]);
    if (code < kLeast || code > kMost) {
        throw_invalid_call();
    }
    return Value(std::u16string(1, static_cast<char16_t>(code)));
}

Value text_of_byte(Context& context, Arguments arguments) {
    return Value(text_of_bytes(byte_of(context, arguments[0])));
}

constexpr std::u16string_view kHexadecimal = u"0123456789ABCDEF";
constexpr std::u16string_view kNotEscaped =
    u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789@*_+-./";
constexpr std::size_t kShortDigits = 2;  // "%E9"
constexpr std::size_t kLongDigits = 4;   // "%u20AC"

void append_hexadecimal(std::u16string& text, unsigned int number, std::size_t digits) {
    while (digits-- > 0) {
        text.push_back(kHexadecimal[number >> digits * 4 & 0xFU]);
    }
}

Value escaped(Context& context, Arguments arguments) {
    constexpr char16_t kLastOfOneByte = 0xFF;
    const Ref<String> text = to_text(context, arguments[0]);
    std::u16string result;
    result.reserve(text->units().size());
    for (const char16_t unit : text->units()) {
        if (kNotEscaped.find(unit) != std::u16string_view::npos) {
            result.push_back(unit);
        } else if (unit <= kLastOfOneByte) {
            result.push_back(u'%');
            append_hexadecimal(result, unit, kShortDigits);
        } else {
            result.append(u"%u");
            append_hexadecimal(result, unit, kLongDigits);
        }
    }
    if (result.size() > String::kMaximumUnits) {
        throw ScriptError(ErrorNumber::OutOfStringSpace);
    }
    return Value(std::move(result));
}

std::optional<char16_t> read_hexadecimal(std::u16string_view text, std::size_t digits) {
    if (text.size() < digits) {
        return std::nullopt;
    }
    unsigned int number = 0;
    for (const char16_t unit : text.substr(0, digits)) {
        const std::size_t digit = kHexadecimal.find(to_upper(unit));
        if (digit == std::u16string_view::npos) {
            return std::nullopt;
        }
        number = number << 4 | static_cast<unsigned int>(digit);
    }
    return static_cast<char16_t>(number);
}

// A percent sign without the digits of a unit is itself.
Value unescaped(Context& context, Arguments arguments) {
    const Ref<String> text = to_text(context, arguments[0]);
    std::u16string_view rest = text->units();
    std::u16string result;
    result.reserve(rest.size());
    while (!rest.empty()) {
        const bool is_long = rest.starts_with(u"%u");
        const std::size_t mark = is_long ? 2 : 1;
        const std::size_t digits = is_long ? kLongDigits : kShortDigits;
        const auto unit = rest.front() == u'%' ? read_hexadecimal(rest.substr(mark), digits)
                                               : std::optional<char16_t>();
        result.push_back(unit.value_or(rest.front()));
        rest.remove_prefix(unit ? mark + digits : 1);
    }
    return Value(std::move(result));
}

constexpr auto kFunctions = std::to_array<LibraryFunction>({
    {u"Asc", 1, 1, code_of_character},
    {u"AscB", 1, 1, first_byte},
    {u"AscW", 1, 1, code_of_unit},
    {u"Chr", 1, 1, character_of_code},
    {u"ChrB", 1, 1, text_of_byte},
    {u"ChrW", 1, 1, unit_of_code},
    {u"Escape", 1, 1, escaped},
    {u"Unescape", 1, 1, unescaped},
});

}  // namespace

std::span<const LibraryFunction> character_functions() {
    return kFunctions;
}

}  // namespace vbscript
