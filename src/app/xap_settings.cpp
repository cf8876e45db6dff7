#include "app/xap_settings.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

#include "automation/convert.h"
#include "automation/run_time_error.h"
#include "host/settings.h"

namespace app {
namespace {

constexpr std::string_view kFile = "settings.ini";
constexpr std::string_view kSection = "xAP";

automation::RunTimeError wrong(std::string_view key, const std::string& text) {
    return {automation::ErrorNumber::InvalidProcedureCall, std::string(kFile) + ", section " +
                                                               std::string(kSection) + ", " +
                                                               std::string(key) + ": " + text};
}

std::string text_setting(host::Settings& settings, std::string_view key,
                         const std::string& fallback) {
    std::string text = settings.GetIniSetting(kSection, key, fallback, kFile);
    std::erase(text, '"');
    text = automation::trim(text);
    return text.empty() ? fallback : text;
}

std::int32_t number_setting(host::Settings& settings, std::string_view key, std::int32_t fallback,
                            std::int32_t least, std::int32_t most) {
    const std::string text = text_setting(settings, key, std::to_string(fallback));
    const auto number = automation::parse_number(text);
    if (!number || *number < least || *number > most) {
        throw wrong(key, "'" + text + "' is no number from " + std::to_string(least) + " to " +
                             std::to_string(most));
    }
    return automation::checked_int32(*number);
}

// A part of an address has neither dots nor wildcards nor blanks.
std::string as_address_part(std::string text) {
    std::erase_if(text, [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) == 0 && c != '_' && c != '-';
    });
    return text.empty() ? "house" : text;
}

std::string machine_name() {
    std::array<char, 256> name{};
    const bool is_known = ::gethostname(name.data(), name.size() - 1) == 0;
    const std::string text = is_known ? name.data() : "";
    return as_address_part(text.substr(0, text.find('.')));
}

// What reaches every machine of a network that nobody has described.
std::string usual_broadcast(const std::string& interface_address) {
    return interface_address.starts_with("127.") ? "127.255.255.255" : "255.255.255.255";
}

}  // namespace

XapSettings read_xap_settings(host::Settings& settings) {
    constexpr std::int32_t kHighestPort = 65'535;
    constexpr std::int32_t kLongestInterval = 3600;
    XapSettings xap;
    xap.interface_address = text_setting(settings, "Interface", xap.interface_address);
    xap.broadcast_address =
        text_setting(settings, "Broadcast", usual_broadcast(xap.interface_address));
    xap.port = number_setting(settings, "Port", xap.port, 1, kHighestPort);
    xap.instance = as_address_part(text_setting(settings, "Instance", machine_name()));
    xap.heartbeat_interval =
        std::chrono::seconds(number_setting(settings, "HeartbeatSeconds", 60, 1, kLongestInterval));
    return xap;
}

// FNV-1a, folded to 16 bits. Numbers 0 and 65535 have a meaning of their own on the network.
std::uint16_t unit_id_of(const std::string& source) {
    constexpr std::uint32_t kBasis = 2166136261;
    constexpr std::uint32_t kPrime = 16777619;
    constexpr std::uint32_t kUsable = 65'534;
    std::uint32_t hash = kBasis;
    for (const char c : source) {
        hash = (hash ^ static_cast<unsigned char>(c)) * kPrime;
    }
    return static_cast<std::uint16_t>(1 + hash % kUsable);
}

}  // namespace app
