#include "vbscript/library/formatting.h"

#include <array>
#include <string>

#include "vbscript/library/decimal_digits.h"
#include "vbscript/library/optional_arguments.h"
#include "vbscript/value/convert.h"
#include "vbscript/value/date_parts.h"
#include "vbscript/value/locale.h"
#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

using Given = std::span<const Value>;

[[noreturn]] void throw_invalid_call() {
    throw ScriptError(ErrorNumber::InvalidProcedureCall);
}

// --- numbers -------------------------------------------------------------------------------------

enum class Choice : std::uint8_t { Locale, Yes, No };

[[nodiscard]] Choice choice_of(Context& context, Given arguments, std::size_t index) {
    constexpr std::int32_t kDefault = -2;
    switch (long_or(context, arguments, index, kDefault)) {
        case kDefault:
            return Choice::Locale;
        case -1:
            return Choice::Yes;
        case 0:
            return Choice::No;
        default:
            throw_invalid_call();
    }
}

[[nodiscard]] bool is_chosen(Choice choice, bool of_locale) noexcept {
    return choice == Choice::Locale ? of_locale : choice == Choice::Yes;
}

// What the three functions share: which digits, and how a negative amount looks.
struct NumberFormat {
    int places = 0;
    bool leading_zero = true;
    Choice brackets = Choice::Locale;
    bool grouped = true;
};

[[nodiscard]] NumberFormat format_of(Context& context, Given arguments, int usual_places) {
    constexpr std::int32_t kUsual = -1;
    constexpr std::int32_t kMostPlaces = 255;
    const std::int32_t places = long_or(context, arguments, 1, kUsual);
    if (places < kUsual || places > kMostPlaces) {
        throw_invalid_call();
    }
    NumberFormat format;
    format.places = places == kUsual ? usual_places : places;
    format.leading_zero =
        is_chosen(choice_of(context, arguments, 2), context.locale().leading_zero);
    format.brackets = choice_of(context, arguments, 3);
    format.grouped = is_chosen(choice_of(context, arguments, 4), true);
    return format;
}

[[nodiscard]] DecimalDigits digits_of(Context& context, const Value& value) {
    if (value.is(Type::Currency)) {
        return DecimalDigits(value.currency());
    }
    return DecimalDigits(to_double(context, value));
}

[[nodiscard]] std::u16string grouped(const Locale& locale, const std::string& digits) {
    std::u16string text;
    const auto group = static_cast<std::size_t>(locale.group_size);
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && group > 0 && (digits.size() - i) % group == 0) {
            text += locale.grouping_mark;
        }
        text += static_cast<char16_t>(digits[i]);
    }
    return text;
}

// The digits with their marks, without a sign. `number` is rounded already.
[[nodiscard]] std::u16string digit_text(const Locale& locale, const NumberFormat& format,
                                        const DecimalDigits& number) {
    const std::string whole = number.whole();
    std::u16string text =
        format.grouped ? grouped(locale, whole) : std::u16string(whole.begin(), whole.end());
    if (text.empty() && (format.leading_zero || format.places == 0)) {
        text = u"0";
    }
    if (format.places == 0) {
        return text;
    }
    const std::string fraction = number.fraction(format.places);
    text += locale.decimal_mark;
    return text.append(fraction.begin(), fraction.end());
}

struct SignPatterns {
    std::u16string_view positive;
    std::u16string_view negative;
};

// The pattern by which an amount is written: asked-for brackets stand around the positive one.
[[nodiscard]] std::u16string pattern_of(const SignPatterns& patterns, Choice brackets,
                                        bool is_negative) {
    if (!is_negative) {
        return std::u16string(patterns.positive);
    }
    const bool locale_has_brackets = patterns.negative.find(u'(') != std::u16string_view::npos;
    if (brackets == Choice::Locale || (brackets == Choice::Yes) == locale_has_brackets) {
        return std::u16string(patterns.negative);
    }
    const std::u16string positive(patterns.positive);
    return brackets == Choice::Yes ? u"(" + positive + u")" : u"-" + positive;
}

[[nodiscard]] std::u16string filled(std::u16string_view pattern, std::u16string_view digits,
                                    std::u16string_view currency) {
    std::u16string text;
    for (const char16_t unit : pattern) {
        if (unit == u'n') {
            text += digits;
        } else if (unit == u'$') {
            text += currency;
        } else {
            text += unit;
        }
    }
    return text;
}

[[nodiscard]] Value format_digits(const Locale& locale, const NumberFormat& format,
                                  const SignPatterns& patterns, DecimalDigits number) {
    number.round_to(format.places);
    const std::u16string pattern = pattern_of(patterns, format.brackets, number.is_negative());
    return Value(filled(pattern, digit_text(locale, format, number), locale.currency_symbol));
}

[[nodiscard]] Value format_number(Context& context, Given arguments) {
    const Locale& locale = context.locale();
    return format_digits(locale, format_of(context, arguments, locale.digits),
                         {u"n", locale.number_negative}, digits_of(context, arguments[0]));
}

[[nodiscard]] Value format_currency(Context& context, Given arguments) {
    const Locale& locale = context.locale();
    return format_digits(locale, format_of(context, arguments, locale.currency_digits),
                         {locale.currency_positive, locale.currency_negative},
                         digits_of(context, arguments[0]));
}

[[nodiscard]] Value format_percent(Context& context, Given arguments) {
    const Locale& locale = context.locale();
    DecimalDigits number = digits_of(context, arguments[0]);
    number.move_point_right(2);
    return format_digits(locale, format_of(context, arguments, locale.digits),
                         {locale.percent_positive, locale.percent_negative}, std::move(number));
}

// --- dates ---------------------------------------------------------------------------------------

enum DateForm : std::int32_t { kGeneralDate, kLongDate, kShortDate, kLongTime, kShortTime };

[[nodiscard]] Value format_date_time(Context& context, Given arguments) {
    const Locale& locale = context.locale();
    const std::int32_t form = long_or(context, arguments, 1, kGeneralDate);
    if (form < kGeneralDate || form > kShortTime) {
        throw_invalid_call();
    }
    const Date date = to_date(context, arguments[0]);
    if (form == kGeneralDate) {
        return Value(text_of_date(locale, date));
    }
    const auto parts = parts_of(date);
    if (!parts) {
        throw ScriptError(ErrorNumber::Overflow);
    }
    switch (form) {
        case kLongDate:
            return Value(date_text(locale, *parts, locale.long_date));
        case kShortDate:
            return Value(date_text(locale, *parts, locale.short_date));
        case kLongTime:
            return Value(date_text(locale, *parts, locale.long_time));
        default:
            return Value(date_text(locale, *parts, locale.short_time));
    }
}

constexpr auto kFunctions = std::to_array<LibraryFunction>({
    {u"FormatNumber", 1, 5, format_number},
    {u"FormatCurrency", 1, 5, format_currency},
    {u"FormatPercent", 1, 5, format_percent},
    {u"FormatDateTime", 1, 2, format_date_time},
});

}  // namespace

std::span<const LibraryFunction> formatting_functions() {
    return kFunctions;
}

}  // namespace vbscript
