#include "status/status_state.h"

#include <algorithm>
#include <array>
#include <limits>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "host/host_interface.h"

namespace status {

namespace {

struct Switch {
    std::string_view key;
    bool StatusState::*field;
    std::string_view fallback;
};

constexpr std::array<Switch, 4> kSwitches{{
    {"ShowControl", &StatusState::ShowControl, "FALSE"},
    {"ShowSetup", &StatusState::ShowSetup, "TRUE"},
    {"ShowReceiveMessages", &StatusState::ShowReceiveMessages, "TRUE"},
    {"ShowReceiveDetail", &StatusState::ShowReceiveDetail, "TRUE"},
}};

constexpr std::string_view kShowStatus = "ShowStatus";
constexpr std::int16_t kStatusAndConfig = 2;

constexpr std::string_view kDescending = "DESC";
constexpr std::string_view kDefaultKey = "DCSort";
constexpr std::array<std::string_view, 4> kSortKeys{"DCSORT", "STATUS", "NAME", "CHANGED"};

bool is_sort_key(const std::string& upper_case) {
    return std::ranges::find(kSortKeys, upper_case) != kSortKeys.end();
}

std::string upper_setting(const core::Instance& instance, std::string_view key,
                          std::string_view fallback) {
    return automation::to_upper(core::read_setting(instance, kStatusSection, key, fallback));
}

std::int16_t read_show_status(const core::Instance& instance) {
    constexpr double kHighest = std::numeric_limits<std::int16_t>::max();
    const auto number =
        automation::parse_number(core::read_setting(instance, kStatusSection, kShowStatus, "2"));
    const bool fits = number && *number >= 0 && *number <= kHighest;
    return fits ? automation::checked_int16(*number) : kStatusAndConfig;
}

void save_setting(core::Instance& instance, std::string_view key, std::string_view value) {
    instance.hs().SaveIniSetting(kStatusSection, key, value, core::kSettingsFile);
}

std::string quoted(const std::string& text) {
    return '"' + text + '"';
}

}  // namespace

void StatusState::load(const core::Instance& instance) {
    for (const Switch& each : kSwitches) {
        this->*each.field = upper_setting(instance, each.key, each.fallback) == "TRUE";
    }
    ShowStatus = read_show_status(instance);
}

void StatusState::save(core::Instance& instance) const {
    for (const Switch& each : kSwitches) {
        save_setting(instance, each.key, automation::text_of(this->*each.field));
    }
    save_setting(instance, kShowStatus, std::to_string(ShowStatus));
}

void StatusState::load_sorting(const core::Instance& instance) {
    StatusSortDirection = upper_setting(instance, "StatusSortDirection", "");
    if (StatusSortDirection != kDescending) {
        StatusSortDirection.clear();
    }
    StatusSortKey = upper_setting(instance, "StatusSortKey", kDefaultKey);
    if (is_sort_key(StatusSortKey)) {
        return;
    }
    StatusSortKey = automation::to_upper(LastSortKey);
    if (!is_sort_key(StatusSortKey)) {
        LastSortKey = kDefaultKey;
        StatusSortKey = automation::to_upper(kDefaultKey);
    }
}

void StatusState::sort_by(core::Instance& instance, const std::string& key) {
    StatusSortKey = key;
    if (key != LastSortKey) {
        LastSortKey = key;
        StatusSortDirection.clear();
    } else {
        StatusSortDirection = StatusSortDirection.empty() ? kDescending : std::string_view();
    }
    save_setting(instance, "StatusSortKey", quoted(StatusSortKey));
    save_setting(instance, "StatusSortDirection", quoted(StatusSortDirection));
}

}  // namespace status
