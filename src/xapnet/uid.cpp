#include "xapnet/uid.h"

#include <algorithm>

#include "automation/code_page.h"
#include "automation/hexadecimal.h"

namespace xapnet {

namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr std::string_view kNetwork = "FF";
constexpr std::string_view kReservedEndpoint = "FF";
constexpr std::size_t kUidDigits = 8;

}  // namespace

bool is_uid(std::string_view text) noexcept {
    std::size_t separator = text.find_first_of(".:");
    if (separator == std::string_view::npos) {
        return text.size() == kUidDigits && automation::is_hexadecimal(text);
    }
    while (separator != std::string_view::npos) {
        if (!automation::is_hexadecimal(text.substr(0, separator))) {
            return false;
        }
        text.remove_prefix(separator + 1);
        separator = text.find_first_of(".:");
    }
    return automation::is_hexadecimal(text);
}

std::optional<std::string> make_uid(std::uint16_t unit_id, std::string_view endpoint) {
    constexpr std::size_t kEndpointDigits = 2;
    const std::string number = automation::to_upper(endpoint);
    if (number.size() != kEndpointDigits || !automation::is_hexadecimal(number) ||
        number == kReservedEndpoint) {
        return std::nullopt;
    }
    std::string uid(kNetwork);
    for (int shift = 12; shift >= 0; shift -= 4) {
        uid += kDigits[(unit_id >> shift) & 0xF];
    }
    return uid + number;
}

}  // namespace xapnet
