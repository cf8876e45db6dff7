#include "home/asp/asp_response.h"

#include <algorithm>
#include <array>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "home/asp/asp_failure.h"
#include "home/web/http_date.h"

namespace home {
namespace {

using automation::ErrorNumber;
using automation::Member;
using automation::method;
using automation::property;
using automation::RunTimeError;
using automation::Value;

constexpr std::size_t kMostBytes = std::size_t{16} * 1024 * 1024;
constexpr std::int32_t kFound = 302;

std::string expiry_of(std::int32_t minutes) {
    using namespace std::chrono;
    return http_date(floor<seconds>(system_clock::now()) + std::chrono::minutes(minutes));
}

}  // namespace

std::span<const Member> AspResponse::members() const {
    using R = AspResponse;
    static constexpr auto kMembers = std::to_array<Member>({
        method<&R::Write>("Write", "value"),
        method<&R::WriteBlock>("WriteBlock", "number"),
        method<&R::Clear>("Clear"),
        method<&R::Flush>("Flush"),
        method<&R::End>("End"),
        method<&R::Redirect>("Redirect", "url"),
        property<&R::status, &R::set_status>("Status"),
        property<&R::content_type, &R::set_content_type>("ContentType"),
        property<&R::charset, &R::set_charset>("CharSet"),
        property<&R::expires, &R::set_expires>("Expires"),
        property<&R::expires_absolute, &R::set_expires_absolute>("ExpiresAbsolute"),
        property<&R::cache_control, &R::set_cache_control>("CacheControl"),
        method<&R::AddHeader>("AddHeader", "name, value"),
        property<&R::cookie, &R::set_cookie>("Cookies", "name"),
        property<&R::buffer, &R::set_buffer>("Buffer"),
        property<&R::is_client_connected>("IsClientConnected"),
    });
    return kMembers;
}

host::HttpResponse AspResponse::answer() const {
    host::HttpResponse response;
    response.status = status_;
    response.reason = reason_;
    response.add("Content-Type",
                 charset_.empty() ? content_type_ : content_type_ + "; charset=" + charset_);
    response.add("Cache-Control", cache_control_);
    if (expires_absolute_) {
        response.add("Expires", http_date_of(*expires_absolute_));
    } else if (expires_) {
        response.add("Expires", expiry_of(*expires_));
    }
    response.headers.insert(response.headers.end(), headers_.begin(), headers_.end());
    for (const auto& cookie : cookies_) {
        response.add("Set-Cookie", cookie->header());
    }
    response.body = body_;
    return response;
}

// --- body ---------------------------------------------------------------------------------------

void AspResponse::append(std::string_view text) {
    if (body_.size() + text.size() > kMostBytes) {
        throw RunTimeError(ErrorNumber::OutOfMemory, "Out of memory: the page is above 16 MB");
    }
    body_ += text;
}

void AspResponse::Write(const Value& value) {
    if (!value.is_null()) {
        append(automation::to_text(value));
    }
}

void AspResponse::WriteBlock(std::int32_t number) {
    if (number < 0 || static_cast<std::size_t>(number) >= blocks_.size()) {
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    }
    append(blocks_[static_cast<std::size_t>(number)]);
}

void AspResponse::End() {
    throw AspEnd();
}

void AspResponse::Redirect(const std::string& url) {
    check_header_text(url);
    status_ = kFound;
    reason_ = "Found";
    headers_.push_back({"Location", url});
    body_.clear();
    throw AspEnd();
}

// --- headers ------------------------------------------------------------------------------------

std::string AspResponse::status() const {
    return std::to_string(status_) + " " + reason_;
}

void AspResponse::set_status(const std::string& text) {
    constexpr double kLeast = 200;
    constexpr double kMost = 599;
    check_header_text(text);
    const double number = automation::numeric_prefix(text);
    if (number < kLeast || number > kMost) {
        throw RunTimeError(ErrorNumber::InvalidProcedureCall,
                           "Invalid procedure call or argument: no status '" + text + "'");
    }
    const std::size_t blank = text.find(' ');
    status_ = automation::checked_int32(number);
    reason_ = blank == std::string::npos ? "" : automation::trim(text.substr(blank));
}

void AspResponse::set_content_type(const std::string& type) {
    check_header_text(type);
    content_type_ = type;
    if (automation::find_ignoring_case(type, "charset=") != std::string::npos) {
        charset_.clear();
    }
}

void AspResponse::set_charset(const std::string& charset) {
    check_header_text(charset);
    charset_ = charset;
}

Value AspResponse::expires() const {
    return expires_ ? Value(*expires_) : Value();
}

Value AspResponse::expires_absolute() const {
    return expires_absolute_ ? Value(*expires_absolute_) : Value();
}

void AspResponse::set_cache_control(const std::string& text) {
    check_header_text(text);
    cache_control_ = text;
}

void AspResponse::AddHeader(const std::string& name, const std::string& value) {
    check_header_text(name);
    check_header_text(value);
    if (name.empty() || name.find_first_of(" :\"(),/;<=>?@[\\]{}") != std::string::npos) {
        throw RunTimeError(ErrorNumber::InvalidProcedureCall,
                           "Invalid procedure call or argument: no header name '" + name + "'");
    }
    headers_.push_back({name, value});
}

AspCookie& AspResponse::cookie_of(const std::string& name) {
    const auto found = std::ranges::find_if(cookies_, [&name](const auto& each) {
        return automation::equals_ignoring_case(each->name(), name);
    });
    if (found != cookies_.end()) {
        return **found;
    }
    return *cookies_.emplace_back(std::make_shared<AspCookie>(name));
}

std::shared_ptr<automation::Object> AspResponse::cookie(const std::string& name) {
    return cookie_of(name).shared_from_this();
}

void AspResponse::set_cookie(const std::string& name, const std::string& value) {
    cookie_of(name).set_value(value);
}

}  // namespace home
