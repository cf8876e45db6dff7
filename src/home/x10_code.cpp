#include "home/x10_code.h"

#include <charconv>

#include "automation/code_page.h"
#include "automation/convert.h"

namespace home {
namespace {

constexpr char kFirstHouse = 'A';
constexpr char kLastHouse = 'P';
constexpr int kLastUnit = 16;

}  // namespace

std::optional<X10Code> parse_x10_code(std::string_view text) {
    const std::string code = automation::to_upper(automation::trim(text));
    if (code.size() < 2 || code.front() < kFirstHouse || code.front() > kLastHouse) {
        return std::nullopt;
    }
    int unit = 0;
    const char* end = code.data() + code.size();
    const auto [stop, error] = std::from_chars(code.data() + 1, end, unit);
    if (error != std::errc() || stop != end || unit < 1 || unit > kLastUnit) {
        return std::nullopt;
    }
    return X10Code{code.substr(0, 1), std::to_string(unit)};
}

}  // namespace home
