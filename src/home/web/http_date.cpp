#include "home/web/http_date.h"

#include <algorithm>
#include <array>

namespace home {
namespace {

using namespace std::chrono;

constexpr std::array<std::string_view, 7> kDays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<std::string_view, 12> kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string two_digits(unsigned int number) {
    return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

std::string four_digits(int number) {
    return two_digits(static_cast<unsigned int>(number / 100)) +
           two_digits(static_cast<unsigned int>(number % 100));
}

// The number that `count` digits make, absent when they are none.
std::optional<unsigned int> digits(std::string_view text, std::size_t begin, std::size_t count) {
    unsigned int number = 0;
    for (const char digit : text.substr(begin, count)) {
        if (digit < '0' || digit > '9') {
            return std::nullopt;
        }
        number = number * 10 + static_cast<unsigned int>(digit - '0');
    }
    return number;
}

constexpr std::string_view kForm = "Ddd, dd Mmm yyyy hh:mm:ss GMT";

bool has_form(std::string_view text) {
    return text.size() == kForm.size() && text[3] == ',' && text[4] == ' ' && text[7] == ' ' &&
           text[11] == ' ' && text[16] == ' ' && text[19] == ':' && text[22] == ':' &&
           text.ends_with(" GMT");
}

}  // namespace

std::string http_date(sys_seconds moment) {
    const sys_days day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(moment - day);
    std::string text(kDays.at(weekday(day).c_encoding()));
    text.append(", ").append(two_digits(static_cast<unsigned int>(date.day()))).append(" ");
    text.append(kMonths.at(static_cast<unsigned int>(date.month()) - 1)).append(" ");
    text.append(four_digits(static_cast<int>(date.year()))).append(" ");
    text.append(two_digits(static_cast<unsigned int>(time.hours().count()))).append(":");
    text.append(two_digits(static_cast<unsigned int>(time.minutes().count()))).append(":");
    return text.append(two_digits(static_cast<unsigned int>(time.seconds().count())))
        .append(" GMT");
}

std::optional<sys_seconds> parse_http_date(std::string_view text) {
    if (!has_form(text)) {
        return std::nullopt;
    }
    const auto month_name = std::ranges::find(kMonths, text.substr(8, 3));
    const auto day_number = digits(text, 5, 2);
    const auto year_number = digits(text, 12, 4);
    const auto hour = digits(text, 17, 2);
    const auto minute_number = digits(text, 20, 2);
    const auto second_number = digits(text, 23, 2);
    if (month_name == kMonths.end() || !day_number || !year_number || !hour || !minute_number ||
        !second_number) {
        return std::nullopt;
    }
    const auto month_number = static_cast<unsigned int>(month_name - kMonths.begin()) + 1;
    const year_month_day date(year(static_cast<int>(*year_number)), month(month_number),
                              day(*day_number));
    if (!date.ok() || *hour > 23 || *minute_number > 59 || *second_number > 60) {
        return std::nullopt;
    }
    return sys_days(date) + hours(*hour) + minutes(*minute_number) + seconds(*second_number);
}

}  // namespace home
