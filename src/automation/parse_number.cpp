#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/number_reader.h"
#include "automation/run_time_error.h"

namespace automation {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool is_digit(char character) {
    return character >= '0' && character <= '9';
}

// Reads a text from its start, one part of a number at a time.
class Scanner {
  public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    [[nodiscard]] bool at_end() const { return rest_.empty(); }

    [[nodiscard]] char next() const { return rest_.empty() ? '\0' : rest_.front(); }

    bool take(char character) {
        if (next() != character || rest_.empty()) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    void pass_blanks() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
    }

    // Digits, and with `ignored` also that character among them, which is left out.
    std::string take_digits(char ignored = '\0') {
        std::string digits;
        std::size_t length = 0;
        for (; length < rest_.size(); ++length) {
            if (is_digit(rest_[length])) {
                digits.push_back(rest_[length]);
            } else if (ignored == '\0' || rest_[length] != ignored || digits.empty()) {
                break;
            }
        }
        rest_.remove_prefix(length);
        return digits;
    }

    // "E+5" as "E+5", also written with "D"; nothing is taken unless digits follow.
    std::string take_exponent() {
        constexpr std::string_view kMarks = "EeDd";
        if (at_end() || kMarks.find(next()) == std::string_view::npos) {
            return {};
        }
        const bool has_sign = rest_.size() > 1 && (rest_[1] == '+' || rest_[1] == '-');
        const std::size_t digits_begin = has_sign ? 2 : 1;
        if (digits_begin >= rest_.size() || !is_digit(rest_[digits_begin])) {
            return {};
        }
        const std::string sign(has_sign ? rest_.substr(1, 1) : std::string_view("+"));
        rest_.remove_prefix(digits_begin);
        return "E" + sign + take_digits();
    }

    // Digits of base 8 or 16 as their value; absent without a digit and above 32 bits.
    std::optional<std::uint32_t> take_based(int base) {
        std::uint32_t number = 0;
        const char* const end = rest_.data() + rest_.size();
        const auto [stop, error] = std::from_chars(rest_.data(), end, number, base);
        if (error != std::errc{}) {
            return std::nullopt;
        }
        rest_.remove_prefix(static_cast<std::size_t>(stop - rest_.data()));
        return number;
    }

  private:
    std::string_view rest_;
};

// What does not fit is infinite or, with a negative exponent or a fraction alone, 0.
double value_of_digits(const std::string& digits, bool is_small) {
    double value = 0;
    const auto error = std::from_chars(digits.data(), digits.data() + digits.size(), value).ec;
    if (error == std::errc::result_out_of_range) {
        return is_small ? 0 : std::numeric_limits<double>::infinity();
    }
    return value;
}

// Digits, point, exponent. Absent without any digit.
std::optional<double> take_decimal(Scanner& scanner, char grouping) {
    const std::string whole = scanner.take_digits(grouping);
    const std::string fraction = scanner.take('.') ? scanner.take_digits() : std::string();
    if (whole.empty() && fraction.empty()) {
        return std::nullopt;
    }
    const std::string exponent = scanner.take_exponent();
    const bool is_small = exponent.empty() ? whole.find_first_not_of('0') == std::string::npos
                                           : exponent.find('-') != std::string::npos;
    return value_of_digits((whole.empty() ? "0" : whole) + "." + fraction + "0" + exponent,
                           is_small);
}

// "&HFF", "&O17", "&17" (octal as well), with "&" behind for a Long. The top bit of 16 or 32 bits
// is the sign.
std::optional<double> take_literal(Scanner& scanner) {
    if (!scanner.take('&')) {
        return std::nullopt;
    }
    const bool is_hexadecimal = scanner.take('H') || scanner.take('h');
    if (!is_hexadecimal && !scanner.take('O')) {
        scanner.take('o');
    }
    const auto number = scanner.take_based(is_hexadecimal ? 16 : 8);
    if (!number) {
        return std::nullopt;
    }
    const bool is_long = scanner.take('&') || *number > 0xFFFF;
    return is_long ? static_cast<double>(static_cast<std::int32_t>(*number))
                   : static_cast<double>(static_cast<std::int16_t>(*number));
}

enum class Sign : std::uint8_t { None, Plus, Minus };

Sign take_sign(Scanner& scanner) {
    if (scanner.take('-')) {
        return Sign::Minus;
    }
    return scanner.take('+') ? Sign::Plus : Sign::None;
}

struct Prefix {
    Sign sign = Sign::None;
    bool has_bracket = false;
    bool has_currency = false;
};

// Sign, bracket and currency sign in any order, each at most once, with blanks between.
Prefix take_prefix(Scanner& scanner) {
    Prefix prefix;
    for (bool found = true; found;) {
        scanner.pass_blanks();
        found = false;
        if (prefix.sign == Sign::None) {
            prefix.sign = take_sign(scanner);
            found = prefix.sign != Sign::None;
        }
        if (!prefix.has_bracket && scanner.take('(')) {
            prefix.has_bracket = found = true;
        }
        if (!prefix.has_currency && scanner.take('$')) {
            prefix.has_currency = found = true;
        }
    }
    return prefix;
}

std::optional<double> read_amount(Scanner& scanner) {
    Prefix prefix = take_prefix(scanner);
    const auto magnitude = take_decimal(scanner, ',');
    if (!magnitude || (prefix.has_bracket && prefix.sign != Sign::None)) {
        return std::nullopt;
    }
    scanner.pass_blanks();
    if (!prefix.has_currency && scanner.take('$')) {
        scanner.pass_blanks();
    }
    if (prefix.sign == Sign::None && !prefix.has_bracket) {
        prefix.sign = take_sign(scanner);
    }
    if (prefix.has_bracket && !scanner.take(')')) {
        return std::nullopt;
    }
    scanner.pass_blanks();
    const bool is_negative = prefix.has_bracket || prefix.sign == Sign::Minus;
    return is_negative ? -*magnitude : *magnitude;
}

}  // namespace

std::optional<double> read_whole_number(std::string_view text) {
    Scanner scanner(text);
    scanner.pass_blanks();
    const auto number = scanner.next() == '&' ? take_literal(scanner) : read_amount(scanner);
    scanner.pass_blanks();
    return scanner.at_end() ? number : std::nullopt;
}

std::optional<double> parse_number(std::string_view text) {
    const auto number = read_whole_number(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

bool is_numeric(std::string_view text) {
    return parse_number(text).has_value();
}

double numeric_prefix(std::string_view text) {
    std::string dense;
    std::ranges::copy_if(text, std::back_inserter(dense), [](char character) {
        return kBlanks.find(character) == std::string_view::npos;
    });
    Scanner scanner(dense);
    if (scanner.next() == '&') {
        return take_literal(scanner).value_or(0);
    }
    const Sign sign = take_sign(scanner);
    const double magnitude = take_decimal(scanner, '\0').value_or(0);
    if (!std::isfinite(magnitude)) {
        throw RunTimeError(ErrorNumber::Overflow);
    }
    return sign == Sign::Minus ? -magnitude : magnitude;
}

std::optional<bool> parse_boolean(std::string_view text) {
    const std::string word = trim(text);
    if (equals_ignoring_case(word, "True")) {
        return true;
    }
    if (equals_ignoring_case(word, "False")) {
        return false;
    }
    const auto number = parse_number(word);
    return number ? std::optional(*number != 0) : std::nullopt;
}

std::string trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

}  // namespace automation
