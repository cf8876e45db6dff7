#include "unit/page_content.h"

#include <algorithm>
#include <charconv>

namespace unit {
namespace {

constexpr std::string_view kScheme = "http://";

char lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

std::string lowered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), lower);
    return result;
}

// The tags of one kind, from behind their name up to ">", as they stand on the page.
std::vector<std::string_view> tags(std::string_view html, std::string_view start) {
    std::vector<std::string_view> found;
    const std::string searched = lowered(html);
    for (std::size_t at = searched.find(start); at != std::string::npos;
         at = searched.find(start, at)) {
        at += start.size();
        const std::size_t end = searched.find('>', at);
        if (end == std::string::npos) {
            break;
        }
        found.push_back(html.substr(at, end - at));
    }
    return found;
}

// The value of an attribute, with or without quotes; "" without it.
std::string_view attribute(std::string_view tag, std::string_view name) {
    const std::size_t at = lowered(tag).find(name);
    if (at == std::string::npos) {
        return {};
    }
    std::string_view rest = tag.substr(at + name.size());
    rest.remove_prefix(std::min(rest.find_first_not_of(" ="), rest.size()));
    if (rest.starts_with('"') || rest.starts_with('\'')) {
        const char quote = rest.front();
        rest.remove_prefix(1);
        return rest.substr(0, rest.find(quote));
    }
    return rest.substr(0, rest.find(' '));
}

}  // namespace

std::optional<PageRefresh> page_refresh(std::string_view html) {
    constexpr std::string_view kAddress = "url=";
    for (const std::string_view tag : tags(html, "<meta")) {
        if (lowered(attribute(tag, "http-equiv")) != "refresh") {
            continue;
        }
        const std::string_view content = attribute(tag, "content");
        long long seconds = 0;
        const auto [rest, error] =
            std::from_chars(content.data(), content.data() + content.size(), seconds);
        constexpr long long kDay = 86400;
        if (error != std::errc{} || seconds < 0) {
            continue;
        }
        PageRefresh refresh{std::chrono::seconds(std::clamp(seconds, 1LL, kDay)), {}};
        const std::size_t at = lowered(content).find(kAddress);
        if (at != std::string::npos) {
            refresh.address = content.substr(at + kAddress.size());
        }
        return refresh;
    }
    return std::nullopt;
}

std::vector<std::string> picture_addresses(std::string_view html, std::size_t most) {
    std::vector<std::string> addresses;
    for (const std::string_view tag : tags(html, "<img ")) {
        const std::string_view address = attribute(tag, "src");
        if (!address.empty() && addresses.size() < most) {
            addresses.emplace_back(address);
        }
    }
    return addresses;
}

std::string whole_address(std::string_view page, std::string_view address) {
    if (lowered(address.substr(0, kScheme.size())) == kScheme) {
        return std::string(address);
    }
    std::string_view place = page.substr(0, page.find_first_of("?#"));
    const std::size_t path = std::min(place.find('/', kScheme.size()), place.size());
    const bool is_below_root = address.starts_with('/');
    const std::size_t folder = place.rfind('/');
    place = place.substr(0, is_below_root || folder < path ? path : folder);
    return std::string(place) + (is_below_root ? "" : "/") + std::string(address);
}

}  // namespace unit
