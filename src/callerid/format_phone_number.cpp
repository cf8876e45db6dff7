#include "callerid/format_phone_number.h"

namespace callerid {

std::string FormatPhoneNumber(std::string_view number) {
    constexpr std::size_t kLocal = 7;
    constexpr std::size_t kNational = 10;
    constexpr std::size_t kWithCountry = 11;
    const auto part = [&](std::size_t from, std::size_t count) {
        return std::string(number.substr(from, count));
    };
    if (number.size() == kLocal) {
        return part(0, 3) + "-" + part(3, 4);
    }
    if (number.size() == kNational && number.front() != '*') {
        return "(" + part(0, 3) + ") " + part(3, 3) + "-" + part(6, 4);
    }
    if (number.size() == kWithCountry) {
        return part(0, 4) + " " + part(4, 3) + " " + part(7, 4);
    }
    return std::string(number);
}

}  // namespace callerid
