#include "unit/web_address.h"

#include <algorithm>

#include "automation/whole_number.h"

namespace unit {
namespace {

constexpr std::string_view kScheme = "http://";
constexpr std::size_t kLongestFileName = 80;
constexpr std::int64_t kHighestPort = 65535;

std::string request_target(std::string_view path) {
    std::string target = path.starts_with('/') ? "" : "/";
    for (const char character : path.substr(0, path.find('#'))) {
        if (character == ' ') {
            target += "%20";
        } else if (static_cast<unsigned char>(character) > ' ') {
            target += character;
        }
    }
    return target;
}

bool is_harmless(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '.' || character == '-' ||
           character == '_';
}

}  // namespace

std::optional<WebAddress> parse_web_address(std::string_view url) {
    if (!url.starts_with(kScheme)) {
        return std::nullopt;
    }
    url.remove_prefix(kScheme.size());
    const auto authority_end = std::min(url.find_first_of("/?#"), url.size());
    const std::string_view authority = url.substr(0, authority_end);
    const auto colon = authority.find(':');
    WebAddress address;
    address.host = std::string(authority.substr(0, colon));
    address.target = request_target(url.substr(authority_end));
    if (address.host.empty()) {
        return std::nullopt;
    }
    if (colon != std::string_view::npos) {
        const auto port = automation::whole_number(authority.substr(colon + 1), 1, kHighestPort);
        if (!port) {
            return std::nullopt;
        }
        address.port = static_cast<std::uint16_t>(*port);
    }
    return address;
}

std::string file_name_of(std::string_view url) {
    const std::string_view path = url.substr(0, url.find_first_of("?#"));
    std::string name(path.substr(path.find_last_of("/\\") + 1));
    name.resize(std::min(name.size(), kLongestFileName));
    std::replace_if(
        name.begin(), name.end(), [](char c) { return !is_harmless(c); }, '_');
    return name.empty() ? "sound" : name;
}

}  // namespace unit
