#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "automation/code_page.h"
#include "automation/convert.h"

namespace automation {
namespace {

namespace chrono = std::chrono;

constexpr auto kMonthNames =
    std::to_array<std::string_view>({"january", "february", "march", "april", "may", "june", "july",
                                     "august", "september", "october", "november", "december"});

enum class TokenKind : std::uint8_t { Number, Word, Separator, Colon };

struct Token {
    TokenKind kind;
    int number = 0;
    std::size_t digits = 0;
    std::string word{};  // small letters
};

using Tokens = std::vector<Token>;

bool is_digit(char character) {
    return character >= '0' && character <= '9';
}

bool is_letter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

std::size_t run_length(std::string_view text, bool (*belongs)(char)) {
    return static_cast<std::size_t>(std::ranges::find_if_not(text, belongs) - text.begin());
}

Token number_token(std::string_view digits) {
    Token token{.kind = TokenKind::Number, .digits = digits.size()};
    for (const char digit : digits) {
        token.number = token.number * 10 + (digit - '0');
    }
    return token;
}

// Numbers, words, colons and the marks between the parts of a date; absent for any other text.
// Blanks only keep parts apart.
std::optional<Tokens> tokens_of(std::string_view text) {
    constexpr std::size_t kMostTokens = 16;
    constexpr std::size_t kMostDigits = 4;
    Tokens tokens;
    while (!text.empty()) {
        std::size_t length = 1;
        if (is_digit(text.front())) {
            length = run_length(text, is_digit);
            if (length > kMostDigits) {
                return std::nullopt;
            }
            tokens.push_back(number_token(text.substr(0, length)));
        } else if (is_letter(text.front())) {
            length = run_length(text, is_letter);
            tokens.push_back({.kind = TokenKind::Word, .word = to_lower(text.substr(0, length))});
        } else if (text.front() == ':') {
            tokens.push_back({.kind = TokenKind::Colon});
        } else if (text.front() == '/' || text.front() == '-' || text.front() == ',') {
            tokens.push_back({.kind = TokenKind::Separator});
        } else if (text.front() != ' ') {
            return std::nullopt;
        }
        if (tokens.size() > kMostTokens) {
            return std::nullopt;
        }
        text.remove_prefix(length);
    }
    return tokens;
}

bool is_number(const Tokens& tokens, std::size_t index) {
    return index < tokens.size() && tokens[index].kind == TokenKind::Number;
}

bool is_colon(const Tokens& tokens, std::size_t index) {
    return index < tokens.size() && tokens[index].kind == TokenKind::Colon;
}

bool is_half_of_day(const Tokens& tokens, std::size_t index) {
    return index < tokens.size() && (tokens[index].word == "am" || tokens[index].word == "pm");
}

std::optional<std::size_t> find_time(const Tokens& tokens) {
    for (std::size_t index = 0; index < tokens.size(); ++index) {
        if (is_number(tokens, index) &&
            (is_colon(tokens, index + 1) || is_half_of_day(tokens, index + 1))) {
            return index;
        }
    }
    return std::nullopt;
}

std::optional<int> hour_of_day(int hour, const Token* half_of_day) {
    if (half_of_day == nullptr) {
        return hour <= 23 ? std::optional(hour) : std::nullopt;
    }
    if (hour > 12) {
        return std::nullopt;
    }
    return hour % 12 + (half_of_day->word == "pm" ? 12 : 0);
}

// Cuts "16:03", "4:03:03 PM" or "4 PM" at `index` out of the tokens.
std::optional<chrono::seconds> take_time(Tokens& tokens, std::size_t index) {
    std::array<int, 3> parts{};
    std::size_t end = index;
    for (std::size_t part = 0; part < parts.size(); ++part) {
        if (!is_number(tokens, end) || tokens[end].digits > 2) {
            return std::nullopt;
        }
        parts[part] = tokens[end++].number;
        if (part + 1 == parts.size() || !is_colon(tokens, end)) {
            break;
        }
        ++end;
    }
    const bool has_half = is_half_of_day(tokens, end);
    const auto hour = hour_of_day(parts[0], has_half ? &tokens[end] : nullptr);
    if (!hour || parts[1] > 59 || parts[2] > 59) {
        return std::nullopt;
    }
    const auto first = tokens.begin() + static_cast<std::ptrdiff_t>(index);
    tokens.erase(first, tokens.begin() + static_cast<std::ptrdiff_t>(end + (has_half ? 1 : 0)));
    return chrono::hours(*hour) + chrono::minutes(parts[1]) + chrono::seconds(parts[2]);
}

std::optional<int> month_of(std::string_view word) {
    constexpr std::size_t kShortest = 3;
    const auto month = std::ranges::find_if(
        kMonthNames, [word](std::string_view name) { return name.starts_with(word); });
    if (word.size() < kShortest || month == kMonthNames.end()) {
        return std::nullopt;
    }
    return static_cast<int>(month - kMonthNames.begin()) + 1;
}

// The three parts of a date, with at most one mark between neighbours; "," may stand for nothing.
std::optional<std::array<Token, 3>> parts_of_date(const Tokens& tokens) {
    std::array<Token, 3> parts{};
    std::size_t count = 0;
    bool separated = true;
    for (const Token& token : tokens) {
        if (token.kind == TokenKind::Separator) {
            if (separated) {
                return std::nullopt;
            }
            separated = true;
            continue;
        }
        if (token.kind == TokenKind::Colon || count == parts.size()) {
            return std::nullopt;
        }
        parts[count++] = token;
        separated = false;
    }
    return count == parts.size() && !separated ? std::optional(parts) : std::nullopt;
}

int full_year(const Token& token) {
    if (token.digits > 2) {
        return token.number;
    }
    return token.number + (token.number < 30 ? 2000 : 1900);
}

bool is_year(const Token& token) {
    return token.digits > 2 || token.number > 31;
}

std::optional<chrono::local_days> checked_day(int year, int month, int day) {
    if (month > 12 && day <= 12) {
        std::swap(month, day);
    }
    if (year < 100 || month > 12 || day > 31) {
        return std::nullopt;
    }
    const chrono::year_month_day date(chrono::year(year),
                                      chrono::month(static_cast<unsigned int>(month)),
                                      chrono::day(static_cast<unsigned int>(day)));
    return date.ok() ? std::optional(chrono::local_days{date}) : std::nullopt;
}

// "24 Nov 2026", "Nov 24, 2026", "2026 Nov 24".
std::optional<chrono::local_days> day_with_month_name(const std::array<Token, 3>& parts,
                                                      std::size_t month_at) {
    const auto month = month_of(parts[month_at].word);
    const Token& first = parts[month_at == 0 ? 1 : 0];
    const Token& second = parts[month_at == 2 ? 1 : 2];
    const bool are_numbers = first.kind == TokenKind::Number && second.kind == TokenKind::Number;
    if (!month || !are_numbers) {
        return std::nullopt;
    }
    const bool year_first = is_year(first);
    return checked_day(full_year(year_first ? first : second), *month,
                       (year_first ? second : first).number);
}

std::optional<chrono::local_days> day_of(const Tokens& tokens) {
    const auto parts = parts_of_date(tokens);
    if (!parts) {
        return std::nullopt;
    }
    const auto& [first, second, third] = *parts;
    const auto word = std::ranges::find(*parts, TokenKind::Word, &Token::kind);
    if (word != parts->end()) {
        return day_with_month_name(*parts, static_cast<std::size_t>(word - parts->begin()));
    }
    if (is_year(first)) {
        return checked_day(full_year(first), second.number, third.number);
    }
    return checked_day(full_year(third), first.number, second.number);
}

// ISO 8601 puts a "T" between date and time.
void drop_time_mark(Tokens& tokens, std::size_t time_at) {
    if (time_at > 0 && tokens[time_at - 1].word == "t") {
        tokens.erase(tokens.begin() + static_cast<std::ptrdiff_t>(time_at - 1));
    }
}

}  // namespace

std::optional<Date> parse_date(std::string_view text) {
    auto tokens = tokens_of(text);
    if (!tokens || tokens->empty()) {
        return std::nullopt;
    }
    constexpr chrono::local_days kDayZero{chrono::year(1899) / chrono::December / 30};
    chrono::seconds time{0};
    if (const auto time_at = find_time(*tokens)) {
        const auto found = take_time(*tokens, *time_at);
        if (!found) {
            return std::nullopt;
        }
        time = *found;
        drop_time_mark(*tokens, *time_at);
        if (tokens->empty()) {
            return date_of(kDayZero + time);
        }
    }
    const auto day = day_of(*tokens);
    return day ? std::optional(date_of(*day + time)) : std::nullopt;
}

}  // namespace automation
