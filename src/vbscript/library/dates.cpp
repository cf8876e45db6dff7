#include "vbscript/library/dates.h"

#include <array>
#include <cmath>
#include <limits>

#include "vbscript/library/date_intervals.h"
#include "vbscript/library/optional_arguments.h"
#include "vbscript/value/convert.h"
#include "vbscript/value/date_parts.h"
#include "vbscript/value/locale.h"
#include "vbscript/value/script_error.h"

namespace vbscript {
namespace {

using Given = std::span<const Value>;

constexpr double kSecondsOfDay = 86400;
constexpr std::int32_t kUseSystem = 0;
constexpr std::int32_t kSunday = 1;
constexpr std::int32_t kSaturday = 7;
constexpr std::int32_t kWeekOfFirstJanuary = 1;
constexpr std::int32_t kFirstFullWeek = 3;

[[noreturn]] void throw_invalid_call() {
    throw ScriptError(ErrorNumber::InvalidProcedureCall);
}

[[nodiscard]] Value integer(int number) {
    return Value(static_cast<std::int16_t>(number));
}

[[nodiscard]] Value date_in_calendar(std::optional<Date> date) {
    if (!date) {
        throw_invalid_call();
    }
    return Value(*date);
}

[[nodiscard]] DateParts parts_of_argument(Context& context, const Value& argument) {
    const auto parts = parts_of(to_date(context, argument));
    if (!parts) {
        throw ScriptError(ErrorNumber::Overflow);
    }
    return *parts;
}

// --- the clock -----------------------------------------------------------------------------------

struct Clock {
    std::int64_t serial;
    double seconds;  // since midnight
};

[[nodiscard]] Clock read_clock(Context& context) {
    const double days = context.now().days;
    const double serial = std::floor(days);
    return {static_cast<std::int64_t>(serial), (days - serial) * kSecondsOfDay};
}

// A moment just at a second may lie a little before it in days.
[[nodiscard]] std::int64_t whole_seconds(const Clock& clock) {
    constexpr double kRounding = 1e-4;
    return static_cast<std::int64_t>(clock.seconds + kRounding);
}

[[nodiscard]] Value now(Context& context, Given /*arguments*/) {
    const Clock clock = read_clock(context);
    return date_in_calendar(date_of(clock.serial, whole_seconds(clock)));
}

[[nodiscard]] Value date(Context& context, Given /*arguments*/) {
    return date_in_calendar(date_of(read_clock(context).serial, 0));
}

[[nodiscard]] Value time(Context& context, Given /*arguments*/) {
    return date_in_calendar(date_of(0, whole_seconds(read_clock(context))));
}

[[nodiscard]] Value timer(Context& context, Given /*arguments*/) {
    return Value(static_cast<float>(read_clock(context).seconds));
}

// --- parts ---------------------------------------------------------------------------------------

[[nodiscard]] int first_weekday(Context& context, Given arguments, std::size_t index) {
    const std::int32_t number = long_or(context, arguments, index, kSunday);
    if (number < kUseSystem || number > kSaturday) {
        throw_invalid_call();
    }
    return number == kUseSystem ? context.locale().first_weekday : number;
}

[[nodiscard]] WeekRule week_rule(Context& context, Given arguments, std::size_t index) {
    const int weekday = first_weekday(context, arguments, index);
    const std::int32_t week = long_or(context, arguments, index + 1, kWeekOfFirstJanuary);
    if (week < kUseSystem || week > kFirstFullWeek) {
        throw_invalid_call();
    }
    return {.first_weekday = weekday,
            .first_week_of_year = week == kUseSystem ? context.locale().first_week_of_year : week};
}

template <Interval interval>
[[nodiscard]] Value part(Context& context, Given arguments) {
    if (arguments[0].is(Type::Null)) {
        return kNull;
    }
    return integer(part_of(interval, parts_of_argument(context, arguments[0]), {}));
}

[[nodiscard]] Value weekday(Context& context, Given arguments) {
    const int first = first_weekday(context, arguments, 1);
    if (arguments[0].is(Type::Null)) {
        return kNull;
    }
    return integer(weekday_from(parts_of_argument(context, arguments[0]), first));
}

[[nodiscard]] Value weekday_name(Context& context, Given arguments) {
    const std::int32_t number = to_long(context, arguments[0]);
    const bool is_short = boolean_or(context, arguments, 1, false);
    const int first = first_weekday(context, arguments, 2);
    if (number < kSunday || number > kSaturday) {
        throw_invalid_call();
    }
    const Locale& locale = context.locale();
    const auto& names = is_short ? locale.short_weekdays : locale.weekdays;
    return Value(names[static_cast<std::size_t>(first + number - 2) % names.size()]);
}

[[nodiscard]] Value month_name(Context& context, Given arguments) {
    const std::int32_t number = to_long(context, arguments[0]);
    const bool is_short = boolean_or(context, arguments, 1, false);
    const Locale& locale = context.locale();
    const auto& names = is_short ? locale.short_months : locale.months;
    if (number < 1 || static_cast<std::size_t>(number) > names.size()) {
        throw_invalid_call();
    }
    return Value(names[static_cast<std::size_t>(number) - 1]);
}

// --- intervals -----------------------------------------------------------------------------------

[[nodiscard]] Interval interval_of(Context& context, const Value& argument) {
    const auto interval = find_interval(to_text(context, argument)->units());
    if (!interval) {
        throw_invalid_call();
    }
    return *interval;
}

[[nodiscard]] Value date_add(Context& context, Given arguments) {
    const Interval interval = interval_of(context, arguments[0]);
    const std::int32_t count = to_long(context, arguments[1]);
    if (arguments[2].is(Type::Null)) {
        return kNull;
    }
    return date_in_calendar(
        add_intervals(interval, count, parts_of_argument(context, arguments[2])));
}

[[nodiscard]] Value date_diff(Context& context, Given arguments) {
    const Interval interval = interval_of(context, arguments[0]);
    const WeekRule weeks = week_rule(context, arguments, 3);
    if (arguments[1].is(Type::Null) || arguments[2].is(Type::Null)) {
        return kNull;
    }
    const std::int64_t count = count_intervals(interval, parts_of_argument(context, arguments[1]),
                                               parts_of_argument(context, arguments[2]), weeks);
    using Limits = std::numeric_limits<std::int32_t>;
    if (count < Limits::min() || count > Limits::max()) {
        throw ScriptError(ErrorNumber::Overflow);
    }
    return Value(static_cast<std::int32_t>(count));
}

[[nodiscard]] Value date_part(Context& context, Given arguments) {
    const Interval interval = interval_of(context, arguments[0]);
    const WeekRule weeks = week_rule(context, arguments, 2);
    if (arguments[1].is(Type::Null)) {
        return kNull;
    }
    return integer(part_of(interval, parts_of_argument(context, arguments[1]), weeks));
}

// --- from parts and texts ------------------------------------------------------------------------

[[nodiscard]] Value date_serial(Context& context, Given arguments) {
    const int year = full_year(to_integer(context, arguments[0]));
    const int month = to_integer(context, arguments[1]);
    const int day = to_integer(context, arguments[2]);
    return date_in_calendar(date_of(serial_of(year, month, day), 0));
}

[[nodiscard]] Value time_serial(Context& context, Given arguments) {
    const int hours = to_integer(context, arguments[0]);
    const int minutes = to_integer(context, arguments[1]);
    const int seconds = to_integer(context, arguments[2]);
    return Value(Date{(hours * 3600 + minutes * 60 + seconds) / kSecondsOfDay});
}

// Only a text or a date is a date; a number must first be one as a text.
[[nodiscard]] DateParts parts_of_text(Context& context, const Value& argument) {
    if (argument.is(Type::Null)) {
        throw ScriptError(ErrorNumber::InvalidUseOfNull);
    }
    if (argument.is(Type::Date)) {
        return parts_of_argument(context, argument);
    }
    return parts_of_argument(context, Value(to_text(context, argument)));
}

[[nodiscard]] Value date_value(Context& context, Given arguments) {
    const DateParts parts = parts_of_text(context, arguments[0]);
    return date_in_calendar(date_of(serial_of(parts.year, parts.month, parts.day), 0));
}

[[nodiscard]] Value time_value(Context& context, Given arguments) {
    const DateParts parts = parts_of_text(context, arguments[0]);
    return date_in_calendar(date_of(0, parts.hour * 3600 + parts.minute * 60 + parts.second));
}

constexpr auto kFunctions = std::to_array<LibraryFunction>({
    {u"Now", 0, 0, now},
    {u"Date", 0, 0, date},
    {u"Time", 0, 0, time},
    {u"Timer", 0, 0, timer},
    {u"Year", 1, 1, part<Interval::Year>},
    {u"Month", 1, 1, part<Interval::Month>},
    {u"Day", 1, 1, part<Interval::Day>},
    {u"Hour", 1, 1, part<Interval::Hour>},
    {u"Minute", 1, 1, part<Interval::Minute>},
    {u"Second", 1, 1, part<Interval::Second>},
    {u"Weekday", 1, 2, weekday},
    {u"WeekdayName", 1, 3, weekday_name},
    {u"MonthName", 1, 2, month_name},
    {u"DateAdd", 3, 3, date_add},
    {u"DateDiff", 3, 5, date_diff},
    {u"DatePart", 2, 4, date_part},
    {u"DateSerial", 3, 3, date_serial},
    {u"TimeSerial", 3, 3, time_serial},
    {u"DateValue", 1, 1, date_value},
    {u"TimeValue", 1, 1, time_value},
});

}  // namespace

std::span<const LibraryFunction> date_functions() {
    return kFunctions;
}

}  // namespace vbscript
