#include <algorithm>
#include <array>
#include <span>
#include <vector>

#include "vbscript/value/convert.h"
#include "vbscript/value/date_parts.h"
#include "vbscript/value/locale.h"

namespace vbscript {
namespace {

enum class TokenKind : std::uint8_t { Number, Month, HalfOfDay, Mark, Colon };

struct Token {
    TokenKind kind = TokenKind::Mark;
    int number = 0;  // of a number or a month; 12 for the half of the day after noon
    std::size_t digits = 0;
    char16_t unit = 0;  // of a mark
};

using Tokens = std::vector<Token>;

bool is_digit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

bool is_letter(char16_t unit) {
    return to_lower(unit) != to_upper(unit);
}

std::size_t run_length(std::u16string_view text, bool (*belongs)(char16_t)) {
    return static_cast<std::size_t>(std::ranges::find_if_not(text, belongs) - text.begin());
}

std::optional<int> month_of(const Locale& locale, std::u16string_view word) {
    const Locale& english = locales().front();
    for (const auto* names :
         {&locale.months, &locale.short_months, &english.months, &english.short_months}) {
        const auto* const name = std::ranges::find_if(*names, [word](std::u16string_view month) {
            return equals_ignoring_case(word, month);
        });
        if (name != names->end()) {
            return static_cast<int>(name - names->begin()) + 1;
        }
    }
    return std::nullopt;
}

std::optional<Token> word_token(const Locale& locale, std::u16string_view word) {
    constexpr int kHalf = 12;
    const auto is_one_of = [word](std::u16string_view name, std::u16string_view letter,
                                  std::u16string_view local) {
        return equals_ignoring_case(word, name) || equals_ignoring_case(word, letter) ||
               equals_ignoring_case(word, local);
    };
    if (is_one_of(u"am", u"a", locale.am)) {
        return Token{.kind = TokenKind::HalfOfDay};
    }
    if (is_one_of(u"pm", u"p", locale.pm)) {
        return Token{.kind = TokenKind::HalfOfDay, .number = kHalf};
    }
    const auto month = month_of(locale, word);
    if (!month) {
        return std::nullopt;
    }
    return Token{.kind = TokenKind::Month, .number = *month};
}

std::optional<Token> number_token(std::u16string_view digits) {
    constexpr std::size_t kMostDigits = 4;
    if (digits.size() > kMostDigits) {
        return std::nullopt;
    }
    Token token{.kind = TokenKind::Number, .digits = digits.size()};
    for (const char16_t digit : digits) {
        token.number = token.number * 10 + (digit - u'0');
    }
    return token;
}

// A full stop parts the numbers of a time, unless the locale has it between those of a date.
std::optional<Token> mark_token(const Locale& locale, char16_t unit) {
    constexpr std::u16string_view kMarks = u"/-,";
    if (unit == u':') {
        return Token{.kind = TokenKind::Colon};
    }
    if (unit == u'.') {
        const bool parts_dates = locale.date_separator == u'.';
        return Token{.kind = parts_dates ? TokenKind::Mark : TokenKind::Colon, .unit = unit};
    }
    if (kMarks.find(unit) == std::u16string_view::npos) {
        return std::nullopt;
    }
    return Token{.kind = TokenKind::Mark, .unit = unit};
}

// Absent for a text with anything that does not belong to a date. Blanks only keep parts apart.
std::optional<Tokens> tokens_of(const Locale& locale, std::u16string_view text) {
    constexpr std::size_t kMostTokens = 16;
    Tokens tokens;
    while (!text.empty()) {
        std::size_t length = 1;
        std::optional<Token> token;
        if (is_digit(text.front())) {
            length = run_length(text, is_digit);
            token = number_token(text.substr(0, length));
        } else if (is_letter(text.front())) {
            length = run_length(text, is_letter);
            token = word_token(locale, text.substr(0, length));
        } else {
            token = mark_token(locale, text.front());
        }
        if (token) {
            tokens.push_back(*token);
        } else if (text.front() != u' ') {
            return std::nullopt;
        }
        if (tokens.size() > kMostTokens) {
            return std::nullopt;
        }
        text.remove_prefix(length);
    }
    return tokens;
}

bool is_kind(const Tokens& tokens, std::size_t index, TokenKind kind) {
    return index < tokens.size() && tokens[index].kind == kind;
}

std::optional<std::size_t> find_time(const Tokens& tokens) {
    for (std::size_t index = 0; index < tokens.size(); ++index) {
        if (is_kind(tokens, index, TokenKind::Number) &&
            (is_kind(tokens, index + 1, TokenKind::Colon) ||
             is_kind(tokens, index + 1, TokenKind::HalfOfDay))) {
            return index;
        }
    }
    return std::nullopt;
}

// Cuts "16:03", "4:03:03 PM" or "4 PM" at `index` out of the tokens and gives its seconds since
// midnight. An hour above 12 tells the half of the day by itself.
std::optional<int> take_time(Tokens& tokens, std::size_t index) {
    std::array<int, 3> parts{};
    std::size_t end = index;
    for (std::size_t part = 0; part < parts.size(); ++part) {
        if (!is_kind(tokens, end, TokenKind::Number) || tokens[end].digits > 2) {
            return std::nullopt;
        }
        parts[part] = tokens[end++].number;
        if (part + 1 == parts.size() || !is_kind(tokens, end, TokenKind::Colon)) {
            break;
        }
        ++end;
    }
    int hour = parts[0];
    if (is_kind(tokens, end, TokenKind::HalfOfDay)) {
        if (hour <= 12) {
            hour = hour % 12 + tokens[end].number;
        }
        ++end;
    }
    if (hour > 23 || parts[1] > 59 || parts[2] > 59) {
        return std::nullopt;
    }
    tokens.erase(tokens.begin() + static_cast<std::ptrdiff_t>(index),
                 tokens.begin() + static_cast<std::ptrdiff_t>(end));
    if (!tokens.empty() && tokens.back().unit == u',') {
        tokens.pop_back();
    }
    return hour * 3600 + parts[1] * 60 + parts[2];
}

// The numbers and the month of a date, with at most one mark between neighbours.
std::optional<Tokens> parts_of_date(const Tokens& tokens) {
    Tokens parts;
    bool separated = true;
    for (const Token& token : tokens) {
        if (token.kind == TokenKind::Mark) {
            if (separated) {
                return std::nullopt;
            }
            separated = true;
        } else if (token.kind == TokenKind::Number || token.kind == TokenKind::Month) {
            parts.push_back(token);
            separated = false;
        } else {
            return std::nullopt;
        }
    }
    return separated ? std::nullopt : std::optional(parts);
}

std::optional<std::int64_t> checked_serial(int year, int month, int day) {
    constexpr int kFirstYear = 100;
    const bool is_day = year >= kFirstYear && month >= 1 && month <= 12 && day >= 1 &&
                        day <= days_of_month(year, month);
    return is_day ? std::optional(serial_of(year, month, day)) : std::nullopt;
}

// Which part of a date stands for what. A part is 0 to 2; absent ones are taken from elsewhere.
struct Order {
    std::optional<std::size_t> year;
    std::size_t month = 0;
    std::optional<std::size_t> day;
};

bool is_year_only(const Token& token) {
    return token.digits > 2;
}

// A year of one or two digits is one of our times, one of three or four itself.
int year_of(const Token& token) {
    return is_year_only(token) ? token.number : full_year(token.number);
}

std::optional<std::int64_t> day_in_order(const Tokens& parts, const Order& order,
                                         int current_year) {
    const Token& month = parts[order.month];
    const bool has_year = order.year.has_value();
    if (is_year_only(month) || (order.day && is_year_only(parts[*order.day]))) {
        return std::nullopt;
    }
    return checked_serial(has_year ? year_of(parts[*order.year]) : current_year, month.number,
                          order.day ? parts[*order.day].number : 1);
}

std::optional<std::int64_t> first_that_fits(const Tokens& parts, std::span<const Order> orders,
                                            int current_year) {
    for (const Order& order : orders) {
        if (const auto day = day_in_order(parts, order, current_year)) {
            return day;
        }
    }
    return std::nullopt;
}

// The order of the locale first, then whatever gives a date.
std::optional<std::int64_t> day_of_numbers(const Locale& locale, const Tokens& parts,
                                           int current_year) {
    constexpr Order kMonthDayYear{.year = 2, .month = 0, .day = 1};
    constexpr Order kDayMonthYear{.year = 2, .month = 1, .day = 0};
    constexpr Order kYearMonthDay{.year = 0, .month = 1, .day = 2};
    constexpr Order kYearDayMonth{.year = 0, .month = 2, .day = 1};
    constexpr Order kMonthDay{.year = {}, .month = 0, .day = 1};
    constexpr Order kDayMonth{.year = {}, .month = 1, .day = 0};
    constexpr Order kMonthYear{.year = 1, .month = 0, .day = {}};
    constexpr Order kYearMonth{.year = 0, .month = 1, .day = {}};

    struct Row {
        DateOrder order;
        std::array<Order, 4> three;
        std::array<Order, 4> two;
    };

    constexpr auto kRows = std::to_array<Row>({
        {DateOrder::MonthDayYear,
         {kMonthDayYear, kDayMonthYear, kYearMonthDay, kYearDayMonth},
         {kMonthDay, kDayMonth, kMonthYear, kYearMonth}},
        {DateOrder::DayMonthYear,
         {kDayMonthYear, kMonthDayYear, kYearMonthDay, kYearDayMonth},
         {kDayMonth, kMonthDay, kMonthYear, kYearMonth}},
        {DateOrder::YearMonthDay,
         {kYearMonthDay, kMonthDayYear, kDayMonthYear, kYearDayMonth},
         {kMonthDay, kDayMonth, kYearMonth, kMonthYear}},
    });
    const auto* const row = std::ranges::find(kRows, locale.date_order, &Row::order);
    return first_that_fits(parts, parts.size() == 3 ? row->three : row->two, current_year);
}

// "24 Nov 2026", "Nov 24, 2026", "2026 Nov 24", "Nov 2026", "24 Nov".
std::optional<std::int64_t> day_with_month_name(const Tokens& parts, std::size_t month_at,
                                                int current_year) {
    const std::size_t first = month_at == 0 ? 1 : 0;
    if (parts.size() == 2) {
        const std::array orders{Order{.year = {}, .month = month_at, .day = first},
                                Order{.year = first, .month = month_at, .day = {}}};
        return first_that_fits(parts, orders, current_year);
    }
    const std::size_t second = month_at == 2 ? 1 : 2;
    const std::array orders{Order{.year = second, .month = month_at, .day = first},
                            Order{.year = first, .month = month_at, .day = second}};
    return first_that_fits(parts, orders, current_year);
}

std::optional<std::int64_t> day_of(const Locale& locale, const Tokens& tokens, int current_year) {
    const auto parts = parts_of_date(tokens);
    if (!parts || parts->size() < 2 || parts->size() > 3) {
        return std::nullopt;
    }
    const auto months = std::ranges::count(*parts, TokenKind::Month, &Token::kind);
    if (months == 0) {
        return day_of_numbers(locale, *parts, current_year);
    }
    if (months > 1) {
        return std::nullopt;
    }
    const auto month = std::ranges::find(*parts, TokenKind::Month, &Token::kind);
    return day_with_month_name(*parts, static_cast<std::size_t>(month - parts->begin()),
                               current_year);
}

}  // namespace

std::optional<Date> parse_date(const Locale& locale, std::u16string_view text, int current_year) {
    auto tokens = tokens_of(locale, text);
    if (!tokens || tokens->empty()) {
        return std::nullopt;
    }
    int seconds = 0;
    if (const auto time_at = find_time(*tokens)) {
        const auto time = take_time(*tokens, *time_at);
        if (!time) {
            return std::nullopt;
        }
        seconds = *time;
        if (tokens->empty()) {
            return date_of(0, seconds);
        }
    }
    const auto day = day_of(locale, *tokens, current_year);
    return day ? date_of(*day, seconds) : std::nullopt;
}

}  // namespace vbscript
