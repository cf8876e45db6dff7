#include "home/asp/asp_cookie.h"

#include <algorithm>
#include <array>
#include <ctime>

#include "automation/run_time_error.h"
#include "home/web/http_date.h"
#include "home/web/url_text.h"

namespace home {

namespace {

using automation::Member;
using automation::property;

}  // namespace

std::span<const Member> AspCookie::members() const {
    using C = AspCookie;
    static constexpr auto kMembers = std::to_array<Member>({
        property<&C::value, &C::set_value>("Value"),
        property<&C::expires, &C::set_expires>("Expires"),
        property<&C::path, &C::set_path>("Path"),
    });
    return kMembers;
}

automation::Value AspCookie::expires() const {
    return expires_ ? automation::Value(*expires_) : automation::Value();
}

void AspCookie::set_path(const std::string& path) {
    check_header_text(path);
    path_ = path;
}

std::string AspCookie::header() const {
    std::string text = form_encoded(name_) + "=" + form_encoded(value_);
    if (expires_) {
        text.append("; expires=").append(http_date_of(*expires_));
    }
    return text.append("; path=").append(path_);
}

// The zone of the house is that of the machine.
std::string http_date_of(automation::Date moment) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(automation::date_time_of(moment));
    std::time_t time = seconds.time_since_epoch().count();
    std::tm parts{};
    ::gmtime_r(&time, &parts);
    parts.tm_isdst = -1;
    return http_date(std::chrono::sys_seconds(std::chrono::seconds(std::mktime(&parts))));
}

void check_header_text(const std::string& text) {
    const bool is_plain = std::ranges::none_of(text, [](char character) {
        const auto code = static_cast<unsigned char>(character);
        return code < 0x20 || code == 0x7F;
    });
    if (!is_plain) {
        throw automation::RunTimeError(
            automation::ErrorNumber::InvalidProcedureCall,
            "Invalid procedure call or argument: a header must not hold control characters");
    }
}

}  // namespace home
