#include "status/visitors.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/strings.h"
#include "automation/whole_number.h"
#include "core/instance.h"
#include "fleet/fleet.h"
#include "status/status_state.h"

namespace status {

namespace {

constexpr int kAddressBits = 32;
constexpr std::uint32_t kLoopback = 127;  // first part of all its addresses

// "a.b.c.d" as a number.
std::optional<std::uint32_t> address_number(std::string_view text) {
    constexpr std::size_t kParts = 4;
    constexpr std::int32_t kHighestPart = 255;
    constexpr unsigned kPartBits = 8;
    const std::vector<std::string> parts = automation::split(text, '.');
    std::uint32_t number = 0;
    for (const std::string& part : parts) {
        const auto value = automation::whole_number(part, 0, kHighestPart);
        if (!value || parts.size() != kParts) {
            return std::nullopt;
        }
        number = number << kPartBits | static_cast<std::uint32_t>(*value);
    }
    return number;
}

// Whether the address lies in "a.b.c.d" or "a.b.c.d/bits"; never in a text that is neither.
bool is_in_network(std::uint32_t address, const std::string& network) {
    const std::size_t slash = network.find('/');
    const auto base = address_number(std::string_view(network).substr(0, slash));
    const auto bits = slash == std::string::npos
                          ? std::optional(kAddressBits)
                          : automation::whole_number(std::string_view(network).substr(slash + 1), 0,
                                                     kAddressBits);
    if (!base || !bits) {
        return false;
    }
    const int rest = kAddressBits - *bits;
    return rest == kAddressBits || address >> rest == *base >> rest;
}

bool is_loopback(std::uint32_t address) {
    constexpr unsigned kBelowFirstPart = 24;
    return address >> kBelowFirstPart == kLoopback;
}

// "house:8080" of "http://house:8080/status"; "null", which a browser says of a page without a
// place, stays as it is.
std::string_view site_of(std::string_view url) {
    constexpr std::string_view kSchemeEnd = "://";
    if (const std::size_t scheme = url.find(kSchemeEnd); scheme != std::string_view::npos) {
        url.remove_prefix(scheme + kSchemeEnd.size());
    }
    return url.substr(0, url.find_first_of("/?#"));
}

bool is_post(const Visitor& visitor) {
    return visitor.method.starts_with("POST");
}

// A sender that tells no site is no page of another one: browsers always tell one of both.
bool is_of_other_site(const Visitor& visitor) {
    const std::string& told = visitor.origin.empty() ? visitor.referer : visitor.origin;
    return !told.empty() && !automation::equals_ignoring_case(site_of(told), visitor.host);
}

}  // namespace

bool Visitors::is_unit(const std::string& address) const {
    return std::ranges::any_of(fleet_.table(), [&address](const fleet::Appliance& appliance) {
        return appliance.VeloraIP.substr(0, appliance.VeloraIP.find(':')) == address;
    });
}

bool Visitors::is_of_the_house(const std::string& address) const {
    const auto number = address_number(address);
    if (!number) {
        return false;
    }
    if (is_loopback(*number) || is_unit(address)) {
        return true;
    }
    const std::string networks =
        core::read_setting(instance_, kStatusSection, "StatusNetworks", "");
    return std::ranges::any_of(automation::split(networks, ','), [&number](const auto& network) {
        return is_in_network(*number, automation::trim(network));
    });
}

bool Visitors::admits(const Visitor& visitor) {
    const host::Protection& protection = instance_.platform().protection;
    if (protection.status_only_for_the_house && !is_of_the_house(visitor.address)) {
        instance_.log.VeloraWriteLog(core::kLogType, "Status page refused to " + visitor.address);
        return false;
    }
    if (protection.foreign_forms_are_refused && is_post(visitor) && is_of_other_site(visitor)) {
        instance_.log.VeloraWriteLog(
            core::kLogType, "Form of another site refused from " + visitor.address + ": " +
                                (visitor.origin.empty() ? visitor.referer : visitor.origin));
        return false;
    }
    return true;
}

}  // namespace status
